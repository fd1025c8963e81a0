#include "log/logger.h"

#include "config/zmconfiguration.h"
#include "toolkit/console.h"
#include "toolkit/filenames.h"
#include "toolkit/literals.h"
#include "toolkit/localecodec.h"
#include "toolkit/textencoder.h"
#include "toolkit/writesignals.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

using toolkit::operator""_L1;
using toolkit::TextEncoder;

namespace {

/// Of the levels, in their order.
constexpr QLatin1String levelWords[] = {"DEBUG"_L1, "INFO"_L1, "WARNING"_L1, "ERROR"_L1, "FATAL"_L1};

/// Of a level that is not below the threshold, and so not below DEBUG.
QLatin1String wordOf(Logger::Level level)
{
    return level <= Logger::FATAL ? levelWords[level] : ""_L1;
}

QString lineOf(Logger::Level level, const QString& text)
{
    const QString now = QDateTime::currentDateTime().toString(QStringLiteral("MM-dd-yyyy hh:mm:ss:zzz"));
    return "["_L1 + now + "] "_L1 + wordOf(level) + ": "_L1 + text + "\n"_L1;
}

/// A pipe and a device have none; the toolkit would look for it there, and say so on standard error.
bool hasEnd(const QString& path)
{
    const QFileInfo file(path);
    return file.isFile() || !file.exists();
}

/// Not open when @p word names no type.
QIODevice::OpenMode openMode(const QString& word, const QString& path)
{
    const QString type = word.toUpper();
    // To append is to write at the end that the file has at each write, whoever else writes or empties it.
    const QIODevice::OpenMode writing = hasEnd(path) ? QIODevice::WriteOnly | QIODevice::Append : QIODevice::WriteOnly;
    if (type == "APPEND"_L1)
        return writing;
    if (type == "OVERWRITE"_L1)
        return writing | QIODevice::Truncate;
    return QIODevice::NotOpen;
}

} // namespace

void Logger::prepare()
{
    // The toolkit's calendars, without which a time is empty, and its codecs, which all go at once.
    TextEncoder(TextEncoder::Encoding::Utf8).encoded(lineOf(DEBUG, QString()));
    SyncSingleton<ZMConfiguration>::registerDestruction();
}

Logger::Logger(const QString&)
{
    prepare();
    const ZMConfiguration* const settings = SyncSingleton<ZMConfiguration>::instance();
    setLevel(settings->getStrValue(QStringLiteral("zelmora.logger.level")));
    fileName = settings->getStrValue(QStringLiteral("zelmora.logger.basedir")) + "/"_L1
        + settings->getStrValue(QStringLiteral("zelmora.logger.filename"));
    file = std::make_unique<QFile>();
    encoder = std::make_unique<TextEncoder>(TextEncoder::Encoding::Utf8);
    setType(settings->getStrValue(QStringLiteral("zelmora.logger.type")));
    write(DEBUG, QStringLiteral("Start Logger"));
}

Logger::~Logger()
{
    file->close();
}

void Logger::setLevel(const QString& word)
{
    const QString upper = word.toUpper();
    level = DEBUG;
    for (const Level known : {DEBUG, INFO, WARNING, ERROR, FATAL}) {
        if (upper == levelWords[known])
            level = known;
    }
}

void Logger::setType(const QString& word)
{
    const QIODevice::OpenMode mode = openMode(word, fileName);
    if (mode == QIODevice::NotOpen)
        return;
    // Without the toolkit's buffer, which would keep what a full disk refused, and grow.
    if (file->isOpen() || !toolkit::openFile(*file, fileName, mode | QIODevice::Unbuffered).isEmpty())
        toolkit::writeLine(toolkit::localeText("Error in the method Logger::setType("_L1 + word + ")"_L1));
}

void Logger::write(Level level, const QString& text)
{
    if (level < this->level || !file->isOpen())
        return;
    const toolkit::WriteSignalsBlocked writeSignalsBlocked;
    const QByteArray line = (withinLine ? "\n" : "") + encoder->encoded(lineOf(level, text));
    const qint64 taken = file->write(line);
    if (taken > 0)
        withinLine = line.at(static_cast<int>(taken) - 1) != '\n';
}

void Logger::debug(const QString& text)
{
    write(DEBUG, text);
}

void Logger::info(const QString& text)
{
    write(INFO, text);
}

void Logger::warning(const QString& text)
{
    write(WARNING, text);
}

void Logger::error(const QString& text)
{
    write(ERROR, text);
}

void Logger::fatal(const QString& text)
{
    write(FATAL, text);
}
