#include "editor/person.h"
#include "support/files.h"
#include "support/ordinaryuser.h"
#include "support/processstate.h"
#include "support/programrun.h"

#include <QClipboard>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QSettings>
#include <QToolTip>
#include <QTranslator>

#include <memory>
#include <sys/stat.h>

/// The settings editor as a person uses it: real keys and clicks to the real window.
class TestSettingsWindow : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void showsGroupsSettingsAndValues();
    void beginsInTheTree();
    void withoutAFileThereIsNothingToSave();
    void opensThroughTheDialog();
    void openingIsCancelled();
    void opensXml();
    void titleShowsFileAndChange();

    void find_data();
    void find();
    void findingShowsTheValue();

    void edit_data();
    void edit();
    void escapeKeepsTheValue();
    void theSameTextIsNoChange();
    void groupsAreNotEdited();
    void refusesATypedSign_data();
    void refusesATypedSign();
    void refusesAPastedSign();
    void signsFromAnXmlFileCanBeTakenOut();
    void cellKeepsTheRestOfTheValue_data();
    void cellKeepsTheRestOfTheValue();

    void saveIsForWhatHasChanged();
    void saveIsForAFileThatIsGone();
    void saveIsForTheTextOfAnOpenCell();
    void saveIsForWhatCouldNotBeSaved();
    void aCopyThatCouldNotBeSavedIsNoChange();
    void unchangedValuesAreNotWritten();
    void saves();
    void savesTheTextOfAnOpenCell();
    void savesXmlAndBack();
    void savingAsAnExistingFileAsks();
    void savingAsIsCancelled();
    void keepsPermissionsAndLink();

    void reloads();
    void reloadAsksWhenThereAreChanges();
    void closesAtOnceWithoutChanges();
    void closeAsksWhenThereAreChanges_data();
    void closeAsksWhenThereAreChanges();
    void doesNotCloseOverTheOnlyCopy();
    void keysAnswerQuestions_data();
    void keysAnswerQuestions();
    void openingAsksWhenThereAreChanges();
    void anOpenCellIsAChange();
    void remembersItsSize();
    void isNotLargerThanTheScreenFromTheBeginning();

    void cannotBeRead_data();
    void cannotBeRead();
    void cannotBeWritten_data();
    void cannotBeWritten();
    void readOnly();
    void fullDisk();
    void changedUnderneath();
    void removedUnderneath();
    void ownSavesAreNoChangeUnderneath();

    void warnsOfWhatIsWrong_data();
    void warnsOfWhatIsWrong();
    void aSlipOfTheTextIsSaidUntilItIsSaved();
    void doesNotWarn_data();
    void doesNotWarn();
    void whatSavingDropsIsAskedAndKept();
    void aCopyDropsTheSame();
    void aMissingSemicolonCostsNothingUnseen();
    void whatCannotBeKeptIsAskedAgain();
    void otherTextsAreForReadingOnly_data();
    void otherTextsAreForReadingOnly();
    void aSlipInTheGroupsNameIsForEditing();
    void warnsBeforeXmlThatDoesNotReadBack_data();
    void warnsBeforeXmlThatDoesNotReadBack();
    void namesThatLookLikeXml();
    void emptyingAFileIsAsked();
    void warnsBeforeAValueThatChanges();
    void textsOfTheFileAreShownAsTheyAre();
    void veryLongTextsAreShortened();

    void manySettings();
    void speaksItalian();

private:
    QAction* fileAction(const QString& text) const;
    bool isSaveEnabled() const { return fileAction("&Save")->isEnabled(); }
    QString write(const char* name, const QByteArray& bytes) const;
    void open(const QString& path);
    void showWindow();
    std::unique_ptr<OrdinaryUser> becomeOrdinaryUser();
    void openSettings(const QByteArray& bytes) { open(write("zelmora.conf", bytes)); }
    void showWhatIsWrong();
    QByteArray savedBytes() const { return fileContents(folder->filePath("zelmora.conf")); }

    QTemporaryDir configuration; // where the window keeps its size
    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<SettingsWindow> window;
    std::unique_ptr<Person> person;
};

using Labels = QStringList;

// A small settings file, as the writer writes it.
static const QByteArray smallFile = "zelmora: \n"
                                    "{\n"
                                    "    bin: \n"
                                    "    {\n"
                                    "        path = \"it\";\n"
                                    "    };\n"
                                    "\n"
                                    "    receiptdoc: \n"
                                    "    {\n"
                                    "        paperWidth = \"32\";\n"
                                    "        printDate = \"true\";\n"
                                    "    };\n"
                                    "\n"
                                    "    solddoc: \n"
                                    "    {\n"
                                    "        paperWidth = \"40\";\n"
                                    "    };\n"
                                    "\n"
                                    "};\n"
                                    "\n";
static const Labels receiptWidth {"zelmora", "receiptdoc", "paperWidth"};
static const Labels soldWidth {"zelmora", "solddoc", "paperWidth"};

static QByteArray smallFileWithReceiptWidth(const QByteArray& width)
{
    return QByteArray(smallFile).replace("\"32\"", '"' + width + '"');
}

static QStringList toolkitMessages;

/// What the toolkit would write to standard error, but for what the platform without a screen says of itself.
static void noteMessage(QtMsgType, const QMessageLogContext&, const QString& text)
{
    if (!text.startsWith("This plugin does not support "))
        toolkitMessages += text;
}

void TestSettingsWindow::initTestCase()
{
    QApplication::setOrganizationName("zelmora");
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, configuration.path());
}

void TestSettingsWindow::init()
{
    folder = std::make_unique<QTemporaryDir>();
    toolkitMessages.clear();
    qInstallMessageHandler(noteMessage);
    showWindow();
}

void TestSettingsWindow::showWindow()
{
    window = std::make_unique<SettingsWindow>();
    person = std::make_unique<Person>(*window);
    window->show();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
}

void TestSettingsWindow::cleanup()
{
    const QStringList boxes = person->readBoxes();
    person.reset();
    window.reset();
    qInstallMessageHandler(nullptr);
    QCOMPARE(boxes, QStringList());
    QCOMPARE(toolkitMessages.join('\n'), QString());
}

/// With a window of that user's own, which can remove the folders that it makes for the paper; those of a window of
/// root's would be left.
std::unique_ptr<OrdinaryUser> TestSettingsWindow::becomeOrdinaryUser()
{
    person.reset();
    window.reset();
    setPermissions(folder->path(), 0777);
    auto user = std::make_unique<OrdinaryUser>();
    showWindow();
    return user;
}

