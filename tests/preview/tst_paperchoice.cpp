#include "preview/paperchoice.h"
#include "preview/samples.h"
#include "support/files.h"

#include <QTemporaryDir>
#include <QtTest>

/// Which paper is shown beside the settings, and what can be chosen.
class TestPaperChoice : public QObject {
    Q_OBJECT

private slots:
    void groupsShowTheirDocuments_data();
    void groupsShowTheirDocuments();
    void offersTheGroupsDocuments_data();
    void offersTheGroupsDocuments();
    void theLanguageShowsAll();
    void oneOfAllCanBeChosen();
    void aGroupWithoutPaperLeavesTheLast();
    void nothingBeforeTheFirstGroup();
    void aJobOfOnesOwn();
    void aSecondJobOfOnesOwnReplacesTheFirst();
    void eachGroupKeepsItsChoice();

    void readsAJob();
    void refusesWhatIsNoJob_data();
    void refusesWhatIsNoJob();
};

using preview::OwnJob;
using preview::PaperChoice;
using preview::PaperJob;
using preview::readOwnJob;

namespace {

QByteArray sampleOf(const char* method)
{
    return preview::findSample(method)->job();
}

const QStringList allTitles {"Kitchen order",
                             "Full order",
                             "Receipt",
                             "Invoice",
                             "Delivery note",
                             "Fiscal receipt",
                             "Summary order",
                             "Summary receipt",
                             "Summary invoice",
                             "Summary fiscal receipt",
                             "Daily report",
                             "Sold items",
                             "Statement of account"};

} // namespace

void TestPaperChoice::groupsShowTheirDocuments_data()
{
    QTest::addColumn<QString>("group");
    QTest::addColumn<QStringList>("methods");
    QTest::newRow("kitchen orders") << "doc" << QStringList {"printPartialOrder", "printAbstractOrder"};
    QTest::newRow("whole orders") << "prefiscaldoc" << QStringList {"printFullOrder"};
    QTest::newRow("fiscal receipts") << "fiscaldoc" << QStringList {"printFullOrderFiscal", "printAbstractOrderFiscal"};
    QTest::newRow("receipts") << "receiptdoc" << QStringList {"printFullOrderReceipt", "printAbstractOrderReceipt"};
    QTest::newRow("invoices") << "invoicedoc" << QStringList {"printFullOrderInvoice", "printAbstractOrderInvoice"};
    QTest::newRow("delivery notes") << "deliverydoc" << QStringList {"printFullOrderDelivery"};
    QTest::newRow("reports") << "reportdoc" << QStringList {"printReport", "printStatementOfAccount"};
    QTest::newRow("dishes sold") << "solddoc" << QStringList {"printSold"};
    QTest::newRow("the log has no paper") << "logger" << QStringList();
    QTest::newRow("the database has no paper") << "db" << QStringList();
    QTest::newRow("the programs have no paper") << "bin" << QStringList();
    QTest::newRow("a group that the suite does not know") << "doc2" << QStringList();
    QTest::newRow("no group") << "" << QStringList();
}

void TestPaperChoice::groupsShowTheirDocuments()
{
    QFETCH(QString, group);
    QFETCH(QStringList, methods);
    QStringList shown;
    for (const vocabulary::Method* method : preview::methodsShownFor(group))
        shown += method->name;
    QCOMPARE(shown, methods);
}

void TestPaperChoice::offersTheGroupsDocuments_data()
{
    QTest::addColumn<QString>("group");
    QTest::addColumn<QStringList>("titles");
    QTest::newRow("one document") << "prefiscaldoc" << QStringList {"Full order"};
    QTest::newRow("two documents") << "receiptdoc" << QStringList {"Receipt", "Summary receipt"};
    QTest::newRow("all of them") << "language" << QStringList("All documents") + allTitles;
}

void TestPaperChoice::offersTheGroupsDocuments()
{
    QFETCH(QString, group);
    QFETCH(QStringList, titles);
    PaperChoice choice;
    QVERIFY(choice.setGroup(group));
    QCOMPARE(choice.titles(), titles);
    QCOMPARE(choice.current(), 0);
}

void TestPaperChoice::theLanguageShowsAll()
{
    PaperChoice choice;
    choice.setGroup("language");
    QStringList titles;
    for (const PaperJob& job : choice.jobs())
        titles += job.title;
    QCOMPARE(titles, allTitles);
    QCOMPARE(choice.jobs().at(11).bytes, sampleOf("printSold"));
}

