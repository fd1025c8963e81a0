#ifndef ZELMORA_CONFIG_SETTINGSSCAN_H
#define ZELMORA_CONFIG_SETTINGSSCAN_H

#include "toolkit/textplaces.h"

#include <QByteArray>
#include <QString>

namespace libconfig {

/// The format of the settings file @p path: "xml" where its name ends in ".xml", in capitals too; else "cfg".
QString settingsFormat(const QString& path);

/// A setting as it stands in a file.
struct ScannedSetting {
    QString name;
    toolkit::TextPlace place; ///< of the name
    QString value; ///< as a look-up gives it
    // The rest differs from these in the brace format alone.
    QString written; ///< the value as it stands there, with its quotes
    toolkit::TextPlace writtenPlace; ///< of written
    toolkit::TextPlace assignedPlace; ///< right behind the "="
    bool isEnded = true; ///< false: the file ends before the ";"
};

/// Text that counts for nothing.
enum class SkippedText {
    BeforeBrace, ///< between the ":" of a group and its "{"
    AfterBrace, ///< between a "}" and the next ";"
    BeforeEnd, ///< where a name would begin, and no ":" or "=" comes before the "}" or the end of the file
    TooDeep, ///< all that follows a group inside more than a thousand others
    AfterEnd, ///< all that follows a "}" outside every group
    XmlText, ///< between the tags of XML; also an entity that stands for nothing
    XmlMarkup, ///< a comment or an instruction of XML, or a document type
    XmlBeginning, ///< a comment or an instruction before the first group, which hides that
};

/// Hears what stands in a settings file, in its order. Groups that the end of the file ends are not reported as ended.
class SettingsListener {
public:
    virtual ~SettingsListener() = default;

    virtual void groupBegins(const QString& name, toolkit::TextPlace place) = 0;
    /// @p place is that of the "}"; in XML of the end tag.
    virtual void groupEnds(toolkit::TextPlace place) = 0;
    virtual void setting(const ScannedSetting& setting) = 0;
    /// @p text is trimmed; it is empty for an XML comment that says nothing.
    virtual void skipped(const QString& text, toolkit::TextPlace place, SkippedText reason) = 0;
};

/// How a scan ended.
struct SettingsEnd {
    bool isWellFormed = true; ///< false: XML that breaks off, of which no look-up finds anything
    toolkit::TextPlace place; ///< the end of the file, or where the XML breaks off
};

/// Tells @p listener all that stands in @p bytes, a settings file in the brace format ("cfg") or XML ("xml"). Takes
/// time in proportion to them.
SettingsEnd scanSettings(const QByteArray& bytes, const QString& format, SettingsListener& listener);

} // namespace libconfig

#endif
