#include "check/scriptcheck.h"

#include "check/findingtext.h"
#include "driver/registercommands.h"
#include "paper/commandreader.h"
#include "paper/roll.h"
#include "toolkit/localecodec.h"
#include "toolkit/nearest.h"

#include <QObject>
#include <QTextCodec>

#include <algorithm>

using toolkit::operator""_L1;

namespace check {

namespace {

using namespace registercommands;
using paper::Command;
using paper::Fault;

QString withoutEnd(QLatin1String command)
{
    return command.chopped(lineEnd.size());
}

// --- Lines that are no commands --------------------------------------------------------------------------------

/// @p line as a command with its closing quote; empty where it is none.
QString completed(const QString& line)
{
    const Command command = paper::readCommand(line);
    if (command.kind == Command::None)
        return QString();
    return command.isTextEnded ? line : line + quote;
}

/// @p text, which stands behind a command's "=", without the quote that it begins with. Double ones become the
/// register's.
QString withoutOpeningQuote(QString text)
{
    const QChar doubleQuote = u'"';
    const bool isInDoubleQuotes = text.size() > 1 && text.startsWith(doubleQuote) && text.endsWith(doubleQuote);
    if (isInDoubleQuotes)
        text[text.size() - 1] = quote;
    return text.startsWith(quote) || text.startsWith(doubleQuote) ? text.mid(1) : text;
}

/// @p line with its beginning, up to the "=" and a quote behind that, as a command has it that was probably meant;
/// empty where none is near.
QString withMeantBeginning(const QString& line)
{
    static const QStringList beginnings {linePrefix, saleDepartment, discountAmount, ratePercent};
    const int equals = line.indexOf(QLatin1Char('='));
    if (equals < 0)
        return QString();
    const QString rest = withoutOpeningQuote(line.mid(equals + 1));
    const QString beginning = toolkit::nearest(line.left(line.size() - rest.size()), beginnings);
    return beginning.isEmpty() ? QString() : beginning + rest;
}

/// The command that was probably meant by @p line; empty where none is near.
QString meantCommand(const QString& line)
{
    static const QStringList words {withoutEnd(openNonFiscal), withoutEnd(closeNonFiscal), withoutEnd(clear),
                                    withoutEnd(registeringMode), withoutEnd(closeFiscal)};
    const QString word = toolkit::nearest(line, words);
    return completed(word.isEmpty() ? withMeantBeginning(line) : word);
}

/// The first of a sale's field names that @p line has not; empty where it is no sale.
QString missingField(const QString& line)
{
    if (!line.startsWith(saleDepartment))
        return QString();
    int reached = saleDepartment.size();
    for (const QLatin1String field : {saleQuantity, salePrice, saleDescription}) {
        const int found = line.indexOf(field, reached);
        if (found < 0)
            return field;
        reached = found + field.size();
    }
    return QString();
}

QString textOfNoCommand(const QString& line, const QString& meant)
{
    const QString missing = missingField(line);
    if (line.isEmpty())
        return QObject::tr("An empty line is no command of the register.");
    if (!missing.isEmpty())
        return QObject::tr("The sale has no \"%1\" in its place: %2, %3, %4 and %5 follow each other in a sale.")
            .arg(missing, saleDepartment, saleQuantity, salePrice, saleDescription);
    return withQuestion(QObject::tr("\"%1\" is no command of the register.").arg(shown(line)), shown(meant));
}

void addNoCommand(Findings& findings, const Fault& fault)
{
    const QString& line = fault.text;
    if (line.startsWith(QChar(QChar::ByteOrderMark)))
        return add(
            findings, Code::NoCommand, fault.place,
            QObject::tr("A byte-order mark stands before the command, which the register takes for a part of it: "
                        "save the file without it."),
            completed(line.mid(1)));
    const QString whole = completed(line);
    if (!whole.isEmpty())
        return add(findings, Code::NoCommand, fault.place,
                   QObject::tr("The text has no closing quote: the command ends with '."), whole);
    const QString meant = meantCommand(line);
    add(findings, Code::NoCommand, fault.place, textOfNoCommand(line, meant), meant);
}

// --- Documents -------------------------------------------------------------------------------------------------

QString textOfNotOpened(const QString& command)
{
    switch (paper::readCommand(command).kind) {
    case Command::Line:
        return QObject::tr("No document is open for this line: \"%1\" must stand before it.")
            .arg(withoutEnd(openNonFiscal));
    case Command::CloseNonFiscal:
    case Command::CloseFiscal:
        return QObject::tr(
                   "No document is open that \"%1\" could close: its opening command is missing, or this one is "
                   "too much.")
            .arg(command);
    case Command::RegisteringMode:
        return QObject::tr("\"%1\" must stand right before \"%2\".").arg(withoutEnd(clear), command);
    default:
        return QObject::tr("No fiscal receipt is open for this command: \"%1\" and \"%2\" must stand before it.")
            .arg(withoutEnd(clear), withoutEnd(registeringMode));
    }
}

void addPlain(Findings& findings, const Fault& fault)
{
    const auto tell = [&](Code code, const QString& text) { add(findings, code, fault.place, text); };
    switch (fault.kind) {
    case Fault::NotOpened:
        return tell(Code::NotOpened, textOfNotOpened(fault.text));
    case Fault::NotClosed:
        return tell(Code::NotClosed,
                    QObject::tr("The document that begins here is not closed: the script ends without its \"%1\".")
                        .arg(fault.text));
    case Fault::OpenedTwice:
        return tell(Code::OpenedTwice,
                    QObject::tr("\"%1\" opens a document while another one is open: that one must be closed first.")
                        .arg(fault.text));
    case Fault::QuoteInText:
        return tell(
            Code::QuoteInText,
            QObject::tr("The apostrophe ends the register's text early: write ` in its place. The text becomes: %1")
                .arg(shown(fault.text)));
    case Fault::BehindQuote:
        return tell(Code::QuoteInText,
                    QObject::tr("The text ends at this quote, and the command does not end with one: \"%1\" stands "
                                "behind the last quote.")
                        .arg(shown(fault.text)));
    case Fault::NoSale:
        return tell(Code::NoSale, QObject::tr("The fiscal receipt that begins here sells nothing."));
    case Fault::PaymentsBelowSum:
        return tell(Code::PaymentsBelowSum,
                    QObject::tr("The payments are less than the sum of the receipt: %1 is missing.").arg(fault.text));
    case Fault::NoCommand:
    case Fault::InvalidBytes:
    case Fault::TooWide:
        break; // these are none of the plain ones
    }
}

// --- Widths ----------------------------------------------------------------------------------------------------

/// Whether @p column of a row is one word, flush right.
bool isFlushRight(const QString& column)
{
    const QString word = column.trimmed();
    return !word.isEmpty() && !word.contains(QLatin1Char(' ')) && column.endsWith(word);
}

/// Whether @p line looks like one of the rate table of a report, its heading included: a column of six characters or a
/// few more and three of ten, a blank between them. A row has a blank at its end.
bool isOfRateTable(const QString& line)
{
    const int column = 10;
    QString rest = line.endsWith(QLatin1Char(' ')) ? line.chopped(1) : line;
    for (int i = 0; i < 3; ++i) {
        if (!isFlushRight(rest.right(column)) || rest.size() <= column + 1
            || rest.at(rest.size() - column - 1) != QLatin1Char(' '))
            return false;
        rest.chop(column + 1);
    }
    return rest.size() >= 6 && rest.size() <= column && isFlushRight(rest);
}

/// Whether it looks like a line that has its width whatever anybody does.
bool isAlwaysTooWide(const QString& line)
{
    return isOfRateTable(line) || line.startsWith("   Corrispettivo non pagato: "_L1);
}

/// Tells of each line that is too wide; of those that always are only of the first in each document.
class WidthCheck {
public:
    WidthCheck(const paper::Roll& roll, Findings& findings)
        : documents(roll.documents)
        , findings(findings)
    {
    }
    void add(const Fault& fault);

private:
    bool isFirstOfItsDocument(toolkit::TextPlace place);

