#ifndef ZELMORA_TESTS_EDITOR_CONTRAST_H
#define ZELMORA_TESTS_EDITOR_CONTRAST_H

#include <QColor>
#include <QHash>
#include <QWidget>

#include <algorithm>
#include <cmath>

/// How far apart two colours are in brightness: from 1 to 21, of which 4.5 is enough to read.
inline double contrast(const QColor& left, const QColor& right)
{
    const auto luminance = [](const QColor& colour) {
        const auto linear = [](double part) {
            return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
    };
    const double one = luminance(left) + 0.05;
    const double other = luminance(right) + 0.05;
    return qMax(one, other) / qMin(one, other);
}

/// How far the letters in @p part of a widget stand out from their ground, which is the colour that it has most of.
inline double contrastOfText(QWidget& widget, const QRect& part)
{
    const QImage image =
        widget.window()->grab(QRect(widget.mapTo(widget.window(), part.topLeft()), part.size())).toImage();
    QHash<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            ++counts[image.pixel(x, y)];
    }
    const QList<QRgb> colours = counts.keys();
    const QRgb ground = *std::max_element(colours.begin(), colours.end(),
                                          [&](QRgb left, QRgb right) { return counts[left] < counts[right]; });
    double most = 1;
    for (const QRgb colour : colours)
        most = qMax(most, contrast(colour, ground));
    return most;
}

#endif
