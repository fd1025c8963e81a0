#ifndef ZELMORA_PAPER_DECODEDSCRIPT_H
#define ZELMORA_PAPER_DECODEDSCRIPT_H

#include <QByteArray>
#include <QString>
#include <QVector>

class QTextCodec;

namespace paper {

/// Bytes one behind the other that are no characters.
struct InvalidBytes {
    int position; ///< in the text, of the first U+FFFD that stands for them
    int begin; ///< in the bytes
    int length;
};

struct DecodedScript {
    QString text; ///< a byte-order mark included, where the encoding is not told by it
    QVector<InvalidBytes> invalid; ///< in their order
};

/// @p bytes as text, whatever the codec.
DecodedScript decoded(const QByteArray& bytes, QTextCodec& codec);

} // namespace paper

#endif
