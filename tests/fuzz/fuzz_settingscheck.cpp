// Any bytes as a settings file of either format that is checked: the findings come in the order of the file, and stand
// in its lines.

#include "check/settingscheck.h"
#include "fuzzing.h"

#include <QList>

static void checkFindings(const QByteArray& bytes, const QString& format)
{
    const QList<QByteArray> lines = bytes.split('\n');
    toolkit::TextPlace last;
    for (const check::Finding& finding : check::checkSettings(bytes, format, QString())) {
        const toolkit::TextPlace place = finding.place;
        require(!(place < last), "findings ascend");
        require(place.line <= lines.size() && place.column <= lines.at(place.line - 1).size() + 1, "places exist");
        require(!finding.text.isEmpty(), "a finding says something");
        last = place;
    }
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size)); // with a NUL behind the last
    checkFindings(bytes, QStringLiteral("cfg"));
    checkFindings(bytes, QStringLiteral("xml"));
    return 0;
}
