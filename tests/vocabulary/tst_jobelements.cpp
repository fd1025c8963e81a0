#include "vocabulary/samplejob.h"

#include <QtTest>

#include <algorithm>

using vocabulary::Attribute;
using vocabulary::Element;
using vocabulary::Method;

/// The tables of elements and attributes say what the print program reads: what they list shows in the script when it
/// is changed, and nothing else does.
class TestJobElements : public QObject {
    Q_OBJECT

private slots:
    void theSampleHoldsTheWholeVocabulary();
    void theProgramKnowsTheMethod_data() { addMethodRows(); }
    void theProgramKnowsTheMethod();
    void attributes_data() { addMethodRows(); }
    void attributes();
    void elements_data() { addMethodRows(); }
    void elements();
    void absentAttributesReadAsEmpty_data() { addMethodRows(); }
    void absentAttributesReadAsEmpty();
    void namesInAnotherLetterCase_data() { addMethodRows(); }
    void namesInAnotherLetterCase();
    void attributesInOrderMakeGroups_data() { addMethodRows(); }
    void attributesInOrderMakeGroups();
    void theFirstAttributesAreSkipped_data() { addMethodRows(); }
    void theFirstAttributesAreSkipped();
};

namespace {

/// Whether the table says that the script shows another value of that attribute.
bool shows(const Method& method, const SampleElement& element, int attribute)
{
    const Attribute* const read = attributeRead(method, element, attribute);
    return read && read->prints;
}

/// Whether the table says that the script shows it when the element is not there.
bool shows(const Method& method, const QString& name)
{
    const Element* const element = vocabulary::findElement(method, name);
    if (!element || element->name == QLatin1String("logo")) // read, and the register has no command for it
        return false;
    return element->attributes.isEmpty()
        || std::any_of(element->attributes.begin(), element->attributes.end(),
                       [](const Attribute& attribute) { return attribute.prints; });
}

/// @p job with another value in all those attributes of the element @p position that the table says do not show.
SampleJob withOthersChanged(const Method& method, SampleJob job, int position)
{
    SampleElement& element = job[position];
    for (int i = 0; i < element.attributes.size(); ++i) {
        if (!shows(method, element, i))
            element.attributes[i].value = otherValue(element.attributes[i]);
    }
    return job;
}

/// The attributes of the element @p position of which the table says the contrary of what the program does.
QStringList wrongAttributes(SampleRun& run, const Method& method, const SampleJob& job, int position,
                            const QByteArray& whole)
{
    // Those that should not show are many, and are changed at one stroke. Where they do show, each is tried.
    const bool othersShow = run.script(method, withOthersChanged(method, job, position)) != whole;
    QStringList wrong;
    for (int i = 0; i < job[position].attributes.size(); ++i) {
        const SampleAttribute& attribute = job[position].attributes[i];
        const bool toShow = shows(method, job[position], i);
        const auto showsReally = [&] {
            return run.script(method, withValue(job, position, i, otherValue(attribute))) != whole;
        };
        if ((toShow || othersShow) && showsReally() != toShow)
            wrong += job[position].name + ' ' + attribute.name;
    }
    return wrong;
}

SampleElement elementWithAttributes(const QString& name, int count)
{
    SampleElement element {name, {}};
    for (int i = 0; i < count; ++i)
        element.attributes += {"a" + QString::number(i), QString::number(i)};
    return element;
}

} // namespace

// What the vocabulary has and the sample lacks would not be tried.
void TestJobElements::theSampleHoldsTheWholeVocabulary()
{
    QStringList missing = vocabulary::elementNames();
    missing.removeOne("method");
    for (const SampleElement& element : sampleJob()) {
        missing.removeOne(element.name);
        QStringList attributes = vocabulary::attributeNames(element.name);
        for (const SampleAttribute& attribute : element.attributes)
            attributes.removeOne(attribute.name);
        for (const QString& attribute : attributes)
            missing += element.name + ' ' + attribute;
    }
    QCOMPARE(missing, QStringList());
}

