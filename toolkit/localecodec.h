#ifndef ZELMORA_TOOLKIT_LOCALECODEC_H
#define ZELMORA_TOOLKIT_LOCALECODEC_H

#include <QByteArray>

class QString;
class QTextCodec;

namespace toolkit {

/// The codec of the locale that the environment names (LC_ALL, LC_CTYPE, LANG). UTF-8 in the C and POSIX
/// locales, whose own codeset is plain ASCII, and where the locale or its codeset is unknown. Never null; the
/// toolkit owns it. The environment is read once, at the first call.
QTextCodec* localeCodec();

/// Whether the locale's own codeset is plain ASCII, as that of C and POSIX, and of an unknown locale, which behaves as
/// C. What a terminal there shows of other characters is anybody's guess. Read once, too.
bool isLocaleAscii();

/// Whether @p codec is that of UTF-8.
bool isUtf8Codec(const QTextCodec& codec);

/// @p text in the locale's encoding; what the codec lacks becomes '?'.
QByteArray localeText(const QString& text);

} // namespace toolkit

#endif
