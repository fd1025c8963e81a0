#ifndef ZELMORA_PRINT_ROWLAYOUT_H
#define ZELMORA_PRINT_ROWLAYOUT_H

#include <QString>

namespace rowlayout {

/// Column widths of a document in characters (UTF-16 units). A negative width pads nothing.
struct Widths {
    int paper;
    int quantity;
    int price;
    int totalPrice;
};

/// The row that @p layout makes of up to four texts, padded with @p fill where the layout says so:
///
///     qdpt              quantity, " ", description, price, total
///     qxdpt             quantity, " x ", description, price, total
///     qxdtDoubleLine    quantity, " x ", price, "\n", description, total
///     qxd               quantity, " x ", description
///     qd                quantity, " ", description
///     date-amount-type  date (given as quantity), amount (as description), type (as price)
///
/// The description takes what the other columns leave of the paper and is padded or cut to just that; where they
/// leave less than nothing it is neither padded nor cut. Every other column is padded to its width and never cut,
/// so that a text longer than its column pushes the rest of the row to the right. An unknown layout gives an
/// empty row.
QString row(const QString& layout, const Widths& widths, const QString& quantity, const QString& description,
            const QString& price, const QString& totalPrice, QChar fill);

/// The characters that the description has in a row of @p layout; less than 0 where it is neither padded nor cut. An
/// unknown layout has no row to cut anything from: -1.
int descriptionWidth(const QString& layout, const Widths& widths);

} // namespace rowlayout

#endif
