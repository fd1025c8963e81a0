#ifndef ZELMORA_PREVIEW_PROGRESSBAR_H
#define ZELMORA_PREVIEW_PROGRESSBAR_H

#include <QElapsedTimer>

namespace preview {

/// How far some work is, in one line on standard error: when that is a terminal, and the work takes more than a moment.
/// The line is gone with the object.
class ProgressBar {
public:
    static const int moment = 500; ///< milliseconds

    /// @p total: the pieces of the work.
    explicit ProgressBar(int total);
    ~ProgressBar();

    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    void show(int done);

private:
    const int total;
    const bool isSeen;
    QElapsedTimer clock;
    int shown = -1; ///< what the line says; -1: there is none
};

} // namespace preview

#endif
