#include "editor/person.h"
#include "support/files.h"
#include "support/ordinaryuser.h"

#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QSettings>
#include <QSpinBox>
#include <QTabWidget>
#include <QToolButton>
#include <QWheelEvent>

#include <memory>

/// The settings described in a table, as a person changes them: real keys to the real window.
class TestSettingsTable : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void everyGroupHasItsRows();
    void everyFieldHasAName();
    void aFlagIsChecked();
    void aNumberIsTyped();
    void aNumberIsStepped();
    void aNumberIsClearedAndTyped();
    void aWordIsChosen();
    void aTextIsTyped();
    void aTextRefusesWhatCannotBeStored();
    void aSecretIsHidden();
    void nothingChangesByFocusWheelOrTab();
    void whatAFieldCannotHoldIsAText_data();
    void whatAFieldCannotHoldIsAText();
    void aTextThatFitsBecomesAField();
    void absenceIsShown();
    void aSettingIsTakenOut();
    void aChangeGoesBackToTheFile();
    void whatIsWrongIsPutRight();
    void aSlipOfAGroupIsPutRight();
    void aSlipOfTheOutermostNameIsPutRight();
    void groupsAreMarked();

    void changesAreTakenBack();
    void changesAreTakenBackBeyondASave();
    void bothPagesShowOneModel();

    void finds();
    void findsNext();
    void findsNothing();

    void addsASetting();
    void addsAGroup();
    void renames();
    void removes();
    void refusesNames_data();
    void refusesNames();
    void readOnlyFilesHaveNoCommands();

    void beginsWithACompleteFile();
    void beginsWithAnEmptyFile();
    void theFolderOfANewFileIsMade();
    void saysThatAFileMayNotBeWritten();
    void saysAtOnceThatAFileWasChanged();
    void opensRecentFiles();
    void helps();
    void saysWhatItIs();
    void fitsASmallScreen();

private:
    void showWindow();
    void open(const QByteArray& bytes);
    QByteArray saved() const { return fileContents(path).simplified(); }
    void save() { person->press(Qt::Key_S, Qt::ControlModifier); }
    void goToGroup(const QString& title);
    void pressButton(const QString& text);
    template <class Kind>
    Kind* field(const QString& name) const
    {
        return person->named<Kind>(name);
    }

    QTemporaryDir configuration;
    std::unique_ptr<QTemporaryDir> folder;
    QString path;
    std::unique_ptr<SettingsWindow> window;
    std::unique_ptr<Person> person;
};

static QByteArray suite(const QByteArray& groups)
{
    return "zelmora: { " + groups + " };";
}

void TestSettingsTable::initTestCase()
{
    QApplication::setOrganizationName("zelmora");
    QApplication::setApplicationVersion("4.5");
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, configuration.path());
}

void TestSettingsTable::init()
{
    QSettings().clear();
    folder = std::make_unique<QTemporaryDir>();
    path = folder->filePath("zelmora.conf");
    showWindow();
}

void TestSettingsTable::showWindow()
{
    window = std::make_unique<SettingsWindow>();
    person = std::make_unique<Person>(*window);
    window->show();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
}

void TestSettingsTable::cleanup()
{
    const QStringList boxes = person->readBoxes();
    person.reset();
    window.reset();
    QCOMPARE(boxes, QStringList());
}

void TestSettingsTable::open(const QByteArray& bytes)
{
    writeBytes(path, bytes);
    setPermissions(path, 0600);
    window->openFile(path);
    QCoreApplication::processEvents(); // the layout shows new fields with the next round
}

void TestSettingsTable::goToGroup(const QString& title)
{
    auto* const groups = person->named<QListWidget>("Groups of settings");
    const auto items = groups->findItems(title, Qt::MatchStartsWith);
    QCOMPARE(items.size(), 1);
    groups->setCurrentItem(items[0]);
}

void TestSettingsTable::pressButton(const QString& text)
{
    QAbstractButton* const button = person->button(text);
    if (!button)
        qFatal("There is no button %s.", qPrintable(text));
    person->focus(button);
    person->press(Qt::Key_Space);
}

// --- What is shown and changed ---

