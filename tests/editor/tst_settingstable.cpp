#include "editor/papernotice.h"
#include "editor/paperpane.h"
#include "editor/paperview.h"
#include "editor/person.h"
#include "support/files.h"
#include "support/ordinaryuser.h"
#include "support/toolkitmessages.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QSettings>
#include <QSpinBox>
#include <QTabWidget>
#include <QTextDocumentFragment>
#include <QToolButton>
#include <QWheelEvent>

#include <functional>
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
    void tabGoesDownTheRows();
    void tabGoesOnFromAFieldThatIsAnotherOne();
    void tabGoesOnWhenAListWasOpen();
    void whatAFieldCannotHoldIsAText_data();
    void whatAFieldCannotHoldIsAText();
    void aTextThatFitsBecomesAField();
    void absenceIsShown();
    void absentFlagsAndWordsAreGrey();
    void aNumberTellsItsRange();
    void whatIsChangedIsMarked();
    void aFolderIsChosen_data();
    void aFolderIsChosen();
    void noFolderIsChosen();
    void aSettingIsTakenOut();
    void aChangeGoesBackToTheFile();
    void whatWasTakenOutGoesBackToItsPlace();
    void whatIsWrongIsPutRight();
    void aSlipOfAGroupIsPutRight();
    void aSlipOfTheOutermostNameIsPutRight();
    void manyNotesOfASettingAreCounted();
    void groupsAreMarked();

    void changesAreTakenBack();
    void changesAreTakenBackBeyondASave();
    void changesAreTakenBackBeyondASaveThatDropsSomething();
    void bothPagesShowOneModel();

    void thePaperFollowsAChange();
    void theMarksGoWithASave();
    void aSaveBeforeThePaperIsDrawnLeavesNoMarks();
    void thePaperIsInTheLanguageThatIsSet();
    void saysThatThereIsNoPrintProgram();
    void saysWhatThePaperCannotBePrintedWith();

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
    void saysThatNoNewFileMayBeMade_data();
    void saysThatNoNewFileMayBeMade();
    void saysWhyAFolderIsNotMade();
    void saysThatAFileMayNotBeWritten();
    void saysAtOnceThatAFileMayNotBeWritten();
    void saysAtOnceThatAFileWasChanged();
    void readsAgainWhatAnotherProgramWrote();
    void opensRecentFiles();
    void helps();
    void helpsOnTheListOfTheFile_data();
    void helpsOnTheListOfTheFile();
    void saysWhatItIs();
    void fitsASmallScreen();

    void puttingRightActsOnTheFileThatIsShown_data();
    void puttingRightActsOnTheFileThatIsShown();
    void whatIsTakenBackInAFieldIsShownInIt_data();
    void whatIsTakenBackInAFieldIsShownInIt();
    void noHintTellsASecret();
    void hintsTellValuesAsTexts();
    void stepsEndAtTheRange();
    void theWordThatIsThereStaysAsItIsWritten();
    void tabGoesFromTheGroupsNotesToItsRows();
    void theListKeepsTheKeyboardWhenASaveIsTakenBack();

private:
    void showWindow();
    void beginAt(const QString& newPath);
    void open(const QByteArray& bytes);
    QByteArray saved() const { return fileContents(path).simplified(); }
    void save() { person->press(Qt::Key_S, Qt::ControlModifier); }
    void goToGroup(const QString& title);
    void pressButton(const QString& text);
    QStringList namesByTab(QWidget* first, int count);
    QString paper() const { return window->findChild<PaperView*>()->accessibleDescription(); }
    QStringList marksOf(const QString& setting) const;
    bool isPaperMarked() const;
    void makeRoomForPaper();
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
    qputenv("PATH", QFile::encodeName(QFileInfo(ZELMORA_PRINT_PROGRAM).path()) + ":/usr/bin:/bin");
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

/// What has the keyboard one after the other, from @p first on.
QStringList TestSettingsTable::namesByTab(QWidget* first, int count)
{
    person->focus(first);
    QStringList names {first->accessibleName()};
    while (names.size() < count) {
        person->press(Qt::Key_Tab);
        names += QApplication::focusWidget()->accessibleName();
    }
    return names;
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

/// The classes of what takes the keyboard in @p window and says nothing to those who cannot see it.
static QStringList namelessIn(const QWidget& window)
{
    QStringList nameless;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        const auto* const button = qobject_cast<const QAbstractButton*>(widget);
        const bool isNamed = !widget->accessibleName().isEmpty() || (button && !button->text().isEmpty());
        const bool takesKeys = widget->isVisible() && widget->focusPolicy() & Qt::TabFocus && !widget->focusProxy();
        if (takesKeys && !isNamed && !widget->inherits("QTabBar")) // whose tabs have their own
            nameless += widget->metaObject()->className();
    }
    return nameless;
}

