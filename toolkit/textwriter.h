#ifndef ZELMORA_TOOLKIT_TEXTWRITER_H
#define ZELMORA_TOOLKIT_TEXTWRITER_H

#include "toolkit/textencoder.h"

#include <QString>

class QFileDevice;

namespace toolkit {

/// Writes text to a file through a buffer: what is gathered goes out when it is enough, and at the end. After a write
/// that failed nothing more is written, and nothing more is gathered.
class TextWriter {
public:
    /// @p file is open for writing and outlives this.
    TextWriter(QFileDevice& file, TextEncoder::Encoding encoding);
    /// Writes what is left; the file stays open.
    ~TextWriter();

    TextWriter(const TextWriter&) = delete;
    TextWriter& operator=(const TextWriter&) = delete;

    TextWriter& operator<<(const QString& text);

private:
    void flush();

    QFileDevice& file;
    TextEncoder encoder;
    QString gathered;
    bool failed = false;
};

} // namespace toolkit

#endif
