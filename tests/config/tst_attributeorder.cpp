#include "config/attributeorder.h"

#include <QtTest>

using libconfig::AttributeOrder;

/// The order of attributes in their file, which the toolkit forgets.
class TestAttributeOrder : public QObject {
    Q_OBJECT

private slots:
    void names_data();
    void names();
    void theLastNoteCounts();
    void eachElementHasItsOwn();
    void aNewElementHasNoneOfAnOldOne();

private:
    QDomElement element(const QString& names);

    QDomDocument document;
};

/// With attributes of these names, which have blanks in between.
QDomElement TestAttributeOrder::element(const QString& names)
{
    QDomElement element = document.createElement("doc");
    for (const QString& name : names.split(' ', Qt::SkipEmptyParts))
        element.setAttribute(name, "1");
    return element;
}

void TestAttributeOrder::names_data()
{
    QTest::addColumn<QString>("attributes");
    QTest::addColumn<QString>("noted");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const char* attributes, const char* noted, const char* expected) {
        QTest::newRow(name) << attributes << noted << expected;
    };

    row("as noted", "a b c d e", "d b e a c", "d b e a c");
    row("by name, when nothing was noted", "d b e a c", "", "a b c d e");
    row("by name, when one came since", "d b e a c", "d b e a", "a b c d e");
    row("by name, when one went since", "d b e a", "d b e a c", "a b d e");
    row("none, when all went since", "", "d b", "");
    row("none, when there never was one", "", "", "");
}

void TestAttributeOrder::names()
{
    QFETCH(QString, attributes);
    QFETCH(QString, noted);
    QFETCH(QString, expected);
    const QDomElement doc = element(attributes);
    AttributeOrder order;
    order.set(doc, noted.split(' ', Qt::SkipEmptyParts));
    QCOMPARE(order.names(doc).join(' '), expected);
}

void TestAttributeOrder::theLastNoteCounts()
{
    const QDomElement doc = element("a b c");
    AttributeOrder order;
    order.set(doc, {"b", "a", "c"});
    order.set(doc, {"c", "a", "b"});
    QCOMPARE(order.names(doc), (QStringList {"c", "a", "b"}));
}

void TestAttributeOrder::eachElementHasItsOwn()
{
    document.appendChild(document.createElement("zelmora"));
    QDomElement group = document.documentElement();
    for (int i = 0; i < 3; ++i)
        group.appendChild(element("a b c"));
    AttributeOrder order;
    order.set(group.firstChildElement(), {"b", "a", "c"});
    order.set(group.lastChildElement(), {"c", "a", "b"});
    QCOMPARE(order.names(group.firstChildElement()), (QStringList {"b", "a", "c"})); // by another handle
    QCOMPARE(order.names(group.firstChildElement().nextSiblingElement()), (QStringList {"a", "b", "c"}));
    QCOMPARE(order.names(group.lastChildElement()), (QStringList {"c", "a", "b"}));
}

// Which may well stand where the old one stood in memory.
void TestAttributeOrder::aNewElementHasNoneOfAnOldOne()
{
    AttributeOrder order;
    for (int i = 0; i < 100; ++i) {
        const QDomElement doc = element("a b");
        QCOMPARE(order.names(doc), (QStringList {"a", "b"}));
        order.set(doc, {"b", "a"});
    }
}

QTEST_GUILESS_MAIN(TestAttributeOrder)
#include "tst_attributeorder.moc"
