#ifndef ZELMORA_SETTINGS_BACKUP_H
#define ZELMORA_SETTINGS_BACKUP_H

class QByteArray;
class QString;

namespace settings {

/// Keeps @p bytes, what the file @p path held, in a file of the same name with "~" at its end: beside the file itself,
/// or beside the one that it points to when it is a link. Empty when that succeeded, else the system's reason.
///
/// It is on the disk before it takes the place of an earlier one: an earlier one is whole until then, and stays when
/// there is a failure. Where that is a link, the link goes and what it points to stays.
///
/// It has the file's permissions and, as far as the user may, its owner and group; where the group cannot be kept,
/// the group may no more than others may, since it is another group. Where there is no file at @p path any more, the
/// user alone may read and write it.
///
/// The file itself is not read: the backup is as old as the caller's bytes.
QString keepBackup(const QString& path, const QByteArray& bytes);

} // namespace settings

#endif
