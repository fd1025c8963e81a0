#include "check/placedsettings.h"

#include "toolkit/literals.h"

#include <algorithm>
#include <utility>

using libconfig::ScannedSetting;
using toolkit::TextPlace;
using toolkit::operator""_L1;

namespace check {

namespace {

/// What answers in @p group to the dotted @p key, whose first part must name the group: the steps of
/// Config::lookup(). Null where that gives an empty text.
const ScannedSetting* findBelow(const PlacedGroup& group, const QString& key)
{
    const int firstDot = key.indexOf(QLatin1Char('.'));
    if (firstDot < 0 || group.name != QStringView(key).left(firstDot))
        return nullptr;
    const QString rest = key.mid(firstDot + 1);
    const int secondDot = rest.indexOf(QLatin1Char('.'));
    const bool endsHere = secondDot < 0 || secondDot + 1 == rest.size() || rest.at(secondDot + 1) == QLatin1Char('.');
    if (endsHere) {
        const ScannedSetting* const found = group.find(rest.left(secondDot));
        return found && !found->value.isEmpty() ? found : nullptr;
    }
    for (const PlacedGroup& below : group.groups) {
        if (const ScannedSetting* const found = findBelow(below, rest))
            return found;
    }
    return nullptr;
}

} // namespace

/// Makes the tree of what the scan tells.
class PlacedSettings::Builder : public libconfig::SettingsListener {
public:
    explicit Builder(PlacedSettings& result)
        : result(result)
        , openGroups(1)
    {
    }

    void groupBegins(const QString& name, TextPlace place) override { openGroups.push_back({name, place, {}, {}, {}}); }

    void groupEnds(TextPlace place) override
    {
        lastEnd = place;
        closeGroup();
    }

    void setting(const ScannedSetting& setting) override { openGroups.back().settings += setting; }

    void skipped(const QString& text, TextPlace place, libconfig::SkippedText reason) override
    {
        result.skipped += Skipped {text, place, reason, lastEnd};
        if (reason == libconfig::SkippedText::BeforeBrace)
            openGroups.back().skipped = text;
    }

    void finish()
    {
        result.open = static_cast<int>(openGroups.size()) - 1;
        while (openGroups.size() > 1)
            closeGroup();
        result.top = std::move(openGroups.back());
    }

private:
    void closeGroup()
    {
        PlacedGroup group = std::move(openGroups.back());
        openGroups.pop_back();
        openGroups.back().groups.push_back(std::move(group));
    }

    PlacedSettings& result;
    std::vector<PlacedGroup> openGroups; ///< the top level, and the groups in each other
    TextPlace lastEnd;
};

const ScannedSetting* PlacedGroup::find(const QString& key) const
{
    const auto found = std::find_if(settings.rbegin(), settings.rend(),
                                    [&](const ScannedSetting& setting) { return setting.name == key; });
    return found == settings.rend() ? nullptr : &*found;
}

bool PlacedGroup::isEmpty() const
{
    return settings.isEmpty()
        && std::all_of(groups.begin(), groups.end(), [](const PlacedGroup& group) { return group.isEmpty(); });
}

PlacedSettings PlacedSettings::of(const QByteArray& bytes, const QString& format)
{
    PlacedSettings result;
    result.xml = format == "xml"_L1;
    Builder builder(result);
    result.itsEnd = scanSettings(bytes, format, builder);
    builder.finish();
    return result;
}

PlacedSettings PlacedSettings::told(const std::function<void(libconfig::SettingsListener&)>& tell)
{
    PlacedSettings result;
    result.xml = true;
    Builder builder(result);
    tell(builder);
    builder.finish();
    return result;
}

std::optional<PlacedSetting> PlacedSettings::find(const QString& key) const
{
    const PlacedGroup* const first = firstGroup();
    const ScannedSetting* const found = first ? findBelow(*first, key) : nullptr;
    if (!found)
        return std::nullopt;
    return PlacedSetting {found->value, found->place};
}

const PlacedGroup* PlacedSettings::firstGroup() const
{
    const bool isHidden = std::any_of(skipped.begin(), skipped.end(), [](const Skipped& text) {
        return text.reason == libconfig::SkippedText::XmlBeginning;
    });
    if (isHidden || !itsEnd.isWellFormed)
        return nullptr;
    // In the brace format an empty group is as if it were not there; in XML there is one group at top level.
    const auto holdsSomething = [](const PlacedGroup& group) {
        return !group.settings.isEmpty() || !group.groups.empty();
    };
    const auto found = std::find_if(top.groups.begin(), top.groups.end(), holdsSomething);
    return found == top.groups.end() ? nullptr : &*found;
}

} // namespace check