void TestSettingsTable::everyGroupHasItsRows()
{
    open(suite("receiptdoc: { paperWidth = 32; };"));
    auto* const groups = person->named<QListWidget>("Groups of settings");
    QVERIFY(groups->hasFocus());
    QCOMPARE(groups->currentItem()->text(), QString("Receipt"));
    QVERIFY(field<QSpinBox>("paperWidth"));
    QVERIFY(person->reads("The characters in a line of the paper."));
    person->press(Qt::Key_Up);
    QCOMPARE(groups->currentItem()->text(), QString("Fiscal receipt"));
    QVERIFY(field<QSpinBox>("descriptionWidth"));
    person->press(Qt::Key_End);
    QCOMPARE(groups->currentItem()->text(), QString("Programs"));
    QVERIFY(field<QLineEdit>("path"));
    QVERIFY(!field<QSpinBox>("paperWidth"));
}

void TestSettingsTable::everyFieldHasAName()
{
    open(suite("receiptdoc: { paperWidth = 32 mm; printDate = True; };"));
    auto* const groups = person->named<QListWidget>("Groups of settings");
    for (int i = 0; i < groups->count(); ++i) {
        groups->setCurrentRow(i);
        for (const QWidget* widget : window->centralWidget()->findChildren<QWidget*>()) {
            const bool takesKeys = widget->isVisible() && widget->focusPolicy() & Qt::TabFocus && !widget->focusProxy();
            const auto* const button = qobject_cast<const QAbstractButton*>(widget);
            if (takesKeys && !qobject_cast<const QAbstractScrollArea*>(widget) && !widget->inherits("QTabBar"))
                QVERIFY2(!widget->accessibleName().isEmpty() || (button && !button->text().isEmpty()),
                         widget->metaObject()->className());
        }
    }
}

void TestSettingsTable::aFlagIsChecked()
{
    open(suite("receiptdoc: { paperWidth = 32; };"));
    auto* const box = field<QCheckBox>("printDate");
    QVERIFY(!box->isChecked());
    QCOMPARE(box->text(), QString("not set: false"));
    person->focus(box);
    person->press(Qt::Key_Space);
    QVERIFY(box->isChecked());
    save();
    QCOMPARE(saved(), suite("receiptdoc: { paperWidth = \"32\"; printDate = \"true\"; };"));
    person->press(Qt::Key_Space);
    QVERIFY(!box->isChecked());
    save();
    QCOMPARE(saved(), suite("receiptdoc: { paperWidth = \"32\"; printDate = \"false\"; };"));
}

void TestSettingsTable::aNumberIsTyped()
{
    open(suite("receiptdoc: { paperWidth = 32; };"));
    person->focus(field<QSpinBox>("paperWidth"));
    person->type("4");
    QVERIFY(window->isWindowModified()); // at once
    person->type("8");
    person->press(Qt::Key_Tab);
    save();
    QCOMPARE(saved(), suite("receiptdoc: { paperWidth = \"48\"; };"));

    person->focus(field<QSpinBox>("paperWidth"));
    person->type("-99999x"); // only what is in the range gets in
    save();
    QCOMPARE(saved(), suite("receiptdoc: { paperWidth = \"9999\"; };"));
}

void TestSettingsTable::aNumberIsStepped()
{
    open(suite("receiptdoc: { priceFieldWidth = 5; };"));
    auto* const absent = field<QSpinBox>("paperWidth"); // 32 then
    QCOMPARE(absent->text(), QString("not set: 32"));
    person->focus(absent);
    person->press(Qt::Key_Up);
    QCOMPARE(absent->text(), QString("33"));
    QCOMPARE(absent->findChild<QLineEdit*>()->selectedText(), QString("33")); // one may type another
    person->focus(field<QSpinBox>("priceFieldWidth"));
    person->press(Qt::Key_PageDown);
    person->press(Qt::Key_Down);
    save();
    QCOMPARE(saved(), suite("receiptdoc: { priceFieldWidth = \"0\"; paperWidth = \"33\"; };"));
}

void TestSettingsTable::aNumberIsClearedAndTyped()
{
    open(suite("receiptdoc: { printDate = true; };"));
    auto* const number = field<QSpinBox>("paperWidth");
    person->focus(number);
    person->type("32"); // what it is without the setting: now the file says it
    QVERIFY(window->isWindowModified());
    person->press(Qt::Key_Backspace);
    person->press(Qt::Key_Backspace);
    QVERIFY(!window->isWindowModified());
    person->press(Qt::Key_Tab);
    QCOMPARE(number->text(), QString("not set: 32"));
}

