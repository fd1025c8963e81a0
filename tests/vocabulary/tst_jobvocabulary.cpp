#include "vocabulary/documentgroups.h"
#include "vocabulary/jobs.h"

#include <QtTest>

using vocabulary::Attribute;
using vocabulary::Element;
using vocabulary::Method;

/// Looking things up in the tables of jobs.
class TestJobVocabulary : public QObject {
    Q_OBJECT

private slots:
    void methods();
    void elementsOfAMethod();
    void attributesOfAnElement();
    void methodsReading_data();
    void methodsReading();
    void namesOfAll();
    void everyRowIsSound();
};

namespace {

QStringList names(const QVector<const Method*>& methods)
{
    QStringList list;
    for (const Method* const method : methods)
        list += method->name;
    return list;
}

} // namespace

void TestJobVocabulary::methods()
{
    QCOMPARE(vocabulary::methods().size(), 13);
    const Method* const method = vocabulary::findMethod("printFullOrder");
    QVERIFY(method);
    QCOMPARE(QString(method->name), QString("printFullOrder"));
    QCOMPARE(QString(method->documentType), QString("prefiscal"));
    QVERIFY(!vocabulary::findMethod("printfullorder"));
    QVERIFY(!vocabulary::findMethod(QString()));
}

void TestJobVocabulary::elementsOfAMethod()
{
    const Method& method = *vocabulary::findMethod("printFullOrderReceipt");
    QStringList elements;
    for (const Element* const element : vocabulary::elementsOf(method))
        elements += element->name;
    QCOMPARE(elements,
             (QStringList {"printers", "geometry", "headers", "logo", "company", "receipt", "invoice", "delivery",
                           "orderinfo", "customer", "receipe", "total", "notPaid"}));
    QVERIFY(vocabulary::findElement(method, "notPaid"));
    QVERIFY(!vocabulary::findElement(method, "notpaid"));
    QVERIFY(!vocabulary::findElement(method, "totals"));
    QVERIFY(!vocabulary::findElement(method, "method"));
    QVERIFY(vocabulary::elementsOf(*vocabulary::findMethod("printAbstractOrder")).isEmpty());
}

void TestJobVocabulary::attributesOfAnElement()
{
    const Element& total = *vocabulary::findElement(*vocabulary::findMethod("printFullOrder"), "total");
    const Attribute* const price = vocabulary::findAttribute(total, "price");
    QVERIFY(price);
    QCOMPARE(price->kind, vocabulary::AttributeKind::Amount);
    QVERIFY(!vocabulary::findAttribute(total, "total"));
    QVERIFY(!vocabulary::findAttribute(total, "Price"));

    // What is read by its position has no name.
    const Element& headers = *vocabulary::findElement(*vocabulary::findMethod("printFullOrder"), "headers");
    QVERIFY(!vocabulary::findAttribute(headers, QString()));
}

void TestJobVocabulary::methodsReading_data()
{
    QTest::addColumn<QString>("element");
    QTest::addColumn<QString>("attribute");
    QTest::addColumn<QStringList>("methods");

    QStringList all;
    for (const Method& method : vocabulary::methods())
        all += method.name;
    QTest::newRow("an element") << "totals" << QString()
                                << QStringList {"printFullOrderInvoice", "printAbstractOrderInvoice"};
    QTest::newRow("an attribute") << "variant"
                                  << "price" << QStringList {"printFullOrder"};
    QTest::newRow("an attribute that other methods' element of the name lacks")
        << "total"
        << "cash" << QStringList {"printFullOrderFiscal", "printAbstractOrderFiscal"};
    QTest::newRow("any attribute of an element that reads them in their order")
        << "cancelledsummary"
        << "serial1" << QStringList {"printReport"};
    QTest::newRow("an element that none reads") << "recipe" << QString() << QStringList();
    QTest::newRow("an attribute that none reads") << "total"
                                                  << "total" << QStringList();
    QTest::newRow("method") << "method" << QString() << all;
    QTest::newRow("the name of method") << "method"
                                        << "name" << all;
    QTest::newRow("another attribute of method") << "method"
                                                 << "type" << QStringList();
}

void TestJobVocabulary::methodsReading()
{
    QFETCH(QString, element);
    QFETCH(QString, attribute);
    QFETCH(QStringList, methods);
    QCOMPARE(names(attribute.isNull() ? vocabulary::methodsReading(element)
                                      : vocabulary::methodsReading(element, attribute)),
             methods);
}

void TestJobVocabulary::namesOfAll()
{
    QStringList elements = vocabulary::elementNames();
    QCOMPARE(elements.first(), QString("method"));
    QCOMPARE(elements.size(), 26);
    QCOMPARE(elements.removeDuplicates(), 0);

    QCOMPARE(vocabulary::attributeNames("method"), QStringList {"name"});
    QCOMPARE(vocabulary::attributeNames("total"),
             (QStringList {"price", "cash", "creditCard", "cheque", "ticket", "discountRate"}));
    QCOMPARE(vocabulary::attributeNames("headers"), QStringList());
    QCOMPARE(vocabulary::attributeNames("recipe"), QStringList());
    QVERIFY(vocabulary::takesAnyAttribute("headers"));
    QVERIFY(vocabulary::takesAnyAttribute("cancelledsummary"));
    QVERIFY(!vocabulary::takesAnyAttribute("orderinfo"));
    QVERIFY(!vocabulary::takesAnyAttribute("recipe"));
}

// Whoever walks the tables takes these for granted.
void TestJobVocabulary::everyRowIsSound()
{
    for (const Method& method : vocabulary::methods()) {
        QVERIFY(!documentgroups::ofType(method.documentType).isEmpty());
        QStringList elements;
        for (const Element* const element : vocabulary::elementsOf(method)) {
            elements += element->name;
            QStringList attributes;
            for (const Attribute& attribute : element->attributes) {
                attributes += attribute.name;
                QVERIFY(attribute.prints || attribute.presence == vocabulary::Presence::Optional);
            }
            QVERIFY(!attributes.contains(QString()));
            QCOMPARE(attributes.removeDuplicates(), 0);
            for (const Attribute& attribute : element->inOrder)
                QVERIFY(attribute.name.isEmpty());
        }
        QCOMPARE(elements.removeDuplicates(), 0);
    }
}

QTEST_GUILESS_MAIN(TestJobVocabulary)
#include "tst_jobvocabulary.moc"
