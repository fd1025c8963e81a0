#ifndef ZELMORA_TESTS_INSTALL_DOCUMENTEDPROGRAMS_H
#define ZELMORA_TESTS_INSTALL_DOCUMENTEDPROGRAMS_H

#include <QByteArray>
#include <QMetaType>
#include <QString>
#include <QVector>

/// A program that a page shows: a block "cpp" whose first line names what it links, such as "// Zelmora::log". A
/// block "text" after it is what it prints, a block "log" what the log then holds; of one that begins with "..."
/// only how it ends.
struct DocumentedProgram {
    QString heading; ///< of the part of the page that it stands in
    QString component; ///< such as "log"
    QByteArray source;
    QByteArray output;
    QByteArray log;
};

Q_DECLARE_METATYPE(DocumentedProgram)

QVector<DocumentedProgram> documentedPrograms(const QByteArray& page);

/// The contents of the block number @p index, from 0, of the blocks @p language on the page.
QByteArray block(const QByteArray& page, const QByteArray& language, int index = 0);

/// The settings on the page: the group "zelmora", as the writer writes it.
QByteArray documentedSettings(const QByteArray& page);

/// @p log with the same time in all lines, that of the pages.
QByteArray withoutTimes(const QByteArray& log);

#endif
