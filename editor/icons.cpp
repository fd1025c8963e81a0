#include "editor/icons.h"

#include "editor/programicon.h"

#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

#include <functional>
#include <utility>

namespace icons {

namespace {

using Drawing = std::function<void(QPainter&)>; ///< in a square of 16 by 16

/// Draws what it is given, at any size.
class DrawnEngine : public QIconEngine {
public:
    explicit DrawnEngine(Drawing theDrawing)
        : drawing(std::move(theDrawing))
    {
    }

    QIconEngine* clone() const override { return new DrawnEngine(drawing); }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return picture;
    }

    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State) override
    {
        const qreal side = qMin(place.width(), place.height());
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setOpacity(mode == QIcon::Disabled ? 0.3 : 1);
        painter->translate(QRectF(place).center() - QPointF(side, side) / 2);
        painter->scale(side / 16, side / 16);
        drawing(*painter);
        painter->restore();
    }

private:
    const Drawing drawing;
};

QIcon drawn(Drawing drawing)
{
    return QIcon(new DrawnEngine(std::move(drawing)));
}

QPen pen(const QColor& colour, qreal width)
{
    return {colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

void drawError(QPainter& painter)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xc0, 0x39, 0x2b));
    painter.drawEllipse(QRectF(1, 1, 14, 14));
    painter.setPen(pen(Qt::white, 2));
    painter.drawLine(QPointF(5, 5), QPointF(11, 11));
    painter.drawLine(QPointF(11, 5), QPointF(5, 11));
}

void drawWarning(QPainter& painter)
{
    painter.setPen(pen(QColor(0xf3, 0x9c, 0x12), 1.5));
    painter.setBrush(QColor(0xf3, 0x9c, 0x12));
    painter.drawPolygon(QVector<QPointF> {{8, 2}, {15, 14}, {1, 14}});
    painter.setPen(pen(Qt::black, 1.8));
    painter.drawLine(QPointF(8, 6), QPointF(8, 9.5));
    painter.drawPoint(QPointF(8, 12.3));
}

void drawNote(QPainter& painter)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x29, 0x80, 0xb9));
    painter.drawEllipse(QRectF(1, 1, 14, 14));
    painter.setPen(pen(Qt::white, 2));
    painter.drawPoint(QPointF(8, 4.5));
    painter.drawLine(QPointF(8, 7.5), QPointF(8, 11.5));
}

} // namespace

QIcon program()
{
    return drawn(programicon::paint);
}

QIcon severity(check::Severity severity)
{
    switch (severity) {
    case check::Severity::Error:
        return drawn(drawError);
    case check::Severity::Warning:
        return drawn(drawWarning);
    case check::Severity::Note:
        break;
    }
    return drawn(drawNote);
}

QIcon back(const QPalette& palette)
{
    const QColor colour = palette.color(QPalette::ButtonText);
    return drawn([colour](QPainter& painter) {
        painter.setPen(pen(colour, 1.6));
        painter.drawArc(QRectF(3, 4.5, 10, 8), -90 * 16, 180 * 16);
        painter.drawLine(QPointF(8, 12.5), QPointF(4, 12.5));
        painter.drawLine(QPointF(8, 4.5), QPointF(2.5, 4.5));
        painter.drawPolyline(QVector<QPointF> {{5.5, 1.5}, {2.5, 4.5}, {5.5, 7.5}});
    });
}

QIcon none(const QPalette& palette)
{
    const QColor colour = muted(palette); // one stands in every row
    return drawn([colour](QPainter& painter) {
        painter.setPen(pen(colour, 1.6));
        painter.drawLine(QPointF(4, 4), QPointF(12, 12));
        painter.drawLine(QPointF(12, 4), QPointF(4, 12));
    });
}

QIcon eye(const QPalette& palette)
{
    const QColor colour = palette.color(QPalette::ButtonText);
    return drawn([colour](QPainter& painter) {
        QPainterPath lids(QPointF(1.5, 8));
        lids.quadTo(8, 1, 14.5, 8);
        lids.quadTo(8, 15, 1.5, 8);
        painter.setPen(pen(colour, 1.3));
        painter.drawPath(lids);
        painter.setBrush(colour);
        painter.drawEllipse(QPointF(8, 8), 1.8, 1.8);
    });
}

QColor muted(const QPalette& palette)
{
    const QColor text = palette.color(QPalette::WindowText);
    const QColor ground = palette.color(QPalette::Window);
    const auto mixed = [](int one, int other) { return (65 * one + 35 * other) / 100; };
    return {mixed(text.red(), ground.red()), mixed(text.green(), ground.green()), mixed(text.blue(), ground.blue())};
}

QPalette mutedText()
{
    QPalette colours; // that of the program
    const QColor colour = muted(colours);
    for (const auto role : {QPalette::WindowText, QPalette::PlaceholderText})
        colours.setColor(role, colour);
    return colours;
}

} // namespace icons
