#ifndef ZELMORA_PREVIEW_COMMANDLINE_H
#define ZELMORA_PREVIEW_COMMANDLINE_H

#include <QString>
#include <QStringList>

class QTextCodec;

namespace preview {

/// What a drawing is made as.
enum class Form { Text, Svg, Png, Pdf };

/// What `zelmora-paper [options] script.txt|job.xml...` is called for.
struct Call {
    enum class Task {
        Draw,
        Proof, ///< of the samples
        Compare, ///< two scripts, or two folders of them
        Rehearse, ///< jobs with other settings
        Help,
        Version
    };

    Task task = Task::Draw;
    QStringList files; ///< "-" is standard input; of a comparison the old and the new
    QString output; ///< the file to draw into; empty: the terminal
    Form form = Form::Text;
    int scale = 1; ///< pixels a unit, for PNG
    bool isPlain = false; ///< the rows alone
    QString settings; ///< the path of the settings file
    bool ownSettings = true; ///< the user's own, which need not be there
    QString otherSettings; ///< to rehearse
    QTextCodec* encoding = nullptr; ///< of scripts; null: the locale's
};

/// Reads @p arguments, of which the first is the program. Empty when that succeeded, else what is wrong with them in
/// one sentence.
QString readCall(const QStringList& arguments, Call& call);

/// What `--help` shows.
QString helpText();

/// Whether these arguments may ask for a drawing that takes the painter.
bool mayTakePainter(int argc, char** argv);

} // namespace preview

#endif
