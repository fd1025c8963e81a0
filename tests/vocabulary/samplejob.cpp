#include "vocabulary/samplejob.h"

#include "vocabulary/documentgroups.h"

#include <QXmlStreamReader>
#include <QtTest>

#include <algorithm>

namespace {

const char sample[] = R"(<job>
  <printers name="Cassa" charsize="1" ipaddress="192.0.2.20" port="9100"/>
  <geometry/>
  <headers title="PRECONTO" notice="Documento non fiscale" hall="Sala grande"/>
  <logo/>
  <company name="Trattoria Da Nino" address="Via dei Gelsi 12" town="Montefinto"/>
  <receipt serialnumber="1078"/>
  <invoice serialnumber="46/25"/>
  <delivery serialnumber="318"/>
  <orderinfo date="14/11/2025" time="21:05" table="3" waiter="Marco" note="Fretta" credit="12.00"/>
  <customer name="Officine Alta" billingaddress="Viale Est 5, Montefinto" deliveryaddress="Via Ovest 8, Montefinto"
            telephone="000 42" licensenumber="11111111111" fiscalcode="22222222222"/>
  <receipe department="1" number="2" name="Pappardelle al ragù di cinghiale e funghi porcini" price="7.50"
           totalPrice="15.00" quantity="4" description="Baccalà mantecato con polenta bianca e radicchio" amount="6.00"/>
  <otherreceipe number="3" name="Risotto alla milanese con ossobuco e midollo"/>
  <variant quantity="2" name="zucchine in fiore ripiene di ricotta e acciughe" number="1" price="0.50"
           totalPrice="0.70"/>
  <receipe_type department="2" number="5" name="Antipasti della casa e fritture miste di pesce" price="26.50"/>
  <total price="23.00" cash="8.00" creditCard="5.00" cheque="4.00" ticket="3.00" discountRate="10"/>
  <notPaid price="5.50"/>
  <totals taxable="240.00" taxrate="10%" tax="24.00" total="264.00"/>
  <date begindate="14/11/2025" enddate="15/11/2025"/>
  <prefiscalssummary number="39" total="3836.80"/>
  <receiptssummary number="36" firstserial="1042" lastserial="1079" notPaid="37.50" cash="812.40"
                   creditCard="934.00" bancomat="221.60" other="48.00" total="2053.50"/>
  <taxrate_item taxrate="22" taxable="142.62" tax="31.38" amount="174.00"/>
  <invoicessummary number="3" firstserial="45/25" lastserial="47/25" taxable="1621.18" tax="162.12" total="1783.30"/>
  <cancelledsummary number="2" totals="84.80" serial1="1051" total1="38.50" taxrate1="10%" serial2="1060"
                    total2="46.30" taxrate2="10%"/>
  <statement_list/>
  <statement date="16/10/2025" type="Fornitura di vini per la festa patronale" amount="198.00"/>
</job>)";

SampleElement elementHere(const QXmlStreamReader& reader)
{
    SampleElement element {reader.name().toString(), {}};
    for (const QXmlStreamAttribute& attribute : reader.attributes())
        element.attributes += {attribute.name().toString(), attribute.value().toString()};
    return element;
}

bool hasAttribute(const SampleElement& element, const QString& name)
{
    return std::any_of(element.attributes.begin(), element.attributes.end(),
                       [&](const SampleAttribute& attribute) { return attribute.name == name; });
}

QStringList attributeNamesOfAll(const SampleJob& job)
{
    QStringList names {"colour"};
    for (const SampleElement& element : job) {
        for (const SampleAttribute& attribute : element.attributes)
            names += attribute.name;
    }
    names.removeDuplicates();
    return names;
}

} // namespace

SampleJob sampleJob()
{
    SampleJob job;
    QXmlStreamReader reader {QString(sample)};
    reader.readNextStartElement(); // the root
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement)
            job += elementHere(reader);
    }
    if (reader.hasError())
        qFatal("The sample job: %s", qPrintable(reader.errorString()));
    return job;
}

