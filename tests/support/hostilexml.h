#ifndef ZELMORA_TESTS_SUPPORT_HOSTILEXML_H
#define ZELMORA_TESTS_SUPPORT_HOSTILEXML_H

#include <QByteArray>

// XML at which the toolkit's reader takes its time, if nobody stops it.

/// @p count entities for a document type declaration: e0, e1 and so on, each a character long.
inline QByteArray entityDeclarations(int count)
{
    QByteArray declarations;
    for (int i = 0; i < count; ++i)
        declarations += "<!ENTITY e" + QByteArray::number(i) + " 'x'>";
    return declarations;
}

/// A root element @p root that declares @p count prefixes, p0, p1 and so on. In it is an element @p name of each, with
/// the attribute a='1'.
inline QByteArray elementsOfManyNameSpaces(int count, const QByteArray& root, const QByteArray& name)
{
    QByteArray declarations;
    QByteArray elements;
    for (int i = 0; i < count; ++i) {
        const QByteArray prefix = 'p' + QByteArray::number(i);
        declarations += " xmlns:" + prefix + "='u'";
        elements += '<' + prefix + ':' + name + " a='1'/>";
    }
    return '<' + root + declarations + '>' + elements + "</" + root + '>';
}

#endif
