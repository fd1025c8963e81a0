#include "editor/contrast.h"
#include "editor/grouptable.h"
#include "editor/paperpane.h"
#include "editor/person.h"
#include "support/files.h"

#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QScopeGuard>
#include <QScrollBar>
#include <QSettings>
#include <QSplitter>
#include <QTranslator>

#include <memory>

/// What stands beside each other in the window, in the room that a screen gives.
class TestPanes : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void nothingIsCutOffOnASmallScreen_data();
    void nothingIsCutOffOnASmallScreen();
    void isToBeRead_data();
    void isToBeRead();
    void longWordsAreBroken();
    void theGroupIsTheTitle();
    void fieldsStandBelowEachOther();
    void aFieldIsAsWideAsItsKindNeeds();
    void theHitsAreSeen();
    void tabGoesFromTheLeftToTheRight();
    void thePaperFoldsAway();
    void thePaperIsHiddenByAKey();
    void thePaperGrowsToItsSize();
    void theSizesAreKept();
    void thePaperMenuOpensByKeys();

private:
    void begin();
    void open(const QByteArray& bytes);
    template <class Kind>
    Kind* find() const
    {
        return window->findChild<Kind*>();
    }
    /// A row of 80 letters, which are smaller on one screen than on another.
    int tooNarrowForPaper() const { return 80 * window->fontMetrics().averageCharWidth(); }
    /// In the table of settings.
    QScrollBar* bar() const { return find<GroupTable>()->horizontalScrollBar(); }
    QListWidget* groups() const { return person->named<QListWidget>("Groups of settings"); }

    QTemporaryDir configuration;
    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<SettingsWindow> window;
    std::unique_ptr<Person> person;
};

/// Where letters stand in it; empty where none do.
static QRect textRect(const QWidget& widget)
{
    const auto* const label = qobject_cast<const QLabel*>(&widget);
    const bool isGroups = widget.parentWidget() && widget.parentWidget()->inherits("GroupList");
    if ((label && !label->text().isEmpty()) || isGroups)
        return widget.rect();
    if (qobject_cast<const QLineEdit*>(&widget) || qobject_cast<const QComboBox*>(&widget)
        || qobject_cast<const QPushButton*>(&widget))
        return widget.rect().adjusted(5, 5, qobject_cast<const QComboBox*>(&widget) ? -30 : -5, -5); // within its frame
    if (qobject_cast<const QCheckBox*>(&widget))
        return widget.rect().adjusted(widget.style()->pixelMetric(QStyle::PM_IndicatorWidth) + 4, 0, 0, 0);
    return {};
}

const QSize smallScreen(790, 570); // 800 by 600 less a frame

void TestPanes::initTestCase()
{
    QApplication::setOrganizationName("zelmora");
    QApplication::setFont(QFont("DejaVu Sans", 9)); // as on most desktops
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, configuration.path());
}

void TestPanes::init()
{
    QSettings().clear();
    folder = std::make_unique<QTemporaryDir>();
    begin();
}

void TestPanes::cleanup()
{
    const QStringList boxes = person->readBoxes();
    person.reset();
    window.reset();
    QCOMPARE(boxes, QStringList());
}

void TestPanes::begin()
{
    person.reset();
    window = std::make_unique<SettingsWindow>();
    person = std::make_unique<Person>(*window);
    window->show();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
}

/// What is wrong in it is no matter here.
void TestPanes::open(const QByteArray& bytes)
{
    const QString path = folder->filePath("zelmora.conf");
    writeBytes(path, "zelmora: { " + bytes + " };");
    setPermissions(path, 0600);
    person->willPress(QMessageBox::Ok);
    window->openFile(path);
    person->readBoxes();
}

void TestPanes::nothingIsCutOffOnASmallScreen_data()
{
    QTest::addColumn<bool>("isItalian");
    QTest::newRow("in English") << false;
    QTest::newRow("in Italian") << true;
}

void TestPanes::nothingIsCutOffOnASmallScreen()
{
    QFETCH(bool, isItalian);
    QTranslator italian;
    QVERIFY(italian.load(ZELMORA_CATALOGUE));
    if (isItalian)
        QApplication::installTranslator(&italian);
    begin();
    auto* const list = find<QListWidget>();
    window->resize(smallScreen);
    open("");
    QVERIFY(find<PaperPane>()->isVisible());
    const int forPaper = find<PaperPane>()->width();
    QVERIFY2(forPaper >= 225, qPrintable(QString::number(forPaper))); // its letters are to be read
    for (int i = 0; i < list->count(); ++i) {
        list->setCurrentRow(i);
        QCoreApplication::processEvents();
        QVERIFY2(!bar()->isVisible(), qPrintable(list->item(i)->text()));
    }
    const int mark = list->iconSize().width();
    for (int i = 0; i < list->count(); ++i)
        QVERIFY2(mark + list->fontMetrics().horizontalAdvance(list->item(i)->text()) < list->viewport()->width(),
                 qPrintable(list->item(i)->text()));
}

