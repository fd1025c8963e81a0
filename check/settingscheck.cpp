#include "check/settingscheck.h"

#include "check/placedsettings.h"
#include "check/settingnames.h"
#include "check/settingssyntax.h"
#include "check/settingstogether.h"

#include <QObject>

using toolkit::operator""_L1;

namespace check {

namespace {

/// Nothing of the file is found then, whatever it holds: one finding says so.
Findings ofHiddenXml(const PlacedSettings& settings)
{
    if (!settings.end().isWellFormed)
        return {finding(Code::Unreadable, settings.end().place,
                        QObject::tr("The XML breaks off here: no program finds a setting in this file."))};
    for (const PlacedSettings::Skipped& text : settings.skippedTexts()) {
        if (text.reason == libconfig::SkippedText::XmlBeginning)
            return {finding(Code::SkippedText, text.place,
                            QObject::tr("Nothing may stand before the first group of an XML file, no declaration and "
                                        "no comment: no program finds a setting in this file."))};
    }
    return {};
}

} // namespace

Findings checkSettings(const QByteArray& bytes, const QString& format, const QString& path)
{
    return checkSettings(PlacedSettings::of(bytes, format), path);
}

Findings checkSettings(const PlacedSettings& settings, const QString& path)
{
    Findings findings = ofHiddenXml(settings);
    if (!findings.isEmpty())
        return findings;
    checkSyntax(settings, findings);
    checkNames(settings, findings);
    checkTogether(settings, path, findings);
    sortByPlace(findings);
    return findings;
}

} // namespace check