void TestJobElements::theProgramKnowsTheMethod()
{
    QFETCH(int, method);
    const QByteArray script = SampleRun().script(vocabulary::methods()[method], {});
    QVERIFY(script == "nofis apri\r\nnofis chiudi\r\n" || script == "CLEAR \r\nCHIAVE REG\r\nCHIUS T=1\r\n");
}

void TestJobElements::attributes()
{
    QFETCH(int, method);
    const Method& printed = vocabulary::methods()[method];
    SampleRun run;
    const SampleJob job = sampleJobWithForeignAttributes();
    const QByteArray whole = run.script(printed, job);
    for (int i = 0; i < job.size(); ++i)
        QCOMPARE(wrongAttributes(run, printed, job, i, whole), QStringList());
}

void TestJobElements::elements()
{
    QFETCH(int, method);
    const Method& printed = vocabulary::methods()[method];
    SampleRun run;
    const SampleJob job = sampleJob();
    const QByteArray whole = run.script(printed, job);
    QStringList shown;
    QStringList toShow;
    for (int i = 0; i < job.size(); ++i) {
        if (run.script(printed, without(job, i)) != whole)
            shown += job[i].name;
        if (shows(printed, job[i].name))
            toShow += job[i].name;
    }
    QCOMPARE(shown, toShow);
}

// Where attributes are read in their order, one that is absent shifts the others.
void TestJobElements::absentAttributesReadAsEmpty()
{
    QFETCH(int, method);
    const Method& printed = vocabulary::methods()[method];
    SampleJob absent = sampleJob();
    SampleJob empty = absent;
    for (int i = 0; i < absent.size(); ++i) {
        if (vocabulary::takesAnyAttribute(absent[i].name))
            continue;
        absent[i].attributes.clear();
        for (SampleAttribute& attribute : empty[i].attributes)
            attribute.value.clear();
    }
    SampleRun run;
    QCOMPARE(run.script(printed, absent), run.script(printed, empty));
}

void TestJobElements::namesInAnotherLetterCase()
{
    QFETCH(int, method);
    const Method& printed = vocabulary::methods()[method];
    SampleRun run;
    const QByteArray nothing = run.script(printed, {});
    SampleJob job = sampleJob();
    for (SampleElement& element : job) {
        element.name = element.name.toUpper();
        QVERIFY(!vocabulary::findElement(printed, element.name));
    }
    QCOMPARE(run.script(printed, job), nothing);
}

void TestJobElements::attributesInOrderMakeGroups()
{
    QFETCH(int, method);
    const Method& printed = vocabulary::methods()[method];
    SampleRun run;
    for (const Element* const element : vocabulary::elementsOf(printed)) {
        if (element->inOrder.isEmpty())
            continue;
        const int skipped = element->attributes.size();
        const int without = run.script(printed, {elementWithAttributes(element->name, skipped)}).count('\n');
        for (int count = 1; count <= 7; ++count) {
            const int groups = (count + element->inOrder.size() - 1) / element->inOrder.size();
            const int lines = run.script(printed, {elementWithAttributes(element->name, skipped + count)}).count('\n');
            QCOMPARE(lines, without + groups);
        }
    }
}

// Whatever their names: another one in front shifts those that are read in their order.
void TestJobElements::theFirstAttributesAreSkipped()
{
    QFETCH(int, method);
    const Method& printed = vocabulary::methods()[method];
    SampleRun run;
    for (const Element* const element : vocabulary::elementsOf(printed)) {
        if (element->inOrder.isEmpty())
            continue;
        const SampleElement some = elementWithAttributes(element->name, element->attributes.size() + 4);
        const QByteArray whole = run.script(printed, {some});
        for (int i = 0; i < some.attributes.size(); ++i) {
            const QByteArray changed = run.script(printed, withValue({some}, 0, i, "other"));
            QCOMPARE(changed != whole, i >= element->attributes.size());
        }
    }
}

QTEST_GUILESS_MAIN(TestJobElements)
#include "tst_jobelements.moc"
