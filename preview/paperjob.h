#ifndef ZELMORA_PREVIEW_PAPERJOB_H
#define ZELMORA_PREVIEW_PAPERJOB_H

#include <QByteArray>
#include <QString>

namespace preview {

/// A job whose paper is to be seen.
struct PaperJob {
    QString title; ///< of its paper
    QByteArray bytes;

    bool operator==(const PaperJob& other) const { return title == other.title && bytes == other.bytes; }
};

/// A job that somebody brings along.
struct OwnJob {
    PaperJob job; ///< its title is the file's name, without the folder
    QString failure; ///< why there is none, in a translated sentence; empty when there is
};

/// Reads the file @p path. What is empty, or is a script, is no job.
OwnJob readOwnJob(const QString& path);

} // namespace preview

#endif
