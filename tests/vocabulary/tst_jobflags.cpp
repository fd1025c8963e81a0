#include "vocabulary/samplejob.h"

#include <QtTest>

using vocabulary::Attribute;
using vocabulary::Element;
using vocabulary::Method;

/// The flags in the tables of elements and attributes are those that the print program asks: an attribute prints with
/// its flags alone, and not when one of them is missing.
class TestJobFlags : public QObject {
    Q_OBJECT

private slots:
    void attributesNeedTheirFlags_data() { addMethodRows(); }
    void attributesNeedTheirFlags();
    void elementsWithoutAttributesNeedTheirFlags_data() { addMethodRows(); }
    void elementsWithoutAttributesNeedTheirFlags();
};

namespace {

QStringList flagsOf(const Element& element, const Attribute& attribute)
{
    QStringList flags {element.flag, attribute.flag};
    flags.removeAll(QString());
    return flags;
}

QStringList allBut(const QString& flag)
{
    QStringList flags = printFlags();
    flags.removeOne(flag);
    return flags;
}

/// Two jobs of a method.
struct Pair {
    const Method& method;
    SampleJob job;
    SampleJob other;
};

/// Whether the two differ on paper with these flags on and all others off.
bool differ(SampleRun& run, const Pair& jobs, const QStringList& flags)
{
    const SampleSettings settings = sampleSettingsWithFlags(flags);
    return run.script(jobs.method, jobs.job, settings) != run.script(jobs.method, jobs.other, settings);
}

/// What is wrong with the opinion that @p needed are the flags which let the difference of the two print.
QStringList wrongFlags(SampleRun& run, const Pair& jobs, const QStringList& needed)
{
    QStringList wrong;
    if (!differ(run, jobs, needed))
        wrong += "needs more than " + needed.join(", ");
    for (const QString& flag : needed) {
        if (differ(run, jobs, allBut(flag)))
            wrong += "does not need " + flag;
    }
    return wrong;
}

} // namespace

void TestJobFlags::attributesNeedTheirFlags()
{
    QFETCH(int, method);
    const Method& printed = vocabulary::methods()[method];
    SampleRun run;
    const SampleJob job = sampleJob();
    for (int i = 0; i < job.size(); ++i) {
        for (int j = 0; j < job[i].attributes.size(); ++j) {
            const Attribute* const attribute = attributeRead(printed, job[i], j);
            if (!attribute || !attribute->prints)
                continue;
            const QStringList needed = flagsOf(*vocabulary::findElement(printed, job[i].name), *attribute);
            const SampleJob other = withValue(job, i, j, otherValue(job[i].attributes[j]));
            const QString place = job[i].name + ' ' + job[i].attributes[j].name + ": ";
            QCOMPARE(place + wrongFlags(run, {printed, job, other}, needed).join("; "), place);
        }
    }
}

void TestJobFlags::elementsWithoutAttributesNeedTheirFlags()
{
    QFETCH(int, method);
    const Method& printed = vocabulary::methods()[method];
    SampleRun run;
    const SampleJob job = sampleJob();
    for (int i = 0; i < job.size(); ++i) {
        const Element* const element = vocabulary::findElement(printed, job[i].name);
        if (!element || element->flag.isEmpty() || !job[i].attributes.isEmpty())
            continue;
        QCOMPARE(wrongFlags(run, {printed, job, without(job, i)}, {element->flag}), QStringList());
    }
}

QTEST_GUILESS_MAIN(TestJobFlags)
#include "tst_jobflags.moc"
