#include "toolkit/localecodec.h"

#include <QString>
#include <QTextCodec>

#include <langinfo.h>
#include <locale.h>

namespace toolkit {

namespace {

/// The codeset's name as the C library gives it. Asked of a locale object of our own, because setlocale()
/// would change the whole process, its decimal comma included. An unknown locale behaves as "C".
QByteArray codesetName()
{
    const locale_t environment = newlocale(LC_CTYPE_MASK, "", nullptr);
    if (!environment)
        return QByteArray();
    const QByteArray name = nl_langinfo_l(CODESET, environment);
    freelocale(environment);
    return name;
}

bool isAscii(const QByteArray& codeset)
{
    return codeset.isEmpty() || codeset == "ANSI_X3.4-1968" || codeset == "US-ASCII";
}

QTextCodec* findLocaleCodec()
{
    const QByteArray name = codesetName();
    QTextCodec* const codec = isAscii(name) ? nullptr : QTextCodec::codecForName(name);
    return codec ? codec : QTextCodec::codecForName("UTF-8");
}

} // namespace

QTextCodec* localeCodec()
{
    // Qt's own answer can't be used: Debian's build says UTF-8 in every locale.
    static QTextCodec* const codec = findLocaleCodec();
    return codec;
}

bool isLocaleAscii()
{
    static const bool isIt = isAscii(codesetName());
    return isIt;
}

bool isUtf8Codec(const QTextCodec& codec)
{
    const int itsNumber = 106;
    return codec.mibEnum() == itsNumber;
}

QByteArray localeText(const QString& text)
{
    return isUtf8Codec(*localeCodec()) ? text.toUtf8() : localeCodec()->fromUnicode(text);
}

} // namespace toolkit
