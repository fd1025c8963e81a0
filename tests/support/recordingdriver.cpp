#include "support/recordingdriver.h"

#include "toolkit/literals.h"

#include <utility>

using toolkit::operator""_L1;

namespace {

QString quoted(const QString& text)
{
    return QLatin1Char('"') + text + QLatin1Char('"');
}

} // namespace

QXmlAttributes xmlAttributes(const Attributes& attributes)
{
    QXmlAttributes result;
    for (const auto& attribute : attributes) {
        const QString name = QString::fromUtf8(attribute.first);
        result.append(name, QString(), name, QString::fromUtf8(attribute.second));
    }
    return result;
}

RecordingDriver::RecordingDriver(const QString& path, bool append)
    : PrinterDriver(path, append)
{
}

bool RecordingDriver::element(const char* qName, const Attributes& attributes)
{
    const QString name = QString::fromUtf8(qName);
    const bool accepted = startElement(QString(), QString(), name, xmlAttributes(attributes));
    return endElement(QString(), QString(), name) && accepted;
}

QStringList RecordingDriver::takeCalls()
{
    return std::exchange(calls, QStringList());
}

int RecordingDriver::getPaperWidth()
{
    return 30;
}

void RecordingDriver::reset()
{
    calls += "reset()"_L1;
}

void RecordingDriver::setBold()
{
    calls += "setBold()"_L1;
}

void RecordingDriver::setCharSize()
{
    calls += "setCharSize()"_L1;
}

void RecordingDriver::setCharSize(int size)
{
    calls += QStringLiteral("setCharSize(%1)").arg(size);
}

void RecordingDriver::setCenterJustify()
{
    calls += "setCenterJustify()"_L1;
}

void RecordingDriver::fullCut()
{
    calls += "fullCut()"_L1;
}

void RecordingDriver::generatePulse()
{
    calls += "generatePulse()"_L1;
}

void RecordingDriver::startSection()
{
    calls += "startSection()"_L1;
}

void RecordingDriver::endSection()
{
    calls += "endSection()"_L1;
}

void RecordingDriver::initPrinter()
{
    calls += "initPrinter()"_L1;
}

void RecordingDriver::print(unsigned int width, const QString& text)
{
    calls += "print("_L1 + QString::number(width) + ", "_L1 + quoted(text) + QLatin1Char(')');
}

void RecordingDriver::println(unsigned int width, const QString& text)
{
    calls += "println("_L1 + QString::number(width) + ", "_L1 + quoted(text) + QLatin1Char(')');
}

void RecordingDriver::println(const QString& text)
{
    calls += "println("_L1 + quoted(text) + QLatin1Char(')');
}

void RecordingDriver::printRowFiscal(const QString& qName, const QXmlAttributes& atts)
{
    QStringList parts {quoted(qName)};
    for (int i = 0; i < atts.count(); ++i)
        parts += atts.qName(i) + QLatin1Char('=') + quoted(atts.value(i));
    calls += "printRowFiscal("_L1 + parts.join(", "_L1) + QLatin1Char(')');
}

void RecordingDriver::printRowFiscal(const QString& department, const QString& quantity, const QString& description,
                                     const QString& price)
{
    const QStringList parts {quoted(department), quoted(quantity), quoted(description), quoted(price)};
    calls += "printRowFiscal("_L1 + parts.join(", "_L1) + QLatin1Char(')');
}

void RecordingDriver::printLogo()
{
    calls += "printLogo()"_L1;
}
