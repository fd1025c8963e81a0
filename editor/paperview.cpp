#include "editor/paperview.h"

#include "paper/characters.h"
#include "paper/painting/painting.h"
#include "paper/palette.h"
#include "paper/scene.h"

#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace {

constexpr double scales[] = {0.25, 0.35, 0.5, 0.7, 0.85, 1, 1.25, 1.5, 2, 2.5, 3, 4};
const double leastScale = *std::begin(scales);
const double greatestScale = *std::rbegin(scales);

const QColor focusColour(0, 80, 160);
const int focusWidth = 2;

const int wheelStep = 120; ///< eighths of a degree: a notch of most wheels
// What is told to who does not see it, so that it takes no time.
const int mostRowsTold = 500;
const int mostCharactersTold = 1000; ///< of a row

/// Of a drawing of paper alone, without what goes past its edge.
int paperWidth()
{
    static const int width = paper::drawingSize({{{paper::Strip()}}}).width();
    return width;
}

/// The texts of the rows, each strip below its title.
QString textOf(const paper::Sheet& sheet)
{
    QString text;
    int rows = 0;
    for (const paper::Sheet::Band& band : sheet.bands) {
        for (const paper::Strip& strip : band) {
            text += strip.title + QLatin1Char('\n');
            for (const paper::Row& row : strip.rows.mid(0, std::max(0, mostRowsTold - rows)))
                text += paper::withPictures(row.text.left(mostCharactersTold)) + QLatin1Char('\n');
            rows += strip.rows.size();
        }
    }
    return rows <= mostRowsTold ? text : text + QObject::tr("and %1 more").arg(rows - mostRowsTold);
}

struct RowPlace {
    int band;
    int row;
};

/// Where the first row stands that is another one than before; nothing when there is none, or another document.
std::optional<RowPlace> firstDifference(const paper::Sheet& before, const paper::Sheet& now)
{
    const auto isSame = [](const paper::Row& left, const paper::Row& right) { return left.text == right.text; };
    const int bands = std::min(before.bands.size(), now.bands.size());
    for (int band = 0; band < bands; ++band) {
        const paper::Rows left = before.bands.at(band).value(0).rows;
        const paper::Rows right = now.bands.at(band).value(0).rows;
        const auto found = std::mismatch(left.begin(), left.end(), right.begin(), right.end(), isSame);
        if (found.first != left.end() || found.second != right.end())
            return RowPlace {band, static_cast<int>(found.second - right.begin())};
    }
    return std::nullopt;
}

} // namespace

PaperView::PaperView(QWidget* parent)
    : QAbstractScrollArea(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(QObject::tr("Paper"));
    setSheet({});
}

PaperView::~PaperView() = default;

void PaperView::showSheet(const paper::Sheet& newSheet)
{
    setSheet(newSheet);
    verticalScrollBar()->setValue(0);
    horizontalScrollBar()->setValue(0);
}

void PaperView::updateSheet(const paper::Sheet& newSheet)
{
    const std::optional<RowPlace> changed = firstDifference(sheet, newSheet);
    setSheet(newSheet);
    if (changed)
        bringInSight(painting->rowTop(changed->band, changed->row), paper::Scene::cellHeight);
}

void PaperView::setSheet(const paper::Sheet& newSheet)
{
    sheet = newSheet;
    painting = std::make_unique<paper::PartialPainting>(sheet);
    setAccessibleDescription(textOf(sheet));
    updateScrollBars();
    viewport()->update();
}

/// Into the middle, when it is out of sight. In units of the drawing.
void PaperView::bringInSight(int top, int height)
{
    QScrollBar* const bar = verticalScrollBar();
    const int begin = static_cast<int>(top * scale());
    const int length = static_cast<int>(height * scale());
    const bool isInSight = begin >= bar->value() && begin + length <= bar->value() + viewport()->height();
    if (!isInSight)
        bar->setValue(begin - (viewport()->height() - length) / 2);
}

double PaperView::scale() const
{
    return chosenScale.value_or(fittingScale());
}