void TestSettingsTable::aWordIsChosen()
{
    open(suite("logger: { type = append; };"));
    goToGroup("Log");
    auto* const type = field<QComboBox>("type");
    QCOMPARE(type->currentText(), QString("APPEND"));
    auto* const level = field<QComboBox>("level");
    QCOMPARE(level->currentText(), QString("not set: DEBUG"));
    person->focus(level);
    person->press(Qt::Key_Down);
    person->press(Qt::Key_Down);
    QCOMPARE(level->currentText(), QString("INFO"));
    save();
    QCOMPARE(saved(), suite("logger: { type = \"append\"; level = \"INFO\"; };"));
    person->press(Qt::Key_Home);
    save();
    QCOMPARE(saved(), suite("logger: { type = \"append\"; };"));
}

void TestSettingsTable::aTextIsTyped()
{
    open(suite("db: { dbname = soup; };"));
    goToGroup("Database");
    person->focus(field<QLineEdit>("hostname"));
    QCOMPARE(field<QLineEdit>("hostname")->placeholderText(), QString("not set"));
    QVERIFY(person->reads("Without it: the server on this machine."));
    person->type("till 1: ");
    save();
    QCOMPARE(fileContents(path).simplified(), suite("db: { dbname = \"soup\"; hostname = \"till 1: \"; };"));
}

void TestSettingsTable::aTextRefusesWhatCannotBeStored()
{
    open(suite("db: { dbname = soup; };"));
    goToGroup("Database");
    person->focus(field<QLineEdit>("dbname"));
    person->type("a;b\"c");
    QCOMPARE(field<QLineEdit>("dbname")->text(), QString("abc"));
}

void TestSettingsTable::aSecretIsHidden()
{
    open(suite("db: { password = s3cret; };"));
    goToGroup("Database");
    auto* const secret = field<QLineEdit>("password");
    QVERIFY(!secret->displayText().contains("s3cret"));
    QVERIFY(!person->reads("s3cret"));
    person->focus(person->named<QToolButton>("Show the value"));
    person->press(Qt::Key_Space);
    QCOMPARE(secret->displayText(), QString("s3cret"));
}