SampleJob sampleJobWithForeignAttributes()
{
    SampleJob job = sampleJob();
    const QStringList names = attributeNamesOfAll(job);
    for (SampleElement& element : job) {
        if (vocabulary::takesAnyAttribute(element.name))
            continue;
        for (const QString& name : names) {
            if (!hasAttribute(element, name))
                element.attributes += {name, "7"};
        }
    }
    return job;
}

SampleJob without(const SampleJob& job, int element)
{
    SampleJob rest = job;
    rest.removeAt(element);
    return rest;
}

SampleJob withValue(const SampleJob& job, int element, int attribute, const QString& value)
{
    SampleJob changed = job;
    changed[element].attributes[attribute].value = value;
    return changed;
}

QString otherValue(const SampleAttribute& attribute)
{
    return '9' + attribute.value;
}

const vocabulary::Attribute* attributeRead(const vocabulary::Method& method, const SampleElement& element, int index)
{
    const vocabulary::Element* const read = vocabulary::findElement(method, element.name);
    if (!read)
        return nullptr;
    if (const vocabulary::Attribute* const named = vocabulary::findAttribute(*read, element.attributes[index].name))
        return named;
    const int position = index - read->attributes.size();
    return read->inOrder.isEmpty() || position < 0 ? nullptr : &read->inOrder[position % read->inOrder.size()];
}

QStringList printFlags()
{
    QStringList flags;
    for (const char* flag :
         {"Geometry", "Header", "Logo", "Company", "DeliveryAddress", "BillingAddress", "Telephone", "Date", "Time",
          "Table", "Customer", "LicenseNumber", "FiscalCode", "Credit", "Waiter", "Note"})
        flags += QString("print") + flag;
    return flags << "openCashDrawer";
}

SampleSettings sampleSettingsWithFlags(const QStringList& flags)
{
    SampleSettings settings {{"quantityFieldWidth", "3"}, {"priceFieldWidth", "7"},   {"totalPriceFieldWidth", "9"},
                             {"paperWidth", "48"},        {"paperRows", "50"},        {"style", "normal"},
                             {"topMargin", "2"},          {"descriptionWidth", "20"}, {"copyNumber", "2"}};
    for (const QString& flag : printFlags())
        settings[flag] = flags.contains(flag) ? "true" : "false";
    return settings;
}

SampleSettings sampleSettings()
{
    return sampleSettingsWithFlags(printFlags());
}

QByteArray settingsText(const QMap<QString, SampleSettings>& groups)
{
    QString text = "zelmora: {\n";
    for (auto group = groups.begin(); group != groups.end(); ++group) {
        text += group.key() + ": {\n";
        for (auto setting = group->begin(); setting != group->end(); ++setting)
            text += setting.key() + " = \"" + setting.value() + "\";\n";
        text += "};\n";
    }
    return (text + "};\n").toUtf8();
}

void addMethodRows()
{
    QTest::addColumn<int>("method");
    for (int i = 0; i < vocabulary::methods().size(); ++i)
        QTest::newRow(vocabulary::methods()[i].name.data()) << i;
}

QByteArray SampleRun::script(const vocabulary::Method& method, const SampleJob& job, const SampleSettings& settings)
{
    return scriptWithFile(method, job, settingsText({{documentgroups::ofType(method.documentType), settings}}));
}

QByteArray SampleRun::scriptWithFile(const vocabulary::Method& method, const SampleJob& job,
                                     const QByteArray& settingsFile)
{
    QByteArray text;
    QXmlStreamWriter writer(&text);
    writer.writeStartElement("job");
    writer.writeEmptyElement("method");
    writer.writeAttribute("name", method.name);
    for (const SampleElement& element : job) {
        writer.writeEmptyElement(element.name);
        for (const SampleAttribute& attribute : element.attributes)
            writer.writeAttribute(attribute.name, attribute.value);
    }
    writer.writeEndElement();
    run.setSettings(settingsFile);
    const QByteArray script = run.print(text);
    return script + run.remarks();
}
