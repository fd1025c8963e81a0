#include "check/findingtext.h"

#include "vocabulary/jobs.h"

namespace check {

QString shown(const QString& text)
{
    const int greatest = 80; // a job may hold megabytes, which nobody reads and each finding would keep
    if (text.size() <= greatest)
        return text;
    const int end = text.at(greatest - 1).isHighSurrogate() ? greatest - 1 : greatest; // no half of a character
    return text.left(end) + QStringLiteral("...");
}

QString namesOf(const QVector<const vocabulary::Method*>& methods)
{
    QStringList names;
    for (const vocabulary::Method* const method : methods)
        names += method->name;
    return names.join(QStringLiteral(", "));
}

void add(Findings& findings, Code code, toolkit::TextPlace place, const QString& text, const QString& suggestion)
{
    findings += Finding {code, entry(code).severity, place, text, suggestion};
}

void addLesser(Findings& findings, Code code, toolkit::TextPlace place, const QString& text)
{
    findings += Finding {code, entry(code).lesser, place, text};
}

} // namespace check
