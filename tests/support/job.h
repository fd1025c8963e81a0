#ifndef ZELMORA_TESTS_SUPPORT_JOB_H
#define ZELMORA_TESTS_SUPPORT_JOB_H

#include "support/recordingdriver.h"
#include "support/settings.h"

#include <QtTest>

#include <initializer_list>

/// One element of a print job; its texts are UTF-8.
struct Element {
    const char* name = nullptr;
    Attributes attributes;
};

using Job = QVector<Element>;

Q_DECLARE_METATYPE(Job)

/// Two of a dish that costs 3.50.
inline Element dish(const char* name = "PIZZA")
{
    return {"receipe", {{"name", name}, {"number", "2"}, {"price", "3.50"}, {"totalPrice", "7.00"}}};
}

/// Elements of these names, each with attributes that one document or another would print.
inline Job elementsNamed(std::initializer_list<const char*> names)
{
    Job job;
    for (const char* name : names)
        job += Element {name, {{"name", "a"}, {"number", "1"}, {"price", "2"}, {"total", "3"}, {"date", "4"}}};
    return job;
}

/// The separator line on the paper of documentSettings(), as the RecordingDriver notes it.
inline QString separator()
{
    return QStringLiteral(R"(println("================================"))");
}

/// The calls that print the titles of the columns on that paper: those of dishes.
inline QStringList dishTitles()
{
    return {"setBold()", R"(println("Num Description     Price Amount"))", "setCharSize()"};
}

/// Those of dish types.
inline QStringList typeTitles()
{
    return {"setBold()", R"(println("Num Description            Price"))", "setCharSize()"};
}

/// Settings for the documents of one settings group: paper of 32 characters, columns of 3 (quantity), 6
/// (price) and 7 (total), and the settings @p more.
inline QByteArray documentSettings(const QByteArray& group, const QByteArray& more = QByteArray())
{
    return "zelmora: { " + group
        + ": { paperWidth = 32; quantityFieldWidth = 3; priceFieldWidth = 6; totalPriceFieldWidth = 7; " + more
        + " }; };";
}

/// Selects the print method @p method; false when the driver does not know it.
inline bool selectMethod(PrinterDriver& driver, const QString& method)
{
    const QByteArray name = method.toUtf8();
    return driver.startElement(QString(), QString(), "method", xmlAttributes({{"name", name.constData()}}));
}

inline void deliver(PrinterDriver& driver, const Job& job)
{
    for (const Element& element : job) {
        driver.startElement(QString(), QString(), element.name, xmlAttributes(element.attributes));
        driver.endElement(QString(), QString(), element.name);
    }
}

/// The calls that the elements of @p job make once the print method @p method is selected.
inline QStringList callsOf(RecordingDriver& driver, const QString& method, const Job& job)
{
    selectMethod(driver, method);
    driver.takeCalls();
    deliver(driver, job);
    return driver.takeCalls();
}

// A table of jobs, each with the calls that become of it.

inline void addJobColumns()
{
    QTest::addColumn<Job>("job");
    QTest::addColumn<QStringList>("calls");
}

inline void addJob(const char* name, const Job& job, const QStringList& calls)
{
    QTest::newRow(name) << job << calls;
}

inline void checkJob(const QString& method)
{
    QFETCH(Job, job);
    QFETCH(QStringList, calls);
    RecordingDriver driver;
    QCOMPARE(callsOf(driver, method, job), calls);
}

#endif
