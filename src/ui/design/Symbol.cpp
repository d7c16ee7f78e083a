#include "ui/design/Symbol.h"

#include "ui/design/SymbolDrawing.h"

#include <QtQml/qqmlinfo.h>

namespace tidlo {

Symbol::Symbol(QQuickItem *parent)
    : PictureItem(parent)
{
    setImplicitSize(symbolBox(fontSize), symbolBox(fontSize));
}

void Symbol::setName(const QString &name)
{
    if (name == symbolName)
        return;
    symbolName = name;
    if (!name.isEmpty() && !hasSymbol(name))
        qmlWarning(this) << "There is no symbol " << name;
    changeDrawing();
    Q_EMIT nameChanged();
}

void Symbol::setFontSize(double size)
{
    if (size == fontSize)
        return;
    fontSize = size;
    setImplicitSize(symbolBox(size), symbolBox(size));
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
    if (ink.isNull() || ink.devicePixelRatio() != pixelRatio)
        ink = symbolInk(symbolName, fontSize, fontWeight, pixelRatio);
    return ink.isNull() ? ink : inColor(ink, inkColor);
}

} // namespace tidlo
