#include "config/bracescanner.h"

#include "config/textblocks.h"
#include "toolkit/textencoder.h"
#include "toolkit/textsize.h"

#include <algorithm>
#include <utility>

namespace libconfig {

namespace {

/// As nearly all texts are: they need no converter, and have no white space but the blanks.
bool isAscii(std::string_view bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

/// Of the white space that nearly all of it is: what comes from beyond ASCII is looked at as text.
bool isBlank(char byte)
{
    return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

/// @p bytes without the white space of ASCII around them.
std::string_view withoutBlanks(std::string_view bytes)
{
    while (!bytes.empty() && isBlank(bytes.back()))
        bytes.remove_suffix(1);
    while (!bytes.empty() && isBlank(bytes.front()))
        bytes.remove_prefix(1);
    return bytes;
}

/// The size of a text that these bytes may become.
int textSize(std::string_view bytes)
{
    toolkit::takeTextOfSize(static_cast<qint64>(bytes.size()));
    return static_cast<int>(bytes.size());
}

QLatin1String latin1(std::string_view bytes)
{
    return QLatin1String(bytes.data(), textSize(bytes));
}

/// @p bytes as text. UTF-8 where they are that: @p isUtf8 says so.
QString decoded(std::string_view bytes, bool& isUtf8)
{
    QString text;
    isUtf8 = toolkit::decodeUtf8(bytes.data(), textSize(bytes), text);
    return isUtf8 ? text : QString(latin1(bytes));
}

/// How many characters at the start of @p text do not belong to what it says.
int leadingCharacters(const QString& text)
{
    const auto isLeading = [](QChar character) { return character.isSpace() || character == QChar::ByteOrderMark; };
    return static_cast<int>(std::find_if_not(text.begin(), text.end(), isLeading) - text.begin());
}

} // namespace

std::pair<QString, qint64> ScannedText::trimmed() const
{
    const std::string_view inner = withoutBlanks(bytes);
    const qint64 begin = offset + (inner.empty() ? static_cast<qint64>(bytes.size()) : inner.data() - bytes.data());
    if (isAscii(inner))
        return {latin1(inner), begin};
    bool isUtf8 = false;
    QString whole = decoded(inner, isUtf8);
    const int leading = leadingCharacters(whole);
    if (leading == 0)
        return {std::move(whole).trimmed(), begin};
    return {whole.mid(leading).trimmed(), begin + (isUtf8 ? whole.left(leading).toUtf8().size() : leading)};
}

ScannedName::ScannedName(const ScannedText& scanned)
{
    const std::string_view inner = withoutBlanks(scanned.bytes);
    if (isAscii(inner))
        ascii = latin1(inner);
    else
        decoded = scanned.text();
}

BraceScanner::BraceScanner(std::FILE* input)
    : input(input)
    , blocks(std::make_shared<TextBlocks>())
{
}

std::unique_ptr<BraceScanner> BraceScanner::over(const QByteArray& bytes)
{
    auto* const text = const_cast<char*>(bytes.constData()); // which is opened for reading
    std::FILE* const input = fmemopen(text, static_cast<std::size_t>(bytes.size()), "rb");
    return input ? std::make_unique<BraceScanner>(input) : nullptr;
}

ScanEvent BraceScanner::next()
{
    while (pending.empty())
        scan();
    const ScanEvent event = pending.front();
    pending.pop_front();
    return event;
}

/// Reads as far as the next thing that is worth an event.
void BraceScanner::scan()
{
    const ScannedText text = readUpTo(':', '=', '}');
    switch (stop) {
    case ':':
        beginGroup(text);
        break;
    case '=':
        pending.push_back({ScanEvent::Kind::Setting, text, readUpTo(';')});
        break;
    case '}':
        addSkipped(text, ScanEvent::Reason::BeforeEnd);
        pending.push_back({ScanEvent::Kind::GroupEnds, {{}, offset - 1}});
        addSkipped(readUpTo(';'), ScanEvent::Reason::AfterBrace);
        depth = std::max(0, depth - 1);
        break;
    default:
        addSkipped(text, ScanEvent::Reason::BeforeEnd);
        pending.push_back({ScanEvent::Kind::EndOfInput, {{}, offset}});
    }
}

void BraceScanner::beginGroup(const ScannedText& name)
{
    pending.push_back({ScanEvent::Kind::GroupBegins, name});
    addSkipped(readUpTo('{'), ScanEvent::Reason::BeforeBrace);
    if (++depth > greatestGroupDepth)
        addSkipped(rest(), ScanEvent::Reason::TooDeep);
}

void BraceScanner::addSkipped(const ScannedText& text, ScanEvent::Reason reason)
{
    if (!std::all_of(text.bytes.begin(), text.bytes.end(), isBlank))
        pending.push_back({ScanEvent::Kind::Skipped, text, {}, reason});
}

bool BraceScanner::skipTo(char target)
{
    readUpTo(static_cast<unsigned char>(target));
    return stop != EOF;
}

ScannedText BraceScanner::rest()
{
    return readUpTo(EOF);
}

ScannedText BraceScanner::readUpTo(int first, int second, int third)
{
    // Not locked for each byte: one thread reads a file. All settings of all documents pass here at each receipt.
    std::FILE* const file = input.get();
    int byte = getc_unlocked(file);
    for (; byte != EOF && byte != first && byte != second && byte != third; byte = getc_unlocked(file))
        blocks->append(static_cast<char>(byte));
    const ScannedText text {blocks->take(), offset};
    stop = byte;
    offset += static_cast<qint64>(text.bytes.size()) + (stop == EOF ? 0 : 1);
    return text;
}

} // namespace libconfig
