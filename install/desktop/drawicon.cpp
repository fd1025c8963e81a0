#include "editor/programicon.h"

#include <QFile>
#include <QImage>
#include <QPainter>

namespace {

QImage picture(int side)
{
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(side / 16.0, side / 16.0);
    programicon::paint(painter);
    return image;
}

bool writeSvg(const QString& path)
{
    QFile file(path);
    const QByteArray text = programicon::svg();
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.flush();
}

} // namespace

/// drawicon FILE.svg, drawicon FILE.png SIDE: writes the settings editor's picture. The build runs it; needs no
/// display.
int main(int argc, char** argv)
{
    if (argc == 2)
        return writeSvg(QString::fromLocal8Bit(argv[1])) ? 0 : 1;
    if (argc == 3)
        return picture(QByteArray(argv[2]).toInt()).save(QString::fromLocal8Bit(argv[1]), "PNG") ? 0 : 1;
    return 2;
}