void TestPanes::isToBeRead_data()
{
    QTest::addColumn<QColor>("ground");
    QTest::addColumn<QColor>("base");
    QTest::addColumn<QColor>("text");
    QTest::newRow("in light colours") << QColor(239, 239, 239) << QColor(255, 255, 255) << QColor(0, 0, 0);
    QTest::newRow("in dark colours") << QColor(42, 46, 50) << QColor(35, 38, 41) << QColor(252, 252, 252);
}

/// What stands in the window: names, descriptions, values, what is absent, what is wrong, bars, groups.
void TestPanes::isToBeRead()
{
    QFETCH(QColor, ground);
    QFETCH(QColor, base);
    QFETCH(QColor, text);
    QPalette colours(text, ground, ground.lighter(), ground.darker(), ground, text, base);
    colours.setColor(QPalette::AlternateBase, ground);
    const QPalette before = QApplication::palette();
    QApplication::setPalette(colours);
    const auto restore = qScopeGuard([&] { QApplication::setPalette(before); });
    begin();
    open("receiptdoc: { paperWidth = 32 mm; printDate = true; priceFieldWidth = 6; colour = red; }; kitchen: { a = b; "
         "};");
    QCoreApplication::processEvents(); // the window has its place, the layout shows new fields
    window->resize(1080, 2400); // all rows at once
    QCoreApplication::processEvents();
    QVector<QWidget*> seen;
    for (QWidget* const widget : window->findChildren<QWidget*>()) {
        const QRect part = textRect(*widget);
        const bool isSeen = QRegion(part).subtracted(widget->visibleRegion()).isEmpty();
        if (!isSeen || !widget->isEnabled() || part.isEmpty())
            continue;
        seen += widget;
        const double found = contrastOfText(*widget, part);
        QVERIFY2(found >= 4.5,
                 qPrintable(
                     QString("%1 %2: %3").arg(widget->metaObject()->className(), widget->accessibleName()).arg(found)));
    }
    QVERIFY2(seen.size() > 60, qPrintable(QString::number(seen.size())));
}

void TestPanes::longWordsAreBroken()
{
    window->resize(smallScreen);
    open("receiptdoc: { print" + QByteArray(40, 'y') + " = true; printDate = \"" + QByteArray(100, 'x')
         + "\"; printDeliveryAdress = true; priceFieldWidth = 32 mm; };");
    QVERIFY(person->reads("print" + QString(40, 'y')));
    QVERIFY(person->button(QString::fromUtf8("Put it right: 32 mm \u2192 32")));
    QVERIFY(person->button(QString::fromUtf8("Put it right: \nprintDeliveryAdr... \u2192 printDeliveryAddress")));
    QCoreApplication::processEvents();
    QVERIFY(!bar()->isVisible());
}

void TestPanes::theGroupIsTheTitle()
{
    open("");
    QVERIFY(person->reads("What stands on this document, and how wide it is. In the file: receiptdoc."));
    groups()->setCurrentRow(groups()->count() - 1);
    QVERIFY(person->reads("The suite's programs. In the file: bin."));
    const auto labels = find<GroupTable>()->findChildren<QLabel*>();
    const auto isTitle = [](const QLabel* label) { return label->text() == "Programs" && label->font().bold(); };
    QCOMPARE(std::count_if(labels.begin(), labels.end(), isTitle), 1);
}

void TestPanes::fieldsStandBelowEachOther()
{
    open("receiptdoc: { totalPriceFieldWidth = 8; };");
    const auto left = [this](const QString& name) {
        const auto* const field = person->named<QWidget>(name);
        return field ? field->mapTo(window.get(), QPoint(0, 0)).x() : -1;
    };
    const int place = left("paperWidth");
    QVERIFY(place > 0);
    for (const char* name : {"style", "printDate", "totalPriceFieldWidth", "copyNumber"})
        QCOMPARE(left(name), place);
    person->focus(person->named<QWidget>("totalPriceFieldWidth"));
    person->type("9"); // its name is bold now
    QCoreApplication::processEvents();
    QCOMPARE(left("totalPriceFieldWidth"), place);
}

