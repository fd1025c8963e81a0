#include "util/paperprompt.h"

#include "toolkit/console.h"
#include "toolkit/literals.h"
#include "toolkit/localecodec.h"

#include <QObject>

#include <cerrno>
#include <cstdio>

using toolkit::operator""_L1;

namespace {

paperprompt::MessageBox messageBox = nullptr;

/// Of standard input; a signal that interrupts the wait is no answer.
int nextCharacter()
{
    for (;;) {
        errno = 0;
        const int character = std::getchar();
        if (character != EOF || errno != EINTR)
            return character;
        std::clearerr(stdin);
    }
}

void askOnConsole(const QString& caption, const QString& text)
{
    toolkit::writeLine(toolkit::localeText(caption + ": "_L1 + text));
    int character = 0;
    do
        character = nextCharacter();
    while (character != '\n' && character != EOF);
}

} // namespace

void paperprompt::setMessageBox(MessageBox box)
{
    messageBox = box;
}

void paperprompt::askForSheet()
{
    const QString caption = QObject::tr("PaperWindow");
    const QString text = QObject::tr("Insert a new sheet");
    if (!messageBox || !messageBox(caption, text))
        askOnConsole(caption, text);
}