QString TestSettingsWindow::write(const char* name, const QByteArray& bytes) const
{
    QFile file(folder->filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("A file of the test can't be written.");
    return file.fileName();
}

void TestSettingsWindow::open(const QString& path)
{
    window->openFile(path);
    person->press(Qt::Key_2, Qt::ControlModifier); // to the page of all that stands in the file
}

// --- What is shown ---

/// The labels of all items below @p item, a line for each, indented by depth.
static QString outline(const QTreeWidgetItem& item, const QString& indentation = QString())
{
    QString text = indentation + item.text(0) + '\n';
    for (int i = 0; i < item.childCount(); ++i)
        text += outline(*item.child(i), indentation + ' ');
    return text;
}

void TestSettingsWindow::showsGroupsSettingsAndValues()
{
    openSettings(smallFile);
    QCOMPARE(person->tree()->topLevelItemCount(), 1);
    QCOMPARE(outline(*person->tree()->topLevelItem(0)),
             folder->filePath("zelmora.conf")
                 + "\n zelmora\n  bin\n   path\n    it\n  receiptdoc\n   paperWidth\n    32\n   printDate\n    true\n"
                   "  solddoc\n   paperWidth\n    40\n");
    for (QTreeWidgetItemIterator item(person->tree()); *item; ++item)
        QCOMPARE((*item)->flags().testFlag(Qt::ItemIsEditable), (*item)->childCount() == 0);
}

void TestSettingsWindow::beginsInTheTree()
{
    openSettings(smallFile);
    QVERIFY(person->tree()->hasFocus());
    QCOMPARE(person->tree()->currentItem(), person->tree()->topLevelItem(0));
    const auto isVisible = [this](const Labels& labels) {
        return !person->tree()->visualItemRect(person->item(labels)).isEmpty();
    };
    QVERIFY(isVisible({"zelmora", "receiptdoc"}));
    QVERIFY(isVisible({"zelmora", "bin"}));
    QVERIFY(!isVisible({"zelmora", "receiptdoc", "paperWidth"}));

    for (int i = 0; i < 3; ++i) // zelmora, bin, receiptdoc
        person->press(Qt::Key_Down);
    QCOMPARE(person->currentLabels(), Labels({"zelmora", "receiptdoc"}));
    person->press(Qt::Key_Right);
    QVERIFY(isVisible({"zelmora", "receiptdoc", "paperWidth", "32"}));
}

void TestSettingsWindow::withoutAFileThereIsNothingToSave()
{
    QCOMPARE(window->windowTitle(), QString("no file[*] - Settings"));
    person->press(Qt::Key_S, Qt::ControlModifier);
    person->press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    person->press(Qt::Key_F5);
    person->press(Qt::Key_F2);
    person->press(Qt::Key_F, Qt::ControlModifier);
    person->type("x");
    person->press(Qt::Key_Return);
    QCOMPARE(QDir(folder->path()).entryList(QDir::Files), QStringList());
}

void TestSettingsWindow::opensThroughTheDialog()
{
    openSettings(smallFile);
    const QString other = write("other.conf", "zelmora: { bin: { path = b; }; };");
    person->willType(other);
    person->press(Qt::Key_O, Qt::ControlModifier);
    QCOMPARE(person->value({"zelmora", "bin", "path"}), QString("b"));
    QCOMPARE(window->windowTitle(), other + "[*] - Settings");
}

void TestSettingsWindow::openingIsCancelled()
{
    openSettings(smallFile);
    person->willType(QString());
    person->press(Qt::Key_O, Qt::ControlModifier);
    QCOMPARE(person->value(receiptWidth), QString("32"));
}

void TestSettingsWindow::opensXml()
{
    open(write("zelmora.XML", "<zelmora><bin path='it'/><receiptdoc paperWidth='32'/></zelmora>"));
    QCOMPARE(person->value(receiptWidth), QString("32"));
    QCOMPARE(person->value({"zelmora", "bin", "path"}), QString("it"));
}

void TestSettingsWindow::titleShowsFileAndChange()
{
    openSettings(smallFile);
    QCOMPARE(window->windowTitle(), folder->filePath("zelmora.conf") + "[*] - Settings");
    QVERIFY(!window->isWindowModified());
    person->change(receiptWidth, "48");
    QVERIFY(window->isWindowModified());
    person->press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(!window->isWindowModified());
}

// --- Finding ---

void TestSettingsWindow::find_data()
{
    QTest::addColumn<Labels>("start");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QVector<Labels>>("found"); // by Return, then by F3, time and again

    const Labels soldGroup {"zelmora", "solddoc"};
    QTest::newRow("a name, the next, and from the beginning again")
        << Labels() << "paperWidth" << QVector<Labels> {receiptWidth, soldWidth, receiptWidth};
    QTest::newRow("a part of a name, in other letters")
        << Labels() << "ERW" << QVector<Labels> {receiptWidth, soldWidth};
    QTest::newRow("a value") << Labels() << "40" << QVector<Labels> {soldWidth + Labels {"40"}};
    QTest::newRow("a group") << Labels() << "solddoc" << QVector<Labels> {soldGroup};
    QTest::newRow("blanks around it") << Labels() << " solddoc " << QVector<Labels> {soldGroup};
    QTest::newRow("blanks alone are nothing to go to") << soldGroup << "  " << QVector<Labels> {soldGroup, soldGroup};
    QTest::newRow("after the current item") << soldWidth << "paperWidth" << QVector<Labels> {receiptWidth, soldWidth};
    QTest::newRow("the current item alone") << soldGroup << "solddoc" << QVector<Labels> {soldGroup, soldGroup};
    QTest::newRow("the name and its value are two places")
        << Labels() << "t"
        << QVector<Labels> {
               {"zelmora", "bin", "path"}, {"zelmora", "bin", "path", "it"}, {"zelmora", "receiptdoc"}, receiptWidth};
}

void TestSettingsWindow::find()
{
    QFETCH(Labels, start);
    QFETCH(QString, text);
    QFETCH(QVector<Labels>, found);
    openSettings(smallFile);
    person->goTo(start);
    person->press(Qt::Key_F, Qt::ControlModifier);
    person->type(text);
    person->press(Qt::Key_Return);
    for (const Labels& labels : found) {
        QCOMPARE(person->currentLabels(), labels);
        QCOMPARE(person->status(), QString());
        person->press(Qt::Key_F3);
    }
}

void TestSettingsWindow::findingShowsTheValue()
{
    openSettings(smallFile);
    person->press(Qt::Key_F, Qt::ControlModifier);
    person->type("receiptdoc");
    person->press(Qt::Key_Return);
    QVERIFY(!person->tree()->visualItemRect(person->item(receiptWidth)->child(0)).isEmpty());

    person->press(Qt::Key_F, Qt::ControlModifier); // what was looked for is replaced
    person->type("dinosaur");
    person->press(Qt::Key_Return);
    QCOMPARE(person->status(), QString("\"dinosaur\" is not found."));
    QCOMPARE(person->currentLabels(), Labels({"zelmora", "receiptdoc"}));

    person->press(Qt::Key_F, Qt::ControlModifier);
    person->type("paperWidth");
    person->press(Qt::Key_Return);
    QCOMPARE(person->status(), QString());
}

// --- Editing ---

void TestSettingsWindow::edit_data()
{
    QTest::addColumn<int>("key"); // 0 is a double click
    QTest::addColumn<Labels>("place");
    const Labels theValue = receiptWidth + Labels {"32"};
    QTest::newRow("F2 on the value") << int(Qt::Key_F2) << theValue;
    QTest::newRow("Return on the value") << int(Qt::Key_Return) << theValue;
    QTest::newRow("Enter on the value") << int(Qt::Key_Enter) << theValue;
    QTest::newRow("a double click on the value") << 0 << theValue;
    QTest::newRow("F2 on the name") << int(Qt::Key_F2) << receiptWidth;
    QTest::newRow("Return on the name") << int(Qt::Key_Return) << receiptWidth;
    QTest::newRow("Enter on the name") << int(Qt::Key_Enter) << receiptWidth;
}

void TestSettingsWindow::edit()
{
    QFETCH(int, key);
    QFETCH(Labels, place);
    openSettings(smallFile);
    person->goTo(place);
    if (key != 0) {
        person->press(key);
    } else {
        QWidget* const view = person->tree()->viewport();
        const QPoint where = person->tree()->visualItemRect(person->item(place)).center();
        QTest::mouseClick(view, Qt::LeftButton, Qt::NoModifier, where);
        QTest::mouseDClick(view, Qt::LeftButton, Qt::NoModifier, where);
    }
    QVERIFY(person->isEditing());
    person->press(Qt::Key_F2); // does no harm in between
    person->type("48");
    person->press(key == Qt::Key_Enter ? Qt::Key_Enter : Qt::Key_Return);
    QCOMPARE(person->value(receiptWidth), QString("48"));
    QVERIFY(person->tree()->hasFocus());
    QVERIFY(window->isWindowModified());
    QCOMPARE(savedBytes(), smallFile);
}

void TestSettingsWindow::escapeKeepsTheValue()
{
    openSettings(smallFile);
    person->goTo(receiptWidth);
    person->press(Qt::Key_F2);
    person->type("48");
    person->press(Qt::Key_Escape);
    QCOMPARE(person->value(receiptWidth), QString("32"));
    QVERIFY(!window->isWindowModified());
}

void TestSettingsWindow::theSameTextIsNoChange()
{
    openSettings(smallFile);
    person->change(receiptWidth, "32");
    QVERIFY(!window->isWindowModified());
}

void TestSettingsWindow::groupsAreNotEdited()
{
    openSettings(smallFile);
    for (const Labels& labels : {Labels(), Labels {"zelmora"}, Labels {"zelmora", "receiptdoc"}}) {
        person->goTo(labels);
        for (const int key : {Qt::Key_F2, Qt::Key_Return, Qt::Key_Enter})
            person->press(key);
        QVERIFY(!person->isEditing());
    }
    // A double click on a name folds it up, and no more.
    person->tree()->scrollToItem(person->item(receiptWidth));
    const QPoint where = person->tree()->visualItemRect(person->item(receiptWidth)).center();
    QTest::mouseClick(person->tree()->viewport(), Qt::LeftButton, Qt::NoModifier, where);
    QTest::mouseDClick(person->tree()->viewport(), Qt::LeftButton, Qt::NoModifier, where);
    QVERIFY(!person->isEditing());
}

static const QString refusal = "A value cannot hold a quotation mark or a semicolon:\n"
                               "the one would be dropped, the other would end the value.";

void TestSettingsWindow::refusesATypedSign_data()
{
    QTest::addColumn<QString>("sign");
    QTest::newRow("a quotation mark") << "\"";
    QTest::newRow("a semicolon") << ";";
}

void TestSettingsWindow::refusesATypedSign()
{
    QFETCH(QString, sign);
    openSettings(smallFile);
    person->goTo(receiptWidth);
    person->press(Qt::Key_F2);
    person->type("4");
    QCOMPARE(QToolTip::text(), QString());
    person->type(sign);
    QCOMPARE(QToolTip::text(), refusal);
    person->type("8");
    person->press(Qt::Key_Return);
    QCOMPARE(person->value(receiptWidth), QString("48"));
    QTRY_VERIFY(!QToolTip::isVisible());
}

void TestSettingsWindow::refusesAPastedSign()
{
    openSettings(smallFile);
    person->goTo(receiptWidth);
    person->press(Qt::Key_F2);
    QApplication::clipboard()->setText("4; evil = \"8\"");
    person->press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(QToolTip::text(), refusal);
    person->press(Qt::Key_Return);
    QCOMPARE(person->value(receiptWidth), QString("32"));
    QTRY_VERIFY(!QToolTip::isVisible());
}

void TestSettingsWindow::signsFromAnXmlFileCanBeTakenOut()
{
    open(write("zelmora.xml", "<zelmora footer='say \"x\";'/>"));
    person->goTo({"zelmora", "footer"});
    person->press(Qt::Key_F2);
    person->press(Qt::Key_End);
    person->press(Qt::Key_Backspace);
    QCOMPARE(QToolTip::text(), QString());
    person->type(";"); // once out, it stays out
    QCOMPARE(QToolTip::text(), refusal);
    person->type("!");
    person->press(Qt::Key_Return);
    QCOMPARE(person->value({"zelmora", "footer"}), QString("say \"x\"!"));
    QTRY_VERIFY(!QToolTip::isVisible());
}

void TestSettingsWindow::cellKeepsTheRestOfTheValue_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::newRow("line breaks") << QByteArray("one\ntwo\r\nthree");
    QTest::newRow("tabs and blanks") << QByteArray(" a\t\tb  c ");
    QTest::newRow("a very long value") << QByteArray(40000, 'a') + QByteArray(40000, 'b');
    QTest::newRow("accents, the euro and a pizza") << QByteArray("\xc3\xa8\xe2\x82\xac\xf0\x9f\x8d\x95");
    QTest::newRow("a line separator") << QByteArray("a\xe2\x80\xa8"
                                                    "b");
    QTest::newRow("signs of the format") << QByteArray("12:30 = {x}");
}

