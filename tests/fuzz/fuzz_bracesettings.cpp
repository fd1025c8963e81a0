// Any bytes as a settings file in the brace format: names and values are what the grammar leaves of them, and each
// setting of the first group is found by its key, with the same value before the tree is made and after that.

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

/// @p config has the tree, and @p untouched, of the same file, has not.
static void checkGroup(const OpenConfig& config, const OpenConfig& untouched, const QDomElement& group,
                       const QString& groupKey)
{
    for (const QString& name : config.settingNames(group)) {
        const QString value = group.attribute(name);
        const QString key = keyBelow(groupKey, name);
        require(isName(name) && isName(group.tagName()), "names are trimmed and without the marks that end them");
        require(!value.contains(';') && !value.contains('"'), "a value holds neither ';' nor '\"'");
        require(key.isNull() || value.isEmpty() || !config.lookup(key).isEmpty(), "a setting is found by its key");
        require(untouched.lookup(key) == config.lookup(key), "a setting is the same without the tree");
    }
    for (QDomElement child = group.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        checkGroup(config, untouched, child, keyBelow(groupKey, child.tagName()));
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const MemoryFile file;
    const QString path = file.holding(bytesOf(data, size));
    const OpenConfig config(path, QStringLiteral("cfg"));
    const OpenConfig untouched(path, QStringLiteral("cfg"));
    const QDomElement first = config.rootElement().firstChildElement();
    checkGroup(config, untouched, first, first.tagName().contains('.') ? QString() : first.tagName());
    return 0;
}
