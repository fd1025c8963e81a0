#ifndef ZELMORA_TOOLKIT_FILEREADING_H
#define ZELMORA_TOOLKIT_FILEREADING_H

class QByteArray;
class QFile;
class QString;

namespace toolkit {

/// Reads @p file, which is open, from where it stands to its end. Gives the reason, as the system says it, why that
/// failed; empty when it did not. More than 2 GB is too large: nothing of that is read.
QString readRest(QFile& file, QByteArray& bytes);

} // namespace toolkit

#endif
