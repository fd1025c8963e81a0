#include "check/jobfindings.h"
#include "support/examples.h"
#include "support/processortime.h"

#include <QtTest>

/// Jobs that are wrong, hostile or cut off: the check ends soon, with what it found until then.
class TestHostileJobs : public QObject {
    Q_OBJECT

private slots:
    void job_data();
    void job();
    void everyPrefixOfAJob();
};

namespace {

QByteArray receipt(const QByteArray& content)
{
    return jobOf("printFullOrderReceipt", content);
}

QByteArray nested(int depth)
{
    return QByteArray("<total price='1'>").repeated(depth) + QByteArray("</total>").repeated(depth);
}

QByteArray manyAttributes(const QByteArray& element, int count, const QByteArray& value, bool areSame)
{
    QByteArray tag = '<' + element;
    for (int i = 0; i < count; ++i)
        tag += " a" + (areSame ? QByteArray() : QByteArray::number(i)) + "=\"" + value + '"';
    return tag + "/>";
}

/// Of an address: each of them is another.
QByteArray wideLines(int count)
{
    QByteArray lines;
    for (int i = 0; i < count; ++i)
        lines += QByteArray::number(i).rightJustified(33, '0') + ',';
    return lines;
}

} // namespace

void TestHostileJobs::job_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("count"); // of findings
    QTest::addColumn<QString>("last");

    const auto row = [](const char* name, const QByteArray& bytes, int count, const QString& last) {
        QTest::newRow(name) << bytes << count << last;
    };
    const QByteArray seven = "<receipt serialnumber='7'/>";

    row("random bytes", QByteArray("\x00\xff\xfe<\x80\x00>", 7), 1, "1:1 error not-well-formed");
    row("nested just within bounds", receipt(nested(999)), 0, QString());
    row("nested one too deep", receipt(nested(1000)), 1, "2:17000 error not-well-formed");
    row("nested 100,000 deep", receipt(nested(100000)), 1, "2:17000 error not-well-formed");
    row("an attribute of 10 MB", receipt("<receipt serialnumber='" + QByteArray(10000000, 'y') + "'/>"), 1,
        "2:10 warning too-wide");
    row("10 MB of apostrophes", receipt("<receipt serialnumber=\"" + QByteArray(10000000, '\'') + "\"/>"), 2,
        "2:10 warning too-wide");
    row("an address of 1,000,000 lines",
        receipt("<customer name='a' billingaddress=\"" + QByteArray("'a,").repeated(1000000) + "\"/>"), 1,
        "2:20 warning quote-in-text");
    row("an address of 100,000 lines that are too wide",
        receipt("<customer name='a' billingaddress='" + wideLines(100000) + "'/>"), 1, "2:20 warning too-wide");
    row("100,000 attributes that nobody reads", receipt(manyAttributes("total", 100000, "1", false)), 100001,
        "2:1088887 warning unknown-attribute");
    row("100,000 of one name", receipt(manyAttributes("total", 100000, "1", true)), 100001,
        "2:600002 warning repeated-attribute");
    row("100,000 lines with apostrophes", receipt(manyAttributes("company", 100000, "l'a", false)), 100000,
        "2:1288887 warning quote-in-text");
    row("200,000 entities that nobody declared, in one attribute",
        receipt("<receipt serialnumber='7" + QByteArray("&x;").repeated(200000) + "'/>"), 1,
        "2:10 warning unknown-entity");
    row("200,000 elements before the method", "<job>" + QByteArray("<total/>\n").repeated(200000) + "</job>", 1,
        "200001:1 error no-method");
    row("a declaration too long",
        "<!DOCTYPE job [" + QByteArray("<!ELEMENT a ANY>").repeated(2000) + "]>" + receipt(seven), 1, QString());
    row("an entity bomb", "<!DOCTYPE job [<!ENTITY q '" + QByteArray(4000, 'q') + "'>]>" + receipt(seven), 1,
        QString());
}

void TestHostileJobs::job()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, count);
    QFETCH(QString, last);

    const ProcessorTime time;
    const check::Findings findings =
        findingsOf(bytes, settingsWith("printCompany = true; printCustomer = true; printBillingAddress = true;"));
    QCOMPARE(findings.size(), count);
    if (!last.isEmpty())
        QCOMPARE(inShort(findings.last()), last);
    if (count == 1 && last.isEmpty())
        QCOMPARE(findings.first().code, check::Code::NotWellFormed);
    QVERIFY2(time.milliseconds() < 20000, qPrintable(QString("%1 ms").arg(time.milliseconds())));
}

/// Each is said to break off, behind its last character or before it.
void TestHostileJobs::everyPrefixOfAJob()
{
    const QByteArray whole = fileContents(examples.filePath("receipt.xml"));
    const int rootEnd = whole.lastIndexOf('>') + 1;
    for (int length = 0; length < rootEnd; ++length) {
        const QByteArray part = whole.left(length);
        int broken = 0;
        for (const check::Finding& finding : findingsOf(part, exampleSettings())) {
            broken += finding.code == check::Code::NotWellFormed ? 1 : 0;
            QVERIFY(finding.place.line <= part.count('\n') + 1);
        }
        QVERIFY2(broken == 1, qPrintable(QString("prefix of %1 bytes").arg(length)));
    }
}

QTEST_GUILESS_MAIN(TestHostileJobs)
#include "tst_hostilejobs.moc"
