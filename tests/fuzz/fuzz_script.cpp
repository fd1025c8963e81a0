// A script: its codec's number (one byte), then its bytes. Faults come in the order of the script and stand in its
// lines; documents too. All drawings that need no font are made, each row of the plain one is a line, and the two
// halves of the papers are compared: nothing is lost by that.

#include "check/scriptcheck.h"
#include "fuzzing.h"
#include "paper/comparison.h"
#include "paper/drawing.h"
#include "paper/roll.h"
#include "paper/sheet.h"

#include <QTextCodec>

namespace {

QTextCodec* codecOf(char number)
{
    static const char* const names[] = {"UTF-8",   "ISO-8859-15", "ISO-8859-7", "Shift_JIS",
                                        "GB18030", "UTF-16",      "UTF-32LE"};
    const std::size_t count = sizeof names / sizeof *names;
    return QTextCodec::codecForName(names[static_cast<unsigned char>(number) % count]);
}

void requireOrder(const paper::Roll& roll, const QByteArray& script)
{
    const int lines = script.count('\n') + 1; // as many as there can be, whatever the encoding
    toolkit::TextPlace last;
    for (const paper::Fault& fault : roll.faults) {
        require(!(fault.place < last), "faults ascend");
        require(fault.place.line <= lines && fault.place.column >= 1, "places exist");
        last = fault.place;
    }
    last = {};
    for (const paper::Document& document : roll.documents) {
        require(!(document.place < last), "documents ascend");
        last = document.place;
    }
}

void requireMarks(const paper::Rows& rows)
{
    for (const paper::Row& row : rows) {
        for (const paper::MarkedPart& part : row.marked)
            require(part.begin >= 0 && part.length >= 0 && part.begin + part.length <= row.text.size(),
                    "marks stand in their text");
    }
}

void compare(const paper::Rows& left, const paper::Rows& right)
{
    const paper::AlignedRows aligned = paper::alignedRows(left, right);
    require(aligned.left.size() == aligned.right.size(), "rows stand beside each other");
    require(aligned.left.size() <= left.size() + right.size(), "no row is put in for nothing");
    requireMarks(aligned.left);
    requireMarks(aligned.right);
    require(paper::withChanges(right, left).size() == right.size(), "no row is lost");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray input = bytesOf(data, size);
    QTextCodec* const codec = codecOf(input.isEmpty() ? 0 : input.at(0));
    const QByteArray script = input.mid(1);
    const paper::Roll roll = paper::readRoll(script, codec);
    requireOrder(roll, script);
    require(check::findingsOf(roll, codec).size() <= roll.faults.size(), "a fault is one finding");
    require(paper::looksAlike(roll, roll), "a script looks like itself");

    paper::Sheet sheet;
    for (const paper::Document& document : roll.documents) {
        requireMarks(document.rows);
        require(paper::plainText(document).count(u'\n') == document.rows.size(), "a row is a line");
        compare(document.rows.mid(0, document.rows.size() / 2), document.rows.mid(document.rows.size() / 2));
        sheet.bands += paper::Sheet::Band {{QString(), document.rows}, {QString(), document.rows}};
    }
    paper::textDrawing(sheet, paper::Frame::Box);
    paper::svgDrawing(sheet);
    return 0;
}
