#include "util/hlibrary.h"

#include "support/capture.h"
#include "support/toolkitmessages.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <QTimer>
#include <QTranslator>
#include <QtTest>

#include <optional>

namespace {

/// What an operator sees of a box, and what has been printed by then.
struct SeenBox {
    QString caption;
    QString text;
    QByteArray printed;
};

/// Stands in for the operator: as long as it lives, closes each box that appears, and tells of all.
class Operator : public QObject {
public:
    enum class Way { Button, Escape };

    /// Looks at a box for @p msecs before closing it.
    explicit Operator(const QString& destination, Way way = Way::Button, int msecs = 0)
        : destination(destination)
        , way(way)
    {
        timer.setTimerType(Qt::PreciseTimer);
        timer.setInterval(msecs);
        connect(&timer, &QTimer::timeout, this, &Operator::look);
        timer.start();
    }

    QVector<SeenBox> boxes;

private:
    void look()
    {
        const auto box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box)
            return;
        boxes += {box->windowTitle(), box->text(), fileContents(destination)};
        [&] {
            QVERIFY(box->isVisible());
            QVERIFY(box->isModal());
            QVERIFY(!box->parent());
            QCOMPARE(box->icon(), QMessageBox::Information);
            QCOMPARE(box->informativeText() + box->detailedText(), QString());
            QCOMPARE(box->buttons().size(), 1);
            QCOMPARE(box->standardButtons(), QMessageBox::StandardButtons(QMessageBox::Ok));
        }();
        if (way == Way::Button)
            box->buttons().constFirst()->click();
        else
            QTest::keyClick(box, Qt::Key_Escape);
    }

    const QString destination;
    const Way way;
    QTimer timer;
};

} // namespace

/// The request for paper as a box, which a program with a QApplication shows.
class TestPaperMessageBox : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void boxesOfACopy_data();
    void boxesOfACopy();
    void nothingOnTheConsole();
    void copyWaitsForTheOperator();
    void escapeClosesTheBox();
    void translated();

private:
    bool copy(unsigned int linesPerSheet) const { return HLibrary::copy(source, destination, linesPerSheet, 0u); }

    const QTemporaryDir folder;
    const QString source = folder.filePath("source");
    const QString destination = folder.filePath("destination");
    std::optional<ToolkitMessages> messages;
};

void TestPaperMessageBox::init()
{
    QFile file(source);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.write("1\n2\n3\n4\n5\n") > 0);
    QFile::remove(destination);
    messages.emplace();
}

void TestPaperMessageBox::cleanup()
{
    messages.reset();
    QStringList texts = ToolkitMessages::all();
    texts.removeAll("This plugin does not support propagateSizeHints()"); // says the screen that is none
    QCOMPARE(texts.join(" / "), QString());
}

void TestPaperMessageBox::boxesOfACopy_data()
{
    QTest::addColumn<unsigned int>("linesPerSheet");
    QTest::addColumn<QByteArrayList>("printed"); // at each box

    QTest::newRow("no sheets") << 0u << QByteArrayList();
    QTest::newRow("sheets of one line") << 1u
                                        << QByteArrayList({"1\n2\n", "1\n2\n3\n", "1\n2\n3\n4\n", "1\n2\n3\n4\n5\n"});
    QTest::newRow("sheets of two lines") << 2u << QByteArrayList({"1\n2\n3\n", "1\n2\n3\n4\n5\n"});
    QTest::newRow("one sheet for all") << 5u << QByteArrayList();
}

void TestPaperMessageBox::boxesOfACopy()
{
    QFETCH(unsigned int, linesPerSheet);
    QFETCH(QByteArrayList, printed);
    const Operator person(destination);

    QVERIFY(copy(linesPerSheet));
    QByteArrayList printedAtBoxes;
    for (const SeenBox& box : person.boxes) {
        QCOMPARE(box.caption, QString("PaperWindow"));
        QCOMPARE(box.text, QString("Insert a new sheet"));
        printedAtBoxes += box.printed;
    }
    QCOMPARE(printedAtBoxes, printed);
    QCOMPARE(fileContents(destination), QByteArray("1\n2\n3\n4\n5\n"));
}

void TestPaperMessageBox::nothingOnTheConsole()
{
    const Operator person(destination);
    QByteArray errors;
    const QByteArray output = captured(stdout, [&] { errors = captured(stderr, [this] { QVERIFY(copy(2)); }); });
    QCOMPARE(person.boxes.size(), 2);
    QCOMPARE(output, QByteArray());
    QCOMPARE(errors, QByteArray());
}

void TestPaperMessageBox::copyWaitsForTheOperator()
{
    const int msecs = 100;
    QElapsedTimer timer;
    timer.start();
    const Operator person(destination, Operator::Way::Button, msecs);
    QVERIFY(copy(4));
    QCOMPARE(person.boxes.size(), 1);
    QVERIFY(timer.elapsed() >= msecs);
}

void TestPaperMessageBox::escapeClosesTheBox()
{
    const Operator person(destination, Operator::Way::Escape);
    QVERIFY(copy(2));
    QCOMPARE(person.boxes.size(), 2);
    QCOMPARE(fileContents(destination), QByteArray("1\n2\n3\n4\n5\n"));
}

void TestPaperMessageBox::translated()
{
    QTranslator translator;
    QVERIFY(translator.load(ZELMORA_CATALOGUE));
    QVERIFY(QCoreApplication::installTranslator(&translator));
    const Operator person(destination);
    QVERIFY(copy(4));
    QCOMPARE(person.boxes.size(), 1);
    QCOMPARE(person.boxes.constFirst().caption, QString("Carta"));
    QCOMPARE(person.boxes.constFirst().text, QString("Inserire un nuovo foglio"));
}

QTEST_MAIN(TestPaperMessageBox)
#include "tst_papermessagebox.moc"
