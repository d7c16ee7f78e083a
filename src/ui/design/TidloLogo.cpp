#include "ui/design/TidloLogo.h"

#include "ui/design/LogoDrawing.h"

namespace tidlo {

TidloLogo::TidloLogo(QQuickItem *parent)
    : PictureItem(parent)
    , found(findLogo(mainBundle()))
{
    setImplicitSize(side, side);
}

void TidloLogo::setSide(double points)
{
    if (points == side)
        return;
    side = points;
    setImplicitSize(points, points);
    changePicture();
    Q_EMIT sideChanged();
}

QImage TidloLogo::picture(double pixelRatio)
{
    return drawLogo(found, side, pixelRatio);
}

} // namespace tidlo