void TestPanes::aFieldIsAsWideAsItsKindNeeds()
{
    open("receiptdoc: { paperWidth = 32; };");
    window->resize(1200, 700);
    QCoreApplication::processEvents();
    const auto width = [this](const QString& name) { return person->named<QWidget>(name)->width(); };
    QCOMPARE(width("paperWidth"), person->named<QWidget>("paperWidth")->sizeHint().width());
    QVERIFY(width("style") > width("paperWidth"));
    QVERIFY(person->reads("The copies that the suite prints; the print program prints one. "
                          "Without it: the suite's programs decide."));
}

void TestPanes::theHitsAreSeen()
{
    window->resize(smallScreen);
    open("");
    person->press(Qt::Key_F, Qt::ControlModifier);
    person->type("paperWidth");
    QCoreApplication::processEvents();
    QLabel* hits = nullptr;
    for (QLabel* const label : window->findChildren<QLabel*>()) {
        if (label->text() == "8 found")
            hits = label;
    }
    QVERIFY(hits);
    QVERIFY(person->named<QLineEdit>("Find a name or a value")->width() < window->width() / 2);
    QVERIFY(hits->isVisible() && hits->width() >= hits->sizeHint().width());
    QVERIFY(window->rect().contains(hits->mapTo(window.get(), hits->rect().bottomRight())));
    QVERIFY(!person->named<QListWidget>("Groups of settings")->horizontalScrollBar()->isVisible());
}

void TestPanes::tabGoesFromTheLeftToTheRight()
{
    open("receiptdoc: { paperWidth = 32; };");
    QVERIFY(find<PaperPane>()->isVisible());
    person->press(Qt::Key_F, Qt::ControlModifier);
    person->press(Qt::Key_Tab);
    QVERIFY(QApplication::focusWidget()->inherits("QTabBar"));
    for (const char* name : {"Groups of settings", "quantityFieldWidth", "priceFieldWidth"}) {
        person->press(Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget()->accessibleName(), QString(name));
    }
    person->focus(person->named<QWidget>("copyNumber")); // the last one
    person->press(Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget()->accessibleName(), QString("Document"));
    person->press(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(QApplication::focusWidget()->accessibleName(), QString("copyNumber"));
}

void TestPanes::thePaperFoldsAway()
{
    open("");
    window->resize(tooNarrowForPaper(), 420);
    QVERIFY(!find<PaperPane>()->isVisible());
    window->resize(smallScreen);
    QVERIFY(find<PaperPane>()->isVisible());
    QVERIFY(find<PaperPane>()->width() > 150);
}

void TestPanes::thePaperIsHiddenByAKey()
{
    open("");
    person->press(Qt::Key_F9);
    QVERIFY(!find<PaperPane>()->isVisible());
    begin();
    QVERIFY(!find<PaperPane>()->isVisible()); // that is kept
    person->press(Qt::Key_F9);
    QVERIFY(find<PaperPane>()->isVisible());
    window->resize(tooNarrowForPaper(), 420);
    person->press(Qt::Key_F9); // there is no room to be shown in
    window->resize(smallScreen);
    QVERIFY(find<PaperPane>()->isVisible());
}

void TestPanes::thePaperGrowsToItsSize()
{
    open("");
    window->resize(1600, 700);
    QCOMPARE(window->size(), QSize(1600, 700));
    QVERIFY(find<PaperPane>()->width() >= 420);
    QVERIFY(find<GroupTable>()->width() > find<GroupTable>()->sizeHint().width() + 100);
}

void TestPanes::theSizesAreKept()
{
    window->resize(780, 600);
    auto* const splitter = find<QSplitter>();
    QSplitterHandle* const handle = splitter->handle(2);
    const QList<int> before = splitter->sizes();
    const QPoint grip = handle->rect().center();
    QTest::mousePress(handle, Qt::LeftButton, Qt::NoModifier, grip);
    const QPoint left = grip - QPoint(30, 0);
    QMouseEvent drag(QEvent::MouseMove, left, handle->mapToGlobal(left), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(handle, &drag);
    QTest::mouseRelease(handle, Qt::LeftButton, Qt::NoModifier, grip);
    const QList<int> moved = splitter->sizes();
    QCOMPARE(moved, QList<int>({before[0], before[1] - 30, before[2] + 30}));
    window->close();
    begin();
    QCOMPARE(window->size(), QSize(780, 600));
    QCOMPARE(find<QSplitter>()->sizes(), moved);
}

void TestPanes::thePaperMenuOpensByKeys()
{
    open("");
    QVERIFY(find<PaperPane>()->isVisible());
    QAction* const entry = window->menuBar()->actions().at(3);
    QCOMPARE(entry->text(), QString("&Paper"));
    person->press(Qt::Key_P, Qt::AltModifier);
    QTRY_VERIFY(entry->menu()->isVisible());
    QTest::keyClick(entry->menu(), Qt::Key_Escape);
}

QTEST_MAIN(TestPanes)
#include "tst_panes.moc"
