#ifndef ZELMORA_PREVIEW_SETTINGSBYTES_H
#define ZELMORA_PREVIEW_SETTINGSBYTES_H

#include <QByteArray>
#include <QString>

#include <optional>

namespace settings {
class SettingsFile;
}

namespace preview {

/// Settings as the print program reads them.
struct SettingsBytes {
    std::optional<QByteArray> bytes; ///< in the brace format; nothing where there is no file
    QString reason; ///< why they cannot be read, or cannot be had in that format, translated; empty when they can
};

/// Those of the file @p path: XML where its name ends in ".xml", which is converted; any other byte for byte.
SettingsBytes readSettings(const QString& path);
/// Those of @p file as it is in memory, saved or not.
SettingsBytes settingsOf(const settings::SettingsFile& file);
/// The user's own, which need not be there.
SettingsBytes readOwnSettings();

} // namespace preview

#endif
