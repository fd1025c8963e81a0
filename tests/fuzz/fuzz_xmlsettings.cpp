// Any bytes as a settings file in XML: what is accepted becomes the tree that the toolkit's own document has of it.

#include "fuzzing.h"
#include "support/settingstree.h"

#include <QDomDocument>

namespace {

/// A line for each group and setting. A Config that read none of them lists settings in the order of their names.
QStringList sortedLines(const QDomNode& group)
{
    return groupLines(OpenConfig(), group, EmptyGroups::Keep);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const MemoryFile memory;
    const OpenConfig config(memory.holding(bytesOf(data, size)), QStringLiteral("xml"));
    const QDomElement root = config.rootElement();
    if (root.isNull())
        return 0; // refused; the toolkit alone would have no bounds

    QDomDocument document;
    QFile file(memory.path());
    require(document.setContent(&file, false), "what is accepted is well-formed");
    require(sortedLines(root.firstChild()) == sortedLines(document.firstChild()), "the tree is the toolkit's");
    return 0;
}
