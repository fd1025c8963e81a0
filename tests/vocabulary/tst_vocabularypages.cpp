#include "support/files.h"
#include "vocabulary/documentgroups.h"
#include "vocabulary/jobs.h"
#include "vocabulary/settings.h"

#include <QtTest>

#include <algorithm>

using vocabulary::Attribute;
using vocabulary::Element;
using vocabulary::Method;
using vocabulary::Setting;
using vocabulary::SettingGroup;
using vocabulary::SettingKind;

Q_DECLARE_METATYPE(SettingKind)

/// The tables of docs/job-file.md and docs/settings-file.md say what those of the vocabulary say.
class TestVocabularyPages : public QObject {
    Q_OBJECT

private slots:
    void methods();
    void commonElements();
    void elementsOfAMethod_data();
    void elementsOfAMethod();
    void flagsOfAttributes_data();
    void flagsOfAttributes();

    void groups();
    void programSettings();
    void documentSettings_data();
    void documentSettings();
    void everyDocumentSettingHasItsRow();
};

namespace {

using Row = QStringList;
using Rows = QVector<Row>;

/// The rows below the head of the first table under the heading @p heading; none when another heading comes before it.
Rows tableUnder(const char* page, const QString& heading)
{
    const QString text = QString::fromUtf8(fileContents(QString(ZELMORA_DOCS "/") + page));
    QStringList lines = text.section("\n" + heading + "\n", 1).section("\n#", 0, 0).split('\n');
    const auto isRow = [](const QString& line) { return line.startsWith("| "); };
    const auto begin = std::find_if(lines.begin(), lines.end(), isRow);
    Rows rows;
    for (auto line = begin; line != lines.end() && line->startsWith('|'); ++line) {
        QStringList cells = line->mid(2).chopped(2).split(" | ");
        std::transform(cells.begin(), cells.end(), cells.begin(), [](const QString& cell) { return cell.trimmed(); });
        rows += cells;
    }
    return rows.mid(2); // without the head and the line under it
}

/// The names in a cell, which stand between backquotes.
QStringList namesIn(const QString& cell)
{
    QStringList names;
    const QStringList parts = cell.split('`');
    for (int i = 1; i < parts.size(); i += 2)
        names += parts[i];
    return names;
}

QStringList sorted(QStringList names)
{
    names.sort();
    return names;
}

QStringList attributeNames(const Element& element)
{
    QStringList names;
    for (const Attribute& attribute : element.attributes)
        names += attribute.name;
    return names;
}

/// What a page says about the attributes that are read in their order.
bool saysAny(const QString& cell)
{
    return QString(cell).remove(QRegularExpression("`[^`]*`")).contains("any");
}

/// Compares a row that names an element and its attributes.
void compareElement(const Row& row, const Element& element)
{
    QCOMPARE(namesIn(row[0]), QStringList {element.name});
    QCOMPARE(element.name + ' ' + sorted(namesIn(row[1])).join(' '),
             element.name + ' ' + sorted(attributeNames(element)).join(' '));
    QCOMPARE(saysAny(row[1]), !element.inOrder.isEmpty());
}

QStringList documentGroups(const QStringList& without = {})
{
    QStringList groups;
    for (const SettingGroup& group : vocabulary::settingGroups()) {
        if (group.isDocument && !without.contains(group.name))
            groups += group.name;
    }
    return groups;
}

/// The groups that a cell of the column "Has an effect in" means.
QStringList groupsIn(const QString& cell)
{
    if (cell.startsWith("orders and invoices"))
        return {"doc", "prefiscaldoc", "receiptdoc", "invoicedoc", "deliverydoc"};
    return cell.startsWith("all but ") ? documentGroups(namesIn(cell)) : namesIn(cell);
}

QStringList groupsWhereItActs(const Setting& setting)
{
    QStringList groups;
    for (const SettingGroup& group : vocabulary::settingGroups()) {
        if (group.isDocument && !vocabulary::methodsAffected(group, setting).isEmpty())
            groups += group.name;
    }
    return groups;
}

const SettingGroup& someDocument()
{
    return *vocabulary::findGroup("doc");
}

} // namespace

void TestVocabularyPages::methods()
{
    const Rows rows = tableUnder("job-file.md", "## `method`");
    QCOMPARE(rows.size(), vocabulary::methods().size());
    for (int i = 0; i < rows.size(); ++i) {
        const Method& method = vocabulary::methods()[i];
        QCOMPARE(namesIn(rows[i][0]), QStringList {method.name});
        QCOMPARE(namesIn(rows[i][2]), QStringList {documentgroups::ofType(method.documentType)});
        QCOMPARE(rows[i][3], QString(method.common.isEmpty() ? "no" : "yes"));
        QCOMPARE(rows[i][4], QString(method.customer.isEmpty() ? "no" : "yes"));
    }
}

void TestVocabularyPages::commonElements()
{
    const Method& method = *vocabulary::findMethod("printPartialOrder");
    QVector<const Element*> elements = vocabulary::elementsOf(method);
    elements.resize(method.common.size() + method.customer.size());
    const Rows rows = tableUnder("job-file.md", "## Common elements");
    QCOMPARE(rows.size(), elements.size());
    for (int i = 0; i < rows.size(); ++i) {
        compareElement(rows[i], *elements[i]);
        QCOMPARE(namesIn(rows[i][2]).join(QString()), QString(elements[i]->flag));
    }
}

