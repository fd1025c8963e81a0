#ifndef ZELMORA_VOCABULARY_SETTINGS_H
#define ZELMORA_VOCABULARY_SETTINGS_H

#include "toolkit/literals.h"
#include "vocabulary/jobs.h"
#include "vocabulary/table.h"

#include <QString>
#include <QStringList>
#include <QVector>

/// What a settings file may say (docs/settings-file.md), as tables: every setting that a program of the suite reads.
/// That they say what the programs do is tested by running them.
namespace vocabulary {

enum class SettingKind {
    Flag, ///< "true" or anything else
    Number, ///< a whole number
    Word, ///< one of several, in any letter case
    Path,
    Text,
    Secret, ///< text that is not shown unasked
};

struct Setting {
    QLatin1String key; ///< without its group
    SettingKind kind;
    /// The value that a program takes when the setting is absent: "32", "false". Empty where it is not one of the
    /// setting's own values; absence says more then.
    QLatin1String absent;
    const char* absence; ///< what its absence means, where absent does not say it; null otherwise. To be translated.
    const char* description; ///< one sentence. To be translated.
    int least = 0; ///< the range of a number
    int greatest = 0;
    Table<QLatin1String> words = {}; ///< what a word may be
    unsigned int actsIn =
        0; ///< of a document's and the language's: bit number n is set when the script of methods()[n] depends on it
    enum class ReadIn { EveryDocument, DocumentsItActsIn, AllButSold } readIn = ReadIn::EveryDocument;
};

/// A group below "zelmora".
struct SettingGroup {
    QLatin1String name;
    const char* title; ///< its plain name, to be translated
    const char* description; ///< to be translated
    Table<Setting> settings;
    bool isDocument = false; ///< all of these share one table of settings
};

/// In the order of a settings file: the programs' own groups, then the documents'.
Table<SettingGroup> settingGroups();
/// Null when there is none. Names are case-sensitive.
const SettingGroup* findGroup(const QString& name);
const Setting* findSetting(const SettingGroup& group, const QString& key);

/// The whole key, under which look-ups find the setting in that group: "zelmora.receiptdoc.paperWidth".
QString keyOf(const SettingGroup& group, const Setting& setting);
/// The whole keys of what is not shown unasked.
QStringList secretKeys();

/// Whether a program reads that setting of the group's table in that group.
bool isRead(const SettingGroup& group, const Setting& setting);
/// The methods printed with a document's settings.
QVector<const Method*> methodsOf(const SettingGroup& group);
/// The methods whose scripts depend on the setting in that group.
QVector<const Method*> methodsAffected(const SettingGroup& group, const Setting& setting);
/// Whether it has an effect anywhere: in some document's script, or in another program.
bool actsSomewhere(const Setting& setting);
/// "a flag, true or false", "a number from 0 to 10000", "one of DEBUG, INFO, ...", translated.
QString valueText(const Setting& setting);
/// What the print program makes of the number that is written for it: a malformed one is 0, one that is too great
/// counts as the greatest, either way, and 0 is what absence is, where that is a number.
int numberTaken(const Setting& setting, const QString& written);
/// Whether the setting takes @p value: a flag "true" or "false", a number within its range, one of the words; a path, a
/// text and a secret take any.
bool takes(const Setting& setting, const QString& value);

} // namespace vocabulary

#endif
