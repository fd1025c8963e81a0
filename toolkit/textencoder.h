#ifndef ZELMORA_TOOLKIT_TEXTENCODER_H
#define ZELMORA_TOOLKIT_TEXTENCODER_H

#include <QByteArray>
#include <QString>

#include <memory>

class QTextEncoder;
class QTextStream;

namespace toolkit {

/// Turns text into bytes, piece by piece: what an encoding remembers from one piece to the next (half of a surrogate
/// pair, a shift) is kept. What the encoding lacks becomes '?'. No byte-order mark is written.
class TextEncoder {
public:
    enum class Encoding {
        Locale, ///< that of localeCodec()
        Utf8
    };

    explicit TextEncoder(Encoding encoding);
    ~TextEncoder();

    TextEncoder(const TextEncoder&) = delete;
    TextEncoder& operator=(const TextEncoder&) = delete;

    QByteArray encoded(const QString& text);

private:
    const std::unique_ptr<QTextEncoder> encoder; ///< null for UTF-8
    QString half; ///< of a surrogate pair: the end of the last piece
};

/// @p text with a '?' for each half of a surrogate pair that stands alone, as which every encoding writes it. (A stream
/// of Qt 6 would write U+FFFD.)
QString withoutHalves(const QString& text);

/// The UTF-8 of @p size bytes as text, a byte-order mark included. False where they are not UTF-8 from the first to the
/// last; then @p text is what could be made of them.
bool decodeUtf8(const char* bytes, int size, QString& text);

/// Makes @p stream write UTF-8.
void setUtf8(QTextStream& stream);

} // namespace toolkit

#endif