void TestVocabularyPages::elementsOfAMethod_data()
{
    QTest::addColumn<QString>("method");
    for (const Method& method : vocabulary::methods())
        QTest::newRow(method.name.data()) << QString(method.name);
}

void TestVocabularyPages::elementsOfAMethod()
{
    QFETCH(QString, method);
    const Rows rows = tableUnder("job-file.md", "### `" + method + '`');
    const vocabulary::Table<Element>& elements = vocabulary::findMethod(method)->own;
    QCOMPARE(rows.size(), elements.size());
    for (int i = 0; i < rows.size(); ++i)
        compareElement(rows[i], elements[i]);
}

void TestVocabularyPages::flagsOfAttributes_data()
{
    QTest::addColumn<QString>("element");
    QTest::addColumn<int>("attributeColumn");
    QTest::newRow("orderinfo") << "orderinfo" << 2;
    QTest::newRow("customer") << "customer" << 1;
}

void TestVocabularyPages::flagsOfAttributes()
{
    QFETCH(QString, element);
    QFETCH(int, attributeColumn);
    const Rows rows = tableUnder("job-file.md", "### `" + element + '`');
    const Element& described = *vocabulary::findElement(*vocabulary::findMethod("printPartialOrder"), element);
    QCOMPARE(rows.size(), described.attributes.size());
    for (int i = 0; i < rows.size(); ++i) {
        QCOMPARE(namesIn(rows[i][attributeColumn]), QStringList {described.attributes[i].name});
        QCOMPARE(namesIn(rows[i][0]).join(QString()), QString(described.attributes[i].flag));
    }
}

void TestVocabularyPages::groups()
{
    const Rows rows = tableUnder("settings-file.md", "## Documents");
    QCOMPARE(rows.size(), documentGroups().size());
    for (int i = 0; i < rows.size(); ++i) {
        QCOMPARE(namesIn(rows[i][0]), QStringList {documentGroups()[i]});
        QStringList methods;
        for (const Method* const method : vocabulary::methodsOf(*vocabulary::findGroup(documentGroups()[i])))
            methods += method->name;
        QCOMPARE(namesIn(rows[i][1]), methods);
    }
}

void TestVocabularyPages::programSettings()
{
    Rows rows =
        tableUnder("settings-file.md", "## Language") + tableUnder("settings-file.md", "## The suite's programs");
    for (const SettingGroup& group : vocabulary::settingGroups()) {
        if (group.isDocument)
            continue;
        for (const Setting& setting : group.settings) {
            QVERIFY(!rows.isEmpty());
            const Row row = rows.takeFirst();
            QCOMPARE(namesIn(row[0]), QStringList {"zelmora." + group.name + '.' + setting.key});
            QStringList words;
            for (const QLatin1String word : setting.words)
                words += word;
            if (setting.kind == SettingKind::Word)
                QCOMPARE(namesIn(row[1]), words);
            if (!setting.absent.isEmpty())
                QCOMPARE(namesIn(row[2]), QStringList {setting.absent});
            QVERIFY(!row[2].isEmpty());
        }
    }
    QVERIFY(rows.isEmpty());
}

void TestVocabularyPages::documentSettings_data()
{
    QTest::addColumn<QString>("heading");
    QTest::addColumn<SettingKind>("kind");
    QTest::newRow("numbers") << "### Numbers" << SettingKind::Number;
    QTest::newRow("text") << "### Text" << SettingKind::Text;
    QTest::newRow("flags") << "### Flags" << SettingKind::Flag;
}

void TestVocabularyPages::documentSettings()
{
    QFETCH(QString, heading);
    QFETCH(SettingKind, kind);
    Rows rows = tableUnder("settings-file.md", heading);
    for (const Setting& setting : someDocument().settings) {
        if (setting.kind != kind)
            continue;
        QVERIFY(!rows.isEmpty());
        const Row row = rows.takeFirst();
        QCOMPARE(namesIn(row[0]), QStringList {setting.key});
        QCOMPARE(setting.key + ' ' + groupsIn(row[2]).join(' '),
                 setting.key + ' ' + groupsWhereItActs(setting).join(' '));
        if (kind == SettingKind::Number && !setting.absent.isEmpty())
            QCOMPARE(row[3].section(';', 0, 0), QString(setting.absent));
        else if (kind != SettingKind::Flag) // above whose table it is said for all of them
            QVERIFY(row[3].startsWith("empty"));
    }
    QVERIFY(rows.isEmpty());
}

void TestVocabularyPages::everyDocumentSettingHasItsRow()
{
    int rows = 0;
    for (const char* heading : {"### Numbers", "### Text", "### Flags"})
        rows += tableUnder("settings-file.md", heading).size();
    QCOMPARE(rows, someDocument().settings.size());
}

QTEST_GUILESS_MAIN(TestVocabularyPages)
#include "tst_vocabularypages.moc"
