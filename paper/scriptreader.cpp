#include "driver/registercommands.h"
#include "paper/characters.h"
#include "paper/commandreader.h"
#include "paper/decodedscript.h"
#include "paper/fiscalreceipt.h"
#include "paper/rows.h"
#include "toolkit/localecodec.h"

#include <QTextCodec>

#include <algorithm>
#include <optional>

using toolkit::operator""_L1;

namespace paper {

namespace {

using toolkit::TextPlace;

/// A document that goes on.
struct OpenDocument {
    int index; ///< in the roll
    TextPlace begin; ///< of its first command
    bool isFiscal;
    bool isOpened; ///< by an opening command; false: its commands stand alone
    bool isRegistering = false; ///< the register was set to registering mode
    bool isNotOpenedTold = false;
    FiscalReceipt receipt = {}; ///< of a fiscal one
};

QLatin1String closingCommand(bool isFiscal)
{
    return (isFiscal ? registercommands::closeFiscal : registercommands::closeNonFiscal)
        .chopped(registercommands::lineEnd.size());
}

/// Gives each command to the document that it belongs to, and judges their order.
class ScriptReader {
public:
    void read(const QString& line, TextPlace place);
    void addInvalidBytes(TextPlace place, const QByteArray& bytes);
    Roll finish();

private:
    void apply(const Command& command);
    void open(bool isFiscal);
    void enterRegisteringMode();
    void addLine(const Command& command);
    void addFiscal(const Command& command);
    void close(bool isFiscal);

    OpenDocument begin(bool isFiscal, bool isOpened);
    OpenDocument beginAlone(bool isFiscal);
    void end(OpenDocument& document);
    void endStray();
    void judgeText(const Command& command);
    void judgeWidth(const Command& command, const QString& text);
    void tell(Fault::Kind kind) { roll.faults += Fault {kind, place, line}; }