void TestSettingsWindow::cellKeepsTheRestOfTheValue()
{
    QFETCH(QByteArray, value);
    open(write("zelmora.conf", smallFileWithReceiptWidth(value)));
    person->goTo(receiptWidth);
    person->press(Qt::Key_F2);
    person->press(Qt::Key_End);
    person->type("x");
    person->press(Qt::Key_Return);
    person->press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(savedBytes() == smallFileWithReceiptWidth(value + 'x'));
}

// --- Saving ---

/// Of the menu as it is when the person opens it.
QAction* TestSettingsWindow::fileAction(const QString& text) const
{
    QMenu* const menu = window->menuBar()->actions().first()->menu();
    emit menu->aboutToShow();
    for (QAction* action : menu->actions()) {
        if (action->text() == text)
            return action;
    }
    qFatal("There is no %s in the menu.", qPrintable(text));
}

void TestSettingsWindow::saveIsForWhatHasChanged()
{
    QVERIFY(!isSaveEnabled());
    openSettings(smallFile);
    QVERIFY(!isSaveEnabled());
    QVERIFY(fileAction("Save &as...")->isEnabled());
    const QAction* const save = fileAction("&Save");
    person->change(receiptWidth, "48");
    QVERIFY(save->isEnabled()); // with the menu closed too: a desktop may show it elsewhere
    QVERIFY(isSaveEnabled());
    person->change(soldWidth, "50");
    person->change(receiptWidth, "32"); // as it was
    QVERIFY(isSaveEnabled());
    person->change(soldWidth, "40");
    QVERIFY(!isSaveEnabled());
    QVERIFY(!window->isWindowModified());

    person->change(receiptWidth, "48");
    person->press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(!isSaveEnabled());
    person->change(receiptWidth, "32"); // as it was before the save
    QVERIFY(isSaveEnabled());
    QVERIFY(window->isWindowModified());
    person->willPress(QMessageBox::Discard);
    person->press(Qt::Key_F5);
    QCOMPARE(person->readBoxes().size(), 1);
    QVERIFY(!isSaveEnabled());

    person->change(receiptWidth, "64");
    person->willType(folder->filePath("other.conf"));
    person->press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(!isSaveEnabled());
}