void TestPaperChoice::oneOfAllCanBeChosen()
{
    PaperChoice choice;
    choice.setGroup("language");
    choice.choose(12);
    QCOMPARE(choice.jobs(), (QVector<PaperJob> {{"Sold items", sampleOf("printSold")}}));
}

void TestPaperChoice::aGroupWithoutPaperLeavesTheLast()
{
    PaperChoice choice;
    choice.setGroup("receiptdoc");
    choice.choose(1);
    QVERIFY(!choice.setGroup("logger"));
    QVERIFY(!choice.setGroup("receiptdoc"));
    QCOMPARE(choice.titles(), (QStringList {"Receipt", "Summary receipt"}));
    QCOMPARE(choice.jobs(), (QVector<PaperJob> {{"Summary receipt", sampleOf("printAbstractOrderReceipt")}}));
}

void TestPaperChoice::nothingBeforeTheFirstGroup()
{
    PaperChoice choice;
    QVERIFY(!choice.setGroup("logger"));
    QCOMPARE(choice.titles(), QStringList());
    QCOMPARE(choice.current(), -1);
    QCOMPARE(choice.jobs(), QVector<PaperJob>());
}

void TestPaperChoice::aJobOfOnesOwn()
{
    PaperChoice choice;
    choice.setGroup("receiptdoc");
    const PaperJob own {"table 7.xml", "<j/>"};
    choice.chooseOwn(own);
    QCOMPARE(choice.titles(), (QStringList {"Receipt", "Summary receipt", "table 7.xml"}));
    QCOMPARE(choice.current(), 2);
    QCOMPARE(choice.jobs(), QVector<PaperJob> {own});

    choice.choose(0);
    QCOMPARE(choice.jobs(), (QVector<PaperJob> {{"Receipt", sampleOf("printFullOrderReceipt")}}));
    QCOMPARE(choice.titles().size(), 3);
}

void TestPaperChoice::aSecondJobOfOnesOwnReplacesTheFirst()
{
    PaperChoice choice;
    choice.setGroup("solddoc");
    choice.chooseOwn({"first.xml", "<j/>"});
    choice.chooseOwn({"second.xml", "<j/>"});
    QCOMPARE(choice.titles(), (QStringList {"Sold items", "second.xml"}));
    QCOMPARE(choice.current(), 1);
}

void TestPaperChoice::eachGroupKeepsItsChoice()
{
    PaperChoice choice;
    choice.setGroup("receiptdoc");
    choice.chooseOwn({"own.xml", "<j/>"});
    choice.setGroup("reportdoc");
    QCOMPARE(choice.titles(), (QStringList {"Daily report", "Statement of account"}));
    QCOMPARE(choice.current(), 0);
    choice.choose(1);
    choice.setGroup("receiptdoc");
    QCOMPARE(choice.current(), 2);
    QCOMPARE(choice.jobs().value(0).title, QString("own.xml"));
    choice.setGroup("reportdoc");
    QCOMPARE(choice.current(), 1);
}

void TestPaperChoice::readsAJob()
{
    const QTemporaryDir folder(scratchFolder());
    const QString path = folder.filePath("table 7.xml");
    writeBytes(path, "\xEF\xBB\xBF\n <printjob/>");
    const OwnJob own = readOwnJob(path);
    QCOMPARE(own.failure, QString());
    QCOMPARE(own.job.title, QString("table 7.xml"));
    QCOMPARE(own.job.bytes, QByteArray("\xEF\xBB\xBF\n <printjob/>"));
}

void TestPaperChoice::refusesWhatIsNoJob_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    QTest::newRow("an empty file") << QByteArray("") << "The file %1 is empty.";
    QTest::newRow("a script") << QByteArray("nofis apri\r\nnofis chiudi\r\n")
                              << "The file %1 is no job: a job is XML, and begins with \"<\".";
    QTest::newRow("blanks alone") << QByteArray(" \n") << "The file %1 is no job: a job is XML, and begins with \"<\".";
    QTest::newRow("a file that is not there")
        << QByteArray() << "The file %1 cannot be read: No such file or directory";
}

void TestPaperChoice::refusesWhatIsNoJob()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    const QTemporaryDir folder(scratchFolder());
    const QString path = folder.filePath("a file.xml");
    if (!bytes.isNull())
        writeBytes(path, bytes);
    const OwnJob own = readOwnJob(path);
    QCOMPARE(own.failure, reason.arg(path));
    QCOMPARE(own.job.bytes, QByteArray());
}

QTEST_GUILESS_MAIN(TestPaperChoice)
#include "tst_paperchoice.moc"
