#include "settings/search.h"

#include "settings/settingsfile.h"

#include <QObject>

#include <algorithm>

using vocabulary::SettingGroup;
using vocabulary::SettingKind;

namespace settings {

/// @p marked is a text of the vocabulary, to be translated.
bool Search::isIn(const char* marked) const
{
    return marked && isIn(QObject::tr(marked));
}

bool Search::finds(const SettingRow& row) const
{
    const bool isInValue = row.setting->kind != SettingKind::Secret && row.written && isIn(*row.written);
    return isInValue || isIn(QString(row.setting->key)) || isIn(row.setting->description);
}

bool Search::finds(const SettingGroup& group) const
{
    return isIn(QString(group.name)) || isIn(group.title) || isIn(group.description);
}

int Search::hitsIn(const EditedSettings& settings, const SettingGroup& group) const
{
    const QVector<SettingRow> rows = plainRowsOf(settings, group);
    const auto hits = std::count_if(rows.begin(), rows.end(), [this](const SettingRow& row) { return finds(row); });
    return hits == 0 && finds(group) ? 1 : static_cast<int>(hits);
}

int Search::hitsIn(const SettingsFile& file) const
{
    return file.root().isNull() || isEmpty() ? 0 : hitsBelow(file, file.root());
}

int Search::hitsBelow(const SettingsFile& file, const QDomElement& group) const
{
    int hits = isIn(group.tagName()) ? 1 : 0;
    for (const QString& name : file.settingNames(group))
        hits += (isIn(name) ? 1 : 0) + (isIn(group.attribute(name)) ? 1 : 0);
    for (const QDomElement& below : SettingsFile::groupsIn(group))
        hits += hitsBelow(file, below);
    return hits;
}

} // namespace settings
