#include "vocabulary/samplejob.h"

#include <QtTest>

using vocabulary::Attribute;
using vocabulary::AttributeKind;
using vocabulary::Element;
using vocabulary::Method;

using Kinds = QVector<AttributeKind>;

Q_DECLARE_METATYPE(AttributeKind)

/// The kinds of attributes that the print program treats in a way of their own are those that the tables name.
class TestJobKinds : public QObject {
    Q_OBJECT

private slots:
    void twoValuesPrintTheSame_data();
    void twoValuesPrintTheSame();
    void aValueBecomes_data();
    void aValueBecomes();
};

namespace {

/// An attribute of the sample job, as the first method that reads its row of the tables prints it.
struct Place {
    const Method* method;
    const Attribute* attribute;
    int elementIndex;
    int attributeIndex;
    QString name;
};

/// One for each row of the tables that prints, "receipe price" of a fiscal receipt and of an order being two.
QVector<Place> printingAttributes(const SampleJob& job)
{
    QVector<Place> places;
    QSet<QPair<const Element*, const Attribute*>> seen;
    for (const Method& method : vocabulary::methods()) {
        for (int i = 0; i < job.size(); ++i) {
            for (int j = 0; j < job[i].attributes.size(); ++j) {
                const Attribute* const attribute = attributeRead(method, job[i], j);
                const QPair<const Element*, const Attribute*> row(vocabulary::findElement(method, job[i].name),
                                                                  attribute);
                if (!attribute || !attribute->prints || seen.contains(row))
                    continue;
                seen += row;
                places += {&method, attribute, i, j, method.name + ' ' + job[i].name + ' ' + job[i].attributes[j].name};
            }
        }
    }
    return places;
}

/// The places whose kinds are @p kinds, and those that @p has.
template <typename Predicate>
void compareKinds(const Kinds& kinds, Predicate has)
{
    const SampleJob job = sampleJob();
    QStringList found;
    QStringList expected;
    for (const Place& place : printingAttributes(job)) {
        if (has(job, place))
            found += place.name;
        if (kinds.contains(place.attribute->kind))
            expected += place.name;
    }
    QCOMPARE(found, expected);
}

QByteArray scriptWith(const SampleJob& job, const Place& place, const QString& value)
{
    static SampleRun run;
    return run.script(*place.method, withValue(job, place.elementIndex, place.attributeIndex, value));
}

} // namespace

void TestJobKinds::twoValuesPrintTheSame_data()
{
    QTest::addColumn<QString>("one");
    QTest::addColumn<QString>("other");
    QTest::addColumn<Kinds>("kinds");

    const auto row = [](const char* name, const QString& one, const QString& other, const Kinds& kinds) {
        QTest::newRow(name) << one << other << kinds;
    };
    using Kind = AttributeKind;
    row("what is cut to its column, and what is no number in a mark", QString(60, 'a'), QString(60, 'a') + 'b',
        {Kind::Description, Kind::MovementType, Kind::VariantQuantity});
    row("what is looked up in its 8-bit form", QString::fromUtf8("€"), "?",
        {Kind::MovementType, Kind::VariantQuantity});
    row("what ends at an empty field", "a, b", "a, b,, c", {Kind::Address, Kind::VariantQuantity});
    row("what counts by its value", "1", "1.00", {Kind::VariantQuantity});
    row("what takes a decimal comma for no number", "0", "1,0", {Kind::VariantQuantity});
    row("what prints -1 and 0 as one sign", "-1", "0", {Kind::VariantQuantity});
    row("what takes a decimal comma for a point", "2,5", "2.5", {Kind::FiscalPrice});
    row("what counts by its value below 0", "-5", "-5.00", {Kind::FiscalPrice});
}

void TestJobKinds::twoValuesPrintTheSame()
{
    QFETCH(QString, one);
    QFETCH(QString, other);
    QFETCH(Kinds, kinds);
    compareKinds(kinds, [&](const SampleJob& job, const Place& place) {
        return scriptWith(job, place, one) == scriptWith(job, place, other);
    });
}

void TestJobKinds::aValueBecomes_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<Kinds>("kinds");

    using Kind = AttributeKind;
    QTest::newRow("a rate with a sign that it did not have") << "87" << QByteArray(" 87%") << Kinds {Kind::BareRate};
    QTest::newRow("the quantity of a sale") << "8,7" << QByteArray(",QTY=8,7,PREZZO=") << Kinds {Kind::FiscalQuantity};
    QTest::newRow("a discount") << "-87" << QByteArray("SCONTO VAL=87\r\n") << Kinds {Kind::FiscalPrice};
    QTest::newRow("a sign before a variant's name")
        << "1" << QByteArray(" + zucchine") << Kinds {Kind::VariantQuantity};
}

void TestJobKinds::aValueBecomes()
{
    QFETCH(QString, value);
    QFETCH(QByteArray, script);
    QFETCH(Kinds, kinds);
    compareKinds(kinds, [&](const SampleJob& job, const Place& place) {
        return scriptWith(job, place, value).contains(script);
    });
}

QTEST_GUILESS_MAIN(TestJobKinds)
#include "tst_jobkinds.moc"
