#include "check/xmlcauses.h"

#include "toolkit/xmlreader.h"

#include <QObject>
#include <QString>

using toolkit::operator""_L1;

namespace check {

namespace {

struct Cause {
    QLatin1String message;
    const char* words; ///< to be translated
};

const char declaration[] = QT_TRANSLATE_NOOP("QObject",
                                             "The XML declaration must be the first thing in the file and look like "
                                             "<?xml version=\"1.0\" encoding=\"UTF-8\"?>.");
const char typeDeclaration[] = QT_TRANSLATE_NOOP("QObject", "The document type declaration is not as it must be.");
const char reference[] = QT_TRANSLATE_NOOP("QObject",
                                           "The reference that begins with \"&\" is not as it must be. An \"&\" by "
                                           "itself is written &amp; with the semicolon.");

// clang-format off
constexpr Cause causes[] = {
    {"unexpected end of file"_L1, QT_TRANSLATE_NOOP("QObject", "The file ends in the middle: something is still open.")},
    {"tag mismatch"_L1, QT_TRANSLATE_NOOP("QObject", "The end tag does not belong to the element that is open.")},
    {"error occurred while parsing element"_L1, QT_TRANSLATE_NOOP("QObject", "The tag is not as it must be: names, \"=\" and values in quotes.")},
    {"unexpected character"_L1, QT_TRANSLATE_NOOP("QObject", "The character must not stand here. Values stand in quotes; inside them \"<\" is written &lt;, a quote &quot; or &apos;.")},
    {"letter is expected"_L1, QT_TRANSLATE_NOOP("QObject", "A name is due here. An \"&\" is written &amp; and a \"<\" is written &lt;.")},
    {"error occurred while parsing comment"_L1, QT_TRANSLATE_NOOP("QObject", "The comment is not as it must be: there is no \"--\" inside one.")},
    {"error occurred while parsing content"_L1, QT_TRANSLATE_NOOP("QObject", "This must not stand here.")},
    {"error occurred while parsing reference"_L1, reference},
    {"recursive entities"_L1, reference},
    {"unparsed entity reference in wrong context"_L1, reference},
    {"external parsed general entity reference not allowed in attribute value"_L1, reference},
    {"external parsed general entity reference not allowed in DTD"_L1, reference},
    {"internal general entity reference not allowed in DTD"_L1, reference},
    {"invalid name for processing instruction"_L1, declaration},
    {"version expected while reading the XML declaration"_L1, declaration},
    {"wrong value for standalone declaration"_L1, declaration},
    {"encoding declaration or standalone declaration expected while reading the XML declaration"_L1, declaration},
    {"standalone declaration expected while reading the XML declaration"_L1, declaration},
    {"error in the text declaration of an external entity"_L1, declaration},
    {"error occurred while parsing document type definition"_L1, typeDeclaration},
    {"more than one document type definition"_L1, typeDeclaration},
    {toolkit::xmlbounds::nesting, QT_TRANSLATE_NOOP("QObject", "Elements stand more than 1,000 deep in each other.")},
    {toolkit::xmlbounds::declaration, QT_TRANSLATE_NOOP("QObject", "The document type declaration is longer than the print program reads.")},
    {toolkit::xmlbounds::entity, QT_TRANSLATE_NOOP("QObject", "The entity stands for more than 1,000 characters, or for one that is declared later or never.")},
    {toolkit::xmlbounds::references, QT_TRANSLATE_NOOP("QObject", "The job declares entities and has more \"&\" than the print program reads.")},
};
// clang-format on

} // namespace

QString xmlCause(const QString& message)
{
    for (const Cause& cause : causes) {
        if (message == cause.message)
            return QObject::tr(cause.words);
    }
    return QObject::tr("The XML is not as it must be (%1).").arg(message);
}

QString xmlCauseBehindRoot(const QString& message)
{
    if (message == "unexpected character"_L1)
        return QObject::tr("The job has ended with its outermost element: nothing may stand behind it.");
    return xmlCause(message);
}

} // namespace check