    Roll roll;
    std::optional<OpenDocument> current;
    std::optional<OpenDocument> stray; ///< fiscal commands in the midst of a document that is not
    // Of the line that is read.
    QString line;
    TextPlace place;
};

void ScriptReader::read(const QString& readLine, TextPlace readPlace)
{
    line = readLine;
    place = readPlace;
    const Command command = readCommand(line);
    if (command.kind == Command::None || !command.isTextEnded)
        tell(Fault::NoCommand);
    judgeText(command);
    apply(command);
}

void ScriptReader::apply(const Command& command)
{
    switch (command.kind) {
    case Command::None:
        break;
    case Command::OpenNonFiscal:
    case Command::Clear:
        return open(command.kind == Command::Clear);
    case Command::RegisteringMode:
        return enterRegisteringMode();
    case Command::Line:
        return addLine(command);
    case Command::Sale:
    case Command::Discount:
    case Command::Rate:
    case Command::SubtotalDiscount:
    case Command::Payment:
        return addFiscal(command);
    case Command::CloseNonFiscal:
    case Command::CloseFiscal:
        return close(command.kind == Command::CloseFiscal);
    }
}

OpenDocument ScriptReader::begin(bool isFiscal, bool isOpened)
{
    roll.documents += Document {isFiscal, {}, place};
    return {roll.documents.size() - 1, place, isFiscal, isOpened};
}

/// A document of commands that no opening command stands before.
OpenDocument ScriptReader::beginAlone(bool isFiscal)
{
    tell(Fault::NotOpened);
    OpenDocument document = begin(isFiscal, false);
    document.isNotOpenedTold = true;
    return document;
}

/// What no command opened cannot be opened twice: it ends without a word.
void ScriptReader::open(bool isFiscal)
{
    endStray();
    if (current) {
        if (current->isOpened)
            tell(Fault::OpenedTwice);
        end(*current);
    }
    current = begin(isFiscal, true);
}

void ScriptReader::enterRegisteringMode()
{
    const bool isDue = current && current->isFiscal && !current->isRegistering;
    if (!isDue) {
        const bool isTwice = current && current->isOpened;
        if (!isTwice)
            tell(Fault::NotOpened);
        open(true);
    }
    current->isRegistering = true;
}

void ScriptReader::addLine(const Command& command)
{
    endStray();
    if (!current)
        current = beginAlone(false);
    const Row row = withEdge(textRow(command, place));
    judgeWidth(command, row.text);
    if (current->isFiscal)
        current->receipt.addLine(row);
    else
        roll.documents[current->index].rows += row;
}

void ScriptReader::addFiscal(const Command& command)
{
    if (!current)
        current = beginAlone(true);
    if (!current->isFiscal && !stray)
        stray = beginAlone(true);
    OpenDocument& document = current->isFiscal ? *current : *stray;
    if (!document.isRegistering && !document.isNotOpenedTold) {
        tell(Fault::NotOpened);
        document.isNotOpenedTold = true;
    }
    document.receipt.add(command, place);
}

void ScriptReader::close(bool isFiscal)
{
    if (stray && isFiscal)
        return endStray();
    endStray();
    if (!current || current->isFiscal != isFiscal)
        return tell(Fault::NotOpened);
    end(*current);
    current.reset();
}

void ScriptReader::endStray()
{
    if (stray)
        end(*stray);
    stray.reset();
}

void ScriptReader::end(OpenDocument& document)
{
    if (!document.isFiscal)
        return;
    roll.documents[document.index].rows = document.receipt.rows(place);
    if (document.isOpened && !document.receipt.hasSale())
        roll.faults += Fault {Fault::NoSale, document.begin};
    if (const std::optional<FiscalReceipt::Missing> missing = document.receipt.missing())
        roll.faults += Fault {Fault::PaymentsBelowSum, missing->place, missing->amount.text()};
}

void ScriptReader::judgeText(const Command& command)
{
    if (command.behindQuote.isEmpty())
        return;
    const TextPlace at = toolkit::after(place, line.left(command.quote));
    const bool isInText = command.behindQuote.endsWith(registercommands::quote);
    roll.faults += isInText ? Fault {Fault::QuoteInText, at, command.text}
                            : Fault {Fault::BehindQuote, at, line.mid(line.lastIndexOf(registercommands::quote) + 1)};
}

/// As the check of a job counts: characters, whatever they take on paper, and no line of blanks.
void ScriptReader::judgeWidth(const Command& command, const QString& text)
{
    int edge = 0; // of the text
    for (int characters = 0; edge < text.size() && characters < registercommands::paperWidth; ++characters)
        nextCharacter(text, edge);
    if (edge == text.size() || isBlank(text))
        return;
    const int quotes = edge < command.text.size() ? 0 : 1; // before the edge
    const QString before = line.left(registercommands::linePrefix.size() + edge + quotes);
    roll.faults += Fault {Fault::TooWide, toolkit::after(place, before), text};
}

void ScriptReader::addInvalidBytes(TextPlace at, const QByteArray& bytes)
{
    roll.faults += Fault {Fault::InvalidBytes, at, QString::fromLatin1(bytes.toHex())};
}

Roll ScriptReader::finish()
{
    endStray();
    if (current) {
        end(*current);
        roll.faults += Fault {Fault::NotClosed, current->begin, closingCommand(current->isFiscal)};
    }
    std::stable_sort(roll.faults.begin(), roll.faults.end(),
                     [](const Fault& left, const Fault& right) { return left.place < right.place; });
    return std::move(roll);
}

/// Adds a fault for each run of invalid bytes of @p script.
void addInvalidBytes(ScriptReader& reader, const DecodedScript& decoded, const QByteArray& script)
{
    TextPlace place;
    int reached = 0; // of the text
    for (const InvalidBytes& run : decoded.invalid) {
        while (reached < run.position)
            place = toolkit::after(place, decoded.text.at(reached++));
        reader.addInvalidBytes(place, script.mid(run.begin, run.length));
    }
}

/// Lines end at LF; a CR right before it belongs to the end.
void readLines(ScriptReader& reader, const QString& text)
{
    TextPlace place;
    for (int begin = 0; begin < text.size(); ++place.line) {
        const int found = text.indexOf(QLatin1Char('\n'), begin);
        const int next = found < 0 ? text.size() : found;
        const bool hasReturn = found > begin && text.at(found - 1) == QLatin1Char('\r');
        reader.read(text.mid(begin, next - begin - (hasReturn ? 1 : 0)), place);
        begin = next + 1;
    }
}

} // namespace

Roll readRoll(const QByteArray& script, QTextCodec* codec)
{
    ScriptReader reader;
    const DecodedScript text = decoded(script, codec ? *codec : *toolkit::localeCodec());
    readLines(reader, text.text);
    addInvalidBytes(reader, text, script);
    return reader.finish();
}

bool isJob(const QByteArray& contents)
{
    // Of UTF-16 the other half of each character is a NUL.
    static const char skipped[] = "\xEF\xBB\xBF\xFF\xFE \t\r\n";
    const auto first = std::find_if(contents.begin(), contents.end(), [](char byte) {
        return std::find(std::begin(skipped), std::end(skipped), byte) == std::end(skipped);
    });
    return first != contents.end() && *first == '<';
}

} // namespace paper
