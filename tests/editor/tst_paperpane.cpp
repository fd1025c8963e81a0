#include "editor/boxanswers.h"
#include "editor/contrast.h"
#include "editor/papernotice.h"
#include "editor/paperpane.h"
#include "editor/paperview.h"
#include "preview/fakeprogram.h"
#include "preview/paperrun.h"
#include "support/processstate.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QToolButton>
#include <QWheelEvent>
#include <QtTest>

#include <memory>

/// The paper beside the settings, as a person uses it: real keys, real boxes, the real print program.
class TestPaperPane : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void saysWhatWillStandHere();
    void showsTheDocumentOfTheGroup();
    void aChangeIsMarked();
    void aChangeLeavesWhatIsInSight();
    void anotherDocumentByKeys();
    void aGroupWithoutPaperLeavesTheLast();
    void theLanguageShowsAll();
    void theWheelChoosesNothing();

    void aJobOfOnesOwn();
    void aJobOfOnesOwnIsReadAgain();
    void whatIsNoJobIsRefused();
    void noJobIsChosen();

    void saysWhatIsWrong();
    void saysThatItPrints();
    void aLongNoticeHasRoom();

    void keysMakeItLargerAndSmaller();
    void savesAPdf();
    void savesAPng();
    void savesWhereItSavedLast();
    void suggestsTheTitleAsName();
    void anUnwritableFileStaysAsItWas();
    void aPictureThatIsTooHighIsRefused();
    void nothingIsSavedWhenNoNameIsChosen();
    void printsIntoAFile();
    void nothingCanLeaveWithoutPaper();

    void everythingHasAName();
    void keysReachEverything();
    void isUsableAt300Points();
    void isToBeReadInDarkColours();

private:
    void show(const QString& group);
    void setSettings(const QByteArray& now, const QByteArray& stored);
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void choose(const QString& action);
    void chooseOwnJob(const QByteArray& bytes, const QString& name = "own.xml");
    QString write(const QString& name, const QByteArray& bytes) const;
    QByteArray saved(const QString& name) const { return fileContents(folder->filePath(name)); }

    QComboBox* box() const { return pane->findChild<QComboBox*>(); }
    PaperView* view() const { return pane->findChild<PaperView*>(); }
    PaperNotice* notice() const { return pane->findChild<PaperNotice*>(); }
    /// What it says of the paper to who does not see it.
    QString text() const { return view()->accessibleDescription(); }

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<PaperPane> pane;
    std::unique_ptr<BoxAnswers> person;
};

namespace {

void usePrintProgram(const QString& path)
{
    qputenv("PATH", QFile::encodeName(QFileInfo(path).path()) + ":/usr/bin:/bin");
}

QStringList titles(const QComboBox& box)
{
    QStringList titles;
    for (int i = 0; i < box.count(); ++i)
        titles += box.itemText(i);
    return titles;
}

int pixelsOf(const QWidget& widget, const QColor& colour)
{
    const QImage image = const_cast<QWidget&>(widget).grab().toImage();
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == colour ? 1 : 0;
    }
    return count;
}

const QColor changedColour(0xFF, 0xF0, 0xA0);
const QString separator(32, '=');

} // namespace

void TestPaperPane::init()
{
    usePrintProgram(ZELMORA_PRINT_PROGRAM);
    folder = std::make_unique<QTemporaryDir>(scratchFolder());
    pane = std::make_unique<PaperPane>();
    person = std::make_unique<BoxAnswers>();
    pane->resize(500, 500);
    pane->show();
    QVERIFY(QTest::qWaitForWindowActive(pane.get()));
}

void TestPaperPane::cleanup()
{
    QCOMPARE(person->readBoxes(), QStringList());
    pane.reset();
    person.reset();
}

void TestPaperPane::show(const QString& group)
{
    pane->setGroup(group);
    QTRY_VERIFY(!text().trimmed().isEmpty());
}

void TestPaperPane::setSettings(const QByteArray& now, const QByteArray& stored)
{
    pane->setSettings({now, {}}, {stored, {}});
}

void TestPaperPane::press(int key, Qt::KeyboardModifiers modifiers)
{
    pane->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(pane.get()));
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
}

