#ifndef ZELMORA_PAPER_PAINTING_PAINTING_H
#define ZELMORA_PAPER_PAINTING_PAINTING_H

#include <QByteArray>
#include <QSize>
#include <QString>

#include <memory>

class QPagedPaintDevice;
class QPainter;
class QRect;

/// Drawings of a sheet with the toolkit's painter. They need a QGuiApplication, which may be one without a display
/// ("offscreen"), and a font of fixed width.
namespace paper {

class Scene;
struct Sheet;

/// The size of the drawing in units: pixels at scale 1.
QSize drawingSize(const Sheet& sheet);

/// Paints the whole sheet with its upper left corner at the origin, a unit for a unit of the painter.
void paint(QPainter& painter, const Sheet& sheet);

/// A sheet to be painted part by part, as a window shows it: where everything stands is found out once. What a part
/// takes depends on the part alone.
class PartialPainting {
public:
    explicit PartialPainting(const Sheet& sheet);
    ~PartialPainting();

    QSize size() const; ///< drawingSize()
    /// The top of row number @p row in the band number @p band, which is there.
    int rowTop(int band, int row) const;
    /// As paint(), but nothing need be painted outside of @p part.
    void paint(QPainter& painter, const QRect& part) const;

private:
    const std::unique_ptr<const Sheet> sheet;
    const std::unique_ptr<const Scene> scene;
};

const int greatestImageSide = 30000; ///< pixels

/// A PNG. @p scale: pixels a unit, 1 to 8. Null, and a reason in words, when a side of it would be longer than
/// greatestImageSide or memory does not suffice.
QByteArray pngDrawing(const Sheet& sheet, int scale, QString& reason);

/// Paints the sheet on pages, broken between rows, as large as in life where it fits. Nothing where the device cannot
/// be painted on.
void paintPages(QPagedPaintDevice& device, const Sheet& sheet);

/// A PDF of as many pages as it takes.
QByteArray pdfDrawing(const Sheet& sheet);

} // namespace paper

#endif
