#ifndef ZELMORA_PREVIEW_FILESBELOW_H
#define ZELMORA_PREVIEW_FILESBELOW_H

#include <QByteArrayList>
#include <QStringList>

namespace preview {

/// The files in @p folder and in the folders in it, however deep, hidden ones too: their paths from there, in the order
/// of their names. Links to folders are not followed, so there is no end without one. A folder that cannot be read and
/// a link that leads nowhere stand among them: who reads them as files is told why.
QStringList filesBelow(const QString& folder);

/// The names of all there is in @p folder, as the system has them; none where it is no folder. What the encoding of
/// file names does not have, the toolkit leaves out without a word.
QByteArrayList namesBelow(const char* folder);

} // namespace preview

#endif
