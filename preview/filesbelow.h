#ifndef ZELMORA_PREVIEW_FILESBELOW_H
#define ZELMORA_PREVIEW_FILESBELOW_H

#include <QStringList>

namespace preview {

/// The files in @p folder and in the folders in it, however deep, hidden ones too: their paths from there, in the order
/// of their names. Links to folders are not followed, so there is no end without one. A folder that cannot be read
/// stands among them: who reads it as a file is told why.
QStringList filesBelow(const QString& folder);

} // namespace preview

#endif
