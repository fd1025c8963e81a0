// Any bytes as a settings file in the brace format that is scanned: the texts stand where the scanner says, one after
// the other, and it passes nothing over but blanks and the grammar's marks.

#include "config/bracescanner.h"
#include "fuzzing.h"

static void pass(const std::string& input, const libconfig::ScannedText& text, std::size_t& reached)
{
    const auto offset = static_cast<std::size_t>(text.offset);
    require(offset >= reached && offset <= input.size(), "texts come one after the other");
    require(input.compare(offset, text.bytes.size(), text.bytes) == 0, "a text stands at its offset");
    require(input.find_first_not_of(" \t\n\v\f\r:={};", reached) >= offset, "between texts are blanks and marks");
    reached = offset + text.bytes.size();
}

static void checkScanner(const QByteArray& bytes, const QString& path)
{
    using Event = libconfig::ScanEvent;
    const std::string input = bytes.toStdString();
    libconfig::BraceScanner scanner(std::fopen(qPrintable(path), "rb"));
    std::size_t reached = 0;
    for (Event event = scanner.next(); event.kind != Event::Kind::EndOfInput; event = scanner.next()) {
        if (event.kind != Event::Kind::GroupEnds)
            pass(input, event.text, reached);
        if (event.kind == Event::Kind::Setting)
            pass(input, event.value, reached);
    }
    pass(input, {{}, bytes.size()}, reached);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const MemoryFile file;
    const QByteArray bytes = bytesOf(data, size);
    checkScanner(bytes, file.holding(bytes));
    return 0;
}
