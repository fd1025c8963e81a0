#include "editor/programicon.h"

#include <QColor>
#include <QPainter>
#include <QPen>
#include <QPointF>
#include <QVector>

namespace programicon {

namespace {

/// A line through points, with round ends and corners; closed and filled with white where it is a form.
struct Stroke {
    const char* colour;
    qreal width;
    bool isForm;
    QVector<QPointF> points;
};

const char* const grey = "#444c56";
const char* const red = "#c0392b";

const QVector<Stroke>& strokes()
{
    static const QVector<Stroke> receipt {
        // The paper, torn off below.
        {grey,
         0.8,
         true,
         {{3, 1}, {13, 1}, {13, 15}, {11.3, 13.5}, {9.7, 15}, {8, 13.5}, {6.3, 15}, {4.7, 13.5}, {3, 15}}},
        // What was ordered, and its prices.
        {grey, 0.9, false, {{5, 4}, {8.5, 4}}},
        {grey, 0.9, false, {{10, 4}, {11, 4}}},
        {grey, 0.9, false, {{5, 6}, {8.5, 6}}},
        {grey, 0.9, false, {{10, 6}, {11, 6}}},
        {grey, 0.9, false, {{5, 8}, {8.5, 8}}},
        {grey, 0.9, false, {{10, 8}, {11, 8}}},
        // The total.
        {red, 1.4, false, {{5, 11}, {11, 11}}},
    };
    return receipt;
}

QByteArray pathOf(const Stroke& stroke)
{
    QByteArray path;
    for (const QPointF& point : stroke.points)
        path += (path.isEmpty() ? "M" : " L") + QByteArray::number(point.x()) + ',' + QByteArray::number(point.y());
    return path + (stroke.isForm ? " Z" : "");
}

} // namespace

void paint(QPainter& painter)
{
    for (const Stroke& stroke : strokes()) {
        painter.setPen(QPen(QColor(stroke.colour), stroke.width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(stroke.isForm ? QBrush(Qt::white) : QBrush(Qt::NoBrush));
        if (stroke.isForm)
            painter.drawPolygon(stroke.points);
        else
            painter.drawPolyline(stroke.points);
    }
}

QByteArray svg()
{
    QByteArray text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                      "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"128\" height=\"128\" viewBox=\"0 0 16 16\""
                      " stroke-linecap=\"round\" stroke-linejoin=\"round\">\n";
    for (const Stroke& stroke : strokes()) {
        text += "  <path d=\"" + pathOf(stroke) + "\" fill=\"" + (stroke.isForm ? "#ffffff" : "none") + "\" stroke=\""
            + stroke.colour + "\" stroke-width=\"" + QByteArray::number(stroke.width) + "\"/>\n";
    }
    return text + "</svg>\n";
}

} // namespace programicon
