#ifndef ZELMORA_TESTS_SUPPORT_CONSOLESTEPS_H
#define ZELMORA_TESTS_SUPPORT_CONSOLESTEPS_H

#include <QByteArray>
#include <QVector>

/// A command that a page shows, and what it says that it prints.
struct ConsoleStep {
    QByteArray command;
    QByteArray output;
};

/// Those of all sessions ("```console") of a page in Markdown, in their order.
inline QVector<ConsoleStep> consoleSteps(const QByteArray& page)
{
    QVector<ConsoleStep> steps;
    bool isInside = false;
    for (const QByteArray& line : page.split('\n')) {
        if (line.startsWith("```"))
            isInside = line == "```console";
        else if (isInside && line.startsWith("$ "))
            steps += ConsoleStep {line.mid(2), QByteArray()};
        else if (isInside)
            steps.last().output += line + '\n';
    }
    return steps;
}

#endif
