#include "documentedprograms.h"

#include <QRegularExpression>

namespace {

const QRegularExpression headingOrBlock("^#+ (?<heading>[^\n]*)$|^```(?<language>\\w+)\n(?<contents>.*?)^```$",
                                        QRegularExpression::MultilineOption
                                            | QRegularExpression::DotMatchesEverythingOption);

} // namespace

QVector<DocumentedProgram> documentedPrograms(const QByteArray& page)
{
    QVector<DocumentedProgram> programs;
    QString heading;
    QRegularExpressionMatchIterator parts = headingOrBlock.globalMatch(QString::fromUtf8(page));
    while (parts.hasNext()) {
        const QRegularExpressionMatch part = parts.next();
        const QString language = part.captured("language");
        const QByteArray contents = part.captured("contents").toUtf8();
        if (language.isEmpty())
            heading = part.captured("heading");
        else if (language == "cpp")
            programs += {heading, contents.left(contents.indexOf('\n')).mid(12), contents, {}, {}};
        else if (!programs.isEmpty() && programs.last().heading == heading)
            (language == "log" ? programs.last().log : programs.last().output) += contents;
    }
    return programs;
}

QByteArray block(const QByteArray& page, const QByteArray& language, int index)
{
    const QByteArray opening = "\n```" + language + '\n';
    int begin = page.indexOf(opening);
    for (; index > 0 && begin >= 0; --index)
        begin = page.indexOf(opening, begin + 1);
    if (begin < 0)
        return QByteArray();
    begin += opening.size();
    return page.mid(begin, page.indexOf("\n```\n", begin) + 1 - begin);
}

QByteArray documentedSettings(const QByteArray& page)
{
    const QByteArray end = "\n};\n\n";
    const int begin = page.indexOf("zelmora: \n{\n");
    return begin < 0 ? QByteArray() : page.mid(begin, page.indexOf(end, begin) + end.size() - begin);
}

QByteArray withoutTimes(const QByteArray& log)
{
    const QRegularExpression time("^\\[\\d\\d-\\d\\d-\\d{4} \\d\\d:\\d\\d:\\d\\d:\\d{3}\\]",
                                  QRegularExpression::MultilineOption);
    return QString::fromUtf8(log).replace(time, "[07-04-2026 13:05:09:042]").toUtf8();
}
