#ifndef ZELMORA_PREVIEW_PRINTHOME_H
#define ZELMORA_PREVIEW_PRINTHOME_H

#include <QByteArray>
#include <QString>

#include <optional>

namespace preview {

/// A home directory for the print program, which holds the settings that it is to print with and nothing else. The user
/// alone may enter it. It is gone with the object, and also when a signal ends the process: takeEndingSignals().
class PrintHome {
public:
    /// @p settings: the bytes of a settings file in the brace format; nothing: there is no file.
    explicit PrintHome(const std::optional<QByteArray>& settings);
    ~PrintHome();

    PrintHome(const PrintHome&) = delete;
    PrintHome& operator=(const PrintHome&) = delete;

    QString path() const { return folder; }
    /// Why it could not be made, as the system says it; empty when it is there.
    QString reason() const { return failure; }

private:
    QString keep(const QByteArray& settings) const;

    QString folder;
    QString failure;
};

} // namespace preview

#endif
