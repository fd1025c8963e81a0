#ifndef ZELMORA_PAPER_ROLL_H
#define ZELMORA_PAPER_ROLL_H

#include "toolkit/textplaces.h"

#include <QByteArray>
#include <QString>
#include <QVector>

class QTextCodec;

/// A register's script as the roll of paper would show it.
namespace paper {

/// What is out of the ordinary with a part of a row.
enum class Mark {
    PastEdge, ///< it has no room on the paper
    BehindQuote, ///< it stands behind the quote that ends the register's text
    Changed, ///< it is not what it was; never of a script alone
};

struct MarkedPart {
    Mark mark;
    int begin; ///< in UTF-16 units of the row's text
    int length;
};

/// A row of the paper. Its text may be longer than the paper is wide; what goes past the edge is marked.
struct Row {
    QString text; ///< as the script has it: control characters and all
    QVector<MarkedPart> marked = {}; ///< in their order; parts may overlap
    toolkit::TextPlace place = {}; ///< in the script, of the command that it comes from
};

using Rows = QVector<Row>;

/// One document of a script, from its opening command to its closing one.
struct Document {
    bool isFiscal = false; ///< then the rows are our reading of sales and payments, and say so
    Rows rows = {};
    toolkit::TextPlace place = {}; ///< of its first command; documents stand in this order
};

/// Something in a script that is wrong.
struct Fault {
    enum Kind {
        NoCommand, ///< text: the line
        NotOpened, ///< text: the command
        NotClosed, ///< text: the closing command that is missing
        OpenedTwice, ///< text: the command
        QuoteInText, ///< text: what stands before the quote
        BehindQuote, ///< text: what stands behind the last quote, which should end the command; at the first quote
        NoSale,
        PaymentsBelowSum, ///< text: the amount that is missing
        InvalidBytes, ///< text: them, in hexadecimal digits, two for each
        TooWide, ///< text: the line's
    };
    Kind kind;
    toolkit::TextPlace place;
    QString text = {};
};

struct Roll {
    QVector<Document> documents;
    QVector<Fault> faults; ///< in the order of their places
};

/// Reads a script, which may be anything. Takes time and memory in proportion to it. @p codec: of its bytes; the
/// locale's when it is null.
Roll readRoll(const QByteArray& script, QTextCodec* codec = nullptr);

/// Whether a file with these contents is a job, not a script: it begins with "<", after white space and a byte-order
/// mark.
bool isJob(const QByteArray& contents);

} // namespace paper

#endif