/// There is always room for the bar to scroll by: whether it is there depends on the scale.
double PaperView::fittingScale() const
{
    const int room = maximumViewportSize().width() - verticalScrollBar()->sizeHint().width();
    return std::clamp(double(room) / paperWidth(), leastScale, 1.0);
}

bool PaperView::canBeLarger() const
{
    return scale() < greatestScale;
}

bool PaperView::canBeSmaller() const
{
    return scale() > leastScale;
}

void PaperView::makeLarger()
{
    setScale(*std::upper_bound(std::begin(scales), std::end(scales) - 1, scale()));
}

void PaperView::makeSmaller()
{
    const double* const next = std::lower_bound(std::begin(scales), std::end(scales), scale());
    setScale(*std::max(std::begin(scales), next - 1));
}

void PaperView::fitWidth()
{
    setScale(std::nullopt);
}

/// What stood at the upper left corner stays there.
void PaperView::setScale(std::optional<double> newScale)
{
    const double before = scale();
    const QPoint corner(horizontalScrollBar()->value(), verticalScrollBar()->value());
    chosenScale = newScale;
    updateScrollBars();
    horizontalScrollBar()->setValue(qRound(corner.x() * scale() / before));
    verticalScrollBar()->setValue(qRound(corner.y() * scale() / before));
    viewport()->update();
    emit scaleChanged();
}

void PaperView::updateScrollBars()
{
    const QSizeF drawing = QSizeF(painting->size()) * scale();
    const QSize room = viewport()->size();
    const auto update = [this](QScrollBar* bar, double length, int inSight, int step) {
        bar->setRange(0, std::max(0, static_cast<int>(std::ceil(length)) - inSight));
        bar->setPageStep(inSight);
        bar->setSingleStep(static_cast<int>(step * scale()));
    };
    update(horizontalScrollBar(), drawing.width(), room.width(), paper::Scene::cellWidth);
    update(verticalScrollBar(), drawing.height(), room.height(), paper::Scene::cellHeight);
}

/// The paper is in the middle where there is room, and moves only as far as it must for what goes past its edge.
QPoint PaperView::drawingCorner() const
{
    const auto leftOver = [this](int units) { return static_cast<int>(viewport()->width() - units * scale()); };
    const int left = std::min(leftOver(paperWidth()) / 2, leftOver(painting->size().width()));
    return {std::max(0, left) - horizontalScrollBar()->value(), -verticalScrollBar()->value()};
}

void PaperView::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    painter.fillRect(event->rect(), QLatin1String(paper::groundColour));
    painter.translate(drawingCorner());
    painter.scale(scale(), scale());
    const QRectF part = painter.transform().inverted().mapRect(QRectF(event->rect()));
    painting->paint(painter, part.toAlignedRect());
    if (hasFocus())
        paintFocus(painter);
}

/// A frame, which stands out from the ground whatever the window's colours are.
void PaperView::paintFocus(QPainter& painter) const
{
    painter.resetTransform();
    painter.setPen(QPen(focusColour, focusWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(viewport()->rect().adjusted(1, 1, -1, -1));
}

void PaperView::focusInEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void PaperView::focusOutEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

void PaperView::resizeEvent(QResizeEvent*)
{
    updateScrollBars();
    if (!chosenScale)
        emit scaleChanged();
}

void PaperView::keyPressEvent(QKeyEvent* event)
{
    QScrollBar* const bar = verticalScrollBar();
    if (event->key() == Qt::Key_Home)
        bar->setValue(bar->minimum());
    else if (event->key() == Qt::Key_End)
        bar->setValue(bar->maximum());
    else
        QAbstractScrollArea::keyPressEvent(event);
}

void PaperView::wheelEvent(QWheelEvent* event)
{
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    wheelTurn += event->angleDelta().y();
    for (; wheelTurn >= wheelStep; wheelTurn -= wheelStep)
        makeLarger();
    for (; wheelTurn <= -wheelStep; wheelTurn += wheelStep)
        makeSmaller();
    event->accept();
}

/// Paper as it is drawn, and some of its length.
QSize PaperView::sizeHint() const
{
    return {paperWidth() + verticalScrollBar()->sizeHint().width() + 2 * frameWidth(), 480};
}
