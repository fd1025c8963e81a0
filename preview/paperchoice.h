#ifndef ZELMORA_PREVIEW_PAPERCHOICE_H
#define ZELMORA_PREVIEW_PAPERCHOICE_H

#include "preview/paperjob.h"
#include "vocabulary/jobs.h"

#include <QHash>
#include <QStringList>
#include <QVector>

#include <optional>

namespace preview {

/// The documents whose paper shows what the settings of the group @p name do: those printed with a document's settings;
/// all of them for settings that every document reads; none for settings that no document reads.
QVector<const vocabulary::Method*> methodsShownFor(const QString& name);

/// Which paper is shown beside the settings: there is a choice in each group of them, and each group keeps its own.
class PaperChoice {
public:
    /// Goes to the group @p name of the settings. One that no document reads changes nothing. False when all is as it
    /// was.
    bool setGroup(const QString& name);

    /// What can be chosen, by its title: each document of the group, as a built-in sample; before them all at once,
    /// where the settings are for all; behind them a job of one's own. Empty before the first group.
    QStringList titles() const;
    /// The index of the title that is chosen; -1 when there is none.
    int current() const;
    void choose(int index);
    /// Chooses @p job, in place of the one of one's own that the group had.
    void chooseOwn(const PaperJob& job);

    QVector<PaperJob> jobs() const; ///< that are chosen

private:
    struct Choice {
        int index = 0;
        std::optional<PaperJob> own;
    };
    struct Offer {
        QString title;
        QVector<PaperJob> jobs;
    };

    QVector<Offer> offers() const;

    QString group;
    QHash<QString, Choice> choices; ///< by group
};

} // namespace preview

#endif
