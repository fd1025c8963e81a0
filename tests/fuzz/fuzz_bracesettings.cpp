// Any bytes as a settings file in the brace format: names and values are what the grammar leaves of them, and each
// setting of the first group is found by its key.

#include "fuzzing.h"
#include "support/settingstree.h"

static bool isName(const QString& text)
{
    return text == text.trimmed() && !text.contains(':') && !text.contains('=') && !text.contains('}');
}

/// The key of what is named @p name in the group of the key @p group; null when none leads to it.
static QString keyBelow(const QString& group, const QString& name)
{
    return group.isNull() || name.isEmpty() || name.contains('.') ? QString() : group + '.' + name;
}

static void checkGroup(const OpenConfig& config, const QDomElement& group, const QString& groupKey)
{
    for (const QString& name : config.settingNames(group)) {
        const QString value = group.attribute(name);
        const QString key = keyBelow(groupKey, name);
        require(isName(name) && isName(group.tagName()), "names are trimmed and without the marks that end them");
        require(!value.contains(';') && !value.contains('"'), "a value holds neither ';' nor '\"'");
        require(key.isNull() || value.isEmpty() || !config.lookup(key).isEmpty(), "a setting is found by its key");
    }
    for (QDomElement child = group.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        checkGroup(config, child, keyBelow(groupKey, child.tagName()));
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const MemoryFile file;
    const OpenConfig config(file.holding(bytesOf(data, size)), QStringLiteral("cfg"));
    const QDomElement first = config.rootElement().firstChildElement();
    checkGroup(config, first, first.tagName().contains('.') ? QString() : first.tagName());
    return 0;
}
