#include "check/checkedfile.h"

#include "check/scriptcheck.h"
#include "paper/roll.h"
#include "toolkit/filenames.h"
#include "toolkit/filereading.h"
#include "toolkit/literals.h"

#include <QBuffer>
#include <QFile>

#include <unistd.h>

using toolkit::operator""_L1;

namespace check {

namespace {

/// The reason why it cannot be opened; empty when it is.
QString openFile(QFile& file, const QString& path)
{
    if (path != "-"_L1)
        return toolkit::openFile(file, toolkit::filePath(toolkit::fileName(path)), QIODevice::ReadOnly);
    return file.open(STDIN_FILENO, QIODevice::ReadOnly) ? QString() : file.errorString();
}

/// The beginning of @p file, which stays to be read. A pipe gives it in pieces.
QByteArray head(QFile& file)
{
    const int size = 65536;
    QByteArray begun;
    int before = -1;
    while (begun.size() > before && begun.size() < size) {
        before = begun.size();
        begun = file.peek(size);
    }
    return begun;
}

CheckedFile checkContents(QFile& file, const JobSettings& settings, JobTrace* trace)
{
    if (paper::isJob(head(file)))
        return {CheckedFile::Checked, checkJob(file, settings, trace)};
    QByteArray contents;
    const QString reason = toolkit::readRest(file, contents);
    if (!reason.isEmpty())
        return {CheckedFile::Unreadable, {}, reason};
    if (contents.isEmpty())
        return {CheckedFile::Empty};
    if (paper::isJob(contents)) { // behind more white space than was looked at
        QBuffer job(&contents);
        return {CheckedFile::Checked, checkJob(job, settings, trace)};
    }
    return trace ? CheckedFile {CheckedFile::NotTraced} : CheckedFile {CheckedFile::Checked, checkScript(contents)};
}

} // namespace

CheckedFile checkFile(const QString& path, const JobSettings& settings, JobTrace* trace)
{
    QFile file;
    const QString reason = openFile(file, path);
    if (!reason.isEmpty())
        return {CheckedFile::Unreadable, {}, reason};
    const CheckedFile checked = checkContents(file, settings, trace);
    if (file.error() != QFileDevice::NoError)
        return {CheckedFile::Unreadable, {}, file.errorString()};
    return checked;
}

} // namespace check
