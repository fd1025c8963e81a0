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
    row += text;
    if (width >= 0)
        row.chop(text.size() - width); // where the text is longer
    pad(row, width - text.size(), fill);
}

struct Layout {
    QLatin1String name;
    void (*append)(QString& row, const Widths&, const Texts&, int description, QChar fill);
    int (*descriptionWidth)(const Widths&);
};

void qdpt(QString& row, const Widths& w, const Texts& t, int description, QChar fill)
{
    appendRight(row, t.quantity, w.quantity, blank);
    row += blank;
    appendDescription(row, t.description, description, fill);
    appendRight(row, t.price, w.price, fill);
    appendRight(row, t.totalPrice, w.totalPrice, blank);
}

void qxdpt(QString& row, const Widths& w, const Texts& t, int description, QChar fill)
{
    appendRight(row, t.quantity, w.quantity, blank);
    row += " x "_L1;
    appendDescription(row, t.description, description, fill);
    appendRight(row, t.price, w.price, fill);
    appendRight(row, t.totalPrice, w.totalPrice, blank);
}

void qxdtDoubleLine(QString& row, const Widths& w, const Texts& t, int description, QChar fill)
{
    row += t.quantity;
    row += " x "_L1;
    row += t.price;
    row += QLatin1Char('\n');
    appendDescription(row, t.description, description, fill);
    appendRight(row, t.totalPrice, w.totalPrice, fill);
}

void qxd(QString& row, const Widths& w, const Texts& t, int description, QChar fill)
{
    appendRight(row, t.quantity, w.quantity, blank);
    row += " x "_L1;
    appendDescription(row, t.description, description, fill);
}

/// Padded with blanks whatever the fill.
void qd(QString& row, const Widths& w, const Texts& t, int description, QChar)
{
    appendRight(row, t.quantity, w.quantity, blank);
    row += blank;
    appendDescription(row, t.description, description, blank);
}

void dateAmountType(QString& row, const Widths& w, const Texts& t, int description, QChar fill)
{
    appendLeft(row, t.quantity, dateWidth, blank);
    appendDescription(row, t.description, description, fill);
    appendRight(row, t.price, w.price, fill);
}

int besideQuantity(const Widths& w)
{
    return w.paper - w.quantity - 3;
}

// clang-format off
/// What the other columns leave of the paper. The rows of "qd" end two characters short of it, those of
/// "date-amount-type" three.
constexpr Layout layouts[] = {
    {"qdpt"_L1, qdpt, [](const Widths& w) { return w.paper - w.quantity - w.price - w.totalPrice - 1; }},
    {"qxdpt"_L1, qxdpt, [](const Widths& w) { return w.paper - w.quantity - w.price - w.totalPrice - 3; }},
    {"qxdtDoubleLine"_L1, qxdtDoubleLine, [](const Widths& w) { return w.paper - w.totalPrice; }},
    {"qxd"_L1, qxd, besideQuantity},
    {"qd"_L1, qd, besideQuantity},
    {"date-amount-type"_L1, dateAmountType, [](const Widths& w) { return w.paper - dateWidth - w.price - 3; }},
};
// clang-format on

const Layout* findLayout(const QString& name)
{
    for (const Layout& candidate : layouts) {
        if (name == candidate.name)
            return &candidate;
    }
    return nullptr;
}

} // namespace

QString row(const QString& layout, const Widths& widths, const QString& quantity, const QString& description,
            const QString& price, const QString& totalPrice, QChar fill)
{
    QString row;
    if (const Layout* const used = findLayout(layout)) {
        row.reserve(std::max(widths.paper, 0) + 16); // a few texts are longer than their columns
        used->append(row, widths, {quantity, description, price, totalPrice}, used->descriptionWidth(widths), fill);
    }
    return row;
}

int descriptionWidth(const QString& layout, const Widths& widths)
{
    const Layout* const used = findLayout(layout);
    return used ? used->descriptionWidth(widths) : -1;
}

} // namespace rowlayout
