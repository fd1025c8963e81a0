#ifndef ZELMORA_TESTS_PREVIEW_PAPERRUN_H
#define ZELMORA_TESTS_PREVIEW_PAPERRUN_H

#include "support/examples.h"

/// Runs the real `zelmora-paper`, in UTF-8, in a home without settings.
class PaperRun : public ProgramRun {
public:
    explicit PaperRun(const QString& program = QStringLiteral(ZELMORA_PAPER_PROGRAM))
        : ProgramRun(program)
    {
        setEnvironment("LC_ALL", QStringLiteral("C.UTF-8"));
    }

    int statusOf(const QStringList& arguments)
    {
        start(arguments);
        return exitStatus;
    }

    QByteArray fileOf(const char* name) const { return fileContents(path(name)); }
};

/// A non-fiscal script of these lines.
inline QByteArray script(const QByteArrayList& lines)
{
    QByteArray text = "nofis apri\r\n";
    for (const QByteArray& line : lines)
        text += "nofis riga='" + line + "'\r\n";
    return text + "nofis chiudi\r\n";
}

/// A job that prints the line " Note: ..." and a rule; the settings say whether, as simpleSettings() do.
inline QByteArray jobOf(const QByteArray& note)
{
    return "<printjob><method name=\"printSold\"/><orderinfo note=\"" + note + "\"/></printjob>";
}

inline QList<QString> rowsOf(const QString& note)
{
    return {" Note: " + note, QString(32, u'=')};
}

inline QByteArray simpleSettings(const QByteArray& flag = "true")
{
    return "zelmora: { solddoc: { paperWidth = 32; printNote = " + flag + "; }; };";
}

/// Lines of text as the terminal frames them: each of at most 32 columns.
inline QByteArray framed(const QByteArray& title, const QList<QString>& lines)
{
    QString text = QString::fromUtf8(title) + "\n┌" + QString(32, u'─') + "┐\n";
    for (const QString& line : lines)
        text += "│" + line.leftJustified(32) + "│\n";
    return (text + "└" + QString(32, u'─') + "┘\n").toUtf8();
}

#endif
