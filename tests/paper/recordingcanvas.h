#ifndef ZELMORA_TESTS_PAPER_RECORDINGCANVAS_H
#define ZELMORA_TESTS_PAPER_RECORDINGCANVAS_H

#include "paper/scene.h"

#include <QString>

/// The characters of all cells in the order in which they are drawn, and how many papers.
class RecordingCanvas : public paper::Canvas {
public:
    void drawPaper(const QRect&) override { ++papers; }
    void drawMark(const QRect&, paper::Mark) override { }
    void drawChangeBar(const QRect&) override { }
    void drawCell(const QRect&, const QString& characters) override { cells += characters; }

    int papers = 0;
    QString cells;
};

#endif
