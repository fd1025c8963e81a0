#ifndef ZELMORA_EDITOR_PAPERVIEW_H
#define ZELMORA_EDITOR_PAPERVIEW_H

#include "paper/sheet.h"

#include <QAbstractScrollArea>

#include <memory>
#include <optional>

namespace paper {
class PartialPainting;
}

/// Paper to look at. It scrolls, by keys too, and is as wide as the view has room for, but no larger than drawn, until
/// a person wants it larger or smaller. Who does not see it is told its text.
class PaperView : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit PaperView(QWidget* parent = nullptr);
    ~PaperView() override;

    /// Shows other paper, from its top.
    void showSheet(const paper::Sheet& newSheet);
    /// Shows what has become of the paper: what is in sight stays where it is, unless the first row that became another
    /// one is out of sight.
    void updateSheet(const paper::Sheet& newSheet);

    double scale() const; ///< of the drawing: its units are points of the screen at 1
    bool canBeLarger() const;
    bool canBeSmaller() const;
    void makeLarger();
    void makeSmaller();
    void fitWidth();

    QSize sizeHint() const override;

signals:
    void scaleChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void paintFocus(QPainter& painter) const;
    void setSheet(const paper::Sheet& newSheet);
    void bringInSight(int top, int height);
    void setScale(std::optional<double> newScale);
    double fittingScale() const;
    QPoint drawingCorner() const;
    void updateScrollBars();

    paper::Sheet sheet;
    std::unique_ptr<const paper::PartialPainting> painting; ///< of the sheet
    std::optional<double> chosenScale; ///< none: it fits
    int wheelTurn = 0; ///< that was not yet a step, in eighths of a degree
};

#endif
