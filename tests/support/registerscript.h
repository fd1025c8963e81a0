#ifndef ZELMORA_TESTS_SUPPORT_REGISTERSCRIPT_H
#define ZELMORA_TESTS_SUPPORT_REGISTERSCRIPT_H

#include <QByteArrayList>

// Scripts for the cash register, written without the driver's own table of commands.

/// Each command on a line of its own.
inline QByteArray commands(const QByteArrayList& texts)
{
    return texts.isEmpty() ? QByteArray() : texts.join("\r\n") + "\r\n";
}

/// The command that prints @p text as one line of an ordinary document.
inline QByteArray line(const QByteArray& text)
{
    return commands({"nofis riga='" + text + "'"});
}

/// The text of a rule over a paper of @p width characters: the register's own has 32.
inline QByteArray rule(int width = 32)
{
    return QByteArray(width, '=');
}

/// What an ordinary document prints that breaks off behind the lines @p texts.
inline QByteArray openDocument(const QByteArrayList& texts)
{
    QByteArray script = commands({"nofis apri"});
    for (const QByteArray& text : texts)
        script += line(text);
    return script;
}

/// An ordinary document of the lines @p texts.
inline QByteArray document(const QByteArrayList& texts)
{
    return openDocument(texts) + commands({"nofis chiudi"});
}

/// A fiscal receipt of the commands @p texts.
inline QByteArray fiscalReceipt(const QByteArrayList& texts)
{
    return commands({"CLEAR ", "CHIAVE REG"}) + commands(texts) + commands({"CHIUS T=1"});
}

#endif
