#include "paper/painting/painting.h"

#include "paper/palette.h"
#include "paper/scene.h"

#include <QBuffer>
#include <QHash>
#include <QImage>
#include <QObject>
#include <QPainter>
#include <QPdfWriter>

#include <algorithm>

namespace paper {

namespace {

QColor colour(const char* name)
{
    return QColor(QLatin1String(name));
}

QFont fixedFont()
{
    QFont font(QStringLiteral("monospace"));
    font.setStyleHint(QFont::Monospace);
    font.setPixelSize(fontSize);
    return font;
}

class PainterCanvas : public Canvas {
public:
    explicit PainterCanvas(QPainter& painter)
        : painter(painter)
    {
        painter.setFont(fixedFont());
        painter.setPen(colour(inkColour));
    }

    void drawPaper(const QRect& area) override { painter.fillRect(area, colour(paperColour)); }
    void drawMark(const QRect& area, Mark mark) override { painter.fillRect(area, colour(colourOf(mark))); }
    void drawChangeBar(const QRect& area) override { painter.fillRect(area, colour(barColour)); }
    void drawCell(const QRect& area, const QString& characters) override;

protected:
    QPainter& painter;

private:
    int widthOf(const QString& characters);

    QHash<QString, int> widths; ///< of a cell's characters, once measured
};

int PainterCanvas::widthOf(const QString& characters)
{
    const auto known = widths.constFind(characters);
    return known != widths.constEnd() ? *known
                                      : *widths.insert(characters, painter.fontMetrics().horizontalAdvance(characters));
}

/// In the middle of the cell, which the font may not fill or may overflow.
void PainterCanvas::drawCell(const QRect& area, const QString& characters)
{
    const int width = widthOf(characters);
    painter.drawText(QPointF(area.x() + (area.width() - width) / 2.0, area.y() + baseline), characters);
}

/// Leaves out the cells outside of a part: of a very long row they are many.
class PartCanvas : public PainterCanvas {
public:
    PartCanvas(QPainter& painter, const QRect& part)
        : PainterCanvas(painter)
        , part(part)
    {
    }

    void drawCell(const QRect& area, const QString& characters) override
    {
        if (area.intersects(part))
            PainterCanvas::drawCell(area, characters);
    }

private:
    const QRect part;
};

/// Papers have a thin border here: the page is white, too.
class PageCanvas : public PainterCanvas {
public:
    using PainterCanvas::PainterCanvas;

    void drawPaper(const QRect& area) override;
};

void PageCanvas::drawPaper(const QRect& area)
{
    painter.save();
    painter.setPen(colour(groundColour));
    painter.drawRect(area);
    painter.restore();
}

/// Pixels of the device for a unit: such that papers are as wide as they are in life, or else narrow enough for the
/// page.
double pageScale(const QPagedPaintDevice& device, int width)
{
    const double unit = 0.21; // millimetres: 32 characters on 67 of them
    const double perMillimetre = device.logicalDpiX() / 25.4;
    const int widest = 4000; // units that are still to be read; what is farther right falls off the page
    return std::min(unit * perMillimetre, double(device.width()) / std::min(width, widest));
}

} // namespace

QSize drawingSize(const Sheet& sheet)
{
    return Scene(sheet).size();
}

void paint(QPainter& painter, const Sheet& sheet)
{
    const PartialPainting painting(sheet);
    painting.paint(painter, QRect(QPoint(), painting.size()));
}

PartialPainting::PartialPainting(const Sheet& sheet)
    : sheet(std::make_unique<Sheet>(sheet))
    , scene(std::make_unique<Scene>(*this->sheet))
{
}

PartialPainting::~PartialPainting() = default;

QSize PartialPainting::size() const
{
    return scene->size();
}

int PartialPainting::rowTop(int band, int row) const
{
    return scene->rowTop(band, row);
}

void PartialPainting::paint(QPainter& painter, const QRect& part) const
{
    painter.save();
    painter.fillRect(part & QRect(QPoint(), scene->size()), colour(groundColour));
    PartCanvas canvas(painter, part);
    const int cutRow = Scene::titleHeight; // the highest thing that is drawn as a whole or not at all
    scene->draw(canvas, part.top() - cutRow, part.top() + part.height() + cutRow);
    painter.restore();
}

QByteArray pngDrawing(const Sheet& sheet, int scale, QString& reason)
{
    const QSize units = drawingSize(sheet);
    const int most = greatestImageSide / scale;
    if (units.width() > most || units.height() > most) {
        reason = QObject::tr("The picture would have a side of more than %1 pixels. A PDF breaks into pages.")
                     .arg(greatestImageSide);
        return QByteArray();
    }
    QImage image(units * scale, QImage::Format_RGB32);
    QPainter painter(&image);
    if (!painter.isActive()) {
        reason = QObject::tr("There is not enough memory for the picture. A PDF breaks into pages.");
        return QByteArray();
    }
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.scale(scale, scale);
    paint(painter, sheet);
    painter.end();
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return png;
}

void paintPages(QPagedPaintDevice& device, const Sheet& sheet)
{
    const Scene scene(sheet);
    QPainter painter;
    if (!painter.begin(&device))
        return;
    const double scale = pageScale(device, scene.size().width());
    const int pageHeight = std::max(Scene::cellHeight, static_cast<int>(device.height() / scale));
    PageCanvas canvas(painter);
    painter.scale(scale, scale);
    for (int top = 0; top < scene.size().height();) {
        if (top > 0)
            device.newPage();
        const int end = scene.pageEnd(top, pageHeight);
        painter.save();
        painter.translate(0, -top);
        scene.draw(canvas, top, end);
        painter.restore();
        top = end;
    }
}

QByteArray pdfDrawing(const Sheet& sheet)
{
    QByteArray pdf;
    QBuffer buffer(&pdf);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    paintPages(writer, sheet);
    return pdf;
}

} // namespace paper
