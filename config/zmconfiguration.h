#ifndef ZELMORA_CONFIG_ZMCONFIGURATION_H
#define ZELMORA_CONFIG_ZMCONFIGURATION_H

#include "config.h"
#include "syncsingleton.h"

/// The settings store: the settings of the user's own file, "/.zelmora/conf/zelmora.conf" under the home
/// directory, in the brace format. The programs share one through SyncSingleton<ZMConfiguration>::instance();
/// the file is read when that is first asked for, and never again.
class ZELMORA_EXPORT ZMConfiguration : public libconfig::Config {
public:
    /// The path of the user's own settings file.
    static QString path();

    /// Reads the file. A missing one is reported on standard output and leaves every setting empty.
    ZMConfiguration();
    /// Takes the settings of the file @p name from its @p bytes, in the format "cfg" or "xml": nothing is opened, and
    /// nothing is reported. For programs that look at settings other than the user's own.
    ZMConfiguration(const QByteArray& bytes, const QString& name, const QString& format);

    /// The text stored under a dotted key such as "zelmora.receiptdoc.paperWidth", an empty string when there is
    /// none. Key and value pass through the 8-bit form (Latin-1): a character above U+00FF becomes '?'.
    QString getStrValue(const QString& key) const;

    /// The settings as a list to edit, owned by the caller: Config::newConfigListView(). Link Zelmora::configwidgets.
    QTreeWidget* newConfigListView() const;
};

// Its code is the library's alone, so that whoever asks finds the same one.
extern template class SyncSingleton<ZMConfiguration>;

#endif
