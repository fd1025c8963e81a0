#include "editor/paperoutput.h"

#include "editor/message.h"
#include "editor/placement.h"
#include "paper/painting/painting.h"
#include "toolkit/filereplacement.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QPrintDialog>
#include <QPrinter>

namespace paperoutput {

namespace {

const int pngScale = 2; ///< so that it can be printed

/// A pointer that says so, while it lives.
class Waiting {
public:
    Waiting() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~Waiting() { QApplication::restoreOverrideCursor(); }

    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;
};

void say(QWidget& window, const QString& text)
{
    Message(&window, QStyle::SP_MessageBoxCritical, text).ask();
}

/// Empty when none is chosen.
QString chosenPath(QWidget& window, const QString& title, const QString& suffix, QString& folder)
{
    QFileDialog dialog(&window, QObject::tr("Save the paper"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(suffix);
    dialog.setDirectory(folder);
    dialog.selectFile(title + QLatin1Char('.') + suffix);
    settleOnScreen(dialog);
    if (dialog.exec() != QDialog::Accepted)
        return QString();
    const QString path = dialog.selectedFiles().value(0);
    folder = QFileInfo(path).path();
    return path;
}

void save(QWidget& window, const QString& path, const QByteArray& bytes)
{
    const QString reason = toolkit::replaceFile(path, bytes);
    if (!reason.isNull())
        say(window, QObject::tr("The file %1 cannot be written: %2").arg(path, reason));
}

} // namespace

void savePdf(QWidget& window, const paper::Sheet& sheet, const QString& title, QString& folder)
{
    const QString path = chosenPath(window, title, QStringLiteral("pdf"), folder);
    if (path.isEmpty())
        return;
    const Waiting waiting;
    save(window, path, paper::pdfDrawing(sheet));
}

void savePng(QWidget& window, const paper::Sheet& sheet, const QString& title, QString& folder)
{
    const QString path = chosenPath(window, title, QStringLiteral("png"), folder);
    if (path.isEmpty())
        return;
    const Waiting waiting;
    QString reason;
    const QByteArray png = paper::pngDrawing(sheet, pngScale, reason);
    if (png.isNull())
        say(window, reason);
    else
        save(window, path, png);
}

void print(QWidget& window, const paper::Sheet& sheet, const QString& title)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(title);
    QPrintDialog dialog(&printer, &window);
    settleOnScreen(dialog);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const Waiting waiting;
    paper::paintPages(printer, sheet);
    if (printer.printerState() == QPrinter::Error)
        say(window, QObject::tr("The paper cannot be printed."));
}

} // namespace paperoutput
