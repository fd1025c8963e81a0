#include "check/jobcheck.h"

#include "check/checkingdriver.h"
#include "check/findingtext.h"
#include "check/jobnames.h"
#include "check/jobsums.h"
#include "check/jobtexts.h"
#include "check/jobvalues.h"
#include "check/printflags.h"
#include "check/xmlcauses.h"
#include "driver/registercommands.h"
#include "toolkit/xmlplaces.h"
#include "toolkit/xmlreader.h"

#include <QObject>
#include <QXmlDefaultHandler>

using toolkit::operator""_L1;

namespace check {

namespace {

/// Follows a job's events as the print program does, with the engine and the register's own driver.
class JobCheck : public QXmlDefaultHandler, private ScriptListener {
public:
    JobCheck(const JobSettings& settings, toolkit::XmlPlaces& places, JobTrace* trace)
        : settings(settings)
        , places(places)
        , trace(trace)
        , driver(settings.store, *this)
        , flags(settings)
        , texts(findings)
    {
    }

    Findings takeFindings();

    bool startDocument() override { return driver.startDocument(); }
    bool endDocument() override;
    bool startElement(const QString&, const QString&, const QString& name, const QXmlAttributes& attributes) override;
    bool endElement(const QString&, const QString&, const QString& name) override;
    bool skippedEntity(const QString& name) override;
    bool fatalError(const QXmlParseException& error) override;

private:
    /// An element that began before a method was selected.
    struct EarlyElement {
        QString name;
        toolkit::TextPlace place;
        bool isJudged; ///< it is known, and not the root
    };

    void commandMade(const ScriptCommand& command) override;
    void descriptionCut(const QString& text, int kept) override;

    bool startMethod(JobElement& element);
    void judgeDocument(const JobElement& element, bool isFirst);
    void judgeElement(const JobElement& element);
    void judgePrinters(const JobElement& element);
    void judgeEntities(const JobElement& element);
    void print(const JobElement& element);

    const JobSettings& settings;
    toolkit::XmlPlaces& places;
    JobTrace* const trace;
    Findings findings;
    CheckingDriver driver;
    PrintFlags flags;
    JobTexts texts;
    JobSums sums;

