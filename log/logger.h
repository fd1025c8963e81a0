#ifndef ZELMORA_LOG_LOGGER_H
#define ZELMORA_LOG_LOGGER_H

#include "../toolkit/export.h"

#include <QString>

#include <memory>

// The levels have names that are common macros. One of them would break all that follows, and be hard to find.
#ifdef DEBUG
#error "DEBUG is a macro, but must be a level of Logger: build without -DDEBUG, or #undef it before this include"
#undef DEBUG
#endif
#ifdef INFO
#error "INFO is a macro, but must be a level of Logger: build without -DINFO, or #undef it before this include"
#undef INFO
#endif
#ifdef WARNING
#error "WARNING is a macro, but must be a level of Logger: build without -DWARNING, or #undef it before this include"
#undef WARNING
#endif
#ifdef ERROR
#error "ERROR is a macro, but must be a level of Logger: build without -DERROR, or #undef it before this include"
#undef ERROR
#endif
#ifdef FATAL
#error "FATAL is a macro, but must be a level of Logger: build without -DFATAL, or #undef it before this include"
#undef FATAL
#endif

class QFile;

namespace toolkit {
class TextEncoder;
}

/// A log file with a threshold. Place, name, threshold and open mode come from the settings:
///
///     zelmora.logger.level      below this nothing is written: DEBUG, INFO, WARNING, ERROR or FATAL
///     zelmora.logger.basedir    the folder, which must exist
///     zelmora.logger.filename   the file's name in it
///     zelmora.logger.type       APPEND adds to what the file holds, OVERWRITE empties it first
///
/// Either way each line goes to the end that the file has then: one that is emptied beneath, as a rotation of logs may
/// do, goes on from its beginning.
///
/// A line reads "[07-04-2026 13:05:09:042] ERROR: connection refused": month, day and year, the local time with
/// milliseconds, the level's word, the text. The file is UTF-8, lines end in "\n". Each line is one write to the
/// file, without a buffer: it is with the system when the operation returns, and lines of several programs that
/// append to one file do not mix.
///
/// No operation reports that a line could not be written: it is lost, and the next one is tried anew. Where the disk
/// took only the beginning of a line, the next one of this Logger begins with the missing line end; a fragment that
/// another Logger or program left stays as it is. No operation takes a lock: one thread at a time may use a Logger.
///
/// An object that is made after a Logger may log to it in its destructor, at the end of the process too; the shared
/// ones have the rules of HLogManager.
class ZELMORA_EXPORT Logger {
public:
    /// From the least severe to the most.
    enum Level : int { DEBUG, INFO, WARNING, ERROR, FATAL };

    /// Opens the log that the settings name, by setLevel() and setType() with the words found there, and writes
    /// "Start Logger" at level DEBUG. @p name is not used: all loggers of a process have the same settings.
    explicit Logger(const QString& name);
    ~Logger();

    Logger(const Logger&) = delete;
    Logger& operator=(const Logger&) = delete;

    /// Sets the threshold from one of the five words, in any case. Any other word, the empty one too, gives DEBUG:
    /// a level that nobody set hides nothing.
    void setLevel(const QString& word);

    /// Opens the file: "APPEND" or "OVERWRITE", in any case. With any other word, the empty one too, nothing is
    /// opened, and nothing will be written. A file that cannot be opened, or is open already, is reported in one
    /// line on standard output and stays as it is.
    void setType(const QString& word);

    /// Writes one line, unless @p level is below the threshold or the file is closed. The text goes out as it is:
    /// line breaks in it are kept, and nothing is cut. A level outside the enumeration has no word.
    void write(Level level, const QString& text);

    void debug(const QString& text);
    void info(const QString& text);
    void warning(const QString& text);
    void error(const QString& text);
    void fatal(const QString& text);

private:
    friend class HLogManager;

    /// Has what loggers use, and what is made at its first use, go after all that is made from now on when the process
    /// ends. The settings are not read yet.
    static void prepare();

    std::unique_ptr<QFile> file;
    std::unique_ptr<toolkit::TextEncoder> encoder; ///< all text goes through it
    bool withinLine = false; ///< whether the disk took a beginning without its line end
    Level level = DEBUG;
    QString fileName;
};

#endif
