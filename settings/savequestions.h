#ifndef ZELMORA_SETTINGS_SAVEQUESTIONS_H
#define ZELMORA_SETTINGS_SAVEQUESTIONS_H

#include "settings/settingsfile.h"

namespace settings {

/// What somebody must agree to before a file is saved.
struct SaveQuestion {
    QString text; ///< translated
    QStringList lines; ///< what it is about, one by one; secrets are not shown
};

/// A question for each kind of loss that saving @p file as @p path would bring, of which @p trial is the trial. None
/// when nothing is lost.
QVector<SaveQuestion> questionsBeforeSaving(const SettingsFile& file, const QString& path,
                                            const SettingsFile::Trial& trial);

} // namespace settings

#endif
