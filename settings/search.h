#ifndef ZELMORA_SETTINGS_SEARCH_H
#define ZELMORA_SETTINGS_SEARCH_H

#include "settings/settingrows.h"

namespace settings {

/// A text that somebody looks for, in any letter case: in names, plain names, descriptions and values. The value of a
/// secret is not looked at. Blanks around the text count for nothing: somebody is still typing.
class Search {
public:
    explicit Search(const QString& text)
        : text(text.trimmed())
    {
    }

    bool isEmpty() const { return text.isEmpty(); }
    /// Whether it stands in @p candidate. The empty text stands in all.
    bool isIn(const QString& candidate) const { return candidate.contains(text, Qt::CaseInsensitive); }
    /// Whether it stands in a setting's name, what is said of it, or its value.
    bool finds(const SettingRow& row) const;
    /// Whether it stands in a group's name, its plain name or what is said of it.
    bool finds(const vocabulary::SettingGroup& group) const;

    /// How many rows of @p group have it; the group itself counts as one where no row has it.
    int hitsIn(const EditedSettings& settings, const vocabulary::SettingGroup& group) const;
    /// How many groups, names and values in the tree of @p file have it, each counted for itself. Takes time in
    /// proportion to the tree.
    int hitsIn(const SettingsFile& file) const;

private:
    bool isIn(const char* marked) const;
    int hitsBelow(const SettingsFile& file, const QDomElement& group) const;

    const QString text;
};

} // namespace settings

#endif
