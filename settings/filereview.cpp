#include "settings/filereview.h"

#include "config/settingsscan.h"
#include "toolkit/literals.h"

#include <QHash>

#include <algorithm>

using libconfig::ScannedSetting;
using libconfig::SkippedText;
using toolkit::operator""_L1;
using toolkit::TextPlace;

namespace settings {

namespace {

/// Whether its value has other quotes than a pair around it, and the format drops them.
bool losesQuotes(const ScannedSetting& setting)
{
    const QLatin1Char quote('"');
    const QString& written = setting.written;
    const bool isQuoted = written.size() > 1 && written.startsWith(quote) && written.endsWith(quote);
    return written != setting.value && (isQuoted ? written.mid(1, written.size() - 2) : written) != setting.value;
}

/// What the keys of the settings in the group @p name begin with, below a group whose keys begin with @p key. A key
/// that no message could show is cut, so that long names inside each other do not add up.
QString keyBelow(const QString& key, const QString& name)
{
    const int longestKey = 100;
    const QString cut = QStringLiteral("...");
    if (key.endsWith(cut))
        return key;
    const QString below = key + name.left(longestKey) + QLatin1Char('.');
    return below.size() <= longestKey ? below : key + cut;
}

/// Hears what stands in a file, in either format, and notes what a save would drop.
class Reviewer : public libconfig::SettingsListener {
public:
    Reviewer() { levels += Level(); }

    void groupBegins(const QString& name, TextPlace place) override
    {
        if (levels.size() == 1)
            review.topLevelGroups += name;
        else if (levels.size() > 2)
            chooseTopLevelGroup(); // the one above is part of the tree now
        levels.last().isInTree = true;
        Level level;
        level.name = name;
        level.key = keyBelow(levels.last().key, name);
        level.place = place;
        levels += level;
    }

    void setting(const ScannedSetting& setting) override
    {
        if (losesQuotes(setting))
            drop(setting.written, setting.writtenPlace);
        addSetting(setting.name, setting.value, setting.place);
    }

    void groupEnds(TextPlace) override { endGroup(); }

    void skipped(const QString& text, TextPlace place, SkippedText reason) override
    {
        review.isHiddenByItsBeginning |= reason == SkippedText::XmlBeginning;
        if (!text.isEmpty())
            drop(text, place);
    }

    FileReview result()
    {
        while (levels.size() > 1)
            endGroup();
        const auto comesFirst = [](const FileRemark& left, const FileRemark& right) {
            return left.place < right.place;
        };
        std::stable_sort(review.dropped.begin(), review.dropped.end(), comesFirst);
        return review;
    }

private:
    struct Setting {
        QString value;
        TextPlace place;
    };

    struct Level {
        QString name;
        QString key; ///< what the keys of its settings begin with
        TextPlace place;
        bool isInTree = false; ///< it has a setting or a group
        bool holdsSetting = false; ///< however deep
        QHash<QString, Setting> settings;
    };

    void addSetting(const QString& name, const QString& value, TextPlace place)
    {
        if (levels.size() > 1)
            chooseTopLevelGroup();
        Level& level = levels.last();
        level.isInTree = true;
        level.holdsSetting = true;
        const auto earlier = level.settings.constFind(name);
        if (earlier != level.settings.constEnd())
            drop(level.key + name + " = "_L1 + earlier->value, earlier->place);
        level.settings.insert(name, {value, place});
    }

    void endGroup()
    {
        const Level level = levels.takeLast();
        levels.last().holdsSetting |= level.holdsSetting;
        const bool isLeftOut = levels.size() == 1 && level.isInTree && !isWritten();
        if (isLeftOut || (!level.holdsSetting && !level.name.isEmpty()))
            drop(level.name.isEmpty() ? QStringLiteral(":") : level.name, level.place,
                 level.holdsSetting ? QString() : level.key);
    }

    /// Of the top-level groups the first that holds something is written, and it alone.
    void chooseTopLevelGroup()
    {
        if (written == 0 && !review.isHiddenByItsBeginning)
            written = review.topLevelGroups.size();
    }

    bool isWritten() const { return written != 0 && written == review.topLevelGroups.size(); }

    void drop(const QString& text, TextPlace place, const QString& emptyGroup = {})
    {
        review.dropped += FileRemark {text, place, emptyGroup};
    }

    FileReview review;
    QVector<Level> levels; ///< the top level, and the groups that are open
    int written = 0; ///< the number of the top-level group that is written, from 1; none yet: 0
};

} // namespace

FileReview reviewOf(const QByteArray& bytes, const QString& format)
{
    Reviewer reviewer;
    const libconfig::SettingsEnd end = scanSettings(bytes, format, reviewer);
    FileReview review = reviewer.result();
    review.isWellFormed = end.isWellFormed;
    return review;
}

} // namespace settings
