#ifndef ZELMORA_LOG_HLOGMANAGER_H
#define ZELMORA_LOG_HLOGMANAGER_H

#include "config/syncsingleton.h"
#include "log/logger.h"

#include <QMap>

#include <memory>
#include <vector>

/// The loggers of a program by name, and their owner. The programs share one through
/// SyncSingleton<HLogManager>::instance(), whose creation any thread may ask for; the manager itself takes no lock.
class HLogManager {
public:
    HLogManager() = default;
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

#endif
