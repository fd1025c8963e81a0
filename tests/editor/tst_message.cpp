#include "editor/message.h"

#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextEdit>
#include <QTextLayout>
#include <QtTest>

/// The box with a message, as it is shown on a screen of 800 by 600 dots.
class TestMessage : public QObject {
    Q_OBJECT

private slots:
    void showsTheTextAndTheButtons_data();
    void showsTheTextAndTheButtons();
};

void TestMessage::showsTheTextAndTheButtons_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("scrolls");
    QTest::newRow("a word") << "No." << false;
    QTest::newRow("a sentence") << "The settings have changed. Save the changes?" << false;
    QTest::newRow("what looks like markup") << "<b>bold</b> &amp; <br>" << false;
    QTest::newRow("many sentences") << QString("The settings have changed. ").repeated(30) << false;
    QTest::newRow("a path without a blank") << '/' + QString(700, 'x') << false;
    QTest::newRow("twenty-two lines") << QString("a line\n").repeated(22) << false;
    QTest::newRow("a hundred lines") << QString("a line\n").repeated(100) << true;
    QTest::newRow("a very long line") << QString("The settings have changed. ").repeated(3000) << true;
}

void TestMessage::showsTheTextAndTheButtons()
{
    QFETCH(QString, text);
    QFETCH(bool, scrolls);
    QWidget window;
    window.show();
    Message message(&window, QStyle::SP_MessageBoxWarning, text);
    message.show();
    QVERIFY(QTest::qWaitForWindowActive(&message));
    const auto* const shown = message.findChild<QTextEdit*>();
    QCOMPARE(shown->toPlainText(), text);
    QCOMPARE(shown->horizontalScrollBar()->maximum(), 0);
    QCOMPARE(shown->verticalScrollBar()->maximum() > 0, scrolls);
    QTRY_VERIFY(message.screen()->availableGeometry().contains(message.frameGeometry()));
    const auto* const button = message.findChild<QPushButton*>();
    QVERIFY(message.rect().contains(QRect(button->mapTo(&message, QPoint(0, 0)), button->size())));
    QCOMPARE(message.focusWidget(), button);
    QCOMPARE(message.accessibleName(), text); // it is read aloud when it comes
    QVERIFY(!shown->accessibleName().isEmpty());

    for (QTextBlock line = shown->document()->begin(); text.contains('\n') && line.isValid(); line = line.next())
        QCOMPARE(line.layout()->lineCount(), 1); // the scroll bar takes no room from the text

    // Not narrower than the text reads well: a column of words is none.
    const int oneLine = shown->fontMetrics().horizontalAdvance(text.section('\n', 0, 0));
    QVERIFY2(shown->width() >= qMin(oneLine, 400), qPrintable(QString::number(shown->width())));
}

QTEST_MAIN(TestMessage)
#include "tst_message.moc"