    const vocabulary::Method* method = nullptr; ///< the one that was accepted last
    bool isMethodSeen = false; ///< known or not
    bool isStopped = false; ///< by a method that is none, as the print program is
    bool isBroken = false; ///< the XML
    int depth = 0;
    TracedElement root; ///< at its end tag once that was seen
    QVector<EarlyElement> early; ///< those that are open
    QVector<EarlyElement> closedEarly;
    std::optional<toolkit::TextPlace> namelessPrinter; ///< a "printers" without a name that no "headers" printed yet
    QVector<QPair<int, QString>>
        entities; ///< of the tag that is being read: the attribute's index in the file, the name
    QSet<QPair<int, QString>> knownEntities;
    TracedElement traced; ///< what is being printed; kept for a trace only
    int commands = 0; ///< of the script so far
};

bool JobCheck::startElement(const QString&, const QString&, const QString& name, const QXmlAttributes& attributes)
{
    JobElement element(name, attributes, places);
    const bool isRoot = depth++ == 0;
    if (isRoot)
        root = {element.place(), name, QString()};
    const bool isMethod = name == "method"_L1;
    if (!isMethod && method) {
        element.method = method;
        element.entry = vocabulary::findElement(*method, name);
        element.flags = &flags;
    }
    if (!isRoot)
        judgeNames(element, findings);
    if (element.entry)
        judgeElement(element);
    entities.clear();
    knownEntities.clear();
    if (isMethod)
        return startMethod(element);
    if (!method)
        early += EarlyElement {name, element.place(), !isRoot && isKnownElement(name)};
    print(element);
    return true;
}

void JobCheck::judgeElement(const JobElement& element)
{
    judgeValues(element, findings);
    judgePrinters(element);
    judgeEntities(element);
    sums.add(element);
}

/// The name of the printer is printed by the next "headers", whatever its flag says.
void JobCheck::judgePrinters(const JobElement& element)
{
    if (element.name() == "printers"_L1) {
        namelessPrinter.reset();
        if (element.value("name"_L1).isEmpty())
            namelessPrinter = element.placeOf("name"_L1);
    } else if (element.name() == "headers"_L1 && namelessPrinter) {
        add(findings, Code::MissingAttribute, *namelessPrinter,
            QObject::tr("\"%1\" has no \"%2\": its place on the paper stays empty.").arg("printers"_L1, "name"_L1));
        namelessPrinter.reset();
    }
}

void JobCheck::judgeEntities(const JobElement& element)
{
    for (const QPair<int, QString>& entity : qAsConst(entities)) {
        const int index = element.indexOf(entity.first);
        const vocabulary::Attribute* const attribute = index < 0 ? nullptr : element.entryOf(index);
        if (attribute && element.isPrinted(*attribute))
            add(findings, Code::UnknownEntity, element.placeOf(index),
                QObject::tr("Nothing declares \"&%1;\": nothing prints in its place. An \"&\" is written &amp;.")
                    .arg(shown(entity.second)));
    }
}

void JobCheck::print(const JobElement& element)
{
    const int before = commands;
    if (trace)
        traced = {element.place(), element.name(), method ? QString(method->name) : QString()};
    texts.begin(element);
    driver.startElement(QString(), QString(), element.name(), element.attributes());
    texts.end();
    const bool isOnItsWay = !method && (depth == 1 || isKnownElement(element.name())); // its end tag will tell
    if (trace && commands == before && !isOnItsWay)
        trace->nothingWritten(traced, reasonOfSilence(element));
}

bool JobCheck::startMethod(JobElement& element)
{
    for (const EarlyElement& before : qAsConst(closedEarly))
        add(findings, Code::ElementBeforeMethod, before.place,
            QObject::tr("\"%1\" stands before \"method\": it does not print.").arg(before.name));
    closedEarly.clear();
    isMethodSeen = true;
    const bool isFirst = !method;
    if (!isFirst)
        sums.endDocument();
    const vocabulary::Method* const selected = vocabulary::findMethod(element.value("name"_L1));
    if (!selected) {
        judgeUnknownMethod(element, findings);
        if (trace)
            trace->nothingWritten({element.place(), element.name(), QString()},
                                  QObject::tr("there is no print method of its name"));
        isStopped = true;
        return false;
    }
    method = selected;
    flags.select(*method);
    print(element);
    judgeDocument(element, isFirst);
    return true;
}

void JobCheck::judgeDocument(const JobElement& element, bool isFirst)
{
    if (!isFirst)
        add(findings, Code::SecondMethod, element.place(),
            QObject::tr("A second \"method\": the document is opened twice and closed once. Make a job of each."));
    if (isFirst && !settings.places)
        add(findings, Code::SettingsMissing, element.place(),
            QObject::tr("There is no settings file %1: the job is checked as it prints without one. \"zelmora-config "
                        "new\" makes one.")
                .arg(settings.file));
    if (isSummaryOrder(*method))
        add(findings, Code::PrintsNothing, element.place(),
            QObject::tr("%1 prints nothing, whatever the job says.").arg(method->name));
    else if (!isFiscal(*method) && driver.paperWidth > driver.getPaperWidth())
        addLesser(
            findings, Code::TooWide, element.place(),
            QObject::tr("paperWidth is %1, and the register has %2 characters in a line: longer lines may not fit.")
                .arg(driver.paperWidth)
                .arg(driver.getPaperWidth()));
}

bool JobCheck::endElement(const QString&, const QString&, const QString&)
{
    --depth;
    if (depth == 0 && places.isInsideMarkup())
        root.place = places.markup(); // an empty root has no end tag
    if (early.size() <= depth)
        return true;
    const EarlyElement ended = early.takeLast();
    if (!ended.isJudged)
        return true;
    if (!isMethodSeen)
        closedEarly += ended;
    if (trace)
        trace->nothingWritten({ended.place, ended.name, QString()},
                              isMethodSeen ? QObject::tr("it stands around \"method\"")
                                           : QObject::tr("it stands before \"method\""));
    return true;
}

bool JobCheck::skippedEntity(const QString& name)
{
    const QPair<int, QString> entity(places.attributesBegun() - 1, name);
    if (!places.isInsideMarkup() || knownEntities.contains(entity))
        return true;
    knownEntities.insert(entity);
    entities += entity;
    return true;
}

bool JobCheck::endDocument()
{
    if (!isMethodSeen)
        add(findings, Code::NoMethod, root.place,
            QObject::tr("The job has no element \"method\": nothing is printed."));
    sums.endDocument();
    traced = root;
    traced.method = method ? QString(method->name) : QString();
    return driver.endDocument();
}

bool JobCheck::fatalError(const QXmlParseException& error)
{
    if (isStopped)
        return false;
    isBroken = true;
    const bool isBehindRoot = depth == 0 && !root.name.isEmpty();
    const QString cause = isBehindRoot ? xmlCauseBehindRoot(error.message()) : xmlCause(error.message());
    const QString printed = commands == 0
        ? QObject::tr("Nothing is printed.")
        : QObject::tr("Lines of the script until here: %1; the document is not closed.").arg(commands);
    add(findings, Code::NotWellFormed, places.reached(), cause + QLatin1Char(' ') + printed);
    return false;
}

void JobCheck::commandMade(const ScriptCommand& command)
{
    ++commands;
    texts.judge(command, driver.paperWidth);
    if (trace)
        trace->commandWritten(traced, command.command.chopped(registercommands::lineEnd.size()));
}

void JobCheck::descriptionCut(const QString& text, int kept)
{
    texts.judgeCut(text, kept);
}

Findings JobCheck::takeFindings()
{
    if (!isBroken)
        findings += sums.findings();
    sortByPlace(findings);
    return std::move(findings);
}

} // namespace

Findings checkJob(QIODevice& device, const JobSettings& settings, JobTrace* trace)
{
    toolkit::XmlPlaces places;
    JobCheck check(settings, places, trace);
    toolkit::readXml(device, check, toolkit::NamespaceDeclarations::Keep, &places);
    return check.takeFindings();
}

} // namespace check
