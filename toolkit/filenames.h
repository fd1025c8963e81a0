#ifndef ZELMORA_TOOLKIT_FILENAMES_H
#define ZELMORA_TOOLKIT_FILENAMES_H

#include <QByteArrayList>
#include <QIODevice>

class QFile;
class QString;

/// File names are bytes to the system and text to the toolkit. In Qt 5 a process chooses the encoding between the two.
/// Qt 6 has UTF-8 alone, in every locale, and makes U+FFFD of what is none: then it opens another file than was meant,
/// or makes one. Nobody outside turns the one into the other by the toolkit's own functions.
namespace toolkit {

/// From now on the process takes file names as the locale's encoding, or, where that cannot express one of @p names, as
/// ISO-8859-1, in which every byte is a character. (A catalogue whose path has accents in UTF-8 is not found then:
/// better than a job that is not.) For programs, after their application object was made. With Qt 6 nothing is chosen.
void setFileNameEncoding(const QByteArrayList& names);

/// The text of @p name, which fileName() turns back into the same bytes, whatever they are. With Qt 6 a byte that is no
/// UTF-8 is half a surrogate pair, U+DC00 and the byte.
QString fileText(const QByteArray& name);
/// The name whose text is @p text. With Qt 6 empty where that is the text of none.
QByteArray fileName(const QString& text);

/// The path of the very file that the system knows by @p name: a name that begins with ":" is none of the toolkit's
/// resources.
QString filePath(const QByteArray& name);

/// The user's home directory, as QDir::homePath() gives it, for fileName().
QString homePath();

/// Why the toolkit cannot have a file of the path @p path, in a translated sentence without an end; empty where it can,
/// with Qt 5 always. Who is going to open, make or look for a file by its path asks this first. Besides the bytes that
/// fileText() keeps, U+FFFD is refused: in a text of the toolkit's own it may stand for anything.
QString unusableName(const QString& path);

/// Opens the file @p path in @p mode. Empty when that succeeded, else the reason: that of unusableName(), or the
/// system's.
QString openFile(QFile& file, const QString& path, QIODevice::OpenMode mode);

/// Opens the file whose name is fileName(@p path), whatever that is: for the print program, which takes all names.
/// False when that failed.
bool openAnyFile(QFile& file, const QString& path, QIODevice::OpenMode mode);

} // namespace toolkit

#endif