/// By its text in the menu.
void TestPaperPane::choose(const QString& action)
{
    for (QAction* candidate : pane->paperMenu()->actions()) {
        if (candidate->text().remove('&') == action)
            candidate->trigger();
    }
}

QString TestPaperPane::write(const QString& name, const QByteArray& bytes) const
{
    writeBytes(folder->filePath(name), bytes);
    return folder->filePath(name);
}

void TestPaperPane::chooseOwnJob(const QByteArray& bytes, const QString& name)
{
    person->willType(write(name, bytes));
    choose("A job of your own...");
}

void TestPaperPane::saysWhatWillStandHere()
{
    auto* const label = pane->findChild<QLabel*>();
    QVERIFY(label->isVisible());
    QVERIFY(label->text().startsWith("Here stands the paper of a document"));
    QVERIFY(!view()->isVisible());
    QVERIFY(!box()->isEnabled());
    pane->setGroup("logger");
    QVERIFY(label->isVisible());
    show("receiptdoc");
    QVERIFY(!label->isVisible());
    QVERIFY(view()->isVisible());
}

void TestPaperPane::showsTheDocumentOfTheGroup()
{
    setSettings(exampleSettings(), exampleSettings());
    show("receiptdoc");
    QCOMPARE(titles(*box()), (QStringList {"Receipt", "Summary receipt"}));
    QCOMPARE(box()->currentText(), QString("Receipt"));
    QVERIFY2(text().startsWith("Receipt\nRICEVUTA\n"), qPrintable(text()));
    QVERIFY(text().contains("\n  2 x Tagliatelle..12.00   24.00\n"));
    QCOMPARE(pixelsOf(*view(), changedColour), 0);
    QVERIFY(!notice()->isVisible());
}

void TestPaperPane::aChangeIsMarked()
{
    setSettings(simpleSettings("false"), simpleSettings("false"));
    show("solddoc");
    chooseOwnJob(jobOf("hello"));
    QTRY_COMPARE(text(), "own.xml\n" + separator + "\n");
    QCOMPARE(pixelsOf(*view(), changedColour), 0);
    setSettings(simpleSettings("true"), simpleSettings("false"));
    QTRY_COMPARE(text(), "own.xml\n Note: hello\n" + separator + "\n");
    QVERIFY(pixelsOf(*view(), changedColour) > 100);
    setSettings(simpleSettings("true"), simpleSettings("true"));
    QTRY_COMPARE(pixelsOf(*view(), changedColour), 0);
}

void TestPaperPane::aChangeLeavesWhatIsInSight()
{
    setSettings(exampleSettings(), exampleSettings());
    pane->resize(500, 300);
    show("receiptdoc");
    view()->setFocus();
    press(Qt::Key_End);
    const int before = view()->verticalScrollBar()->value();
    QVERIFY(before > 0);
    emit box()->activated(0); // the same document again, as from its list
    setSettings(exampleSettings() + "\n", exampleSettings());
    QTest::qWait(200);
    QCOMPARE(view()->verticalScrollBar()->value(), before);
    box()->setFocus();
    press(Qt::Key_End);
    QTRY_VERIFY(text().startsWith("Summary receipt\n"));
    QCOMPARE(view()->verticalScrollBar()->value(), 0);
}

void TestPaperPane::anotherDocumentByKeys()
{
    setSettings(exampleSettings(), exampleSettings());
    show("reportdoc");
    QVERIFY(text().startsWith("Daily report\n"));
    box()->setFocus();
    press(Qt::Key_Down);
    QCOMPARE(box()->currentText(), QString("Statement of account"));
    QTRY_VERIFY(text().startsWith("Statement of account\n"));
    pane->setGroup("solddoc");
    QTRY_VERIFY(text().startsWith("Sold items\n"));
    pane->setGroup("reportdoc");
    QCOMPARE(box()->currentText(), QString("Statement of account"));
}

void TestPaperPane::aGroupWithoutPaperLeavesTheLast()
{
    setSettings(exampleSettings(), exampleSettings());
    show("receiptdoc");
    const QString before = text();
    for (const char* group : {"logger", "db", "bin", "a group of nobody"})
        pane->setGroup(group);
    QTest::qWait(100);
    QCOMPARE(titles(*box()), (QStringList {"Receipt", "Summary receipt"}));
    QCOMPARE(text(), before);
}