void TestSettingsTable::nothingChangesByFocusWheelOrTab()
{
    const QByteArray bytes = "zelmora:{receiptdoc:{paperWidth=032;printDate=true;};logger:{level=info;};};";
    open(bytes);
    for (const char* title : {"Receipt", "Log", "Database", "Language"}) {
        goToGroup(title);
        for (int i = 0; i < 100; ++i) {
            QWidget* const widget = QApplication::focusWidget();
            QWheelEvent wheel(QPointF(3, 3), widget->mapToGlobal(QPointF(3, 3).toPoint()), QPoint(), QPoint(0, 120),
                              Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
            if (!qobject_cast<QListWidget*>(widget) && !widget->inherits("QTabBar"))
                QApplication::sendEvent(widget, &wheel);
            QTest::keyClick(widget, Qt::Key_Tab);
        }
    }
    QCoreApplication::processEvents();
    QVERIFY(!window->isWindowModified());
    save();
    QCOMPARE(fileContents(path), bytes);
}

void TestSettingsTable::whatAFieldCannotHoldIsAText_data()
{
    QTest::addColumn<QByteArray>("groups");
    QTest::addColumn<QString>("group");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("note");
    QTest::newRow("a flag in a capital") << QByteArray("receiptdoc: { printDate = True; };") << "Receipt"
                                         << "printDate"
                                         << "True"
                                         << "\"True\" reads as false:";
    QTest::newRow("a number with a unit") << QByteArray("receiptdoc: { paperWidth = 32 mm; };") << "Receipt"
                                          << "paperWidth"
                                          << "32 mm"
                                          << "\"32 mm\" is no whole number";
    QTest::newRow("a number that is too great") << QByteArray("receiptdoc: { topMargin = 99999; };") << "Receipt"
                                                << "topMargin"
                                                << "99999"
                                                << "99999 is out of range";
    QTest::newRow("a word that is none") << QByteArray("logger: { level = loud; };") << "Log"
                                         << "level"
                                         << "loud"
                                         << "\"loud\" counts as absent";
}

void TestSettingsTable::whatAFieldCannotHoldIsAText()
{
    QFETCH(QByteArray, groups);
    QFETCH(QString, group);
    QFETCH(QString, name);
    QFETCH(QString, value);
    QFETCH(QString, note);
    open(suite(groups));
    goToGroup(group);
    QVERIFY(field<QLineEdit>(name));
    QCOMPARE(field<QLineEdit>(name)->text(), value);
    QVERIFY(person->reads(note));
}

void TestSettingsTable::aTextThatFitsBecomesAField()
{
    open(suite("receiptdoc: { paperWidth = 32 mm; };"));
    auto* const text = field<QLineEdit>("paperWidth");
    person->focus(text);
    person->press(Qt::Key_End);
    for (int i = 0; i < 3; ++i)
        person->press(Qt::Key_Backspace);
    QVERIFY(text->hasFocus()); // somebody is typing
    QVERIFY(!person->reads("is no whole number"));
    person->press(Qt::Key_Tab);
    QTRY_VERIFY(field<QSpinBox>("paperWidth"));
    QCOMPARE(field<QSpinBox>("paperWidth")->value(), 32);
    person->press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(field<QLineEdit>("paperWidth")->text(), QString("32 mm"));
}

void TestSettingsTable::absenceIsShown()
{
    open(suite("receiptdoc: { paperWidth = 40; };"));
    QVERIFY(!field<QToolButton>("Take printDate out of the file")->isEnabled());
    QVERIFY(field<QToolButton>("Take paperWidth out of the file")->isEnabled());
    const QColor text = field<QSpinBox>("paperWidth")->palette().color(QPalette::Text);
    QVERIFY(field<QSpinBox>("topMargin")->palette().color(QPalette::Text) != text);
    QCOMPARE(field<QSpinBox>("topMargin")->text(), QString("not set: 0"));
    QCOMPARE(field<QSpinBox>("copyNumber")->text(), QString("not set"));
    QVERIFY(person->reads("Without it: the suite's programs decide."));
}

void TestSettingsTable::aSettingIsTakenOut()
{
    open(suite("receiptdoc: { paperWidth = 40; printDate = true; };"));
    person->focus(field<QToolButton>("Take paperWidth out of the file"));
    person->press(Qt::Key_Space);
    QCOMPARE(field<QSpinBox>("paperWidth")->text(), QString("not set: 32"));
    save();
    QCOMPARE(saved(), suite("receiptdoc: { printDate = \"true\"; };"));
}

void TestSettingsTable::aChangeGoesBackToTheFile()
{
    open(suite("receiptdoc: { paperWidth = 40; };"));
    auto* const back = field<QToolButton>("Take back the change of paperWidth");
    QVERIFY(!back->isEnabled());
    person->focus(field<QSpinBox>("paperWidth"));
    person->type("50");
    QVERIFY(back->isEnabled());
    QCOMPARE(back->toolTip(), QString("Back to what the file has: 40"));
    QVERIFY(!field<QToolButton>("Take back the change of printDate")->isEnabled());
    person->focus(back);
    person->press(Qt::Key_Space);
    QCOMPARE(field<QSpinBox>("paperWidth")->text(), QString("40"));
    QVERIFY(!window->isWindowModified());
    QVERIFY(!back->isEnabled());
}

void TestSettingsTable::whatIsWrongIsPutRight()
{
    open(suite("receiptdoc: { papperWidth = \"40\"; printDate = \"True\"; };"));
    pressButton(QString("Put it right: True %1 true").arg(QChar(0x2192)));
    QVERIFY(field<QCheckBox>("printDate")->isChecked());
    QVERIFY(!person->reads("reads as false"));
    pressButton(QString("Put it right: papperWidth %1 paperWidth").arg(QChar(0x2192)));
    QCOMPARE(field<QSpinBox>("paperWidth")->value(), 40);
    save();
    QCOMPARE(saved(), suite("receiptdoc: { paperWidth = \"40\"; printDate = \"true\"; };"));
    person->press(Qt::Key_Z, Qt::ControlModifier);
    person->press(Qt::Key_Z, Qt::ControlModifier);
    save();
    QCOMPARE(saved(), suite("receiptdoc: { papperWidth = \"40\"; printDate = \"True\"; };"));
}

void TestSettingsTable::aSlipOfAGroupIsPutRight()
{
    open(suite("recieptdoc: { paperWidth = 40; };"));
    QCOMPARE(field<QSpinBox>("paperWidth")->text(), QString("not set: 32"));
    pressButton(QString("Put it right: recieptdoc %1 receiptdoc").arg(QChar(0x2192)));
    QCOMPARE(field<QSpinBox>("paperWidth")->text(), QString("40"));
}

void TestSettingsTable::aSlipOfTheOutermostNameIsPutRight()
{
    open("zelmore: { receiptdoc: { paperWidth = 40; }; };");
    QVERIFY(!field<QSpinBox>("paperWidth")->isEnabled()); // no program would find it
    QVERIFY(person->reads("The first group is \"zelmore\" and not \"zelmora\""));
    pressButton("Put it right");
    QVERIFY(field<QSpinBox>("paperWidth")->isEnabled());
    QCOMPARE(field<QSpinBox>("paperWidth")->text(), QString("40"));
    QVERIFY(!person->reads("The first group is"));
}

void TestSettingsTable::groupsAreMarked()
{
    open(suite("solddoc: { printDate = True; }; receiptdoc: { paperWidth = 40; };"));
    auto* const groups = person->named<QListWidget>("Groups of settings");
    QStringList marked;
    for (int i = 0; i < groups->count(); ++i) {
        if (!groups->item(i)->data(Qt::AccessibleDescriptionRole).toString().isEmpty())
            marked += groups->item(i)->text();
    }
    QCOMPARE(marked, QStringList("Dishes sold")); // a note is no mark
}

// --- Back and forth ---

void TestSettingsTable::changesAreTakenBack()
{
    open(suite("receiptdoc: { paperWidth = 40; };"));
    person->focus(field<QSpinBox>("paperWidth"));
    person->type("50");
    person->focus(field<QCheckBox>("printDate"));
    person->press(Qt::Key_Space);
    person->focus(field<QSpinBox>("paperWidth")); // in a field that has a history of its own
    person->press(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(!field<QCheckBox>("printDate")->isChecked());
    QCOMPARE(field<QSpinBox>("paperWidth")->text(), QString("50"));
    person->press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(field<QSpinBox>("paperWidth")->text(), QString("40"));
    QVERIFY(!window->isWindowModified());
    person->press(Qt::Key_Z, Qt::ControlModifier); // there is nothing more
    person->press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(field<QSpinBox>("paperWidth")->text(), QString("50"));
    QVERIFY(!field<QCheckBox>("printDate")->isChecked());
}

void TestSettingsTable::changesAreTakenBackBeyondASave()
{
    open(suite("db: { dbname = soup; };"));
    goToGroup("Database");
    person->focus(field<QLineEdit>("dbname"));
    person->type("fish");
    save();
    QVERIFY(!window->isWindowModified());
    person->type("es");
    person->press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(field<QLineEdit>("dbname")->text(), QString("fish"));
    QVERIFY(!window->isWindowModified());
    person->press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(field<QLineEdit>("dbname")->text(), QString("soup"));
    QVERIFY(window->isWindowModified());
}

void TestSettingsTable::bothPagesShowOneModel()
{
    open(suite("receiptdoc: { paperWidth = 40; };"));
    const QStringList width {"zelmora", "receiptdoc", "paperWidth"};
    person->press(Qt::Key_2, Qt::ControlModifier);
    person->change(width, "50");
    person->press(Qt::Key_1, Qt::ControlModifier);
    QCOMPARE(field<QSpinBox>("paperWidth")->text(), QString("50"));
    person->focus(field<QSpinBox>("paperWidth"));
    person->type("60");
    person->focus(field<QCheckBox>("printDate"));
    person->press(Qt::Key_Space);
    goToGroup("Database");
    person->focus(field<QLineEdit>("dbname"));
    person->type("soup");
    person->press(Qt::Key_2, Qt::ControlModifier);
    QCOMPARE(person->value(width), QString("60"));
    QCOMPARE(person->value({"zelmora", "receiptdoc", "printDate"}), QString("true"));
    QCOMPARE(person->value({"zelmora", "db", "dbname"}), QString("soup"));
    for (int i = 0; i < 4; ++i)
        person->press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(person->value(width), QString("40"));
    QVERIFY(!person->item({"zelmora", "receiptdoc", "printDate"}));
    QVERIFY(!person->item({"zelmora", "db"}));
    QVERIFY(!window->isWindowModified());
}

// --- Finding ---

void TestSettingsTable::finds()
{
    open(suite("db: { dbname = soup; };"));
    person->press(Qt::Key_F, Qt::ControlModifier);
    person->type("SOUP"); // a value
    auto* const groups = person->named<QListWidget>("Groups of settings");
    QCOMPARE(groups->currentItem()->text(), QString("Database (1)"));
    QVERIFY(person->reads("1 found"));
    QVERIFY(field<QLineEdit>("dbname"));
    QVERIFY(!field<QLineEdit>("hostname"));
    person->press(Qt::Key_Escape);
    QVERIFY(field<QLineEdit>("hostname"));
    QVERIFY(!person->reads("found"));
    person->type("waiter's name"); // of a description
    QVERIFY(person->reads("8 found"));
    person->press(Qt::Key_Return); // to the field
    QCOMPARE(QApplication::focusWidget()->accessibleName(), QString("printWaiter"));
}

void TestSettingsTable::findsNext()
{
    open(suite("receiptdoc: { paperWidth = 32; };"));
    person->press(Qt::Key_F, Qt::ControlModifier);
    person->type("customer's delivery"); // of orders and invoices, in the eight documents
    auto* const groups = person->named<QListWidget>("Groups of settings");
    QStringList visited;
    for (int i = 0; i < 9; ++i) {
        person->press(Qt::Key_F3);
        visited += groups->currentItem()->text().section(" (", 0, 0);
        QCOMPARE(QApplication::focusWidget()->accessibleName(), QString("printDeliveryAddress"));
    }
    QCOMPARE(visited.first(), QString("Receipt"));
    QCOMPARE(visited.at(1), QString("Invoice"));
    QCOMPARE(visited.last(), QString("Receipt")); // from the beginning again
}

void TestSettingsTable::findsNothing()
{
    open(suite("receiptdoc: { paperWidth = 32; };"));
    person->press(Qt::Key_F, Qt::ControlModifier);
    person->type("dinosaur");
    QVERIFY(person->reads("0 found"));
    QVERIFY(field<QSpinBox>("paperWidth")); // all is better than nothing
    person->press(Qt::Key_2, Qt::ControlModifier);
    QVERIFY(person->reads("0 found"));
    person->press(Qt::Key_F, Qt::ControlModifier);
    person->type("paper");
    QVERIFY(person->reads("1 found"));
}

// --- The list of all that stands in the file ---

void TestSettingsTable::addsASetting()
{
    open(suite("db: { dbname = soup; };"));
    person->press(Qt::Key_2, Qt::ControlModifier);
    person->goTo({"zelmora", "db"});
    person->willName("colour");
    person->choose("&Edit", "Add a &setting...");
    QCOMPARE(person->refusal, QString());
    QVERIFY(person->isEditing());
    person->type("red");
    person->press(Qt::Key_Return);
    save();
    QCOMPARE(saved(), suite("db: { dbname = \"soup\"; colour = \"red\"; };"));
    person->readBoxes();
}

void TestSettingsTable::addsAGroup()
{
    open(suite("db: { dbname = soup; };"));
    person->press(Qt::Key_2, Qt::ControlModifier);
    person->goTo({"zelmora"});
    person->willName("colours");
    person->choose("&Edit", "Add a &group...");
    QCOMPARE(person->currentLabels(), QStringList({"zelmora", "colours"}));
    person->willName("paper");
    person->choose("&Edit", "Add a &setting...");
    person->type("white");
    person->press(Qt::Key_Return);
    save();
    QCOMPARE(saved(), suite("db: { dbname = \"soup\"; }; colours: { paper = \"white\"; };"));
    person->readBoxes();
}

void TestSettingsTable::renames()
{
    open(suite("db: { dbname = soup; colour = red; }; colours: { paper = white; };"));
    person->press(Qt::Key_2, Qt::ControlModifier);
    person->goTo({"zelmora", "db", "colour"});
    person->willName("hostname");
    person->choose("&Edit", "Re&name...");
    QCOMPARE(person->currentLabels(), QStringList({"zelmora", "db", "hostname"}));
    person->goTo({"zelmora", "colours"});
    person->willName("shades");
    person->choose("&Edit", "Re&name...");
    save();
    QCOMPARE(saved(), suite("db: { dbname = \"soup\"; hostname = \"red\"; }; shades: { paper = \"white\"; };"));
    person->press(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(person->item({"zelmora", "colours", "paper"}));
    person->readBoxes();
}

void TestSettingsTable::removes()
{
    open(suite("db: { dbname = soup; colour = red; }; colours: { paper = white; };"));
    person->press(Qt::Key_2, Qt::ControlModifier);
    person->goTo({"zelmora", "db", "colour"});
    person->press(Qt::Key_Delete);
    QVERIFY(!person->item({"zelmora", "db", "colour"}));
    person->goTo({"zelmora", "colours"});
    person->choose("&Edit", "Re&move");
    save();
    QCOMPARE(saved(), suite("db: { dbname = \"soup\"; };"));
    person->press(Qt::Key_Z, Qt::ControlModifier);
    person->press(Qt::Key_Z, Qt::ControlModifier);
    save();
    QCOMPARE(saved(), suite("db: { dbname = \"soup\"; colour = \"red\"; }; colours: { paper = \"white\"; };"));
}

void TestSettingsTable::refusesNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("reason"); // how it begins
    QTest::newRow("with a point") << "a.b"
                                  << "No program would find \"a.b\"";
    QTest::newRow("that is there already") << "dbname"
                                           << "There is a setting \"dbname\" here already.";
    QTest::newRow("none") << ""
                          << "";
}

void TestSettingsTable::refusesNames()
{
    QFETCH(QString, name);
    QFETCH(QString, reason);
    open(suite("db: { dbname = soup; };"));
    person->press(Qt::Key_2, Qt::ControlModifier);
    person->goTo({"zelmora", "db"});
    person->willName(name);
    person->choose("&Edit", "Add a &setting...");
    QCOMPARE(person->refusal.left(reason.size()), reason);
    QVERIFY(!window->isWindowModified());
}

void TestSettingsTable::readOnlyFilesHaveNoCommands()
{
    writeBytes(path, "till: { a = 1; };");
    person->willPress(QMessageBox::Ok);
    window->openFile(path);
    person->readBoxes();
    QVERIFY(!field<QSpinBox>("paperWidth")->isEnabled());
    person->press(Qt::Key_2, Qt::ControlModifier);
    person->goTo({"till", "a"});
    person->press(Qt::Key_Delete);
    QVERIFY(person->item({"till", "a"}));
}

// --- Files ---

void TestSettingsTable::beginsWithACompleteFile()
{
    window.reset();
    window = std::make_unique<SettingsWindow>(path);
    person = std::make_unique<Person>(*window);
    window->show();
    QTRY_VERIFY(person->reads("There is no file " + path + " yet."));
    QVERIFY(!QFile::exists(path));
    pressButton("Begin with a complete file");
    QVERIFY(!person->reads("There is no file"));
    QVERIFY(field<QCheckBox>("printDate")->isChecked());
    save();
    QCOMPARE(permissionsOf(path), mode_t(0600));
    QVERIFY(fileContents(path).contains("paperWidth = \"32\""));
    QVERIFY(!window->isWindowModified());
    person->press(Qt::Key_Z, Qt::ControlModifier); // and back, beyond the save
    QVERIFY(person->reads("The file " + path + " has no settings yet."));
}

void TestSettingsTable::beginsWithAnEmptyFile()
{
    open("");
    QVERIFY(person->reads("The file " + path + " has no settings yet."));
    person->focus(field<QCheckBox>("printDate")); // each is set like any other
    person->press(Qt::Key_Space);
    QVERIFY(!person->reads("has no settings yet"));
    save();
    QCOMPARE(saved(), suite("receiptdoc: { printDate = \"true\"; };"));
}

void TestSettingsTable::theFolderOfANewFileIsMade()
{
    const QString deep = folder->filePath("home/.zelmora/conf/zelmora.conf");
    window.reset();
    window = std::make_unique<SettingsWindow>(deep);
    person = std::make_unique<Person>(*window);
    window->show();
    QTRY_VERIFY(person->reads("There is no file"));
    pressButton("Begin with a complete file");
    QVERIFY(!QFile::exists(folder->filePath("home")));
    save();
    QVERIFY(QFile::exists(deep));
}

void TestSettingsTable::saysThatAFileMayNotBeWritten()
{
    writeBytes(path, suite("db: { dbname = soup; };"));
    setPermissions(path, 0444);
    setPermissions(folder->path(), 0755);
    person.reset();
    window.reset();
    const OrdinaryUser someone; // whose own window can remove the folders that it makes for the paper
    showWindow();
    window->openFile(path);
    QVERIFY(person->reads("The file " + path + " may not be written: save under another name."));
}

void TestSettingsTable::saysAtOnceThatAFileWasChanged()
{
    open(suite("db: { dbname = soup; };"));
    const QString text = "Another program has changed or removed the file " + path + " since it was opened.";
    writeBytes(path, suite("db: { dbname = fish; };"));
    QTRY_VERIFY(person->reads(text));
    writeBytes(path, suite("db: { dbname = soup; };"));
    QTRY_VERIFY(!person->reads(text));
    QVERIFY(QFile::remove(path));
    QTRY_VERIFY(person->reads(text));
    writeBytes(path, suite("db: { dbname = meat; };")); // a new file in its place
    pressButton("Read it again");
    QVERIFY(!person->reads(text));
    goToGroup("Database");
    QCOMPARE(field<QLineEdit>("dbname")->text(), QString("meat"));
}

void TestSettingsTable::opensRecentFiles()
{
    const QString other = folder->filePath("other & more.conf");
    writeBytes(other, suite("db: { dbname = fish; };"));
    window->openFile(other);
    open(suite("db: { dbname = soup; };"));
    QMenu* const file = window->menuBar()->actions().first()->menu();
    emit file->aboutToShow();
    QMenu* recent = nullptr;
    for (const QAction* action : file->actions()) {
        if (action->text() == "Open &recent")
            recent = action->menu();
    }
    QVERIFY(recent);
    QCOMPARE(recent->actions().size(), 1);
    recent->actions().first()->trigger();
    QCOMPARE(window->windowTitle(), other + "[*] - Settings");
    QVERIFY(!person->button("Open &recent"));

    writeBytes(path, ""); // a file to begin with offers them too
    window->openFile(path);
    auto* const offer = qobject_cast<QPushButton*>(person->button("Open &recent"));
    QVERIFY(offer);
    emit offer->menu()->aboutToShow();
    offer->menu()->actions().first()->trigger();
    QCOMPARE(window->windowTitle(), other + "[*] - Settings");
}

void TestSettingsTable::helps()
{
    open(suite("db: { dbname = soup; };"));
    person->focus(field<QSpinBox>("paperWidth"));
    person->willPress(QMessageBox::Ok);
    person->press(Qt::Key_F1);
    QVERIFY(person->readBoxes().value(0).startsWith("zelmora.receiptdoc.paperWidth\n"));
    person->focus(person->named<QListWidget>("Groups of settings"));
    person->willPress(QMessageBox::Ok);
    person->press(Qt::Key_F1);
    QVERIFY(person->readBoxes().value(0).startsWith("Receipt\n"));
}

void TestSettingsTable::saysWhatItIs()
{
    person->willPress(QMessageBox::Ok);
    person->choose("&Help", "&About Zelmora settings");
    QVERIFY(person->readBoxes().value(0).startsWith("Zelmora settings 4.5\n"));
    QVERIFY(!window->windowIcon().pixmap(32).isNull());
}

// Half of 800 by 600, less a frame.
void TestSettingsTable::fitsASmallScreen()
{
    const auto fits = [this] {
        const QSize least = window->minimumSizeHint();
        return least.width() <= 380 && least.height() <= 260;
    };
    open(suite("receiptdoc: { paperWidth = 32 mm; };"));
    QVERIFY(fits());
    const QString deep = folder->filePath(QString(100, 'x') + '/' + QString(100, 'y'));
    QVERIFY(QDir().mkpath(deep));
    writeBytes(deep + "/zelmora.conf", "");
    window->openFile(deep + "/zelmora.conf");
    QVERIFY(person->reads("has no settings yet")); // a bar with a long path, and with buttons
    QTRY_VERIFY2(
        fits(),
        qPrintable(QString("%1 by %2").arg(window->minimumSizeHint().width()).arg(window->minimumSizeHint().height())));
}

QTEST_MAIN(TestSettingsTable)
#include "tst_settingstable.moc"
