#include "config/bracescanner.h"

#include "toolkit/textencoder.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>
#include <utility>

namespace libconfig {

namespace {

bool isAscii(char byte)
{
    return static_cast<unsigned char>(byte) < 0x80;
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

/// As many of @p bytes as a text holds.
int textSize(std::string_view bytes)
{
    return static_cast<int>(std::min<std::size_t>(bytes.size(), std::numeric_limits<int>::max()));
}

QString latin1(std::string_view bytes)
{
    return QString::fromLatin1(bytes.data(), textSize(bytes));
}

/// @p bytes as text. UTF-8 where they are that: @p isUtf8 says so.
QString decoded(std::string_view bytes, bool& isUtf8)
{
    QString text;
    isUtf8 = toolkit::decodeUtf8(bytes.data(), textSize(bytes), text);
    return isUtf8 ? text : latin1(bytes);
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
    // Nearly all texts are plain ASCII: they need no converter, and have no other white space.
    if (std::all_of(inner.begin(), inner.end(), isAscii))
        return {latin1(inner), begin};
    bool isUtf8 = false;
    QString whole = decoded(inner, isUtf8);
    const int leading = leadingCharacters(whole);
    if (leading == 0)
        return {std::move(whole).trimmed(), begin};
    return {whole.mid(leading).trimmed(), begin + (isUtf8 ? whole.left(leading).toUtf8().size() : leading)};
}

BraceScanner::BraceScanner(std::FILE* input)
    : input(input)
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
    ScanEvent event = std::move(pending.front());
    pending.pop_front();
    return event;
}

/// Reads as far as the next thing that is worth an event.
void BraceScanner::scan()
{
    ScannedText text = readUpTo(':', '=', '}');
    switch (stop) {
    case ':':
        beginGroup(std::move(text));
        break;
    case '=':
        pending.push_back({ScanEvent::Kind::Setting, std::move(text), readUpTo(';')});
        break;
    case '}':
        addSkipped(std::move(text), ScanEvent::Reason::BeforeEnd);
        pending.push_back({ScanEvent::Kind::GroupEnds, {{}, offset - 1}});
        addSkipped(readUpTo(';'), ScanEvent::Reason::AfterBrace);
        depth = std::max(0, depth - 1);
        break;
    default:
        addSkipped(std::move(text), ScanEvent::Reason::BeforeEnd);
        pending.push_back({ScanEvent::Kind::EndOfInput, {{}, offset}});
    }
}

void BraceScanner::beginGroup(ScannedText name)
{
    pending.push_back({ScanEvent::Kind::GroupBegins, std::move(name)});
    addSkipped(readUpTo('{'), ScanEvent::Reason::BeforeBrace);
    if (++depth > greatestGroupDepth)
        addSkipped(rest(), ScanEvent::Reason::TooDeep);
}

void BraceScanner::addSkipped(ScannedText text, ScanEvent::Reason reason)
{
    if (!std::all_of(text.bytes.begin(), text.bytes.end(), isBlank))
        pending.push_back({ScanEvent::Kind::Skipped, std::move(text), {}, reason});
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
    ScannedText text;
    text.offset = offset;
    // Not locked for each byte: one thread reads a file. All settings of all documents pass here at each receipt, so
    // that the text grows by pieces.
    std::FILE* const file = input.get();
    std::array<char, 128> piece;
    std::size_t size = 0;
    int byte = getc_unlocked(file);
    for (; byte != EOF && byte != first && byte != second && byte != third; byte = getc_unlocked(file)) {
        if (size == piece.size()) {
            text.bytes.append(piece.data(), size);
            size = 0;
        }
        piece[size++] = static_cast<char>(byte);
    }
    text.bytes.append(piece.data(), size);
    stop = byte;
    offset += static_cast<qint64>(text.bytes.size()) + (stop == EOF ? 0 : 1);
    return text;
}

} // namespace libconfig
