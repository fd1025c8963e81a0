#include "check/jobnames.h"

#include "check/findingtext.h"
#include "toolkit/nearest.h"

#include <QObject>

using toolkit::operator""_L1;

namespace check {

namespace {

const QStringList& allElements()
{
    static const QStringList names = vocabulary::elementNames();
    return names;
}

/// What the element's own method reads comes first: of two names that are equally near it is the likelier one.
QString nearestElement(const JobElement& element)
{
    QStringList names;
    if (element.method) {
        for (const vocabulary::Element* const candidate : vocabulary::elementsOf(*element.method))
            names += candidate->name;
    }
    return toolkit::nearest(element.name(), names + allElements());
}

QString nearestAttribute(const JobElement& element, const QString& name)
{
    QStringList names;
    if (element.entry) {
        for (const vocabulary::Attribute& candidate : element.entry->attributes)
            names += candidate.name;
    }
    return toolkit::nearest(name, names + vocabulary::attributeNames(element.name()));
}

void judgeElementName(const JobElement& element, Findings& findings)
{
    const QString name = shown(element.name());
    if (!isKnownElement(element.name())) {
        const QString meant = nearestElement(element);
        const QString text = QObject::tr("No print method reads an element \"%1\": it does not print.").arg(name);
        add(findings, Code::UnknownElement, element.place(), withQuestion(text, meant), meant);
    } else if (element.method && !element.entry && !isSummaryOrder(*element.method)) {
        add(findings, Code::IgnoredElement, element.place(),
            QObject::tr("%1 does not read \"%2\": it does not print. These read it: %3.")
                .arg(element.method->name, name, namesOf(vocabulary::methodsReading(element.name()))));
    }
}

void judgeRepeated(const JobElement& element, int index, Findings& findings)
{
    const QString name = shown(element.attributes().qName(index));
    // What is read in its order is read twice.
    const QString text = element.entryOf(index)
        ? QObject::tr(
            "\"%1\" stands twice in \"%2\", which XML forbids: it prints twice here, and other programs reject "
            "the job.")
        : QObject::tr("\"%1\" stands twice in \"%2\": the second one does not print.");
    add(findings, Code::RepeatedAttribute, element.placeOf(index), text.arg(name, shown(element.name())));
}

/// An attribute that the element's method does not read, if there is one.
void judgeUnread(const JobElement& element, int index, Findings& findings)
{
    const QString name = element.attributes().qName(index);
    const bool isSkipped = element.entry && !element.entry->inOrder.isEmpty(); // one of the first, by a wrong name
    const QVector<const vocabulary::Method*> readers =
        isSkipped ? QVector<const vocabulary::Method*>() : vocabulary::methodsReading(element.name(), name);
    if (readers.isEmpty()) {
        const QString meant = nearestAttribute(element, name);
        const QString text = QObject::tr("No print method reads an attribute \"%1\" of \"%2\": it does not print.")
                                 .arg(shown(name), element.name());
        add(findings, Code::UnknownAttribute, element.placeOf(index), withQuestion(text, meant), meant);
    } else if (element.entry) {
        add(findings, Code::IgnoredAttribute, element.placeOf(index),
            QObject::tr("%1 does not read \"%2\" of \"%3\": it does not print. These read it: %4.")
                .arg(element.method->name, name, element.name(), namesOf(readers)));
    }
}

} // namespace

bool isKnownElement(const QString& name)
{
    return allElements().contains(name);
}

void judgeNames(const JobElement& element, Findings& findings)
{
    if (!element.entry)
        judgeElementName(element, findings);
    if (!element.entry && !isKnownElement(element.name()))
        return;
    for (int i = 0; i < element.attributes().count(); ++i) {
        if (element.isRepeated(i))
            judgeRepeated(element, i, findings);
        else if (!element.entryOf(i))
            judgeUnread(element, i, findings);
    }
}

void judgeUnknownMethod(const JobElement& element, Findings& findings)
{
    const QString name = element.value("name"_L1);
    QStringList names;
    for (const vocabulary::Method& method : vocabulary::methods())
        names += method.name;
    const QString meant = toolkit::nearest(name, names);
    const bool isNamed = element.attributes().index("name"_L1) >= 0;
    const QString text = isNamed ? QObject::tr("There is no print method \"%1\": printing stops here.").arg(shown(name))
                                 : QObject::tr("\"method\" has no \"name\": printing stops here.");
    add(findings, Code::UnknownMethod, element.placeOf("name"_L1), withQuestion(text, meant), meant);
}

} // namespace check
