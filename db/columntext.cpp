#include "db/columntext.h"

#include "toolkit/literals.h"
#include "toolkit/numbertext.h"

#include <QDateTime>
#include <QVariant>

using toolkit::operator""_L1;

namespace {

/// Of its parts: as a whole, the toolkit has no text for an hour that the clocks leave out in spring. Empty for what is
/// no point in time, such as "infinity".
QString pointInTimeText(const QDateTime& point)
{
    if (!point.date().isValid())
        return QString();
    return point.date().toString(Qt::ISODate) + "T"_L1 + point.time().toString(Qt::ISODate);
}

/// One character for each byte, up to the first NUL.
QString bytesText(const QByteArray& bytes)
{
    return QString::fromLatin1(bytes.constData());
}

} // namespace

QString columnText(const QVariant& value)
{
    if (value.isNull()) // the toolkit has "0" for it in a column of numbers, and "false" in one of booleans
        return QString();
    switch (value.userType()) {
    case QMetaType::Double:
        return toolkit::numberText(value.toDouble());
    case QMetaType::QTime:
        return value.toTime().toString(Qt::ISODate); // the toolkit's own conversion adds milliseconds
    case QMetaType::QDateTime:
        return pointInTimeText(value.toDateTime());
    case QMetaType::QByteArray:
        return bytesText(value.toByteArray());
    default:
        return value.toString();
    }
}
