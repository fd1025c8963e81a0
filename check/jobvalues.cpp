#include "check/jobvalues.h"

#include "check/figures.h"
#include "check/findingtext.h"
#include "check/jobnames.h"
#include "check/printflags.h"

#include <QObject>

#include <algorithm>

using toolkit::operator""_L1;

namespace check {

namespace {

using vocabulary::Attribute;
using Kind = vocabulary::AttributeKind;

/// Judges one element.
class Values {
public:
    Values(const JobElement& element, Findings& findings)
        : element(element)
        , findings(findings)
    {
    }

    void judge();

private:
    void judgeSwitchedOff();
    void judgeNamed(const Attribute& attribute);
    void judgeMissing(const Attribute& attribute, int index);
    void judgeInOrder();
    void judgeKind(const Attribute& attribute, int index);
    void judgePrice(int index, const QString& price);
    void judgeNumber(const Attribute& attribute, int index);
    void judgeAddress(int index);
    bool hasContent() const;
    QString nameOf(int index) const { return shown(element.attributes().qName(index)); }
    QString valueOf(int index) const { return element.attributes().value(index); }

    const JobElement& element;
    Findings& findings;
};

bool isFiscalTotal(const JobElement& element)
{
    return element.method && isFiscal(*element.method) && element.name() == "total"_L1;
}

/// Whether one of the attributes that the element reads says something.
bool Values::hasContent() const
{
    for (int i = 0; i < element.attributes().count(); ++i) {
        if (element.entryOf(i) && !valueOf(i).isEmpty())
            return true;
    }
    return false;
}

void Values::judge()
{
    if (element.isHiddenDish()) {
        add(findings, Code::PrintsNothing, element.place(),
            QObject::tr("A dish whose name begins with \"=\" does not print here, nor does its price."));
    } else if (isFiscalTotal(element)) {
        if (hasContent())
            add(findings, Code::PrintsNothing, element.place(),
                QObject::tr("The payments of \"total\" reach no command: the register closes the receipt by itself."));
    } else if (!element.isPrinted()) {
        judgeSwitchedOff();
    } else {
        for (const Attribute& attribute : element.entry->attributes)
            judgeNamed(attribute);
        judgeInOrder();
    }
}

/// The whole element. A top margin has no attributes.
void Values::judgeSwitchedOff()
{
    const bool hasNone = element.entry->attributes.isEmpty() && element.entry->inOrder.isEmpty();
    if (!hasNone && !hasContent())
        return;
    const QString text = element.name() == "headers"_L1
        ? QObject::tr("The lines of \"%1\" do not print, the printer's name does: %2.")
        : QObject::tr("\"%1\" does not print: %2.");
    add(findings, Code::PrintsNothing, element.place(),
        text.arg(element.name(), element.flags->whyOff(element.entry->flag)));
}

void Values::judgeNamed(const Attribute& attribute)
{
    const int index = element.attributes().index(attribute.name);
    const bool isEmpty = index < 0 || valueOf(index).isEmpty();
    if (!attribute.prints)
        return;
    if (!element.isPrinted(attribute)) {
        if (!isEmpty)
            add(findings, Code::PrintsNothing, element.placeOf(index),
                QObject::tr("\"%1\" does not print: %2.").arg(attribute.name, element.flags->whyOff(attribute.flag)));
    } else if (isEmpty) {
        judgeMissing(attribute, index);
    } else {
        judgeKind(attribute, index);
    }
}

void Values::judgeMissing(const Attribute& attribute, int index)
{
    const bool isDropped = attribute.kind != Kind::FiscalPrice && element.isDiscount();
    if (attribute.presence == vocabulary::Presence::Optional || isDropped)
        return;
    const QString text = index < 0 ? QObject::tr("\"%1\" has no \"%2\": its place on the paper stays empty.")
                                   : QObject::tr("\"%2\" of \"%1\" is empty: so is its place on the paper.");
    add(findings, Code::MissingAttribute, element.placeOf(attribute.name), text.arg(element.name(), attribute.name));
}

void Values::judgeInOrder()
{
    const int group = element.entry->inOrder.size();
    const int first = element.entry->attributes.size();
    const int count = element.attributes().count();
    for (int i = first; group > 0 && i < count; ++i) {
        const Attribute& attribute = element.entry->inOrder[(i - first) % group];
        if (!valueOf(i).isEmpty())
            judgeKind(attribute, i);
        else if (attribute.presence == vocabulary::Presence::Expected)
            add(findings, Code::MissingAttribute, element.placeOf(i),
                QObject::tr("\"%2\" of \"%1\" is empty: so is its place on the paper.").arg(element.name(), nameOf(i)));
    }
    if (group > 1 && count > first && (count - first) % group != 0)
        add(findings, Code::IncompleteRow, element.place(),
            QObject::tr("The last row of \"%1\" has %2 of %3 attributes: the rest of it stays empty.")
                .arg(element.name())
                .arg((count - first) % group)
                .arg(group));
}

void Values::judgeKind(const Attribute& attribute, int index)
{
    if (isNumeric(attribute.kind)) {
        judgeNumber(attribute, index);
    } else if (attribute.kind == Kind::Address) {
        judgeAddress(index);
    } else if (attribute.kind == Kind::Date && !isDate(valueOf(index))) {
        add(findings, Code::NotADate, element.placeOf(index),
            QObject::tr("\"%1\" is no date: it prints as it is.").arg(shown(valueOf(index))));
    }
}

/// What becomes of a text that is no number.
QString consequence(Kind kind)
{
    switch (kind) {
    case Kind::VariantQuantity:
        return QObject::tr("\"%1\" is no number with a point: the variant prints with a wrong sign or with the text.");
    case Kind::FiscalQuantity:
        return QObject::tr("\"%1\" is no number with a point: the register may take it for another field.");
    case Kind::BareRate:
        return QObject::tr("\"%1\" is no number: it prints as it is, with \"%\" behind it.");
    default:
        return QObject::tr("\"%1\" is no number: it prints as it is.");
    }
}

/// What the engine reads of a price decides whether it is a discount; the register gets no more than that then.
void Values::judgePrice(int index, const QString& price)
{
    const bool isMeantAsDiscount = price.startsWith(QLatin1Char('-'));
    QString text = QObject::tr("\"%1\" is no price: the register gets it as it is and may refuse the sale.");
    if (element.isDiscount())
        text = QObject::tr("\"%1\" is no price, and the discount may be another than is meant.");
    else if (isMeantAsDiscount)
        text = QObject::tr("\"%1\" is no price: the discount becomes a sale.");
    text = text.arg(shown(price)) + QLatin1Char(' ') + QObject::tr("Write a sign, digits and one comma or point.");
    if (isMeantAsDiscount)
        add(findings, Code::NotANumber, element.placeOf(index), text);
    else
        addLesser(findings, Code::NotANumber, element.placeOf(index), text);
}

void Values::judgeNumber(const Attribute& attribute, int index)
{
    const QString value = valueOf(index);
    const bool isDropped = attribute.kind != Kind::FiscalPrice && element.isDiscount();
    if (isNumber(attribute.kind, value) || isDropped)
        return;
    if (attribute.kind == Kind::FiscalPrice)
        judgePrice(index, value);
    else
        addLesser(findings, Code::NotANumber, element.placeOf(index), consequence(attribute.kind).arg(shown(value)));
}

/// An address ends with its first empty field.
void Values::judgeAddress(int index)
{
    const QString address = valueOf(index);
    const int end = address.startsWith(QLatin1Char(',')) ? 0 : address.indexOf(",,"_L1);
    if (end < 0)
        return;
    const auto saysSomething = [](QChar c) { return c != QLatin1Char(',') && !c.isSpace(); };
    const auto lost = std::find_if(address.begin() + end, address.end(), saysSomething);
    if (lost != address.end())
        add(findings, Code::LostText, element.placeOf(index),
            QObject::tr("The address ends with its first empty field: \"%1\" does not print.")
                .arg(shown(address.mid(static_cast<int>(lost - address.begin())))));
}

QString reasonOfEntry(const JobElement& element)
{
    if (element.isHiddenDish())
        return QObject::tr("a dish whose name begins with \"=\"");
    if (isFiscalTotal(element))
        return QObject::tr("the register closes the receipt by itself");
    if (!element.isPrinted())
        return element.flags->whyOff(element.entry->flag);
    if (element.name() == "printers"_L1)
        return QObject::tr("it is only kept for the next \"headers\"");
    if (element.name() == "geometry"_L1)
        return QObject::tr("the top margin is 0");
    return QObject::tr("the register has no command for it");
}

} // namespace

void judgeValues(const JobElement& element, Findings& findings)
{
    Values(element, findings).judge();
}

QString reasonOfSilence(const JobElement& element)
{
    if (element.entry)
        return reasonOfEntry(element);
    if (!isKnownElement(element.name()))
        return QObject::tr("no print method reads it");
    if (!element.method)
        return QObject::tr("it stands before \"method\"");
    if (isSummaryOrder(*element.method))
        return QObject::tr("%1 prints nothing").arg(element.method->name);
    return QObject::tr("%1 does not read it").arg(element.method->name);
}

} // namespace check