void TestPaperPane::theLanguageShowsAll()
{
    setSettings(exampleSettings(), exampleSettings());
    show("language");
    QCOMPARE(box()->count(), 14);
    QCOMPARE(box()->currentText(), QString("All documents"));
    for (const QString& title : titles(*box()).mid(1))
        QVERIFY2(('\n' + text()).contains('\n' + title + '\n'), qPrintable(title));
}

void TestPaperPane::theWheelChoosesNothing()
{
    show("receiptdoc");
    box()->setFocus();
    const QPointF middle = QRectF(box()->rect()).center();
    QWheelEvent event(middle, box()->mapToGlobal(middle.toPoint()), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(box(), &event);
    QCOMPARE(box()->currentText(), QString("Receipt"));
}

void TestPaperPane::aJobOfOnesOwn()
{
    setSettings(simpleSettings(), simpleSettings());
    show("solddoc");
    chooseOwnJob(jobOf("hello"), "table 7.xml");
    QCOMPARE(titles(*box()), (QStringList {"Sold items", "table 7.xml"}));
    QCOMPARE(box()->currentText(), QString("table 7.xml"));
    QTRY_COMPARE(text(), "table 7.xml\n Note: hello\n" + separator + "\n");
    box()->setFocus();
    press(Qt::Key_Up);
    QTRY_VERIFY(text().startsWith("Sold items\n"));
}

void TestPaperPane::aJobOfOnesOwnIsReadAgain()
{
    setSettings(simpleSettings(), simpleSettings());
    show("solddoc");
    chooseOwnJob(jobOf("hello"));
    QTRY_VERIFY(text().contains("hello"));
    chooseOwnJob(jobOf("good evening"));
    QTRY_VERIFY(text().contains("good evening"));
    QCOMPARE(box()->count(), 2);
}

void TestPaperPane::whatIsNoJobIsRefused()
{
    show("solddoc");
    person->willType(write("script.txt", "nofis apri\r\nnofis chiudi\r\n"));
    person->willPress(Qt::Key_Return);
    choose("A job of your own...");
    QCOMPARE(
        person->readBoxes(),
        QStringList("The file " + folder->filePath("script.txt") + " is no job: a job is XML, and begins with \"<\"."));
    QCOMPARE(titles(*box()), QStringList("Sold items"));
}

void TestPaperPane::noJobIsChosen()
{
    show("solddoc");
    person->willPress(Qt::Key_Escape);
    choose("A job of your own...");
    QCOMPARE(titles(*box()), QStringList("Sold items"));
}

void TestPaperPane::saysWhatIsWrong()
{
    setSettings(simpleSettings(), simpleSettings());
    show("solddoc");
    QVERIFY(!notice()->isVisible());
    chooseOwnJob("<j><method name=\"printSold\"/><");
    QTRY_VERIFY(notice()->isVisible());
    QCOMPARE(notice()->text(),
             QString("The script has no closing command, since the job breaks off. zelmora-check says where."));
    box()->setFocus();
    press(Qt::Key_Up);
    QTRY_VERIFY(!notice()->isVisible());
}

void TestPaperPane::saysThatItPrints()
{
    const FakeProgram fake("sleep 1; echo 'nofis apri' > \"$2\"; echo 'nofis chiudi' >> \"$2\"");
    usePrintProgram(fake.path());
    pane->setGroup("solddoc");
    QTRY_COMPARE(notice()->text(), QString("It is being printed..."));
    QTRY_VERIFY(!notice()->isVisible());
    usePrintProgram(ZELMORA_PRINT_PROGRAM);
    setSettings(exampleSettings(), exampleSettings());
    QTRY_VERIFY(text().contains("VENDUTO DEL GIORNO"));
    QTest::qWait(400); // longer than it takes to be said
    QVERIFY(!notice()->isVisible());
}

void TestPaperPane::aLongNoticeHasRoom()
{
    pane->setSettings({std::nullopt, "The settings cannot be had, because of " + QString(3000, 'x')}, {});
    pane->setGroup("solddoc");
    QTRY_VERIFY(notice()->isVisible());
    QTest::qWait(50); // until it has its place
    QCOMPARE(pane->height(), 500);
    QVERIFY2(notice()->height() > 50 && notice()->height() < 200, qPrintable(QString::number(notice()->height())));
    QVERIFY(view()->height() > 200);
    QVERIFY2(pane->minimumSizeHint().width() <= 300, qPrintable(QString::number(pane->minimumSizeHint().width())));
}

void TestPaperPane::keysMakeItLargerAndSmaller()
{
    show("solddoc");
    box()->setFocus();
    press(Qt::Key_Plus, Qt::ControlModifier);
    QCOMPARE(view()->scale(), 1.25);
    press(Qt::Key_Minus, Qt::ControlModifier);
    press(Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(view()->scale(), 0.85);
    press(Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(view()->scale(), 1.0);

    auto* const larger = pane->findChildren<QToolButton*>().last();
    QCOMPARE(larger->text(), QString("+"));
    larger->setFocus();
    for (int i = 0; i < 6; ++i)
        press(Qt::Key_Space);
    QCOMPARE(view()->scale(), 4.0);
    QVERIFY(!larger->isEnabled());
}

void TestPaperPane::savesAPdf()
{
    setSettings(exampleSettings(), exampleSettings());
    show("receiptdoc");
    person->willType(folder->filePath("mine"));
    choose("Save as PDF...");
    QVERIFY(saved("mine.pdf").startsWith("%PDF-1."));
    QVERIFY(saved("mine.pdf").trimmed().endsWith("%%EOF"));
}

// Two pixels for each unit.
void TestPaperPane::savesAPng()
{
    setSettings(simpleSettings(), simpleSettings());
    show("solddoc");
    chooseOwnJob(jobOf("hello"));
    QTRY_VERIFY(text().contains("hello"));
    person->willType(folder->filePath("mine.png"));
    choose("Save as PNG...");
    // 32 columns of 10 with 10 at each side, two rows of 20 with 10 above and below, a title of 24, and 20 around.
    QCOMPARE(QImage::fromData(saved("mine.png"), "PNG").size(), QSize(320 + 20 + 40, 40 + 20 + 24 + 40) * 2);
}

void TestPaperPane::savesWhereItSavedLast()
{
    show("solddoc");
    person->willType(folder->filePath("a.png"));
    choose("Save as PNG...");
    person->willType("b");
    choose("Save as PDF...");
    QCOMPARE(filesIn(folder->path()), (QStringList {"a.png", "b.pdf"}));
}

void TestPaperPane::suggestsTheTitleAsName()
{
    show("solddoc");
    QStringList names;
    const auto look = [&names](QWidget* dialog) {
        names += dialog->findChild<QLineEdit*>("fileNameEdit")->text();
        QTest::keyClick(dialog, Qt::Key_Escape);
        return true;
    };
    person->will(look);
    choose("Save as PDF...");
    chooseOwnJob(jobOf("hello"), "table 7.xml");
    QTRY_VERIFY(text().contains("table 7"));
    person->will(look);
    choose("Save as PNG...");
    QCOMPARE(names, (QStringList {"Sold items.pdf", "table 7.png"}));
}

void TestPaperPane::anUnwritableFileStaysAsItWas()
{
    show("solddoc");
    const QString path = write("mine.pdf", "the old one");
    person->willType(path);
    person->willPress(QMessageBox::Yes); // whether to write over it
    person->willPress(Qt::Key_Return);
    {
        const FileSizeLimit fullDisk(1000);
        choose("Save as PDF...");
    }
    const QStringList boxes = person->readBoxes();
    QVERIFY2(boxes.value(1).startsWith("The file " + path + " cannot be written: File too large"),
             qPrintable(boxes.join('\n')));
    QCOMPARE(saved("mine.pdf"), QByteArray("the old one"));
    QCOMPARE(filesIn(folder->path()), QStringList("mine.pdf"));
}

void TestPaperPane::aPictureThatIsTooHighIsRefused()
{
    setSettings("zelmora: { solddoc: { printGeometry = true; topMargin = 800; }; };", "");
    show("solddoc");
    chooseOwnJob("<j><method name=\"printSold\"/><geometry/></j>");
    QTRY_VERIFY(text().startsWith("own.xml"));
    person->willType(folder->filePath("mine.png"));
    person->willPress(Qt::Key_Return);
    choose("Save as PNG...");
    QCOMPARE(person->readBoxes(),
             QStringList("The picture would have a side of more than 30000 pixels. A PDF breaks "
                         "into pages."));
    QCOMPARE(filesIn(folder->path()), QStringList("own.xml"));
}

void TestPaperPane::nothingIsSavedWhenNoNameIsChosen()
{
    show("solddoc");
    for (const char* action : {"Save as PDF...", "Save as PNG...", "Print..."}) {
        person->willPress(Qt::Key_Escape);
        choose(action);
    }
    QCOMPARE(filesIn(folder->path()), QStringList());
}

void TestPaperPane::printsIntoAFile()
{
    setSettings(exampleSettings(), exampleSettings());
    show("receiptdoc");
    const QString path = folder->filePath("printed.pdf");
    person->will([path](QWidget* dialog) {
        auto* const field = dialog->findChild<QLineEdit*>("filename");
        if (!field)
            return false;
        field->setText(path);
        QTest::keyClick(dialog, Qt::Key_Return);
        return true;
    });
    press(Qt::Key_P, Qt::ControlModifier);
    QVERIFY(saved("printed.pdf").startsWith("%PDF-1."));
    QVERIFY(saved("printed.pdf").trimmed().endsWith("%%EOF"));
}

void TestPaperPane::nothingCanLeaveWithoutPaper()
{
    const auto enabled = [this] {
        QStringList names;
        for (const QAction* action : pane->paperMenu()->actions()) {
            if (action->isEnabled() && !action->isSeparator())
                names += action->text().remove('&');
        }
        return names;
    };
    const QStringList looks {"Larger", "Smaller", "Fit the width"};
    QCOMPARE(enabled(), looks);
    show("solddoc");
    const QStringList leaves {"Save as PDF...", "Save as PNG...", "Print..."};
    QCOMPARE(enabled(), QStringList("A job of your own...") + looks + leaves);
}

void TestPaperPane::everythingHasAName()
{
    show("solddoc");
    for (const QWidget* control : pane->findChildren<QWidget*>()) {
        const bool isReached = control->focusPolicy() != Qt::NoFocus && control->isVisible();
        const bool isNamed = !control->accessibleName().isEmpty();
        QVERIFY2(!isReached || isNamed || control->inherits("QScrollBar"), control->metaObject()->className());
    }
}

void TestPaperPane::keysReachEverything()
{
    setSettings(simpleSettings(), simpleSettings());
    show("solddoc");
    chooseOwnJob("<j><method name=\"printSold\"/><");
    QTRY_VERIFY(notice()->isVisible());
    pane->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(pane.get()));
    box()->setFocus();
    QStringList reached;
    for (int i = 0; i < 5; ++i) {
        reached += QApplication::focusWidget()->accessibleName();
        press(Qt::Key_Tab);
    }
    QCOMPARE(reached, (QStringList {"Document", "Smaller", "Larger", "Paper", "About the paper"}));
    QCOMPARE(QApplication::focusWidget(), box());
}

void TestPaperPane::isUsableAt300Points()
{
    QVERIFY2(pane->minimumSizeHint().width() <= 300, qPrintable(QString::number(pane->minimumSizeHint().width())));
    pane->resize(300, 400);
    setSettings(exampleSettings(), exampleSettings());
    show("receiptdoc");
    QCOMPARE(view()->horizontalScrollBar()->maximum(), 0);
    QVERIFY(box()->width() >= 100);
}

// Whatever the window's colours are: the paper is as it is drawn, and what is around it takes the window's.
void TestPaperPane::isToBeReadInDarkColours()
{
    QPalette dark = pane->palette();
    dark.setColor(QPalette::Window, QColor(40, 40, 40));
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        dark.setColor(role, Qt::white);
    pane->setPalette(dark);
    for (const QWidget* shown : {static_cast<QWidget*>(pane->findChild<QLabel*>()), static_cast<QWidget*>(notice())}) {
        const QPalette& palette = shown->palette();
        QVERIFY(contrast(palette.color(QPalette::WindowText), palette.color(QPalette::Window)) > 4.5);
    }
    setSettings(exampleSettings(), exampleSettings());
    show("receiptdoc");
    QVERIFY(pixelsOf(*view(), Qt::white) > 10000);
    QVERIFY(pixelsOf(*view(), QColor(0xC8, 0xC8, 0xC8)) > 10000);
}

QTEST_MAIN(TestPaperPane)
#include "tst_paperpane.moc"
