#include "app/compile.h"

#include "config/translation.h"
#include "config/zmconfiguration.h"
#include "driver/companyprinterdriver.h"
#include "toolkit/console.h"
#include "toolkit/literals.h"
#include "toolkit/localecodec.h"
#include "toolkit/xmlreader.h"

#include <QCoreApplication>
#include <QFile>
#include <QTextCodec>
#include <QTranslator>

#include <algorithm>
#include <initializer_list>

using toolkit::operator""_L1;

namespace {

/// Standard error stays empty whatever the input: the toolkit's own remarks, on a file that cannot be opened for
/// one, go nowhere.
void dropToolkitMessage(QtMsgType, const QMessageLogContext&, const QString&)
{
}

/// File names are bytes to the system and text to the toolkit. They are taken as the locale's encoding, or, where
/// that cannot express one of @p names, as ISO-8859-1, in which every byte is a character. (A catalogue whose path has
/// accents in UTF-8 is not found then: better than a job that is not.)
void setFileNameCodec(std::initializer_list<QByteArray> names)
{
    const auto survives = [](const QByteArray& name) { return QFile::encodeName(QFile::decodeName(name)) == name; };
    QTextCodec::setCodecForLocale(toolkit::localeCodec());
    if (!std::all_of(names.begin(), names.end(), survives))
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
}

/// The path that an argument names. A name that begins with ":" would be one of the toolkit's resources.
QString filePath(const char* argument)
{
    const QString path = QFile::decodeName(argument);
    return path.startsWith(QLatin1Char(':')) ? "./"_L1 + path : path;
}

} // namespace

void compile(int argc, char** argv)
{
    if (argc != 3 && argc != 4) {
        toolkit::writeLine(QByteArray("Usage: ") + (argc > 0 ? argv[0] : "") + " input_file output_file");
        return;
    }
    qInstallMessageHandler(dropToolkitMessage);
    qunsetenv("QT_FATAL_WARNINGS");
    qunsetenv("QT_FATAL_CRITICALS");

    // The toolkit sees the program's name alone: no argument of ours is ever an option of its own.
    int applicationArguments = 1;
    QCoreApplication application(applicationArguments, argv);
    // After the application has loaded the locale: then it costs nothing.
    setFileNameCodec({argv[1], argv[2], qgetenv("HOME")});

    const ZMConfiguration* const settings = SyncSingleton<ZMConfiguration>::instance();
    QTranslator translator;
    loadTranslation(translator, *settings);
    QCoreApplication::installTranslator(&translator);

    CompanyPrinterDriver driver(filePath(argv[2]));
    QFile job(filePath(argv[1]));
    toolkit::readXml(job, driver);
}