void TestSettingsWindow::saveIsForAFileThatIsGone()
{
    openSettings(smallFile);
    QVERIFY(QFile::remove(folder->filePath("zelmora.conf")));
    QVERIFY(isSaveEnabled());
    QVERIFY(!window->isWindowModified());
    write("zelmora.conf", smallFile);
    QVERIFY(!isSaveEnabled());
}

void TestSettingsWindow::saveIsForTheTextOfAnOpenCell()
{
    openSettings(smallFile);
    person->goTo(receiptWidth);
    person->press(Qt::Key_F2);
    QVERIFY(!isSaveEnabled());
    person->type("48");
    QVERIFY(isSaveEnabled());
    person->press(Qt::Key_Escape);
    QVERIFY(!isSaveEnabled());
}

void TestSettingsWindow::saveIsForWhatCouldNotBeSaved()
{
    openSettings(smallFile);
    person->change(receiptWidth, "48");
    person->willPress(QMessageBox::Ok);
    {
        const FileSizeLimit limit(0);
        person->press(Qt::Key_S, Qt::ControlModifier);
    }
    QCOMPARE(person->readBoxes().size(), 1);
    person->change(receiptWidth, "32"); // as it was, but who knows what the file holds
    QVERIFY(isSaveEnabled());
    QVERIFY(window->isWindowModified());
    person->press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(!isSaveEnabled());
    QCOMPARE(savedBytes(), smallFile);
    person->change(receiptWidth, "48");
    person->change(receiptWidth, "32");
    QVERIFY(!isSaveEnabled());
    QVERIFY(!window->isWindowModified());
}

void TestSettingsWindow::aCopyThatCouldNotBeSavedIsNoChange()
{
    const auto someone = becomeOrdinaryUser();
    openSettings(smallFile);
    QVERIFY(QDir(folder->path()).mkdir("closed"));
    setPermissions(folder->filePath("closed"), 0555);
    person->willType(folder->filePath("closed/copy.conf"));
    person->willPress(QMessageBox::Ok);
    person->press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(person->readBoxes().size(), 1);
    QVERIFY(!isSaveEnabled());
    QVERIFY(!window->isWindowModified());
}

void TestSettingsWindow::unchangedValuesAreNotWritten()
{
    const QByteArray bytes = "zelmora:{bin:{path=1;};};"; // not as the writer writes it
    openSettings(bytes);
    person->press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(savedBytes(), bytes);
    person->change({"zelmora", "bin", "path"}, "1");
    person->press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(savedBytes(), bytes);
    QCOMPARE(person->status(), QString());
}

void TestSettingsWindow::saves()
{
    openSettings("zelmora:{bin:{path=it;};receiptdoc:{paperWidth=32;printDate=true;};solddoc:{paperWidth=40;};};");
    person->change(receiptWidth, "48");
    person->press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(savedBytes(), smallFileWithReceiptWidth("48"));
    QCOMPARE(person->status(), QString("Saved."));
    QVERIFY(!window->isWindowModified());
    QCOMPARE(person->value(receiptWidth), QString("48"));
}

void TestSettingsWindow::savesTheTextOfAnOpenCell()
{
    openSettings(smallFile);
    person->goTo(receiptWidth);
    person->press(Qt::Key_F2);
    person->type("48");
    person->press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(savedBytes(), smallFileWithReceiptWidth("48"));
    QVERIFY(!window->isWindowModified());
}

void TestSettingsWindow::savesXmlAndBack()
{
    openSettings(smallFile);
    person->change(receiptWidth, "48");
    const QString xml = folder->filePath("zelmora.xml");
    person->willType(xml);
    person->press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(fileContents(xml),
             QByteArray("\n<zelmora>\n"
                        "\n    <bin\n        path = \"it\">\n    </bin>\n"
                        "\n    <receiptdoc\n"
                        "        paperWidth = \"48\"\n        printDate = \"true\">\n"
                        "    </receiptdoc>\n"
                        "\n    <solddoc\n        paperWidth = \"40\">\n    </solddoc>\n"
                        "</zelmora>\n"));
    QCOMPARE(savedBytes(), smallFile);
    QCOMPARE(window->windowTitle(), xml + "[*] - Settings");
    QVERIFY(!window->isWindowModified());
    QCOMPARE(person->value(receiptWidth), QString("48"));

    const QString back = folder->filePath("back.conf");
    person->willType(back);
    person->press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(fileContents(back), smallFileWithReceiptWidth("48"));
    QCOMPARE(person->tree()->topLevelItem(0)->text(0), back);
}

void TestSettingsWindow::savingAsAnExistingFileAsks()
{
    openSettings(smallFile);
    person->change(receiptWidth, "48");
    const QString other = write("other.conf", "other");
    person->willType(other);
    person->willPress(QMessageBox::No);
    person->willType(QString()); // the dialog is still there
    person->press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(person->readBoxes().value(0).contains("other.conf already exists"));
    QCOMPARE(fileContents(other), QByteArray("other"));
    QVERIFY(window->isWindowModified());

    person->willType(other);
    person->willPress(QMessageBox::Yes);
    person->press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(person->readBoxes().size(), 1);
    QCOMPARE(fileContents(other), smallFileWithReceiptWidth("48"));
}

void TestSettingsWindow::savingAsIsCancelled()
{
    openSettings(smallFile);
    person->change(receiptWidth, "48");
    person->willType(QString());
    person->press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(window->isWindowModified());
    QCOMPARE(savedBytes(), smallFile);
    QCOMPARE(QDir(folder->path()).entryList(QDir::Files), QStringList("zelmora.conf"));
}

void TestSettingsWindow::keepsPermissionsAndLink()
{
    const QString target = write("target.conf", smallFile);
    const QByteArray nativeTarget = QFile::encodeName(target);
    QCOMPARE(chmod(nativeTarget.constData(), 0720), 0);
    const QString link = folder->filePath("link.conf");
    QVERIFY(QFile::link(target, link));
    open(link);
    person->change(receiptWidth, "48");
    person->press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(fileContents(target), smallFileWithReceiptWidth("48"));
    QCOMPARE(QFile::symLinkTarget(link), target);
    struct stat found { };
    QCOMPARE(stat(nativeTarget.constData(), &found), 0);
    QCOMPARE(found.st_mode & 0777, mode_t(0720));
    QVERIFY(!window->isWindowModified());
}

// --- Reloading and closing ---

void TestSettingsWindow::reloads()
{
    openSettings(smallFile);
    write("zelmora.conf", smallFileWithReceiptWidth("48"));
    person->press(Qt::Key_F5);
    QCOMPARE(person->value(receiptWidth), QString("48"));
    QVERIFY(person->tree()->hasFocus());
}

