#include "ui/design/Symbol.h"

#include "ui/design/SymbolDrawing.h"

#include <QPainter>
#include <QtQml/qqmlinfo.h>

#include <cmath>

namespace {

/// The grid's side in points, for a font of \a size.
double gridSide(double size)
{
    return 1.2 * size;
}

double boxSide(double size)
{
    return 2 * std::ceil(gridSide(size) / 2);
}

} // namespace

Symbol::Symbol(QQuickItem *parent)
    : PictureItem(parent)
{
    setImplicitSize(boxSide(fontSize), boxSide(fontSize));
}

void Symbol::setName(const QString &name)
{
    if (name == symbolName)
        return;
    symbolName = name;
    if (!name.isEmpty() && !symbolNames().contains(name))
        qmlWarning(this) << "There is no symbol " << name;
    changeDrawing();
    Q_EMIT nameChanged();
}

void Symbol::setFontSize(double size)
{
    if (size == fontSize)
        return;
    fontSize = size;
    setImplicitSize(boxSide(size), boxSide(size));
    changeDrawing();
    Q_EMIT fontSizeChanged();
}

void Symbol::setWeight(int weight)
{
    if (weight == fontWeight)
        return;
    fontWeight = weight;
    changeDrawing();
    Q_EMIT weightChanged();
}

void Symbol::setColor(const QColor &color)
{
    if (color == inkColor)
        return;
    inkColor = color;
    changePicture();
    Q_EMIT colorChanged();
}

void Symbol::changeDrawing()
{
    ink = {};
    changePicture();
}

QImage Symbol::picture(double pixelRatio)
{
    const int side = static_cast<int>(std::round(boxSide(fontSize) * pixelRatio));
    if (ink.width() != side) {
        const QByteArray drawing = symbolDrawing(symbolName, fontWeight);
        if (drawing.isEmpty())
            return {};
        ink = symbolInk(drawing, side, gridSide(fontSize) * pixelRatio);
    }
    QImage inked = ink.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&inked);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(inked.rect(), inkColor);
    painter.end();
    inked.setDevicePixelRatio(pixelRatio);
    return inked;
}