void TestSettingsTable::everyFieldHasAName()
{
    open(suite("receiptdoc: { paperWidth = 32 mm; printDate = True; }; kitchen: { a = b; };")); // and with a bar
    auto* const groups = person->named<QListWidget>("Groups of settings");
    for (int i = 0; i < groups->count(); ++i) {
        groups->setCurrentRow(i);
        QCOMPARE(namelessIn(*window), QStringList());
    }
    person->press(Qt::Key_2, Qt::ControlModifier);
    QVERIFY(person->named<QTreeWidget>("All settings as in the file"));
    QCOMPARE(namelessIn(*window), QStringList());
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
    person->type(" -+x"); // no digit of a number: the selected one stays
    QVERIFY(!window->isWindowModified());
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

void TestSettingsTable::tabGoesDownTheRows()
{
    open(suite("db: { dbname = soup; pasword = x; };"));
    goToGroup("Database");
    const QString remedy = QString::fromUtf8("Put it right: pasword \u2192 password");
    QStringList names = namesByTab(person->named<QWidget>("Groups of settings"), 8);
    QCOMPARE(names,
             (QStringList {"Groups of settings", "dbname", "Take dbname out of the file", "username", "password",
                           "Show the value", remedy, "hostname"}));

    pressButton(remedy);
    names = namesByTab(field<QWidget>("username"), 6);
    QCOMPARE(names,
             (QStringList {"username", "password", "Show the value", "Take back the change of password",
                           "Take password out of the file", "hostname"}));
}

void TestSettingsTable::tabGoesOnFromAFieldThatIsAnotherOne()
{
    open(suite("logger: { level = loud; };"));
    goToGroup("Log");
    person->focus(field<QWidget>("level"));
    field<QLineEdit>("level")->selectAll();
    person->type("info");
    person->press(Qt::Key_Tab);
    QTRY_VERIFY(field<QComboBox>("level"));
    QCOMPARE(QApplication::focusWidget()->accessibleName(), QString("Take back the change of level"));
    person->press(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(QApplication::focusWidget()->accessibleName(), QString("level"));
    QCOMPARE(namesByTab(person->named<QWidget>("Groups of settings"), 2).last(), QString("level"));
}

// What it drops down is a window of its own, into which no Tab leads.
void TestSettingsTable::tabGoesOnWhenAListWasOpen()
{
    open(suite("logger: { filename = suite.log; };"));
    goToGroup("Log");
    field<QComboBox>("level")->showPopup();
    field<QComboBox>("level")->hidePopup();
    const ToolkitMessages messages;
    person->focus(field<QWidget>("filename"));
    person->type("x");
    const QStringList tabTrouble = ToolkitMessages::all().filter("setTabOrder");
    QCOMPARE(tabTrouble, QStringList());
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
    QVERIFY(field<QLineEdit>(name)->accessibleDescription().contains(note)); // to those who cannot see it
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

void TestSettingsTable::absentFlagsAndWordsAreGrey()
{
    open(suite("receiptdoc: { printDate = true; }; logger: { type = append; };"));
    const auto flagColour = [this](const char* name) {
        return field<QCheckBox>(name)->palette().color(QPalette::WindowText);
    };
    QVERIFY(flagColour("printTime") != flagColour("printDate"));
    person->focus(field<QCheckBox>("printTime"));
    person->press(Qt::Key_Space);
    QCOMPARE(flagColour("printTime"), flagColour("printDate"));

    goToGroup("Log");
    const auto wordColour = [this](const char* name, QPalette::ColorRole role) {
        return field<QComboBox>(name)->palette().color(role);
    };
    for (const auto role : {QPalette::Text, QPalette::ButtonText}) // which of them is the style's affair
        QVERIFY(wordColour("level", role) != wordColour("type", role));
    person->focus(field<QComboBox>("level"));
    person->press(Qt::Key_Down);
    for (const auto role : {QPalette::Text, QPalette::ButtonText})
        QCOMPARE(wordColour("level", role), wordColour("type", role));
}

void TestSettingsTable::aNumberTellsItsRange()
{
    open(suite("receiptdoc: { paperWidth = 40; };"));
    QCOMPARE(field<QSpinBox>("paperWidth")->toolTip(), QString("From 0 to 10000"));
    QCOMPARE(field<QSpinBox>("copyNumber")->toolTip(), QString("From 0 to 2147483647"));
}

/// What tells that the setting is changed: "bold", "bar", "spoken".
QStringList TestSettingsTable::marksOf(const QString& setting) const
{
    for (const QLabel* const name : window->findChildren<QLabel*>()) {
        if (!name->isVisible() || name->text() != setting)
            continue;
        QWidget* const row = name->parentWidget();
        const QColor leftEdge = row->grab().toImage().pixelColor(1, row->height() / 2);
        QStringList marks;
        if (name->font().bold())
            marks += "bold";
        if (leftEdge == row->palette().color(QPalette::Highlight))
            marks += "bar";
        if (name->accessibleDescription() == "changed")
            marks += "spoken";
        return marks;
    }
    return {"no such setting"};
}

void TestSettingsTable::whatIsChangedIsMarked()
{
    const QStringList all {"bold", "bar", "spoken"};
    open(suite("receiptdoc: { paperWidth = 40; };"));
    QCOMPARE(marksOf("paperWidth"), QStringList());
    person->focus(field<QSpinBox>("paperWidth"));
    person->type("50");
    QCOMPARE(marksOf("paperWidth"), all);
    QCOMPARE(marksOf("printDate"), QStringList());
    person->focus(field<QCheckBox>("printDate"));
    person->press(Qt::Key_Space);
    QCOMPARE(marksOf("printDate"), all); // a new one too
    save();
    QCOMPARE(marksOf("paperWidth"), QStringList());
    person->focus(field<QToolButton>("Take printDate out of the file"));
    person->press(Qt::Key_Space);
    QCOMPARE(marksOf("printDate"), all); // and one that is taken out
    person->press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(marksOf("printDate"), QStringList());
}

void TestSettingsTable::aFolderIsChosen_data()
{
    QTest::addColumn<QByteArray>("groups");
    QTest::addColumn<QString>("group");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("end"); // of what is written, after the folder
    QTest::newRow("without a slash as before") << QByteArray("bin: { path = /opt; };") << "Programs"
                                               << "path"
                                               << "";
    QTest::newRow("with a slash as before") << QByteArray("bin: { path = /opt/; };") << "Programs"
                                            << "path"
                                            << "/";
    QTest::newRow("none before") << QByteArray("db: { dbname = soup; };") << "Programs"
                                 << "path"
                                 << "";
    QTest::newRow("none before, of the translation, which needs a slash")
        << QByteArray("db: { dbname = soup; };") << "Language"
        << "basedir"
        << "/";
    QTest::newRow("of the translation, without a slash as before")
        << QByteArray("language: { basedir = /opt; };") << "Language"
        << "basedir"
        << "";
}

void TestSettingsTable::aFolderIsChosen()
{
    QFETCH(QByteArray, groups);
    QFETCH(QString, group);
    QFETCH(QString, name);
    QFETCH(QString, end);
    open(suite(groups));
    goToGroup(group);
    const QString chosen = folder->filePath("chosen");
    QVERIFY(QDir().mkdir(chosen));
    person->willType(chosen);
    person->focus(field<QToolButton>("Choose a folder"));
    person->press(Qt::Key_Space);
    QCOMPARE(person->readBoxes(), QStringList());
    QCOMPARE(field<QLineEdit>(name)->text(), chosen + end);
    save();
    QVERIFY2(saved().contains(QString("%1 = \"%2\";").arg(name, chosen + end).toUtf8()), saved().constData());
}

void TestSettingsTable::noFolderIsChosen()
{
    open(suite("db: { dbname = soup; };"));
    goToGroup("Programs");
    person->willType(QString());
    person->focus(field<QToolButton>("Choose a folder"));
    person->press(Qt::Key_Space);
    QCOMPARE(person->readBoxes(), QStringList());
    QCOMPARE(field<QLineEdit>("path")->text(), QString());
    QVERIFY(!window->isWindowModified());
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

void TestSettingsTable::whatWasTakenOutGoesBackToItsPlace()
{
    open(suite("receiptdoc: { paperWidth = 40; printDate = true; };"));
    person->focus(field<QToolButton>("Take paperWidth out of the file"));
    person->press(Qt::Key_Space);
    QVERIFY(window->isWindowModified());
    person->focus(field<QToolButton>("Take back the change of paperWidth"));
    person->press(Qt::Key_Space);
    QCOMPARE(field<QSpinBox>("paperWidth")->text(), QString("40"));
    QVERIFY(!window->isWindowModified());
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

void TestSettingsTable::manyNotesOfASettingAreCounted()
{
    open(suite(QByteArray("receiptdoc: { printDate = True; }; ").repeated(10)));
    const QWidget* const row = field<QWidget>("printDate")->parentWidget()->parentWidget();
    QStringList texts;
    for (const QLabel* const label : row->findChildren<QLabel*>()) {
        if (label->isVisible())
            texts += label->text();
    }
    QCOMPARE(texts.filter("\"True\"").size(), 3);
    QVERIFY2(texts.contains("and 7 more"), qPrintable(texts.join('\n')));
}

static bool isEmpty(const QImage& picture)
{
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (qAlpha(picture.pixel(x, y)) != 0)
                return false;
        }
    }
    return true;
}

void TestSettingsTable::groupsAreMarked()
{
    open(suite("solddoc: { printDate = True; }; receiptdoc: { paperWidth = 40; };"));
    auto* const groups = person->named<QListWidget>("Groups of settings");
    const auto marked = [&](const auto& isMarked) {
        QStringList titles;
        for (int i = 0; i < groups->count(); ++i) {
            if (isMarked(*groups->item(i)))
                titles += groups->item(i)->text();
        }
        return titles;
    };
    const auto hasPicture = [](const QListWidgetItem& item) { return !isEmpty(item.icon().pixmap(16).toImage()); };
    const auto isSpoken = [](const QListWidgetItem& item) {
        return item.data(Qt::AccessibleDescriptionRole) == "something is wrong";
    };
    QCOMPARE(marked(hasPicture), QStringList("Dishes sold")); // a note is no mark
    QCOMPARE(marked(isSpoken), QStringList("Dishes sold"));
    goToGroup("Dishes sold");
    pressButton(QString::fromUtf8("Put it right: True \u2192 true"));
    QCOMPARE(marked(hasPicture), QStringList());
    QCOMPARE(marked(isSpoken), QStringList());
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

// What the save dropped stands in the window no more; taking that back brings it there again, and saving asks again.
void TestSettingsTable::changesAreTakenBackBeyondASaveThatDropsSomething()
{
    const QString asked = "Saving will drop from the file:\n\u00B7 ";
    open(suite("db: { dbname = soup; };") + "\nother: { kind = fish; };");
    goToGroup("Database");
    person->focus(field<QLineEdit>("dbname"));
    person->type("stew");
    person->press(Qt::Key_2, Qt::ControlModifier);
    QVERIFY(person->item({"other"}));
    person->willPress(QMessageBox::Save);
    save();
    QCOMPARE(person->readBoxes(), QStringList(asked + "line 2: other"));
    QVERIFY(!window->isWindowModified());
    QVERIFY(!person->item({"other"}));

    person->choose("&Edit", "&Undo what saving dropped");
    QCOMPARE(person->value({"other", "kind"}), QString("fish"));
    QCOMPARE(person->value({"zelmora", "db", "dbname"}), QString("stew"));
    QVERIFY(window->isWindowModified());
    person->press(Qt::Key_1, Qt::ControlModifier);
    QVERIFY(!field<QToolButton>("Take back the change of dbname")->isEnabled()); // it is as in the file
    person->press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(field<QLineEdit>("dbname")->text(), QString("soup"));
    QVERIFY(field<QToolButton>("Take back the change of dbname")->isEnabled());

    person->willPress(QMessageBox::Save);
    save();
    QCOMPARE(person->readBoxes(), QStringList(asked + "other"));
    QCOMPARE(saved(), suite("db: { dbname = \"soup\"; };"));
    QVERIFY(!window->isWindowModified());
    person->press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(person->value({"other", "kind"}), QString("fish"));
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

// --- The paper ---

/// The letters of most desktops; with larger ones it folds away on this screen.
void TestSettingsTable::makeRoomForPaper()
{
    window->setFont(QFont("DejaVu Sans", 9));
    window->resize(780, 580);
    QTRY_VERIFY(window->findChild<PaperPane*>()->isVisible());
}

/// Whether some of what is in sight is marked as changed.
bool TestSettingsTable::isPaperMarked() const
{
    const QImage image = window->findChild<PaperView*>()->grab().toImage();
    const QRgb changed = qRgb(0xFF, 0xF0, 0xA0);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) == changed)
                return true;
        }
    }
    return false;
}

void TestSettingsTable::thePaperFollowsAChange()
{
    makeRoomForPaper();
    open(suite("receiptdoc: { paperWidth = 32; printDate = true; };"));
    QTRY_VERIFY(paper().contains("14/11/2025"));
    QVERIFY(!isPaperMarked());
    person->focus(field<QCheckBox>("printTime"));
    person->press(Qt::Key_Space);
    QTRY_VERIFY(paper().contains("21:05"));
    QVERIFY(isPaperMarked());
    person->press(Qt::Key_Z, Qt::ControlModifier);
    QTRY_VERIFY(!paper().contains("21:05"));
    QVERIFY(!isPaperMarked());
}

void TestSettingsTable::theMarksGoWithASave()
{
    makeRoomForPaper();
    open(suite("receiptdoc: { paperWidth = 32; printDate = true; printTime = true; };"));
    QTRY_VERIFY(paper().contains("21:05"));
    person->focus(field<QCheckBox>("printDate"));
    person->press(Qt::Key_Space);
    person->focus(field<QCheckBox>("printTable"));
    person->press(Qt::Key_Space);
    QTRY_VERIFY(paper().contains("Table: 3") && !paper().contains("14/11/2025"));
    QVERIFY(isPaperMarked());
    save();
    QTRY_VERIFY(!isPaperMarked());
    QVERIFY(paper().contains("Table: 3"));
    for (int i = 0; i < 2; ++i)
        person->press(Qt::Key_Z, Qt::ControlModifier); // beyond the save: it is the date that the file lacks now
    QTRY_VERIFY(paper().contains("14/11/2025") && !paper().contains("Table: 3"));
    QVERIFY(isPaperMarked());
}

// The keys come one after the other, before anything is printed.
void TestSettingsTable::aSaveBeforeThePaperIsDrawnLeavesNoMarks()
{
    makeRoomForPaper();
    open(suite("receiptdoc: { paperWidth = 32; printDate = true; };"));
    QTRY_VERIFY(paper().contains("14/11/2025"));
    auto* const time = field<QCheckBox>("printTime");
    time->setFocus();
    QTest::keyClick(time, Qt::Key_Space);
    QTest::keyClick(time, Qt::Key_S, Qt::ControlModifier);
    QTRY_VERIFY(paper().contains("21:05"));
    QVERIFY(!window->isWindowModified());
    QVERIFY(!isPaperMarked());
}

void TestSettingsTable::thePaperIsInTheLanguageThatIsSet()
{
    const QFileInfo catalogue(ZELMORA_CATALOGUE);
    QVERIFY(QDir::setCurrent(catalogue.path() + "/.."));
    open(suite("invoicedoc: { printDate = true; }; language: { basedir = \"" + catalogue.dir().dirName().toUtf8()
               + "/\"; };"));
    goToGroup("Language");
    QTRY_VERIFY(paper().contains(" Date: 14/11/2025"));
    person->focus(field<QLineEdit>("file"));
    person->type(catalogue.fileName()); // in a folder that is named from the working folder
    QTRY_VERIFY(paper().contains(" Data: 14/11/2025"));
    QVERIFY(!paper().contains(" Date: "));
}

void TestSettingsTable::saysThatThereIsNoPrintProgram()
{
    makeRoomForPaper();
    qputenv("PATH", QFile::encodeName(folder->path()));
    open(suite("receiptdoc: { paperWidth = 32; };"));
    auto* const notice = window->findChild<PaperNotice*>();
    QTRY_VERIFY2(notice->text().startsWith("There is no program zelmora-print: "), qPrintable(notice->text()));
    QVERIFY(notice->isVisible());
    QCOMPARE(paper(), QString());
}

void TestSettingsTable::saysWhatThePaperCannotBePrintedWith()
{
    makeRoomForPaper();
    path = folder->filePath("zelmora.xml");
    open("<zelmora><receiptdoc paperWidth='32'/><db dbname='soup;fish'/></zelmora>");
    auto* const notice = window->findChild<PaperNotice*>();
    QTRY_COMPARE(notice->text(),
                 "The print program reads the brace form alone, which cannot hold this of the file " + path
                     + ":\n  zelmora.db.dbname = soup;fish");
    QVERIFY(notice->isVisible());
    goToGroup("Database");
    person->focus(field<QLineEdit>("dbname"));
    person->type("soup");
    QTRY_VERIFY(!notice->isVisible());
    QTRY_VERIFY(paper().startsWith("Receipt\n"));
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

/// The window of a program that begins with that file, which is not there yet.
void TestSettingsTable::beginAt(const QString& newPath)
{
    person.reset();
    window = std::make_unique<SettingsWindow>(newPath);
    person = std::make_unique<Person>(*window);
    window->show();
    QTRY_VERIFY(person->reads("There is no file " + newPath + " yet."));
}

void TestSettingsTable::beginsWithACompleteFile()
{
    beginAt(path);
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
    beginAt(deep);
    pressButton("Begin with a complete file");
    QVERIFY(!QFile::exists(folder->filePath("home")));
    save();
    QVERIFY(QFile::exists(deep));
}

void TestSettingsTable::saysThatNoNewFileMayBeMade_data()
{
    QTest::addColumn<int>("permissions"); // of the folder
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isSaid");
    QTest::newRow("in its folder") << 0555 << "zelmora.conf" << true;
    QTest::newRow("in a folder around it") << 0555 << "home/.zelmora/conf/zelmora.conf" << true;
    QTest::newRow("but it may in its folder") << 0777 << "zelmora.conf" << false;
    QTest::newRow("but it may in a folder around it") << 0777 << "home/.zelmora/conf/zelmora.conf" << false;
}

void TestSettingsTable::saysThatNoNewFileMayBeMade()
{
    QFETCH(int, permissions);
    QFETCH(QString, name);
    QFETCH(bool, isSaid);
    setPermissions(folder->path(), static_cast<mode_t>(permissions));
    person.reset();
    window.reset();
    const OrdinaryUser someone; // whose own window can remove the folders that it makes for the paper
    beginAt(folder->filePath(name));
    QCOMPARE(person->reads("The file " + folder->filePath(name) + " may not be written: save under another name."),
             isSaid);
}

// To root too: a file is no folder.
void TestSettingsTable::saysWhyAFolderIsNotMade()
{
    writeBytes(folder->filePath("home"), "no folder");
    const QString deep = folder->filePath("home/.zelmora/conf/zelmora.conf");
    beginAt(deep);
    QVERIFY(person->reads("The file " + deep + " may not be written: save under another name."));
    pressButton("Begin with a complete file");
    person->willPress(QMessageBox::Ok);
    save();
    QCOMPARE(person->readBoxes(),
             QStringList("The file " + deep + " cannot be written: The folder " + QFileInfo(deep).path()
                         + " cannot be made: Not a directory\nYour changes are still in this window."));
    QVERIFY(window->isWindowModified());
    const QString other = folder->filePath("other/zelmora.conf");
    person->willType(other);
    person->press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(QFile::exists(other));
    QVERIFY(!person->reads("may not be written"));
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

// While it is open: its owner's rights are taken and given.
void TestSettingsTable::saysAtOnceThatAFileMayNotBeWritten()
{
    setPermissions(folder->path(), 0777);
    person.reset();
    window.reset();
    const OrdinaryUser someone;
    showWindow();
    open(suite("db: { dbname = soup; };"));
    const QString text = "The file " + path + " may not be written: save under another name.";
    QVERIFY(!person->reads(text));
    setPermissions(path, 0400);
    QTRY_VERIFY(person->reads(text));
    setPermissions(path, 0600);
    QTRY_VERIFY(!person->reads(text));
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

// With changes of one's own, which are given up; of those that the file has now none is one.
void TestSettingsTable::readsAgainWhatAnotherProgramWrote()
{
    open(suite("db: { dbname = soup; username = ann; };"));
    goToGroup("Database");
    person->focus(field<QLineEdit>("dbname"));
    person->type("stew");
    writeBytes(path, suite("db: { dbname = fish; username = bob; };"));
    person->willPress(QMessageBox::Cancel);
    person->press(Qt::Key_F5);
    QCOMPARE(field<QLineEdit>("dbname")->text(), QString("stew"));
    person->willPress(QMessageBox::Discard);
    person->press(Qt::Key_F5);
    QCOMPARE(
        person->readBoxes(),
        QStringList({"The settings have changed. Save the changes?", "The settings have changed. Save the changes?"}));
    QCOMPARE(field<QLineEdit>("dbname")->text(), QString("fish"));
    QCOMPARE(field<QLineEdit>("username")->text(), QString("bob"));
    QVERIFY(!window->isWindowModified());
    for (const char* key : {"dbname", "username"})
        QVERIFY(!field<QToolButton>(QString("Take back the change of ") + key)->isEnabled());
    QTRY_VERIFY(!person->reads("Another program has changed"));
    person->press(Qt::Key_Z, Qt::ControlModifier); // nothing is left of what was changed in the former one
    QCOMPARE(field<QLineEdit>("dbname")->text(), QString("fish"));
    person->focus(field<QLineEdit>("dbname"));
    person->type("meat");
    save(); // without a question
    QCOMPARE(saved(), suite("db: { dbname = \"meat\"; username = \"bob\"; };"));
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
    const QString help = person->readBoxes().value(0);
    QVERIFY(help.startsWith("zelmora.receiptdoc.paperWidth\n"));
    QVERIFY(help.contains("\nIt shows on: Receipt, Summary receipt."));
    person->focus(person->named<QListWidget>("Groups of settings"));
    person->willPress(QMessageBox::Ok);
    person->press(Qt::Key_F1);
    QCOMPARE(person->readBoxes(),
             QStringList("Receipt\n\nWhat stands on this document, and how wide it is. In the file: receiptdoc.\n"
                         "These are printed with it: Receipt, Summary receipt.\n\n"
                         "Each setting has its own help: go to it and press F1."));
    goToGroup("Log");
    person->willPress(QMessageBox::Ok);
    person->press(Qt::Key_F1);
    QCOMPARE(person->readBoxes(),
             QStringList("Log\n\nThe log of the suite's programs. In the file: logger.\n\n"
                         "Each setting has its own help: go to it and press F1."));
}

void TestSettingsTable::helpsOnTheListOfTheFile_data()
{
    QTest::addColumn<QStringList>("labels");
    QTest::addColumn<QString>("help"); // how it begins
    const QString unread = "%1\n\nNo program of the suite reads it.";
    const QString whole = "The programs of the suite read the groups in \"zelmora\", the first group of the file.";
    QTest::newRow("a setting") << QStringList {"zelmora", "db", "dbname"} << "zelmora.db.dbname\n\nThe database.";
    QTest::newRow("a value") << QStringList {"zelmora", "db", "dbname", "soup"} << "zelmora.db.dbname\n\nThe database.";
    QTest::newRow("a setting of a document")
        << QStringList {"zelmora", "receiptdoc", "paperWidth"} << "zelmora.receiptdoc.paperWidth\n";
    QTest::newRow("a group") << QStringList {"zelmora", "logger"} << "Log\n\nThe log of the suite's programs.";
    QTest::newRow("a setting that the suite does not know")
        << QStringList {"zelmora", "db", "colour"} << unread.arg("zelmora.db.colour");
    QTest::newRow("a setting that is not read in this group")
        << QStringList {"zelmora", "fiscaldoc", "topMargin"} << unread.arg("zelmora.fiscaldoc.topMargin");
    QTest::newRow("a group that the suite does not know")
        << QStringList {"zelmora", "kitchen"} << unread.arg("zelmora.kitchen");
    QTest::newRow("a setting in that") << QStringList {"zelmora", "kitchen", "dbname"}
                                       << unread.arg("zelmora.kitchen.dbname");
    QTest::newRow("a known group in a known one")
        << QStringList {"zelmora", "receiptdoc", "db"} << unread.arg("zelmora.receiptdoc.db");
    QTest::newRow("a known group behind the first one")
        << QStringList {"till", "db", "dbname"} << unread.arg("till.db.dbname");
    QTest::newRow("a setting outside the groups") << QStringList {"paperWidth"} << unread.arg("paperWidth");
    QTest::newRow("the outermost group") << QStringList {"zelmora"} << whole;
    QTest::newRow("the file") << QStringList() << whole;
}

void TestSettingsTable::helpsOnTheListOfTheFile()
{
    QFETCH(QStringList, labels);
    QFETCH(QString, help);
    open("paperWidth = 3; zelmora: { db: { dbname = soup; colour = red; }; logger: { level = INFO; };"
         " receiptdoc: { paperWidth = 32; db: { dbname = soup; }; }; fiscaldoc: { topMargin = 2; };"
         " kitchen: { dbname = soup; }; }; till: { db: { dbname = fish; }; };");
    person->press(Qt::Key_2, Qt::ControlModifier);
    person->goTo(labels);
    person->willPress(QMessageBox::Ok);
    person->press(Qt::Key_F1);
    const QStringList boxes = person->readBoxes();
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes[0].left(help.size()), help);
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

using Step = std::function<void()>;
Q_DECLARE_METATYPE(Step)

void TestSettingsTable::puttingRightActsOnTheFileThatIsShown_data()
{
    QTest::addColumn<Step>("step");
    QTest::newRow("read again") << Step([this] { person->press(Qt::Key_F5); });
    QTest::newRow("another file") << Step([this] {
        path = folder->filePath("other.conf");
        open(suite("receiptdoc: { printDate = True; };") + " other: { kind = fish; };");
    });
    QTest::newRow("a save that drops something") << Step([this] {
        person->focus(field<QSpinBox>("topMargin"));
        person->type("1");
        person->willPress(QMessageBox::Save);
        save();
        person->readBoxes();
        person->press(Qt::Key_Z, Qt::ControlModifier);
        person->press(Qt::Key_Z, Qt::ControlModifier);
    });
}

// What is wrong is the same, and the groups in which it stands are others.
void TestSettingsTable::puttingRightActsOnTheFileThatIsShown()
{
    QFETCH(Step, step);
    open(suite("receiptdoc: { printDate = True; };") + " other: { kind = fish; };");
    step();
    pressButton(QString("Put it right: True %1 true").arg(QChar(0x2192)));
    QVERIFY(field<QCheckBox>("printDate")->isChecked());
    person->willPress(QMessageBox::Save);
    save();
    person->readBoxes();
    QCOMPARE(saved(), suite("receiptdoc: { printDate = \"true\"; };"));
}

void TestSettingsTable::whatIsTakenBackInAFieldIsShownInIt_data()
{
    QTest::addColumn<QByteArray>("group");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("wrong");
    QTest::addColumn<QString>("right");
    QTest::newRow("a number") << QByteArray("receiptdoc") << "Receipt"
                              << "paperWidth"
                              << "32 mm"
                              << "32";
    QTest::newRow("a flag") << QByteArray("receiptdoc") << "Receipt"
                            << "printDate"
                            << "True"
                            << "true";
    QTest::newRow("a word") << QByteArray("logger") << "Log"
                            << "level"
                            << "INFOO"
                            << "INFO";
}

void TestSettingsTable::whatIsTakenBackInAFieldIsShownInIt()
{
    QFETCH(QByteArray, group);
    QFETCH(QString, title);
    QFETCH(QString, key);
    QFETCH(QString, wrong);
    QFETCH(QString, right);
    open(suite(group + ": { " + key.toUtf8() + " = " + wrong.toUtf8() + "; };"));
    goToGroup(title);
    pressButton(QString("Put it right: %1 %2 %3").arg(wrong, QChar(0x2192), right));
    QVERIFY(!field<QLineEdit>(key));
    person->press(Qt::Key_Z, Qt::ControlModifier);
    auto* const text = field<QLineEdit>(key);
    QVERIFY(text);
    QVERIFY(text->hasFocus());
    QCOMPARE(text->text(), wrong);
    QVERIFY(!window->isWindowModified());
}

void TestSettingsTable::noHintTellsASecret()
{
    open(suite("db: { password = s3cret; };"));
    goToGroup("Database");
    person->focus(field<QLineEdit>("password"));
    person->type("other");
    QVERIFY(field<QToolButton>("Take back the change of password")->isEnabled());
    for (const QWidget* widget : window->findChildren<QWidget*>()) {
        const QString told = widget->toolTip() + widget->accessibleName() + widget->accessibleDescription();
        QVERIFY2(!told.contains("s3cret"), qPrintable(told));
    }
}

void TestSettingsTable::hintsTellValuesAsTexts()
{
    const QString longName(10000, 'x');
    open(suite("db: { dbname = <b>fish</b>; hostname = " + longName.toUtf8() + "; };"));
    goToGroup("Database");
    const QString name = field<QToolButton>("Take back the change of dbname")->toolTip();
    QCOMPARE(QTextDocumentFragment::fromHtml(name).toPlainText(), QString("Back to what the file has: <b>fish</b>"));
    QVERIFY(field<QToolButton>("Take back the change of hostname")->toolTip().size() < 200);
}

void TestSettingsTable::stepsEndAtTheRange()
{
    open(suite("receiptdoc: { paperRows = 2147483640; };"));
    auto* const rows = field<QSpinBox>("paperRows");
    person->focus(rows);
    person->press(Qt::Key_PageUp);
    QCOMPARE(rows->text(), QString("2147483647"));
    person->type("5");
    person->press(Qt::Key_PageDown);
    QCOMPARE(rows->text(), QString("0"));
}

void TestSettingsTable::theWordThatIsThereStaysAsItIsWritten()
{
    open(suite("logger: { type = append; };"));
    goToGroup("Log");
    auto* const type = field<QComboBox>("type");
    person->focus(type);
    type->showPopup();
    QTest::keyClick(type->view(), Qt::Key_Return);
    QVERIFY(!type->view()->isVisible());
    QVERIFY(!window->isWindowModified());
    person->press(Qt::Key_Home);
    QVERIFY(window->isWindowModified());
}

void TestSettingsTable::tabGoesFromTheGroupsNotesToItsRows()
{
    open(suite("receiptdoc: { paperWidth = 40; };"));
    open(suite("recieptdoc: { paperWidth = 40; };")); // what puts it right is made after the fields
    const QStringList names = namesByTab(person->named<QWidget>("Groups of settings"), 3);
    QCOMPARE(names.at(1), QString::fromUtf8("Put it right: recieptdoc \u2192 receiptdoc"));
    QVERIFY(person->named<QSpinBox>(names.at(2)) || person->named<QCheckBox>(names.at(2)));
}

void TestSettingsTable::theListKeepsTheKeyboardWhenASaveIsTakenBack()
{
    open(suite("receiptdoc: { paperWidth = 40; };") + " other: { kind = fish; };");
    person->press(Qt::Key_2, Qt::ControlModifier);
    person->change({"zelmora", "receiptdoc", "paperWidth"}, "48");
    person->willPress(QMessageBox::Save);
    save();
    person->readBoxes();
    QCOMPARE(window->focusWidget(), person->tree()); // as soon as a desktop gives it to the window
    person->press(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(person->item({"other"}));
    QVERIFY(person->tree()->hasFocus());
}

QTEST_MAIN(TestSettingsTable)
#include "tst_settingstable.moc"