void TestSettingsWindow::reloadAsksWhenThereAreChanges()
{
    openSettings(smallFile);
    person->change(receiptWidth, "48");
    person->willPress(QMessageBox::Cancel);
    person->press(Qt::Key_F5);
    QCOMPARE(person->readBoxes(), QStringList("The settings have changed. Save the changes?"));
    QCOMPARE(person->value(receiptWidth), QString("48"));

    person->willPress(QMessageBox::Discard);
    person->press(Qt::Key_F5);
    QCOMPARE(person->readBoxes().size(), 1);
    QCOMPARE(person->value(receiptWidth), QString("32"));
    QVERIFY(!window->isWindowModified());
}

void TestSettingsWindow::closesAtOnceWithoutChanges()
{
    openSettings(smallFile);
    window->close();
    QVERIFY(!window->isVisible());
}

// What was saved can't be read: it stands in the window alone.
void TestSettingsWindow::doesNotCloseOverTheOnlyCopy()
{
    const QString path = write("zelmora.xml", "<zelmora a='1'/>");
    open(path);
    person->change({"zelmora", "a"}, "x<y");
    person->willPress(QMessageBox::Save);
    person->willPress(QMessageBox::Save); // though it would be no XML
    person->willPress(QMessageBox::Ok);
    QVERIFY(!window->close());
    QCOMPARE(person->readBoxes().value(2), "The file " + path + " cannot be read: it is not XML");
    QVERIFY(window->isVisible());
    QCOMPARE(person->value({"zelmora", "a"}), QString("x<y"));
}

void TestSettingsWindow::closeAsksWhenThereAreChanges_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("closes");
    QTest::addColumn<QByteArray>("width");
    QTest::newRow("save") << int(QMessageBox::Save) << true << QByteArray("48");
    QTest::newRow("discard") << int(QMessageBox::Discard) << true << QByteArray("32");
    QTest::newRow("cancel") << int(QMessageBox::Cancel) << false << QByteArray("32");
}

void TestSettingsWindow::closeAsksWhenThereAreChanges()
{
    QFETCH(int, answer);
    QFETCH(bool, closes);
    QFETCH(QByteArray, width);
    openSettings(smallFile);
    person->change(receiptWidth, "48");
    person->willPress(static_cast<QMessageBox::StandardButton>(answer));
    person->press(Qt::Key_Q, Qt::ControlModifier);
    QCOMPARE(person->readBoxes(), QStringList("The settings have changed. Save the changes?"));
    QCOMPARE(window->isVisible(), !closes);
    QCOMPARE(savedBytes(), smallFileWithReceiptWidth(width));
    QCOMPARE(person->value(receiptWidth), QString("48"));
}

void TestSettingsWindow::keysAnswerQuestions_data()
{
    QTest::addColumn<bool>("isChangedUnderneath"); // otherwise closed with changes
    QTest::addColumn<int>("key");
    QTest::addColumn<QByteArray>("width"); // of the person's 48, the file's 32 and the other program's 50
    QTest::newRow("Return saves before closing") << false << int(Qt::Key_Return) << QByteArray("48");
    QTest::newRow("Escape keeps the window open") << false << int(Qt::Key_Escape) << QByteArray("32");
    QTest::newRow("Return cancels what would be a loss") << true << int(Qt::Key_Return) << QByteArray("50");
    QTest::newRow("Escape does too") << true << int(Qt::Key_Escape) << QByteArray("50");
}

void TestSettingsWindow::keysAnswerQuestions()
{
    QFETCH(bool, isChangedUnderneath);
    QFETCH(int, key);
    QFETCH(QByteArray, width);
    openSettings(smallFile);
    person->change(receiptWidth, "48");
    if (isChangedUnderneath)
        write("zelmora.conf", smallFileWithReceiptWidth("50"));
    person->willPress(static_cast<Qt::Key>(key));
    person->press(isChangedUnderneath ? Qt::Key_S : Qt::Key_Q, Qt::ControlModifier);
    QCOMPARE(person->readBoxes().size(), 1);
    QCOMPARE(savedBytes(), smallFileWithReceiptWidth(width));
    QCOMPARE(window->isVisible(), width != "48");
}

void TestSettingsWindow::openingAsksWhenThereAreChanges()
{
    openSettings(smallFile);
    person->change(receiptWidth, "48");
    person->willPress(QMessageBox::Cancel);
    person->press(Qt::Key_O, Qt::ControlModifier);
    QCOMPARE(person->readBoxes().size(), 1);
    QCOMPARE(person->value(receiptWidth), QString("48"));

    person->willPress(QMessageBox::Save);
    person->willType(write("other.conf", "zelmora: { bin: { path = b; }; };"));
    person->press(Qt::Key_O, Qt::ControlModifier);
    QCOMPARE(person->readBoxes().size(), 1);
    QCOMPARE(savedBytes(), smallFileWithReceiptWidth("48"));
    QCOMPARE(person->value({"zelmora", "bin", "path"}), QString("b"));
}

void TestSettingsWindow::anOpenCellIsAChange()
{
    openSettings(smallFile);
    person->goTo(receiptWidth);
    person->press(Qt::Key_F2);
    person->type("48");
    person->willPress(QMessageBox::Cancel);
    window->close();
    QCOMPARE(person->readBoxes(), QStringList("The settings have changed. Save the changes?"));
    QVERIFY(window->isVisible());
    QCOMPARE(person->value(receiptWidth), QString("48"));
}

void TestSettingsWindow::remembersItsSize()
{
    const QSize size(517, 431);
    QVERIFY(window->size() != size);
    window->resize(size);
    window->close();
    QCOMPARE(SettingsWindow().size(), size);
}

// Fitting it afterwards would show.
void TestSettingsWindow::isNotLargerThanTheScreenFromTheBeginning()
{
    QSettings().clear();
    QVERIFY(SettingsWindow().height() < QGuiApplication::primaryScreen()->availableGeometry().height());
}

// --- When something fails ---

void TestSettingsWindow::cannotBeRead_data()
{
    QTest::addColumn<QString>("path"); // from the test's folder
    QTest::addColumn<QString>("reason");
    QTest::newRow("a missing file") << "missing.conf"
                                    << "No such file or directory";
    QTest::newRow("a folder") << "."
                              << "it is not a file";
    QTest::newRow("a device") << "/dev/zero"
                              << "it is not a file";
    QTest::newRow("a file that opens and cannot be read") << "/proc/self/mem"
                                                          << "Input/output error";
    QTest::newRow("XML that is damaged") << "damaged.xml"
                                         << "it is not XML";
}

void TestSettingsWindow::cannotBeRead()
{
    QFETCH(QString, path);
    QFETCH(QString, reason);
    openSettings(smallFile);
    write("damaged.xml", "<zelmora><a b='c'></zelmora>");
    const QString whole = QDir(folder->path()).filePath(path);
    person->willPress(QMessageBox::Ok);
    QVERIFY(!window->openFile(whole));
    QCOMPARE(person->readBoxes(), QStringList("The file " + whole + " cannot be read: " + reason));
    QCOMPARE(window->windowTitle(), folder->filePath("zelmora.conf") + "[*] - Settings");
    QCOMPARE(person->value(receiptWidth), QString("32"));
}