    const QVector<paper::Document>& documents;
    Findings& findings;
    int notedDocuments = 0; ///< that begin before the last note
};

void WidthCheck::add(const Fault& fault)
{
    const int characters = fault.text.toUcs4().size();
    if (!isAlwaysTooWide(fault.text))
        return check::add(
            findings, Code::TooWide, fault.place,
            QObject::tr("The line has %1 characters, and the paper %2: make the text shorter, or the columns narrower.")
                .arg(characters)
                .arg(paperWidth));
    if (isFirstOfItsDocument(fault.place))
        addLesser(findings, Code::TooWide, fault.place,
                  QObject::tr("The line has %1 characters, and the paper %2. It is always so long.")
                      .arg(characters)
                      .arg(paperWidth));
}

bool WidthCheck::isFirstOfItsDocument(toolkit::TextPlace place)
{
    const int before = notedDocuments;
    while (notedDocuments < documents.size() && documents.at(notedDocuments).place < place)
        ++notedDocuments;
    return notedDocuments > before;
}

// --- Bytes -----------------------------------------------------------------------------------------------------

/// "E8 E9" of the digits "e8e9".
QString spaced(const QString& digits)
{
    const int most = 80; // digits that are shown
    QStringList bytes;
    for (int i = 0; i < std::min<int>(most, digits.size()); i += 2)
        bytes += digits.mid(i, 2).toUpper();
    return bytes.join(QLatin1Char(' ')) + (digits.size() > most ? "..."_L1 : QLatin1String());
}

QString textOfInvalidBytes(const Fault& fault, const QTextCodec& codec)
{
    return QObject::tr("In the encoding %1 these bytes are no characters: %2. Was the script written in another one?")
        .arg(QString::fromLatin1(codec.name()), spaced(fault.text));
}

} // namespace

Findings findingsOf(const paper::Roll& roll, QTextCodec* codec)
{
    Findings findings;
    WidthCheck widths(roll, findings);
    for (const Fault& fault : roll.faults) {
        if (fault.kind == Fault::NoCommand)
            addNoCommand(findings, fault);
        else if (fault.kind == Fault::TooWide)
            widths.add(fault);
        else if (fault.kind == Fault::InvalidBytes)
            add(findings, Code::InvalidBytes, fault.place,
                textOfInvalidBytes(fault, codec ? *codec : *toolkit::localeCodec()));
        else
            addPlain(findings, fault);
    }
    return findings;
}

Findings checkScript(const QByteArray& script, QTextCodec* codec)
{
    return findingsOf(paper::readRoll(script, codec), codec);
}

} // namespace check
