#include "check/scripttrouble.h"

#include "toolkit/literals.h"
#include "toolkit/textencoder.h"

#include <QString>

using toolkit::operator""_L1;

namespace check {

namespace {

constexpr QLatin1String registersWord = "TOTALE"_L1;

bool isControl(ushort unit)
{
    return unit < 0x20 || (unit >= 0x7F && unit < 0xA0);
}

bool isEncodable(uint codePoint)
{
    toolkit::TextEncoder encoder(toolkit::TextEncoder::Encoding::Locale);
    const QByteArray bytes = encoder.encoded(QString::fromUcs4(&codePoint, 1));
    return bytes.count('?') < bytes.size();
}

} // namespace

uint codePointAt(QStringView text, int index)
{
    const QChar unit = text.at(index);
    const bool isWhole = unit.isHighSurrogate() && index + 1 < text.size() && text.at(index + 1).isLowSurrogate();
    return isWhole ? QChar::surrogateToUcs4(unit, text.at(index + 1)) : unit.unicode();
}

int sizeOf(Trouble trouble, QStringView text, int index)
{
    if (trouble == Trouble::RegistersWord)
        return registersWord.size();
    return QChar::requiresSurrogates(codePointAt(text, index)) ? 2 : 1;
}

TroubleFinder::TroubleFinder()
    : hasAll(isEncodable(0x1F355) && isEncodable(0x6F22)) // a picture and a Chinese letter: only Unicode has both
{
}

bool TroubleFinder::canPrint(uint codePoint) const
{
    if (QChar::isSurrogate(codePoint))
        return false;
    if (hasAll || codePoint < 0x80)
        return true;
    if (known.size() > 10000) // a text of all there are is no reason to keep them all
        known.clear();
    const auto found = known.constFind(codePoint);
    return found != known.constEnd() ? *found : *known.insert(codePoint, isEncodable(codePoint));
}

Trouble TroubleFinder::at(QStringView text, int index) const
{
    const QChar unit = text.at(index);
    if (unit == QLatin1Char('\''))
        return Trouble::Quote;
    if (isControl(unit.unicode()))
        return Trouble::Control;
    if (unit == registersWord.at(0) && text.mid(index).startsWith(registersWord))
        return Trouble::RegistersWord;
    const bool isSecondHalf = unit.isLowSurrogate() && index > 0 && text.at(index - 1).isHighSurrogate();
    if (unit.unicode() < 0x80 || isSecondHalf)
        return Trouble::None;
    return canPrint(codePointAt(text, index)) ? Trouble::None : Trouble::Unprintable;
}

} // namespace check
