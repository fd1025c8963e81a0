#include "editor/notelist.h"

#include "check/findingtext.h"
#include "editor/icons.h"
#include "toolkit/literals.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

using toolkit::operator""_L1;
using settings::Note;
using settings::Remedy;

namespace {

const int longestText = 300; ///< of what a note says
const int longestBefore = 16; ///< of what a button shows of a wrong text
const int longestLine = 40; ///< of a button
const int longestWord = 24; ///< that is not broken

/// A long word would make all rows wider than the window.
QString breakable(const QString& text)
{
    QString broken;
    int length = 0;
    for (const QChar character : text) {
        length = character.isSpace() ? 0 : length + 1;
        broken += character;
        if (length > 0 && length % longestWord == 0 && !character.isHighSurrogate())
            broken += QChar(0x200B); // a blank of no width
    }
    return broken;
}

QLabel* newText(const QString& text)
{
    auto* const label = new QLabel(breakable(check::shown(text, longestText)));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

/// By which two lists are told apart.
QVector<QString> textsOf(const QVector<Note>& notes, int further)
{
    QVector<QString> texts {QString::number(further)};
    for (const Note& note : notes)
        texts << note.text << (note.remedy ? note.remedy->before + note.remedy->after : QString());
    return texts;
}

} // namespace

NoteList::NoteList()
    : lines(new QVBoxLayout(this))
{
    lines->setContentsMargins(0, 0, 0, 0);
    hide();
}

void NoteList::show(const QVector<Note>& theNotes, int further)
{
    notes = theNotes; // what puts it right may have changed where nothing that is seen has
    const QVector<QString> texts = textsOf(notes, further);
    if (texts == shownTexts)
        return; // a button that was just pressed stays
    shownTexts = texts;
    for (QWidget* const line : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        line->hide();
        line->deleteLater(); // it may be the one that was pressed
    }
    for (int i = 0; i < notes.size(); ++i)
        add(i);
    if (further > 0)
        lines->addWidget(newText(QObject::tr("and %1 more").arg(further)));
    setVisible(!notes.isEmpty());
}

void NoteList::add(int index)
{
    const Note& note = notes.at(index);
    auto* const line = new QWidget;
    auto* const layout = new QGridLayout(line);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setColumnStretch(1, 1);
    auto* const picture = new QLabel;
    picture->setPixmap(icons::severity(note.severity).pixmap(style()->pixelMetric(QStyle::PM_SmallIconSize)));
    layout->addWidget(picture, 0, 0, Qt::AlignTop);
    layout->addWidget(newText(note.text), 0, 1);
    if (note.remedy)
        layout->addWidget(newButton(index), 1, 1, Qt::AlignLeft);
    lines->addWidget(line);
}

QWidget* NoteList::newButton(int index)
{
    const Remedy& remedy = *notes.at(index).remedy;
    const QString before = check::shown(remedy.before.simplified(), longestBefore);
    const QString change = QStringLiteral("%1 \u2192 %2").arg(before, remedy.after); // an arrow
    const QString text = QObject::tr("Put it right: %1").arg(change);
    const QString lines =
        text.size() <= longestLine ? text : QObject::tr("Put it right: %1").arg(QLatin1Char('\n') + change);
    auto* const button = new QPushButton(QString(lines).replace(QLatin1Char('&'), "&&"_L1)); // no letter of it is a key
    button->setAccessibleName(text);
    connect(button, &QPushButton::clicked, this, [this, index] {
        const Remedy chosen = *notes.at(index).remedy; // other notes come of it
        emit remedyChosen(chosen);
    });
    return button;
}
