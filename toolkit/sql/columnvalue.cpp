#include "toolkit/sql/columnvalue.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QSqlQuery>
#include <QSqlResult>
#include <QVariant>

#include <dlfcn.h>

namespace toolkit {

#if QT_VERSION_MAJOR < 6

QVariant columnValue(const QSqlQuery& query, int column)
{
    return query.value(column);
}

#else

namespace {

struct PostgresResult;
using TextOfColumn = char* (*)(const PostgresResult* result, int row, int column);

/// The text that the server has sent; empty where another driver has made the query. The function is in the library
/// that the toolkit's driver has loaded: nobody links that library for it.
QString sentText(const QSqlQuery& query, int column)
{
    const QVariant handle = query.result()->handle();
    void* const library = dlopen("libpq.so.5", RTLD_LAZY | RTLD_NOLOAD);
    const auto textOf = library ? reinterpret_cast<TextOfColumn>(dlsym(library, "PQgetvalue")) : nullptr;
    const int row = query.isForwardOnly() ? 0 : query.at(); // the former holds no other row
    QString text;
    if (textOf && qstrcmp(handle.typeName(), "pg_result*") == 0) // of no value the type has no name
        text = QString::fromLatin1(textOf(*static_cast<PostgresResult* const*>(handle.constData()), row, column));
    if (library)
        dlclose(library); // which the driver keeps
    return text;
}

/// Its zone is left out; with a zone and parts of a second it is no time.
QTime timeOf(const QString& text)
{
    static const QRegularExpression form(QStringLiteral("\\A(\\d\\d:\\d\\d:\\d\\d)(?:\\.\\d+|[+-][\\d:]+)?\\z"));
    return QTime::fromString(form.match(text).captured(1), Qt::ISODate);
}

QDateTime pointInTimeOf(QString text)
{
    static const QRegularExpression partsOfASecond(QStringLiteral("\\.\\d+"));
    static const QRegularExpression zoneOfWholeHours(QStringLiteral("[+-]\\d\\d\\z"));
    text.remove(partsOfASecond);
    if (text.contains(QLatin1Char(' ')) && text.contains(zoneOfWholeHours))
        text += QStringLiteral(":00");
    return QDateTime::fromString(text, Qt::ISODate).toLocalTime();
}

} // namespace

QVariant columnValue(const QSqlQuery& query, int column)
{
    const QVariant value = query.value(column);
    const bool isTime = value.userType() == QMetaType::QTime;
    if (!isTime && value.userType() != QMetaType::QDateTime)
        return value;
    const QString text = sentText(query, column);
    if (text.isEmpty())
        return value;
    return isTime ? QVariant(timeOf(text)) : QVariant(pointInTimeOf(text));
}

#endif

} // namespace toolkit