void TestSettingsWindow::cannotBeWritten_data()
{
    QTest::addColumn<bool>("aFolderInItsPlace"); // otherwise its own folder is gone
    QTest::newRow("a folder has taken its place") << true;
    QTest::newRow("its folder is gone") << false;
}

void TestSettingsWindow::cannotBeWritten()
{
    QFETCH(bool, aFolderInItsPlace);
    QVERIFY(QDir(folder->path()).mkdir("conf"));
    const QString path = write("conf/zelmora.conf", smallFile);
    open(path);
    person->change(receiptWidth, "48");
    QVERIFY(QFile::remove(path));
    QVERIFY(aFolderInItsPlace ? QDir(folder->path()).mkdir("conf/zelmora.conf") : QDir(folder->path()).rmdir("conf"));

    person->willPress(QMessageBox::Save); // it is gone: save all the same
    person->willPress(QMessageBox::Ok);
    person->press(Qt::Key_S, Qt::ControlModifier);
    const QString told = person->readBoxes().value(1);
    QVERIFY2(told.startsWith("The file " + path + " cannot be written: "), qPrintable(told));
    QVERIFY2(told.endsWith("\nYour changes are still in this window."), qPrintable(told));
    QCOMPARE(person->value(receiptWidth), QString("48"));
    QVERIFY(window->isWindowModified());

    const QString elsewhere = folder->filePath("elsewhere.conf");
    person->willType(elsewhere);
    person->press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(fileContents(elsewhere), smallFileWithReceiptWidth("48"));
    QVERIFY(!window->isWindowModified());
}

void TestSettingsWindow::readOnly()
{
    const auto someone = becomeOrdinaryUser();
    openSettings(smallFile);
    person->change(receiptWidth, "48");
    const QString path = folder->filePath("zelmora.conf");
    setPermissions(path, 0444);
    person->willPress(QMessageBox::Ok);
    person->press(Qt::Key_S, Qt::ControlModifier);

    const QStringList told = person->readBoxes();
    QCOMPARE(told.size(), 1);
    QVERIFY2(told[0].startsWith("The file " + path + " cannot be written: "), qPrintable(told[0]));
    QCOMPARE(savedBytes(), smallFile);
    QCOMPARE(person->value(receiptWidth), QString("48"));
    QVERIFY(window->isWindowModified());
}

void TestSettingsWindow::fullDisk()
{
    openSettings(smallFile);
    person->change(receiptWidth, "48");
    person->willPress(QMessageBox::Ok);
    {
        const FileSizeLimit limit(0);
        person->press(Qt::Key_S, Qt::ControlModifier);
    }

    QCOMPARE(person->readBoxes(),
             QStringList("The file " + folder->filePath("zelmora.conf")
                         + " cannot be written: File too large\n"
                           "Your changes are still in this window."));
    QCOMPARE(savedBytes(), smallFile);
    QCOMPARE(QDir(folder->path()).entryList(QDir::Files), QStringList("zelmora.conf"));
    QVERIFY(window->isWindowModified());
    person->press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(savedBytes(), smallFileWithReceiptWidth("48"));
}

static QString changedWarning(const QString& path)
{
    return "Another program has changed or removed the file " + path
        + " since it was opened. Saving drops what it changed.";
}

void TestSettingsWindow::changedUnderneath()
{
    openSettings(smallFile);
    person->change(receiptWidth, "48");
    const QString path = write("zelmora.conf", "zelmora: { theirs = 1; };");
    person->willPress(QMessageBox::Cancel);
    person->press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(person->readBoxes(), QStringList(changedWarning(path)));
    QCOMPARE(savedBytes(), QByteArray("zelmora: { theirs = 1; };"));
    QVERIFY(window->isWindowModified());

    person->willPress(QMessageBox::Save);
    person->press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(person->readBoxes().size(), 1);
    QCOMPARE(savedBytes(), smallFileWithReceiptWidth("48"));
    QCOMPARE(fileContents(path + '~'), QByteArray("zelmora: { theirs = 1; };"));
    QVERIFY(!window->isWindowModified());
}

void TestSettingsWindow::removedUnderneath()
{
    openSettings(smallFile);
    const QString path = folder->filePath("zelmora.conf");
    QVERIFY(QFile::remove(path));
    person->willPress(QMessageBox::Save);
    person->press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(person->readBoxes(), QStringList(changedWarning(path)));
    QCOMPARE(savedBytes(), smallFile);
}

void TestSettingsWindow::ownSavesAreNoChangeUnderneath()
{
    openSettings(smallFile);
    for (const QByteArray width : {"48", "50", "52"}) {
        person->change(receiptWidth, width);
        person->press(Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(savedBytes(), smallFileWithReceiptWidth(width));
    }
}

// --- What would be lost ---

void TestSettingsWindow::warnsOfWhatIsWrong_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("warning");

    const QString begin = "In this file:\n\u00B7 ";
    const QString second = "Only the first group at the top is read: nothing in \"g\" is found.";
    QTest::newRow("a second group at top level")
        << "a.conf" << QByteArray("zelmora: { doc: { style = 1; }; };\ng: { b = 2; };") << begin + second;
    QTest::newRow("a setting outside every group")
        << "a.conf" << QByteArray("lang = it; zelmora: { doc: { style = 1; }; };")
        << begin + "The setting \"lang\" stands outside every group, where it is never found.";
    QTest::newRow("a comment before an XML file's first group")
        << "a.xml" << QByteArray("<!-- paper -->\n<zelmora a='1'/>")
        << begin
            + "line 1: Nothing may stand before the first group of an XML file, no declaration and no comment: no "
              "program finds a setting in this file.";
    QTest::newRow("fifteen of them") << "a.conf"
                                     << QByteArray("zelmora: { doc: { style = 1; }; };")
            + QByteArray("g: { b = 2; };").repeated(15)
                                     << begin + QStringList(QVector<QString>(15, second).toList()).join("\n\u00B7 ");
}

void TestSettingsWindow::warnsOfWhatIsWrong()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, warning);
    open(write(qPrintable(name), bytes));
    const QString first = warning.section("\u00B7 ", 1, 1).trimmed();
    QVERIFY(person->reads(first)); // at once, in a bar
    QVERIFY(!person->reads("has no settings yet"));
    showWhatIsWrong();
    QCOMPARE(person->readBoxes(), QStringList(warning));
    QVERIFY(!window->isWindowModified());
}

/// By the bar's button.
void TestSettingsWindow::showWhatIsWrong()
{
    QAbstractButton* const button = person->button("Sho&w...");
    QVERIFY(button);
    person->willPress(QMessageBox::Ok);
    person->focus(button);
    person->press(Qt::Key_Space);
}

// A slip of the text alone has no setting to stand at; once it is saved, it is gone.
void TestSettingsWindow::aSlipOfTheTextIsSaidUntilItIsSaved()
{
    openSettings("zelmora: { doc: { style = 1; } stray text; receiptdoc: { papperWidth = 40; }; };");
    showWhatIsWrong();
    const QStringList told = person->readBoxes();
    QCOMPARE(told.size(), 1);
    QVERIFY2(told[0].startsWith("In this file:\n\u00B7 line 1: "), qPrintable(told[0]));
    QVERIFY2(told[0].contains("stray text"), qPrintable(told[0]));
    QVERIFY(!told[0].contains("papperWidth")); // stands at its group
    person->change({"zelmora", "doc", "style"}, "2");
    QVERIFY(person->button("Sho&w..."));
    person->willPress(QMessageBox::Save); // the stray text goes
    person->press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(person->readBoxes().size(), 1);
    QVERIFY(!person->button("Sho&w..."));
}

