#ifndef ZELMORA_TOOLKIT_FILEREPLACEMENT_H
#define ZELMORA_TOOLKIT_FILEREPLACEMENT_H

class QByteArray;
class QString;

namespace toolkit {

/// Makes @p bytes the contents of the file @p name, synced to the disk. Null when that succeeded, else the reason,
/// which begins with the system's text for the error ("No space left on device"), or is that of unusableName(). It
/// waits for the disk, and for the reader of a pipe. No signal comes of it.
///
/// - A **new file** appears under its name when it is complete, with the permissions that the umask leaves. Its folder
///   must exist.
/// - An **existing file** stays whole until a new one, complete and synced, takes its place in one step: after a
///   failure the name stands for the old file; after a crash, even one shortly after success, for the old or the new
///   one. The new one gets the permissions of the old one (read, write, execute) and, as far as the user may give them,
///   its owner and group; where the group cannot be kept, the group may no more than others may, since it is another
///   group. It has no access control list, and further hard links keep the old contents.
/// - **Links** are followed and stay; one to a missing file makes that.
/// - A **device or a pipe** is written as it is. What was written before a failure has gone out.
/// - An **existing file that no new one can replace** is overwritten as it is, and stays what it is in all but its
///   contents: where the user may write the file but not its folder, where the folder is sticky and the file another
///   user's, where something is mounted on the file, where no name for a new file fits into a path, where the file has
///   lost its name. The space is reserved before the first byte is written, and the old contents are kept in memory
///   meanwhile. After a failure they are written back, and the reason ends in "; the file is as it was" or in "; its
///   old contents could not be written back: " and why. A file that may be written but not read is overwritten too, and
///   has nothing to be written back. **A crash in the middle can lose both the old contents and the new ones**, and
///   other programs can read a mixture while it lasts.
///
/// A file that the user may not write stays as it is, also where its folder would let it be replaced. A folder or a
/// socket under the name is a failure, as are links in a circle and a name with a NUL in it.
///
/// A new file has a name of its own beside the old one until it takes its place (".zelmora-" and a random number):
/// after a crash it can be left behind.
QString replaceFile(const QString& name, const QByteArray& bytes);

/// Makes @p bytes the contents of the file whose name is @p name with @p suffix at its end, synced to the disk: beside
/// the file @p name, or beside the one that it leads to when it is a link. Null when that succeeded, else the system's
/// reason. No signal comes of it.
///
/// It is always a new file, made as replaceFile() makes it, with owner, group and permissions of the file @p name;
/// where there is no such file, the user alone may read and write it. What has its name stays whole until the new one
/// takes its place in one step, and stays when there is a failure. Of a link there, the link goes and what it leads to
/// stays. An empty name and one with a NUL in it, in the suffix too, are failures, as are links in a circle.
QString replaceFileBeside(const QString& name, const QString& suffix, const QByteArray& bytes);

/// Makes the new file @p name of @p bytes, synced to the disk; where a link leads to nothing, there. Null when that
/// succeeded, else the system's reason, which is that of EEXIST when something has the name. No signal comes of it.
///
/// It appears under its name when it is complete, and never in place of another one. The user alone may read and write
/// it, from its first byte on; or, when @p like is not empty, it gets owner, group and permissions of the file of that
/// name, as replaceFile() gives those of an old file. Its folder must exist.
QString createFile(const QString& name, const QByteArray& bytes, const QString& like);

} // namespace toolkit

#endif
