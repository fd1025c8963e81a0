#ifndef ZELMORA_TOOLKIT_FILENAMES_H
#define ZELMORA_TOOLKIT_FILENAMES_H

#include <QByteArrayList>

class QString;

namespace toolkit {

/// File names are bytes to the system and text to the toolkit. From now on the process takes them as the locale's
/// encoding, or, where that cannot express one of @p names, as ISO-8859-1, in which every byte is a character. (A
/// catalogue whose path has accents in UTF-8 is not found then: better than a job that is not.) For programs, after
/// their application object was made.
void setFileNameEncoding(const QByteArrayList& names);

/// The path under which the toolkit opens the very file that the system knows by @p name: a name that begins with ":"
/// is none of the toolkit's resources.
QString filePath(const QByteArray& name);

} // namespace toolkit

#endif
