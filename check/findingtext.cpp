#include "check/findingtext.h"

#include "vocabulary/jobs.h"

#include <QObject>

namespace check {

QString beginning(const QString& text, int longest)
{
    const bool halves = longest > 0 && longest < text.size() && text.at(longest - 1).isHighSurrogate();
    return text.left(halves ? longest - 1 : longest);
}

QString shown(const QString& text, int longest)
{
    return text.size() <= longest ? text : beginning(text, longest) + QStringLiteral("...");
}

QString withQuestion(const QString& text, const QString& meant)
{
    return meant.isEmpty() ? text : text + QLatin1Char(' ') + QObject::tr("Is \"%1\" meant?").arg(meant);
}

QString namesOf(const QVector<const vocabulary::Method*>& methods)
{
    QStringList names;
    for (const vocabulary::Method* const method : methods)
        names += method->name;
    return names.join(QStringLiteral(", "));
}

Finding unreadable(const QString& reason)
{
    return finding(Code::Unreadable, {}, QObject::tr("The file cannot be read: %1").arg(reason));
}

void add(Findings& findings, Code code, toolkit::TextPlace place, const QString& text, const QString& suggestion)
{
    findings += finding(code, place, text, suggestion);
}

void addLesser(Findings& findings, Code code, toolkit::TextPlace place, const QString& text)
{
    findings += Finding {code, entry(code).lesser, place, text};
}

} // namespace check
