// Any bytes as a settings file of either format that is reviewed: the remarks come in the order of the file, and stand
// in its lines.

#include "fuzzing.h"
#include "settings/filereview.h"

static void checkReview(const QByteArray& bytes, const QString& format)
{
    const QList<QByteArray> lines = bytes.split('\n');
    toolkit::TextPlace last;
    for (const settings::FileRemark& remark : settings::reviewOf(bytes, format).dropped) {
        const toolkit::TextPlace place = remark.place;
        require(place.line > last.line || (place.line == last.line && place.column >= last.column), "remarks ascend");
        require(place.line <= lines.size() && place.column <= lines.at(place.line - 1).size() + 1, "places exist");
        last = place;
    }
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size)); // with a NUL behind the last
    checkReview(bytes, QStringLiteral("cfg"));
    checkReview(bytes, QStringLiteral("xml"));
    return 0;
}
