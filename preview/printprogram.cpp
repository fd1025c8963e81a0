#include "preview/printprogram.h"

#include "toolkit/literals.h"

#include <QCoreApplication>
#include <QStandardPaths>

using toolkit::operator""_L1;

namespace preview {

QString findPrintProgram()
{
    const QString name = QStringLiteral("zelmora-print");
    const QString own = QCoreApplication::applicationDirPath();
    const QString beside = QStandardPaths::findExecutable(name, {own, own + "/../bin"_L1});
    return beside.isEmpty() ? QStandardPaths::findExecutable(name) : beside;
}

} // namespace preview
