#include "toolkit/filenames.h"

#include "toolkit/literals.h"
#include "toolkit/localecodec.h"

#include <QFile>
#include <QTextCodec>

#include <algorithm>

namespace toolkit {

void setFileNameEncoding(const QByteArrayList& names)
{
    const auto survives = [](const QByteArray& name) { return QFile::encodeName(QFile::decodeName(name)) == name; };
    QTextCodec::setCodecForLocale(localeCodec());
    if (!std::all_of(names.begin(), names.end(), survives))
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
}

QString filePath(const QByteArray& name)
{
    const QString path = QFile::decodeName(name);
    return path.startsWith(QLatin1Char(':')) ? "./"_L1 + path : path;
}

} // namespace toolkit
