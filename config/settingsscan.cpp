#include "config/settingsscan.h"

#include "config/bracescanner.h"
#include "toolkit/literals.h"
#include "toolkit/xmlplaces.h"
#include "toolkit/xmlreader.h"

#include <QBuffer>
#include <QXmlDefaultHandler>

#include <memory>
#include <tuple>
#include <utility>

using toolkit::operator""_L1;
using toolkit::TextPlace;

namespace libconfig {

namespace {

/// Tells a listener what the scanner of the brace format meets.
class BraceTeller {
public:
    BraceTeller(const QByteArray& bytes, SettingsListener& listener)
        : size(bytes.size())
        , places(bytes)
        , listener(listener)
    {
    }

    void tell(BraceScanner& scanner)
    {
        for (ScanEvent event = scanner.next(); event.kind != ScanEvent::Kind::EndOfInput; event = scanner.next()) {
            if (event.kind == ScanEvent::Kind::GroupEnds && depth == 0) {
                hasEnded = true;
                rest = scanner.rest();
            } else {
                tell(event);
            }
        }
        skip(rest, SkippedText::AfterEnd);
    }

    TextPlace end() { return places.at(size); }

private:
    /// Asked for in the order of the file.
    std::pair<QString, TextPlace> placed(const ScannedText& text)
    {
        std::pair<QString, qint64> found = text.trimmed();
        return {std::move(found.first), places.at(found.second)};
    }

    void tell(const ScanEvent& event)
    {
        switch (event.kind) {
        case ScanEvent::Kind::GroupBegins: {
            ++depth;
            const auto [name, place] = placed(event.text);
            listener.groupBegins(name, place);
            break;
        }
        case ScanEvent::Kind::GroupEnds:
            --depth;
            listener.groupEnds(places.at(event.text.offset));
            break;
        case ScanEvent::Kind::Setting:
            tellSetting(event);
            break;
        case ScanEvent::Kind::Skipped:
            skip(event.text, reasonOf(event));
            break;
        case ScanEvent::Kind::EndOfInput:
            break;
        }
    }

    void tellSetting(const ScanEvent& event)
    {
        ScannedSetting setting;
        std::tie(setting.name, setting.place) = placed(event.text);
        setting.assignedPlace = places.at(event.value.offset);
        std::tie(setting.written, setting.writtenPlace) = placed(event.value);
        setting.value = setting.written;
        setting.value.remove(QLatin1Char('"'));
        setting.isEnded = event.value.offset + static_cast<qint64>(event.value.bytes.size()) < size;
        listener.setting(setting);
    }

    SkippedText reasonOf(const ScanEvent& event) const
    {
        switch (event.reason) {
        case ScanEvent::Reason::BeforeBrace:
            return SkippedText::BeforeBrace;
        case ScanEvent::Reason::AfterBrace:
            return hasEnded ? SkippedText::AfterEnd : SkippedText::AfterBrace;
        case ScanEvent::Reason::TooDeep:
            return SkippedText::TooDeep;
        case ScanEvent::Reason::BeforeEnd:
        case ScanEvent::Reason::None:
            break;
        }
        return SkippedText::BeforeEnd;
    }

    void skip(const ScannedText& text, SkippedText reason)
    {
        const auto [skipped, place] = placed(text);
        if (!skipped.isEmpty())
            listener.skipped(skipped, place, reason);
    }

    const qint64 size;
    toolkit::TextPlaces places;
    SettingsListener& listener;
    int depth = 0; ///< of groups that are open
    bool hasEnded = false; ///< by a "}" outside every group
    ScannedText rest; ///< what follows that, but for the text up to the next ";"
};

SettingsEnd scanBraces(const QByteArray& bytes, SettingsListener& listener)
{
    BraceTeller teller(bytes, listener);
    const std::unique_ptr<BraceScanner> scanner = BraceScanner::over(bytes);
    if (scanner)
        teller.tell(*scanner);
    return {true, teller.end()};
}

/// Tells a listener what the reader of XML delivers.
class XmlTeller : public QXmlDefaultHandler {
public:
    XmlTeller(SettingsListener& listener, toolkit::XmlPlaces& places)
        : listener(listener)
        , places(places)
    {
    }

    bool startElement(const QString&, const QString&, const QString& qName, const QXmlAttributes& attributes) override
    {
        begun = true;
        listener.groupBegins(qName, places.markup());
        for (int i = 0; i < attributes.count(); ++i) {
            const TextPlace place = places.attribute(i);
            const QString value = attributes.value(i);
            listener.setting({attributes.qName(i), place, value, value, place, place});
        }
        return true;
    }

    bool endElement(const QString&, const QString&, const QString&) override
    {
        listener.groupEnds(places.markup());
        return true;
    }

    bool characters(const QString& text) override
    {
        const QString trimmed = text.trimmed();
        if (!trimmed.isEmpty())
            listener.skipped(trimmed, places.isInsideMarkup() ? places.markup() : places.text(), SkippedText::XmlText);
        return true;
    }

    bool skippedEntity(const QString& name) override { return characters(QLatin1Char('&') + name + QLatin1Char(';')); }

    bool comment(const QString& text) override { return skipMarkup(text.trimmed()); }

    bool processingInstruction(const QString& target, const QString& data) override
    {
        return skipMarkup("<?"_L1 + target + QLatin1Char(' ') + data + "?>"_L1);
    }

    bool startDTD(const QString& name, const QString&, const QString&) override
    {
        listener.skipped("DOCTYPE "_L1 + name, places.markup(), SkippedText::XmlMarkup);
        return true;
    }

private:
    bool skipMarkup(const QString& text)
    {
        listener.skipped(text, places.markup(), begun ? SkippedText::XmlMarkup : SkippedText::XmlBeginning);
        return true;
    }

    SettingsListener& listener;
    toolkit::XmlPlaces& places;
    bool begun = false;
};

SettingsEnd scanXml(const QByteArray& bytes, SettingsListener& listener)
{
    toolkit::XmlPlaces places;
    XmlTeller teller(listener, places);
    QBuffer device;
    device.setData(bytes);
    const bool isWellFormed = toolkit::readXml(device, teller, toolkit::NamespaceDeclarations::Keep, &places);
    return {isWellFormed, places.reached()};
}

} // namespace

QString settingsFormat(const QString& path)
{
    return path.endsWith(".xml"_L1, Qt::CaseInsensitive) ? QStringLiteral("xml") : QStringLiteral("cfg");
}

SettingsEnd scanSettings(const QByteArray& bytes, const QString& format, SettingsListener& listener)
{
    return format == "xml"_L1 ? scanXml(bytes, listener) : scanBraces(bytes, listener);
}

} // namespace libconfig
