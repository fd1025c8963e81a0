#ifndef ZELMORA_LOG_HLOGMANAGER_H
#define ZELMORA_LOG_HLOGMANAGER_H

#include "../config/syncsingleton.h"
#include "logger.h"

#include <QMap>

#include <memory>
#include <vector>

/// The loggers of a program by name, and their owner. The programs share one through
/// SyncSingleton<HLogManager>::instance(), whose creation any thread may ask for; the manager itself takes no lock.
///
/// At the end of the process a singleton or static object that was made after the shared manager was first asked for
/// can still log in its destructor, whenever set() was called, and may call set() there. To be sure of that it asks
/// for the manager in its constructor. An object that is older finds no logger any more: the manager and all Loggers
/// have gone before, and what instance() gave or gives, and every Logger of it, must not be used.
class ZELMORA_EXPORT HLogManager {
public:
    /// No logger yet, and no settings read.
    HLogManager();
    /// Releases every logger that was ever set.
    ~HLogManager();

    HLogManager(const HLogManager&) = delete;
    HLogManager& operator=(const HLogManager&) = delete;

    /// Opens a logger from the settings and keeps it under @p name, or under "default" when that is empty. One that
    /// had the name before stays usable for those who hold it. @p loggerArgument is the argument of Logger's
    /// constructor, which does not use it.
    void set(const QString& loggerArgument, const QString& name);

    /// The logger of that name, null when none was set. Owned by the manager. The empty name stands for "default",
    /// and asking for it enters a null "default" where there is none; no other name enters anything.
    Logger* getLog(const QString& name);

protected:
    /// Owned; a value may be null. Derived classes see what getLog() enters.
    QMap<QString, Logger*> loggers;

private:
    std::vector<std::unique_ptr<Logger>> replaced; ///< held by others perhaps, so they go last
};

// Its code is the library's alone, so that whoever asks finds the same one.
extern template class SyncSingleton<HLogManager>;

#endif
