#include "check/codelist.h"

#include "check/codes.h"

#include <QObject>

#include <algorithm>

using toolkit::operator""_L1;

namespace check {

namespace {

const int gap = 2; ///< between columns

QString severitiesOf(const CodeEntry& code)
{
    const QString graver = word(code.severity);
    return code.lesser == code.severity ? graver : graver + " or "_L1 + word(code.lesser);
}

/// The width of a column whose texts @p textOf gives.
template <typename TextOf>
int widthOf(TextOf textOf)
{
    int width = 0;
    for (const CodeEntry& code : codes())
        width = std::max<int>(width, textOf(code).size() + gap);
    return width;
}

} // namespace

QString codeList()
{
    const int names = widthOf([](const CodeEntry& code) { return code.name; });
    const int severities = widthOf(severitiesOf);
    QString list;
    for (const CodeEntry& code : codes())
        list += QString(code.name).leftJustified(names) + severitiesOf(code).leftJustified(severities)
            + QObject::tr(code.explanation) + u'\n';
    return list;
}

} // namespace check