void TestSettingsWindow::doesNotWarn_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("the examples' settings") << fileContents(ZELMORA_EXAMPLES "/home/.zelmora/conf/zelmora.conf");
    QTest::newRow("an empty file") << QByteArray();
    QTest::newRow("a paper wider than the register's") << QByteArray("zelmora: { doc: { paperWidth = 40; }; };");
    QTest::newRow("slips that are said at their group")
        << QByteArray("zelmora: { doc: {\n papperWidth = 40;\n# w = wide\n style = 1; }; };");
    QTest::newRow("values with signs of the format")
        << QByteArray("zelmora: { doc: { style = \"12:30 = {x}\"; }; db: { dbname = \"c\nd\"; }; };");
}

void TestSettingsWindow::doesNotWarn()
{
    QFETCH(QByteArray, bytes);
    const QString path = write("zelmora.conf", bytes);
    setPermissions(path, 0600); // the examples hold a password, and a relative path to the catalogue
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(QFileInfo(ZELMORA_CATALOGUE).path() + "/.."));
    open(path);
    QVERIFY(QDir::setCurrent(before));
    QCOMPARE(person->readBoxes(), QStringList());
    QVERIFY(!person->button("Sho&w..."));
    QCOMPARE(window->windowTitle(), folder->filePath("zelmora.conf") + "[*] - Settings");
}

// The second top-level group begins in line 21 of the file.
void TestSettingsWindow::whatSavingDropsIsAskedAndKept()
{
    const QByteArray bytes = smallFile + "other: { b = 2; };";
    const QString path = folder->filePath("zelmora.conf");
    const QString backup = path + '~';
    openSettings(bytes);
    setPermissions(path, 0640);
    QCOMPARE(person->value({"other", "b"}), QString("2"));
    person->change(receiptWidth, "48");

    person->willPress(QMessageBox::Cancel);
    person->press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(person->readBoxes(), QStringList("Saving will drop from the file:\n\u00B7 line 21: other"));
    QCOMPARE(savedBytes(), bytes);
    QVERIFY(!QFile::exists(backup));
    QVERIFY(window->isWindowModified());

    person->willPress(QMessageBox::Save);
    person->press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(person->readBoxes().size(), 1);
    QCOMPARE(savedBytes(), smallFileWithReceiptWidth("48"));
    QVERIFY(!person->item({"other"}));
    QCOMPARE(fileContents(backup), bytes);
    QCOMPARE(permissionsOf(backup), mode_t(0640));

    person->change(receiptWidth, "50"); // nothing is left to be dropped
    person->press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(savedBytes(), smallFileWithReceiptWidth("50"));
    QCOMPARE(fileContents(backup), bytes);
}

void TestSettingsWindow::aCopyDropsTheSame()
{
    const QByteArray bytes = smallFile + "other: { b = 2; };";
    openSettings(bytes);
    const QString copy = folder->filePath("copy.conf");
    person->willType(copy);
    person->willPress(QMessageBox::Cancel);
    person->press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(person->readBoxes(), QStringList("Saving will drop from the file:\n\u00B7 line 21: other"));
    QVERIFY(!QFile::exists(copy));

    person->willType(copy);
    person->willPress(QMessageBox::Save);
    person->press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(person->readBoxes().size(), 1);
    QCOMPARE(fileContents(copy), smallFile);
    QCOMPARE(savedBytes(), bytes);
    QCOMPARE(filesIn(folder->path()), (QStringList {"copy.conf", "zelmora.conf"})); // there was nothing to keep
}

// One forgotten semicolon after the brace of a group: what stands behind it would be gone.
void TestSettingsWindow::aMissingSemicolonCostsNothingUnseen()
{
    QByteArray bytes = fileContents(ZELMORA_EXAMPLES "/home/.zelmora/conf/zelmora.conf");
    const int end = bytes.indexOf("};");
    bytes.remove(end + 1, 1);
    openSettings(bytes);

    person->change({"zelmora", "language", "file"}, "other.qm");
    person->willPress(Qt::Key_Return); // what the box would do by itself
    person->press(Qt::Key_S, Qt::ControlModifier);
    const QString asked = person->readBoxes().value(0);
    QVERIFY2(asked.startsWith("Saving will drop from the file:\n"
                              "\u00B7 lines 9 to 11: logger: { level = \"INFO\"\n"
                              "\u00B7 line 17: db\n"
                              "\u00B7 line 25: bin\n"),
             qPrintable(asked));
    QVERIFY2(asked.endsWith("\u00B7 line 233: solddoc"), qPrintable(asked)); // the last of them
    QCOMPARE(savedBytes(), bytes);
}

void TestSettingsWindow::whatCannotBeKeptIsAskedAgain()
{
    const QByteArray bytes = smallFile + "other: { b = 2; };";
    const auto someone = becomeOrdinaryUser();
    const QString place = folder->filePath("closed");
    QVERIFY(QDir().mkdir(place));
    const QString path = write("closed/zelmora.conf", bytes);
    open(path);
    person->change(receiptWidth, "48");
    setPermissions(place, 0555); // there may be no new file in it
    const QString question = "The file as it is now cannot be kept as " + path + "~: ";
    for (const auto answer : {QMessageBox::Cancel, QMessageBox::Save}) {
        person->willPress(QMessageBox::Save);
        person->willPress(answer);
        person->press(Qt::Key_S, Qt::ControlModifier);
        const QStringList told = person->readBoxes();
        QCOMPARE(told.size(), 2);
        QVERIFY2(told[1].startsWith(question), qPrintable(told[1]));
        QCOMPARE(fileContents(path), answer == QMessageBox::Save ? smallFileWithReceiptWidth("48") : bytes);
    }
    setPermissions(place, 0700);
}

void TestSettingsWindow::otherTextsAreForReadingOnly_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("a program") << "main.c"
                               << QByteArray("int main(void)\n{\n    int a = 1;\n    return a == 2 ? 3 : 4;\n}\n");
    QTest::newRow("a letter") << "letter.txt" << QByteArray("Dear guest: a table for two = 40 euros;\nregards");
    QTest::newRow("a first group of another name") << "till.conf" << QByteArray("till: { a = 1; };\n");
    QTest::newRow("XML of another kind") << "page.xml" << QByteArray("<html lang='it'><body class='a'/></html>");
}

void TestSettingsWindow::otherTextsAreForReadingOnly()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    const QString path = write(qPrintable(name), bytes);
    person->willPress(QMessageBox::Ok);
    open(path);
    QCOMPARE(person->readBoxes(),
             QStringList("The file " + path
                         + " does not look like the settings of the suite: none of its outermost groups is named "
                           "zelmora. It is open for reading only, since saving would leave little of it."));
    QCOMPARE(window->windowTitle(), path + " (read only)[*] - Settings");
    QVERIFY(!isSaveEnabled());
    QVERIFY(!fileAction("Save &as...")->isEnabled());
    for (QTreeWidgetItemIterator value(person->tree(), QTreeWidgetItemIterator::Editable); *value; ++value) {
        person->tree()->setCurrentItem(*value);
        person->press(Qt::Key_F2);
        QVERIFY(!person->tree()->isPersistentEditorOpen(*value));
        QVERIFY(!person->tree()->findChild<QLineEdit*>());
    }
    person->press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(fileContents(path), bytes);

    openSettings(smallFile); // the next one can be edited again
    person->change(receiptWidth, "48");
    QVERIFY(isSaveEnabled());
    QVERIFY(fileAction("Save &as...")->isEnabled());
}

