#include "preview/settingsbytes.h"

#include "config/settingsscan.h"
#include "config/zmconfiguration.h"
#include "settings/settingsfile.h"
#include "settings/shownloss.h"
#include "toolkit/literals.h"

#include <QObject>

using settings::SettingsFile;
using toolkit::operator""_L1;

namespace preview {

namespace {

SettingsBytes failed(const QString& path, const QString& reason)
{
    return {std::nullopt, QObject::tr("The file %1 cannot be read: %2").arg(path, reason)};
}

SettingsBytes converted(const QString& path)
{
    SettingsFile file;
    const QString reason = file.load(path);
    return reason.isEmpty() ? settingsOf(file) : failed(path, reason);
}

} // namespace

/// What no look-up reaches is left out: it makes no difference to what is printed.
SettingsBytes settingsOf(const SettingsFile& file)
{
    const SettingsFile::Trial trial = file.tryWriting(QStringLiteral("zelmora.conf"));
    if (!trial.reason.isEmpty())
        return failed(file.path(), trial.reason);
    if (trial.changed.isEmpty())
        return {trial.bytes, {}};
    return {std::nullopt,
            QObject::tr("The print program reads the brace form alone, which cannot hold this of the file %1:")
                    .arg(file.path())
                + "\n  "_L1 + settings::shownSettings(trial.changed, file).join("\n  "_L1)};
}

SettingsBytes readSettings(const QString& path)
{
    if (libconfig::settingsFormat(path) == "xml"_L1)
        return converted(path);
    QByteArray bytes;
    const QString reason = SettingsFile::read(path, bytes);
    return reason.isEmpty() ? SettingsBytes {bytes, {}} : failed(path, reason);
}

SettingsBytes readOwnSettings()
{
    const QString path = ZMConfiguration::path();
    return SettingsFile::isMissing(path) ? SettingsBytes() : readSettings(path);
}

} // namespace preview
