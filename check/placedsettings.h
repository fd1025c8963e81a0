#ifndef ZELMORA_CHECK_PLACEDSETTINGS_H
#define ZELMORA_CHECK_PLACEDSETTINGS_H

#include "config/settingsscan.h"

#include <QVector>

#include <functional>
#include <optional>
#include <vector>

namespace check {

/// A setting, and where its name stands.
struct PlacedSetting {
    QString value;
    toolkit::TextPlace place;
};

/// A group as it stands in the file, empty groups and all.
struct PlacedGroup {
    QString name;
    toolkit::TextPlace place; ///< of the name; in XML of the "<"
    QString skipped; ///< what stands between the ":" and the "{", and counts for nothing
    QVector<libconfig::ScannedSetting> settings; ///< in the order of the file; of a repeated one the last counts
    std::vector<PlacedGroup> groups; ///< in the order of the file

    /// What counts of the setting @p key; null when there is none.
    const libconfig::ScannedSetting* find(const QString& key) const;
    /// Whether it holds no setting, however deep: no look-up tells it from a group that is not there.
    bool isEmpty() const;
};

/// What stands in a settings file, with its places: a look-up finds in it what Config::lookup() finds, and where.
class PlacedSettings {
public:
    /// @p format is "cfg" or "xml". Takes time and memory in proportion to @p bytes.
    static PlacedSettings of(const QByteArray& bytes, const QString& format);

    /// Of settings that stand in no file: @p tell tells a listener all of them, with places that mean something to the
    /// caller, in their order. They have no form that slips could be in.
    static PlacedSettings told(const std::function<void(libconfig::SettingsListener&)>& tell);

    struct Skipped {
        QString text;
        toolkit::TextPlace place;
        libconfig::SkippedText reason;
        toolkit::TextPlace bracePlace; ///< of the "}" before it, when it stands after one
    };

    /// The setting that answers to the dotted @p key. Nothing when there is none, or its value is empty.
    std::optional<PlacedSetting> find(const QString& key) const;

    /// The first group at top level that a look-up sees, and it alone. Null when there is none.
    const PlacedGroup* firstGroup() const;
    /// What stands at top level.
    const PlacedGroup& topLevel() const { return top; }
    /// In the order of the file.
    const QVector<Skipped>& skippedTexts() const { return skipped; }
    /// Whether it is XML, or no file at all: of these no slips are to be found but those that the scan tells.
    bool isXml() const { return xml; }
    /// Where the XML breaks off, or the file ends.
    const libconfig::SettingsEnd& end() const { return itsEnd; }
    /// The groups that are still open at the end of the file, of the brace format.
    int openGroups() const { return open; }

private:
    class Builder;

    PlacedGroup top;
    QVector<Skipped> skipped;
    libconfig::SettingsEnd itsEnd;
    int open = 0;
    bool xml = false;
};

} // namespace check

#endif
