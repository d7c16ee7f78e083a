#pragma once

#include "ui/design/PictureItem.h"

namespace tidlo {

/// The logo, a square. Each one looks for its picture when it is made: logo.png among the resources of the bundle, then
/// the application's icon; if there is neither, the logo is drawn.
class TidloLogo : public PictureItem
{
    Q_OBJECT
    QML_ELEMENT
    /// Of the square's side, in points.
    Q_PROPERTY(double size MEMBER side WRITE setSide NOTIFY sideChanged)

public:
    explicit TidloLogo(QQuickItem *parent = nullptr);

    void setSide(double points);

    QImage picture(double pixelRatio) override;

Q_SIGNALS:
    void sideChanged();

private:
    QImage found;
    double side = 16;
};

} // namespace tidlo
