#include "app/compile.h"

#include "config/translation.h"
#include "config/zmconfiguration.h"
#include "driver/companyprinterdriver.h"
#include "toolkit/console.h"
#include "toolkit/filenames.h"
#include "toolkit/xmlreader.h"

#include <QCoreApplication>
#include <QFile>
#include <QTranslator>

void compile(int argc, char** argv)
{
    if (argc != 3 && argc != 4) {
        toolkit::writeLine(QByteArray("Usage: ") + (argc > 0 ? argv[0] : "") + " input_file output_file");
        return;
    }
    // The toolkit sees the program's name alone: no argument of ours is ever an option of its own.
    int applicationArguments = 1;
    QCoreApplication application(applicationArguments, argv);
    // After the application has loaded the locale: then it costs nothing.
    toolkit::setFileNameEncoding({argv[1], argv[2], qgetenv("HOME")});

    const ZMConfiguration* const settings = SyncSingleton<ZMConfiguration>::instance();
    QTranslator translator;
    loadTranslation(translator, *settings);
    QCoreApplication::installTranslator(&translator);

    CompanyPrinterDriver driver(toolkit::filePath(argv[2]));
    QFile job;
    toolkit::openAnyFile(job, toolkit::filePath(argv[1]), QIODevice::ReadOnly);
    toolkit::readXml(job, driver);
}
