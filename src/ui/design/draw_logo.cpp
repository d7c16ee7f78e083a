// draw_logo <logo.svg> <logo.png>: makes the picture that the application carries with it. Part of the build.

#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

int main(int argc, char **argv)
{
    constexpr int pixels = 512;
    if (argc != 3)
        return 2;
    QSvgRenderer drawing(QString::fromLocal8Bit(argv[1]));
    if (!drawing.isValid())
        return 1;
    QImage picture(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    drawing.render(&painter);
    painter.end();
    return picture.save(QString::fromLocal8Bit(argv[2])) ? 0 : 1;
}
