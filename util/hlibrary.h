#ifndef ZELMORA_UTIL_HLIBRARY_H
#define ZELMORA_UTIL_HLIBRARY_H

#include "../toolkit/export.h"

#include <QString>

class QComboBox;
class QSqlDatabase;

/// The suite's static helpers. No instances, no state. What reads the settings creates the shared store at first use;
/// any thread may call it.
class ZELMORA_EXPORT HLibrary {
public:
    HLibrary() = delete;

    // Paths: one interface for every platform the suite has been on. On this one most have nothing to do.

    static QString appData(); ///< always empty
    static QString programFiles(); ///< always empty
    static QString dataPath(); ///< the user's home directory
    static QString toWindowsFormat(QString path); ///< the path as it is
    static QString fromUtf8(const QString& text); ///< the text as it is

    // PostgreSQL's tools: bare names, to be found on the search path.

    static QString psql();
    static QString dropdb();
    static QString pg_dump();
    static QString pg_restore();

    // From the settings. An absent key counts as empty.

    /// The program @p name in the folder "zelmora.bin.path": folder, "/" and name.
    static QString pathWithBinaryFile(const QString& name);

    /// How many copies to print, as the text that is set: "zelmora.receiptdoc.copyNumber" for "receipt", and so on
    /// for "order" (whose group is "doc"), "prefiscal", "fiscal", "invoice", "delivery" and "report", in any case.
    /// Another type is reported in one line on standard output and has the copies of "prefiscal".
    static QString copyNumber(const QString& documentType);

    static QString dbname(); ///< "zelmora.db.dbname"
    static QString username(); ///< "zelmora.db.username"
    static QString password(); ///< "zelmora.db.password"
    static QString hostname(); ///< "zelmora.db.hostname": a name, an address, or the folder of a Unix socket

    // Files. A path is text; the file has its name in the encoding that the toolkit takes for file names. With Qt 6
    // that is UTF-8, and a name that came from other bytes, which has U+FFFD in it, is that of no file.

    /// The name, not the path, of the first entry of the current directory that matches "core*" (in any case,
    /// sorted by name); empty when none does.
    static QString getCoreFile();

    /// Leaves an empty file at @p path: a missing one is made, an existing one is emptied. Failure is silent.
    static void touch(const QString& path);

    /// Copies a text file to a printer or another file piece by piece, asking the operator for paper.
    ///
    /// A piece is a line with its "\n", or the next 127 bytes of a longer line, each of which counts as one. Every
    /// piece goes out at once, and after every piece, the last one too, the thread sleeps @p pause milliseconds.
    /// After the first @p linesPerSheet + 1 pieces, and then after every @p linesPerSheet, the operator is asked for
    /// a new sheet; never when @p linesPerSheet is 0.
    ///
    /// The request is "Insert a new sheet". In a program with a QApplication that links Zelmora::utilwidgets it
    /// is a message box, for which the caller must be the GUI thread. In any other, one with windows that does not
    /// link it too, it is the line "PaperWindow: Insert a new sheet" on standard output, and a line, or the end, of
    /// standard input answers it.
    ///
    /// False when a file cannot be opened: first @p source is, then @p destination, which that empties or makes.
    /// True otherwise: whether a piece could be written is not checked, and a destination that goes away, a pipe
    /// without its reader too, changes nothing. A source that cannot be read further ends there.
    static bool copy(const QString& source, const QString& destination, unsigned int linesPerSheet, unsigned int pause);

    /// As above, with decimal numbers; text that is no 32-bit number counts as 0, and a negative number as that
    /// number and 2^32.
    static bool copy(const QString& source, const QString& destination, const QString& linesPerSheet,
                     const QString& pause);

    /// Copies the page number @p page, from 0, of @p linesPerPage pieces; pieces and pause as above, but no pause
    /// follows the last of @p linesPerPage pieces. With 0 @p linesPerPage all of the file is one page, and every page
    /// is that one.
    ///
    /// False when a file cannot be opened (as above), and when the source ends before the page begins: then the
    /// destination is empty. Page 0 of an empty file is an empty page: true.
    static bool copy(const QString& source, const QString& destination, unsigned int linesPerPage, unsigned int pause,
                     unsigned int page);

    // Numbers.

    /// An amount with two decimals, such as "12.50". The thousandths of the amount are cut to whole ones; then a
    /// positive amount is rounded half up to hundredths, and a negative one cut: 2.0051 gives "2.01", -1.239
    /// gives "-1.23".
    ///
    /// From a magnitude of 2147483.648 up the decimals of the shortest text that reads back as @p value are cut to
    /// two; such a number is written out in full, whatever its size. What is no finite number gives "0.00".
    static QString truncateDecimal(double value);

    /// A pseudo-random number from 0 to RAND_MAX in decimal: of std::rand(), which is seeded with the time in
    /// seconds at every call. Calls within one second give the same number.
    static QString getNewRand();

    // Time.

    /// Blocks the thread for whole seconds, and by less than one more when a signal is handled meanwhile. For
    /// milliseconds see SleepThread.
    static void hsleep(unsigned int seconds);

    // With widgets, and for the GUI thread alone: link Zelmora::utilwidgets.

    /// The index of the first item whose text is @p text, case and all; -1 when there is none. @p box not null.
    static int comboBoxIndexOf(QComboBox* box, const QString& text);

    // With the database: link Zelmora::db.

    /// Opens the database that the settings name through SyncSingleton<DatabaseManager>, under @p connectionName;
    /// the empty name stands for the toolkit's default connection. Result, ownership and log records are those of
    /// DatabaseManager::createConnection().
    static QSqlDatabase* newDBConnection(const QString& connectionName);
};

#endif
