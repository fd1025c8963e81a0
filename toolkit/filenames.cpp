#include "toolkit/filenames.h"

#include "toolkit/literals.h"
#include "toolkit/localecodec.h"

#include <QDir>
#include <QFile>
#include <QObject>
#include <QTextCodec>

#include <algorithm>
#include <fcntl.h>
#include <unistd.h>

namespace toolkit {

#if QT_VERSION_MAJOR < 6

void setFileNameEncoding(const QByteArrayList& names)
{
    const auto survives = [](const QByteArray& name) { return QFile::encodeName(QFile::decodeName(name)) == name; };
    QTextCodec::setCodecForLocale(localeCodec());
    if (!std::all_of(names.begin(), names.end(), survives))
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
}

QString fileText(const QByteArray& name)
{
    return QFile::decodeName(name);
}

QByteArray fileName(const QString& text)
{
    return QFile::encodeName(text);
}

QString unusableName(const QString&)
{
    return QString();
}

bool openAnyFile(QFile& file, const QString& path, QIODevice::OpenMode mode)
{
    file.setFileName(path);
    return file.open(mode);
}

#else

namespace {

const ushort keptByte = 0xdc00; ///< and the byte: half of a surrogate pair, which no UTF-8 stands for

bool isUtf8(const QByteArray& name, const QString& text)
{
    return text.toUtf8() == name && !text.contains(QChar::ReplacementCharacter);
}

/// The character that begins at @p place of @p name; null where none does.
QString characterAt(const QByteArray& name, int place)
{
    const int longest = 4;
    for (int size = 1; size <= longest; ++size) {
        const QByteArray bytes = name.mid(place, size);
        const QString text = QString::fromUtf8(bytes);
        if (bytes.size() == size && isUtf8(bytes, text))
            return text;
    }
    return QString();
}

bool isKeptByte(QChar unit)
{
    return unit.unicode() >= keptByte + 0x80 && unit.unicode() <= keptByte + 0xff;
}

QByteArray bytesOf(const QString& text)
{
    QByteArray name;
    for (int place = 0; place < text.size(); ++place) {
        const QChar unit = text.at(place);
        if (unit.isHighSurrogate())
            name += text.mid(place++, 2).toUtf8();
        else if (isKeptByte(unit))
            name += static_cast<char>(unit.unicode() - keptByte);
        else
            name += QString(unit).toUtf8();
    }
    return name;
}

int openBySystem(const QByteArray& name, QIODevice::OpenMode mode)
{
    const int beginning = mode & QIODevice::Append ? O_APPEND : O_TRUNC;
    const int flags = mode == QIODevice::ReadOnly ? O_RDONLY : O_WRONLY | O_CREAT | beginning;
    return static_cast<int>(TEMP_FAILURE_RETRY(open(name.constData(), flags | O_CLOEXEC, 0666)));
}

} // namespace

void setFileNameEncoding(const QByteArrayList&)
{
}

QString fileText(const QByteArray& name)
{
    const QString whole = QString::fromUtf8(name);
    if (isUtf8(name, whole))
        return whole;
    QString text;
    for (int place = 0; place < name.size();) {
        const QString character = characterAt(name, place);
        text += character.isNull() ? QChar(keptByte + static_cast<uchar>(name.at(place))) : character;
        place += character.isNull() ? 1 : static_cast<int>(character.toUtf8().size());
    }
    return text;
}

QByteArray fileName(const QString& text)
{
    const QByteArray name = bytesOf(text);
    return fileText(name) == text ? name : QByteArray();
}

QString unusableName(const QString& path)
{
    const bool isUsable = !path.contains(QChar::ReplacementCharacter) && QString::fromUtf8(path.toUtf8()) == path;
    return isUsable ? QString() : QObject::tr("its name is no UTF-8: give it another one");
}

bool openAnyFile(QFile& file, const QString& path, QIODevice::OpenMode mode)
{
    if (unusableName(path).isEmpty()) {
        file.setFileName(path);
        return file.open(mode);
    }
    const int opened = openBySystem(fileName(path), mode);
    return opened >= 0 && file.open(opened, mode, QFileDevice::AutoCloseHandle);
}

#endif

QString filePath(const QByteArray& name)
{
    const QString path = fileText(name);
    return path.startsWith(QLatin1Char(':')) ? "./"_L1 + path : path;
}

QString homePath()
{
    const QString home = fileText(qgetenv("HOME"));
    return home.isEmpty() ? QDir::rootPath() : QDir::cleanPath(home);
}

QString openFile(QFile& file, const QString& path, QIODevice::OpenMode mode)
{
    const QString reason = unusableName(path);
    if (!reason.isEmpty())
        return reason;
    file.setFileName(path);
    return file.open(mode) ? QString() : file.errorString();
}

} // namespace toolkit
