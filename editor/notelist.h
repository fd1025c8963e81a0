#ifndef ZELMORA_EDITOR_NOTELIST_H
#define ZELMORA_EDITOR_NOTELIST_H

#include "settings/settingrows.h"

#include <QWidget>

class QVBoxLayout;

/// What there is to know, one below the other, each with a picture and, where one right text is near, a button that
/// puts it right.
class NoteList : public QWidget {
    Q_OBJECT

public:
    NoteList();

    /// @p further: how many there are that are not among @p theNotes.
    void show(const QVector<settings::Note>& theNotes, int further = 0);

signals:
    void remedyChosen(const settings::Remedy& remedy);

private:
    void add(int index);
    QWidget* newButton(int index);

    QVBoxLayout* const lines;
    QVector<settings::Note> notes;
    QVector<QString> shownTexts;
};

#endif
