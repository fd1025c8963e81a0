#include "settings/treefindings.h"

#include "check/placedsettings.h"
#include "check/settingscheck.h"
#include "settings/settingsfile.h"

using libconfig::SettingsListener;
using toolkit::TextPlace;

namespace settings {

namespace {

/// What a finding is about: it is told by the number of a line, as if each stood in one of its own.
struct Subject {
    QDomElement group;
    QString name;
};

class Teller {
public:
    explicit Teller(const SettingsFile& file)
        : file(file)
    {
    }

    void tell(SettingsListener& listener)
    {
        tellSettings(file.root(), listener);
        for (const QDomElement& group : SettingsFile::groupsIn(file.root()))
            tellGroup(group, listener);
    }

    const Subject& at(TextPlace place) const { return subjects.at(place.line - 1); }

private:
    void tellGroup(const QDomElement& group, SettingsListener& listener)
    {
        listener.groupBegins(group.tagName(), next(group, QString()));
        tellSettings(group, listener);
        for (const QDomElement& below : SettingsFile::groupsIn(group))
            tellGroup(below, listener);
        listener.groupEnds(TextPlace());
    }

    void tellSettings(const QDomElement& group, SettingsListener& listener)
    {
        for (const QString& name : file.settingNames(group)) {
            const QString value = group.attribute(name);
            const TextPlace place = next(group, name);
            listener.setting({name, place, value, value, place, place});
        }
    }

    TextPlace next(const QDomElement& group, const QString& name)
    {
        subjects += Subject {group, name};
        return {subjects.size(), 1};
    }

    const SettingsFile& file;
    QVector<Subject> subjects;
};

} // namespace

TreeFindings findingsOf(const SettingsFile& file)
{
    if (file.root().isNull())
        return {};
    Teller teller(file);
    const auto told = check::PlacedSettings::told([&](SettingsListener& listener) { teller.tell(listener); });
    TreeFindings findings;
    for (const check::Finding& finding : check::checkSettings(told, file.path())) {
        const Subject& subject = teller.at(finding.place);
        findings += TreeFinding {finding, subject.group, subject.name};
    }
    return findings;
}

} // namespace settings
