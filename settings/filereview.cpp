#include "settings/filereview.h"

#include "config/bracescanner.h"
#include "toolkit/literals.h"
#include "toolkit/xmlplaces.h"
#include "toolkit/xmlreader.h"

#include <QBuffer>
#include <QHash>
#include <QRegularExpression>
#include <QXmlDefaultHandler>

#include <algorithm>
#include <memory>

using libconfig::BraceScanner;
using libconfig::ScanEvent;
using toolkit::operator""_L1;
using toolkit::TextPlace;

namespace settings {

using Kind = FileRemark::Kind;

namespace {

/// A look-up splits its key at the points; all else that is no letter, digit, "_" or "-" came there by a slip.
bool canBeLookedUp(const QString& name)
{
    static const QRegularExpression word(QStringLiteral("\\A[\\w-]+\\z"),
                                         QRegularExpression::UseUnicodePropertiesOption);
    return word.match(name).hasMatch();
}

/// Whether a line of @p value but its first ends the group, or begins a setting or a group.
bool runsOn(const QString& value)
{
    // Possessive, so that no text takes more than one look at each character.
    static const QRegularExpression nextLine(QStringLiteral("\\n[^\\S\\n]*+(\\}|[\\w-]++\\s*+(=|:\\s*+\\{))"));
    return value.contains(nextLine);
}

/// Whether @p value has other quotes than a pair around it.
bool losesQuotes(const QString& value)
{
    const QLatin1Char quote('"');
    const bool quoted = value.size() > 1 && value.startsWith(quote) && value.endsWith(quote);
    return (quoted ? value.mid(1, value.size() - 2) : value).contains(quote);
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

/// Hears what stands in a file, in either format, and makes the remarks.
class Reviewer {
public:
    Reviewer() { levels += Level(); }

    void beginGroup(const QString& name, TextPlace place)
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

    void addSetting(const QString& name, const QString& value, TextPlace place)
    {
        if (levels.size() > 1)
            chooseTopLevelGroup();
        Level& level = levels.last();
        level.isInTree = true;
        level.holdsSetting = true;
        const auto text = [&](const QString& itsValue) { return level.key + name + " = "_L1 + itsValue; };
        const auto earlier = level.settings.constFind(name);
        if (earlier != level.settings.constEnd())
            remark(Kind::Dropped, text(earlier->value), earlier->place);
        level.settings.insert(name, {value, place});
        if (levels.size() == 1)
            remark(Kind::Outside, text(value), place);
        else if (isWritten() && !canBeLookedUp(name))
            remark(Kind::NoKey, name.isEmpty() ? QStringLiteral("=") : name, place);
        if ((levels.size() == 1 || isWritten()) && runsOn(value))
            remark(Kind::Swallowing, text(value), place);
    }

    void endGroup()
    {
        const Level level = levels.takeLast();
        levels.last().holdsSetting |= level.holdsSetting;
        const bool isLeftOut = levels.size() == 1 && level.isInTree && !isWritten();
        if (isLeftOut || (!level.holdsSetting && !level.name.isEmpty()))
            remark(Kind::Dropped, level.name.isEmpty() ? QStringLiteral(":") : level.name, level.place);
        else if (level.isInTree && isWritten() && !canBeLookedUp(level.name))
            remark(Kind::NoKey, level.name, level.place);
    }

    void drop(const QString& text, TextPlace place)
    {
        if (!text.isEmpty())
            remark(Kind::Dropped, text, place);
    }

    /// Nothing of what is still to come is found.
    void hideWhatFollows() { review.isHiddenByItsBeginning = true; }

    bool isOutsideEveryGroup() const { return levels.size() == 1; }

    FileReview result()
    {
        while (levels.size() > 1)
            endGroup();
        const auto comesFirst = [](const FileRemark& left, const FileRemark& right) {
            return left.place < right.place;
        };
        std::stable_sort(review.remarks.begin(), review.remarks.end(), comesFirst);
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

    /// Of the top-level groups the first that holds something is written, and it alone.
    void chooseTopLevelGroup()
    {
        if (written == 0 && !review.isHiddenByItsBeginning)
            written = review.topLevelGroups.size();
    }

    bool isWritten() const { return written != 0 && written == review.topLevelGroups.size(); }

    void remark(Kind kind, const QString& text, TextPlace place) { review.remarks += FileRemark {kind, text, place}; }

    FileReview review;
    QVector<Level> levels; ///< the top level, and the groups that are open
    int written = 0; ///< the number of the top-level group that is written, from 1; none yet: 0
};

void hear(const ScanEvent& event, Reviewer& reviewer, toolkit::TextPlaces& places)
{
    // Asked for where there is a text, and so in the order of the file.
    const auto placeOf = [&places](const libconfig::ScannedText& text) { return places.at(text.textOffset()); };
    switch (event.kind) {
    case ScanEvent::Kind::GroupBegins:
        reviewer.beginGroup(event.text.text(), placeOf(event.text));
        break;
    case ScanEvent::Kind::GroupEnds:
        reviewer.endGroup();
        break;
    case ScanEvent::Kind::Setting: {
        QString value = event.value.text();
        const TextPlace place = placeOf(event.text);
        if (losesQuotes(value))
            reviewer.drop(value, placeOf(event.value));
        reviewer.addSetting(event.text.text(), value.remove(QLatin1Char('"')), place);
        break;
    }
    case ScanEvent::Kind::Skipped:
        reviewer.drop(event.text.text(), placeOf(event.text));
        break;
    case ScanEvent::Kind::EndOfInput:
        break;
    }
}

FileReview reviewOfBraces(const QByteArray& bytes)
{
    Reviewer reviewer;
    const std::unique_ptr<BraceScanner> scanner = BraceScanner::over(bytes);
    if (!scanner)
        return reviewer.result();
    toolkit::TextPlaces places(bytes);
    libconfig::ScannedText rest;
    for (ScanEvent event = scanner->next(); event.kind != ScanEvent::Kind::EndOfInput; event = scanner->next()) {
        if (event.kind == ScanEvent::Kind::GroupEnds && reviewer.isOutsideEveryGroup())
            rest = scanner->rest(); // the settings end here
        else
            hear(event, reviewer, places);
    }
    reviewer.drop(rest.text(), places.at(rest.textOffset()));
    return reviewer.result();
}

class XmlListener : public QXmlDefaultHandler {
public:
    XmlListener(Reviewer& reviewer, toolkit::XmlPlaces& places)
        : reviewer(reviewer)
        , places(places)
    {
    }

    bool startElement(const QString&, const QString&, const QString& qName, const QXmlAttributes& attributes) override
    {
        begun = true;
        reviewer.beginGroup(qName, places.markup());
        for (int i = 0; i < attributes.count(); ++i)
            reviewer.addSetting(attributes.qName(i), attributes.value(i), places.attribute(i));
        return true;
    }

    bool endElement(const QString&, const QString&, const QString&) override
    {
        reviewer.endGroup();
        return true;
    }

    bool characters(const QString& text) override
    {
        reviewer.drop(text.trimmed(), places.isInsideMarkup() ? places.markup() : places.text());
        return true;
    }

    bool skippedEntity(const QString& name) override { return characters(QLatin1Char('&') + name + QLatin1Char(';')); }

    bool comment(const QString& text) override { return dropMarkup(text.trimmed()); }

    bool processingInstruction(const QString& target, const QString& data) override
    {
        return dropMarkup("<?"_L1 + target + QLatin1Char(' ') + data + "?>"_L1);
    }

    bool startDTD(const QString& name, const QString&, const QString&) override
    {
        reviewer.drop("DOCTYPE "_L1 + name, places.markup());
        return true;
    }

private:
    /// Before the first group it hides that; an empty comment, which says nothing, does so too.
    bool dropMarkup(const QString& text)
    {
        if (!begun)
            reviewer.hideWhatFollows();
        reviewer.drop(text, places.markup());
        return true;
    }

    Reviewer& reviewer;
    toolkit::XmlPlaces& places;
    bool begun = false;
};

FileReview reviewOfXml(const QByteArray& bytes)
{
    Reviewer reviewer;
    toolkit::XmlPlaces places;
    XmlListener listener(reviewer, places);
    QBuffer device;
    device.setData(bytes);
    const bool isWellFormed = toolkit::readXml(device, listener, toolkit::NamespaceDeclarations::Keep, &places);
    FileReview review = reviewer.result();
    review.isWellFormed = isWellFormed;
    return review;
}

} // namespace

QVector<FileRemark> FileReview::only(FileRemark::Kind kind) const
{
    QVector<FileRemark> found;
    std::copy_if(remarks.begin(), remarks.end(), std::back_inserter(found),
                 [kind](const FileRemark& remark) { return remark.kind == kind; });
    return found;
}

FileReview reviewOf(const QByteArray& bytes, const QString& format)
{
    return format == "xml"_L1 ? reviewOfXml(bytes) : reviewOfBraces(bytes);
}

} // namespace settings
