// Any bytes as settings of either format, written and read: what a file can keep comes back and is written as before.

#include "fuzzing.h"
#include "support/settingstree.h"

#include <QRegularExpression>
#include <QTemporaryDir>

static QByteArray written(const OpenConfig& config, const QString& path, const QString& format)
{
    require(config.writeFile(path, format).isEmpty(), "settings can be written");
    QFile file(path);
    require(file.open(QIODevice::ReadOnly), "what was written is there");
    return file.readAll();
}

static void checkReadsBack(const OpenConfig& config, const QString& format, const QStringList& lasting)
{
    static const QTemporaryDir folder(scratchFolder());
    const QString path = folder.filePath(QStringLiteral("settings"));
    const QByteArray bytes = written(config, path, format);
    const OpenConfig again(path, format);
    require(treeLines(again) == lasting, "settings that were written read back");
    require(written(again, path, format) == bytes, "settings that were read back are written as before");
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const MemoryFile file;
    static const QRegularExpression unescaped(QStringLiteral("[<&\"]"));
    const OpenConfig brace(file.holding(bytesOf(data, size)), QStringLiteral("cfg"));
    checkReadsBack(brace, QStringLiteral("cfg"), lastingLines(brace));

    const OpenConfig xml(file.path(), QStringLiteral("xml"));
    const QStringList lines = groupLines(xml, xml.rootElement().firstChild(), EmptyGroups::Keep);
    if (lines.filter(unescaped).isEmpty())
        checkReadsBack(xml, QStringLiteral("xml"), lines);
    return 0;
}