void TestSettingsWindow::aSlipInTheGroupsNameIsForEditing()
{
    open(write("zelmora.conf", "zelmore: { a = 1; };"));
    person->change({"zelmore", "a"}, "2");
    QVERIFY(isSaveEnabled());
}

void TestSettingsWindow::warnsBeforeXmlThatDoesNotReadBack_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("culprit");
    QTest::newRow("a value with a less-than sign")
        << QByteArray("zelmora: { a = \"x<y\"; b = 1; };") << "zelmora.a = x<y";
    QTest::newRow("a value with an ampersand")
        << QByteArray("zelmora: { a = \"x & y\"; b = 1; };") << "zelmora.a = x & y";
    QTest::newRow("a setting's name that begins with a digit")
        << QByteArray("zelmora: { 1st = x; b = 1; };") << "zelmora.1st = x";
    QTest::newRow("a group's name that begins with a digit")
        << QByteArray("zelmora: { b = 1; 2nd: { a = x; }; };") << "2nd";
    QTest::newRow("a setting outside every group") << QByteArray("lang = it; zelmora: { b = 1; };") << "lang = it";
}

void TestSettingsWindow::warnsBeforeXmlThatDoesNotReadBack()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, culprit);
    open(write("zelmora.conf", bytes));
    const QString xml = folder->filePath("zelmora.xml");
    person->willType(xml);
    person->willPress(QMessageBox::Cancel);
    person->press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(person->readBoxes(),
             QStringList("The file would not be XML, and nothing would be read back, because of:\n\u00B7 " + culprit));
    QVERIFY(!QFile::exists(xml));

    person->willType(xml);
    person->willPress(QMessageBox::Save);
    person->willPress(QMessageBox::Ok); // it cannot be read
    person->press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(person->readBoxes().value(1), "The file " + xml + " cannot be read: it is not XML");
    QVERIFY(QFile::exists(xml));
    // What the window shows stands in no file that can be read.
    QVERIFY(window->isWindowModified());
    person->willPress(QMessageBox::Cancel);
    QVERIFY(!window->close());
    QCOMPARE(person->readBoxes().size(), 1);
}

// Beyond the depth that a parser could bear.
void TestSettingsWindow::namesThatLookLikeXml()
{
    openSettings("zelmora: { b" + QByteArray("><b").repeated(200000) + ": { a = 1; }; };");
    person->willType(folder->filePath("zelmora.xml"));
    person->willPress(QMessageBox::Cancel);
    person->press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(person->readBoxes().value(0).startsWith("The file would not be XML, and nothing would be read back,"));
}

void TestSettingsWindow::emptyingAFileIsAsked()
{
    const QByteArray bytes = "<?xml version='1.0'?><zelmora a='1'/>";
    const QString path = write("zelmora.xml", bytes);
    open(path);

    const auto saveUnderTheSameName = [&](QMessageBox::StandardButton answer) {
        person->willType(path);
        person->willPress(QMessageBox::Yes); // it exists
        person->willPress(answer);
        person->press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
        return person->readBoxes().value(1);
    };
    QCOMPARE(saveUnderTheSameName(QMessageBox::Cancel),
             "Nothing of the file " + path
                 + " could be read. Saving empties it.\n\u00B7 line 1: <?xml version='1.0'?>\n\u00B7 line 1: zelmora");
    QCOMPARE(fileContents(path), bytes);
    saveUnderTheSameName(QMessageBox::Save);
    QCOMPARE(fileContents(path), QByteArray());
    QCOMPARE(fileContents(path + '~'), bytes);
}

void TestSettingsWindow::warnsBeforeAValueThatChanges()
{
    open(write("zelmora.xml", "<zelmora b='1' a='x;y'/>"));
    const QString brace = folder->filePath("zelmora.conf");
    person->willType(brace);
    person->willPress(QMessageBox::Cancel);
    person->press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(person->readBoxes(),
             QStringList("These settings would read back otherwise, or not at all:\n\u00B7 zelmora.a = x;y"));
    QVERIFY(!QFile::exists(brace));
}

void TestSettingsWindow::textsOfTheFileAreShownAsTheyAre()
{
    openSettings("zelmora: <b>bold</b> { doc: { style = 1; }; };");
    QVERIFY(person->reads("<b>bold</b>"));
    showWhatIsWrong();
    QVERIFY(person->readBoxes().value(0).endsWith("<b>bold</b>"));
}

void TestSettingsWindow::veryLongTextsAreShortened()
{
    openSettings("zelmora: { doc: { style = 1; }; }; } ; " + QByteArray(100000, 'x'));
    showWhatIsWrong();
    QVERIFY(person->readBoxes().value(0).endsWith(": " + QString(60, 'x') + "..."));
    person->change({"zelmora", "doc", "style"}, "2");
    person->willPress(QMessageBox::Cancel);
    person->press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(person->readBoxes().value(0).endsWith("\n\u00B7 line 1: " + QString(92, 'x') + "..."));
}

// --- All of it ---

void TestSettingsWindow::manySettings()
{
    const int count = 100000;
    QByteArray text = "zelmora: \n{\n";
    for (int i = 0; i < count; ++i)
        text += "    s" + QByteArray::number(i) + " = \"v\";\n";
    text += "};\n\n";
    QElapsedTimer clock;
    clock.start();
    open(write("zelmora.conf", text)); // no program reads them
    person->press(Qt::Key_F, Qt::ControlModifier);
    person->type("s99999");
    person->press(Qt::Key_Return);
    QCOMPARE(person->currentLabels(), Labels({"zelmora", "s99999"}));
    person->press(Qt::Key_F2);
    person->type("w");
    person->press(Qt::Key_Return);
    person->press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(savedBytes() == text.replace("s99999 = \"v\"", "s99999 = \"w\""));
    // Seconds; more would be a loop inside a loop.
    QVERIFY2(clock.elapsed() < 120000, qPrintable(QString::number(clock.elapsed())));
}

void TestSettingsWindow::speaksItalian()
{
    QTranslator italian;
    QVERIFY(italian.load(ZELMORA_CATALOGUE));
    QApplication::installTranslator(&italian);
    SettingsWindow other;
    QCOMPARE(other.windowTitle(), QString("nessun file[*] - Impostazioni"));
    QStringList titles;
    for (const QAction* menu : other.menuBar()->actions())
        titles += menu->text();
    QApplication::removeTranslator(&italian);
    QCOMPARE(titles, QStringList({"&File", "&Modifica", "&Visualizza", "&Carta", "&Aiuto"}));
}

QTEST_MAIN(TestSettingsWindow)
#include "tst_settingswindow.moc"
