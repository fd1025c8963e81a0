#include "check/schema.h"

#include "vocabulary/jobs.h"

#include <QXmlStreamWriter>

#include <algorithm>
#include <iterator>

using toolkit::operator""_L1;

namespace check {

namespace {

using vocabulary::AttributeKind;

const QLatin1String roots[] = {"printjob"_L1, "job"_L1};
const QLatin1String methodElement = "method"_L1;
const QLatin1String methodNames = "methodName"_L1;
const QLatin1String anyElements = "elements"_L1;

/// What an attribute holds, for whoever writes it.
struct Kind {
    AttributeKind kind;
    QLatin1String sentence;
};

// clang-format off
constexpr Kind kinds[] = {
    {AttributeKind::Text, "A text."_L1},
    {AttributeKind::Description, "A text; what does not fit its column is cut."_L1},
    {AttributeKind::MovementType, "The kind of the movement, in Western European characters."_L1},
    {AttributeKind::Address, "Lines separated by commas, up to the first empty one."_L1},
    {AttributeKind::Quantity, "A quantity."_L1},
    {AttributeKind::VariantQuantity, "A quantity, with a point; 1, -1 and 0 print as signs."_L1},
    {AttributeKind::FiscalQuantity, "A quantity, with a point."_L1},
    {AttributeKind::Amount, "An amount."_L1},
    {AttributeKind::FiscalPrice, "A price: sign, digits, one comma or point; below 0 it is a discount."_L1},
    {AttributeKind::Rate, "A rate in percent, with or without \"%\"."_L1},
    {AttributeKind::BareRate, "A rate in percent, without \"%\"."_L1},
    {AttributeKind::Date, "A date: day, month and year, or year-month-day."_L1},
    {AttributeKind::SerialNumber, "A serial number."_L1},
};
// clang-format on

QLatin1String sentence(AttributeKind kind)
{
    const auto found =
        std::find_if(std::begin(kinds), std::end(kinds), [&](const Kind& row) { return row.kind == kind; });
    return found == std::end(kinds) ? QLatin1String() : found->sentence;
}

QString namesOf(const QVector<const vocabulary::Method*>& methods)
{
    QStringList names;
    for (const vocabulary::Method* const method : methods)
        names += method->name;
    return names.join(", "_L1);
}

/// What the methods that read it make of an attribute: one sentence for each kind.
QString sentences(const QString& element, const QString& attribute)
{
    QStringList texts;
    for (const vocabulary::Method* const method : vocabulary::methodsReading(element, attribute)) {
        const vocabulary::Element* const reader = vocabulary::findElement(*method, element);
        const vocabulary::Attribute* const read = reader ? vocabulary::findAttribute(*reader, attribute) : nullptr;
        const QString text = read ? QString(sentence(read->kind)) : QString();
        if (!texts.contains(text))
            texts += text;
    }
    return texts.join(u' ');
}

class SchemaWriter {
public:
    QByteArray write();

private:
    void begin(QLatin1String tag) { xml.writeStartElement("xs:"_L1 + tag); }
    void begin(QLatin1String tag, const QString& name);
    void end() { xml.writeEndElement(); }
    void write(const char* name, const QString& value) { xml.writeAttribute(QLatin1String(name), value); }
    void document(const QString& text);

    void writeRoots();
    void writeMethodNames();
    void writeAnyElements();
    void writeForeignElements();
    void writeElement(const QString& name);
    void writeAttributes(const QString& element);
    void writeContent();
    void writeAnyAttribute();

    QByteArray bytes;
    QXmlStreamWriter xml {&bytes};
};

void SchemaWriter::begin(QLatin1String tag, const QString& name)
{
    begin(tag);
    write("name", name);
}

void SchemaWriter::document(const QString& text)
{
    begin("annotation"_L1);
    xml.writeTextElement(QStringLiteral("xs:documentation"), text);
    end();
}

QByteArray SchemaWriter::write()
{
    xml.setAutoFormatting(true);
    xml.setAutoFormattingIndent(2);
    xml.writeStartDocument();
    begin("schema"_L1);
    write("xmlns:xs", QStringLiteral("http://www.w3.org/2001/XMLSchema"));
    document(
        QStringLiteral("The names that a job may hold. zelmora-check tells what a job of these names says wrong."));
    writeRoots();
    writeMethodNames();
    writeAnyElements();
    end();
    xml.writeEndDocument();
    return bytes;
}

void SchemaWriter::writeRoots()
{
    begin("complexType"_L1, roots[0]);
    write("mixed", QStringLiteral("true"));
    writeContent();
    writeAnyAttribute();
    end();
    for (const QLatin1String root : roots) {
        begin("element"_L1, root);
        write("type", roots[0]);
        end();
    }
}

void SchemaWriter::writeMethodNames()
{
    begin("simpleType"_L1, methodNames);
    begin("restriction"_L1);
    write("base", QStringLiteral("xs:string"));
    for (const vocabulary::Method& method : vocabulary::methods()) {
        begin("enumeration"_L1);
        write("value", method.name);
        end();
    }
    end();
    end();
}

/// The elements are no roots: they stand in a group that they refer to themselves.
void SchemaWriter::writeAnyElements()
{
    begin("group"_L1, anyElements);
    begin("choice"_L1);
    for (const QString& name : vocabulary::elementNames())
        writeElement(name);
    writeForeignElements();
    end();
    end();
}

/// The print program reads names as they stand, with their prefix, and hears nothing of the namespace that a
/// declaration without a prefix gives them; a schema can name the elements of one namespace alone. So those of others
/// are let pass.
void SchemaWriter::writeForeignElements()
{
    begin("any"_L1);
    write("namespace", QStringLiteral("##other"));
    write("processContents", QStringLiteral("skip"));
    end();
}

void SchemaWriter::writeElement(const QString& name)
{
    begin("element"_L1, name);
    document(name == methodElement ? QStringLiteral("The print method, before the elements that it reads.")
                                   : "Read by "_L1 + namesOf(vocabulary::methodsReading(name)) + u'.');
    begin("complexType"_L1);
    write("mixed", QStringLiteral("true"));
    writeContent();
    writeAttributes(name);
    if (vocabulary::takesAnyAttribute(name))
        writeAnyAttribute();
    end();
    end();
}

void SchemaWriter::writeAttributes(const QString& element)
{
    for (const QString& name : vocabulary::attributeNames(element)) {
        begin("attribute"_L1, name);
        write("type", element == methodElement ? QString(methodNames) : QStringLiteral("xs:string"));
        const QString text = sentences(element, name);
        if (!text.isEmpty())
            document(text);
        end();
    }
}

void SchemaWriter::writeContent()
{
    begin("group"_L1);
    write("ref", anyElements);
    write("minOccurs", QStringLiteral("0"));
    write("maxOccurs", QStringLiteral("unbounded"));
    end();
}

void SchemaWriter::writeAnyAttribute()
{
    begin("anyAttribute"_L1);
    write("processContents", QStringLiteral("skip"));
    end();
}

} // namespace

QByteArray jobSchema()
{
    return SchemaWriter().write();
}

} // namespace check
