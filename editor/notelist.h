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

    /// @p further: how many there are that are not among @p notes.
    void show(const QVector<settings::Note>& notes, int further = 0);

signals:
    void remedyChosen(const settings::Remedy& remedy);

private:
    void add(const settings::Note& note);
    QWidget* newButton(const settings::Remedy& remedy);

    QVBoxLayout* const lines;
    QVector<QString> shown;
};

#endif
