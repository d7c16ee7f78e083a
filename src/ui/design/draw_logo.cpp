// draw_logo <logo.svg> <picture> [pixels]: makes the picture that the application carries: 512 pixels wide by default,
// or, if the name ends in .icns, a macOS icon with all sizes that are shown there. Part of the build.

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QtEndian>

#include <array>
#include <cstdlib>

namespace {

QImage picture(QSvgRenderer &drawing, int pixels)
{
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawing.render(&painter);
    return image;
}

/// A part of an icon: its kind (four letters), the length of the whole part, and its content.
QByteArray part(QByteArrayView kind, const QByteArray &content)
{
    std::array<char, sizeof(quint32)> length;
    qToBigEndian(static_cast<quint32>(kind.size() + qsizetype(length.size()) + content.size()), length.data());
    return kind.toByteArray().append(length.data(), length.size()).append(content);
}

QByteArray icon(QSvgRenderer &drawing)
{
    struct Size
    {
        QByteArrayView kind;
        int pixels;
    };
    constexpr std::array sizes{Size{"ic11", 32},  Size{"ic12", 64},  Size{"ic07", 128}, Size{"ic13", 256},
                               Size{"ic08", 256}, Size{"ic14", 512}, Size{"ic09", 512}, Size{"ic10", 1024}};
    QByteArray parts;
    for (const Size &size : sizes) {
        QBuffer png;
        picture(drawing, size.pixels).save(&png, "PNG");
        parts += part(size.kind, png.data());
    }
    return part("icns", parts);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3 && argc != 4)
        return 2;
    QSvgRenderer drawing(QString::fromLocal8Bit(argv[1]));
    if (!drawing.isValid())
        return 1;
    const QString name = QString::fromLocal8Bit(argv[2]);
    if (!name.endsWith(QStringLiteral(".icns")))
        return picture(drawing, argc == 4 ? QByteArray(argv[3]).toInt() : 512).save(name) ? 0 : 1;
    QFile file(name);
    const QByteArray content = icon(drawing);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.flush() ? 0 : 1;
}
