#include "paper/drawing.h"
#include "paper/palette.h"
#include "paper/scene.h"

#include <QString>

namespace paper {

namespace {

/// Writes each thing as an element of its own.
class SvgCanvas : public Canvas {
public:
    explicit SvgCanvas(QByteArray& svg)
        : svg(svg)
    {
    }

    void drawGround(QSize size) { rectangle(QRect(QPoint(), size), groundColour); }
    void drawPaper(const QRect& area) override { rectangle(area, paperColour); }
    void drawMark(const QRect& area, Mark mark) override { rectangle(area, colourOf(mark)); }
    void drawChangeBar(const QRect& area) override { rectangle(area, barColour); }
    void drawCell(const QRect& area, const QString& characters) override;

private:
    void rectangle(const QRect& area, const char* colour);

    QByteArray& svg;
};

void SvgCanvas::rectangle(const QRect& area, const char* colour)
{
    svg += "<rect x=\"" + QByteArray::number(area.x()) + "\" y=\"" + QByteArray::number(area.y()) + "\" width=\""
        + QByteArray::number(area.width()) + "\" height=\"" + QByteArray::number(area.height()) + "\" fill=\"" + colour
        + "\"/>\n";
}

void SvgCanvas::drawCell(const QRect& area, const QString& characters)
{
    svg += "<text x=\"" + QByteArray::number(area.x() + area.width() / 2) + "\" y=\""
        + QByteArray::number(area.y() + baseline) + "\">" + characters.toHtmlEscaped().toUtf8() + "</text>\n";
}

} // namespace

QByteArray svgDrawing(const Sheet& sheet)
{
    const Scene scene(sheet);
    const QByteArray width = QByteArray::number(scene.size().width());
    const QByteArray height = QByteArray::number(scene.size().height());
    QByteArray svg = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                     "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\""
        + width + "\" height=\"" + height + "\" viewBox=\"0 0 " + width + " " + height
        + "\" font-family=\"monospace\" font-size=\"" + QByteArray::number(fontSize)
        + "\" text-anchor=\"middle\" fill=\"" + inkColour + "\">\n";
    SvgCanvas canvas(svg);
    canvas.drawGround(scene.size());
    scene.draw(canvas);
    return svg + "</svg>\n";
}

} // namespace paper
