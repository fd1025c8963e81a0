#include "print/rowlayout.h"

#include "toolkit/literals.h"

#include <algorithm>

using toolkit::operator""_L1;

namespace rowlayout {

namespace {

struct Texts {
    const QString& quantity;
    const QString& description;
    const QString& price;
    const QString& totalPrice;
};

const QChar blank = QLatin1Char(' ');
const int dateWidth = 15;

// A row grows column by column in one string: it is built for every line of a long job.

void pad(QString& row, int count, QChar fill)
{
    if (count > 0)
        row.resize(row.size() + count, fill);
}

void appendLeft(QString& row, const QString& text, int width, QChar fill)
{
    row += text;
    pad(row, width - text.size(), fill);
}

void appendRight(QString& row, const QString& text, int width, QChar fill)
{
    pad(row, width - text.size(), fill);
    row += text;
}

/// Padded or cut to just @p width characters; left as it is when the width is negative.
void appendDescription(QString& row, const QString& text, int width, QChar fill)
{
    row += text.leftRef(width);
    pad(row, width - text.size(), fill);
}

void qdpt(QString& row, const Widths& w, const Texts& t, QChar fill)
{
    appendRight(row, t.quantity, w.quantity, blank);
    row += blank;
    appendDescription(row, t.description, w.paper - w.quantity - w.price - w.totalPrice - 1, fill);
    appendRight(row, t.price, w.price, fill);
    appendRight(row, t.totalPrice, w.totalPrice, blank);
}

void qxdpt(QString& row, const Widths& w, const Texts& t, QChar fill)
{
    appendRight(row, t.quantity, w.quantity, blank);
    row += " x "_L1;
    appendDescription(row, t.description, w.paper - w.quantity - w.price - w.totalPrice - 3, fill);
    appendRight(row, t.price, w.price, fill);
    appendRight(row, t.totalPrice, w.totalPrice, blank);
}

void qxdtDoubleLine(QString& row, const Widths& w, const Texts& t, QChar fill)
{
    row += t.quantity;
    row += " x "_L1;
    row += t.price;
    row += QLatin1Char('\n');
    appendDescription(row, t.description, w.paper - w.totalPrice, fill);
    appendRight(row, t.totalPrice, w.totalPrice, fill);
}

void qxd(QString& row, const Widths& w, const Texts& t, QChar fill)
{
    appendRight(row, t.quantity, w.quantity, blank);
    row += " x "_L1;
    appendDescription(row, t.description, w.paper - w.quantity - 3, fill);
}

/// Two characters short of the paper, and padded with blanks whatever the fill.
void qd(QString& row, const Widths& w, const Texts& t, QChar)
{
    appendRight(row, t.quantity, w.quantity, blank);
    row += blank;
    appendDescription(row, t.description, w.paper - w.quantity - 3, blank);
}

/// Three characters short of the paper.
void dateAmountType(QString& row, const Widths& w, const Texts& t, QChar fill)
{
    appendLeft(row, t.quantity, dateWidth, blank);
    appendDescription(row, t.description, w.paper - dateWidth - w.price - 3, fill);
    appendRight(row, t.price, w.price, fill);
}

struct Layout {
    QLatin1String name;
    void (*append)(QString& row, const Widths&, const Texts&, QChar fill);
};

// clang-format off
constexpr Layout layouts[] = {
    {"qdpt"_L1, qdpt},
    {"qxdpt"_L1, qxdpt},
    {"qxdtDoubleLine"_L1, qxdtDoubleLine},
    {"qxd"_L1, qxd},
    {"qd"_L1, qd},
    {"date-amount-type"_L1, dateAmountType},
};
// clang-format on

} // namespace

QString row(const QString& layout, const Widths& widths, const QString& quantity, const QString& description,
            const QString& price, const QString& totalPrice, QChar fill)
{
    QString row;
    for (const Layout& candidate : layouts) {
        if (layout == candidate.name) {
            row.reserve(std::max(widths.paper, 0) + 16); // a few texts are longer than their columns
            candidate.append(row, widths, {quantity, description, price, totalPrice}, fill);
            break;
        }
    }
    return row;
}

} // namespace rowlayout
