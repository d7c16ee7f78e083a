#pragma once

#include "platform/Bundle.h"
#include "ui/design/PictureItem.h"

#include <QImage>

namespace tidlo {

/// The picture of the logo: logo.png among the resources of \a bundle or, where that cannot be read, the application's
/// icon; null if it has none. Read anew each time. Without an application object to ask for the icon, the program ends
/// with a fatal error.
QImage findLogo(const Bundle &bundle);

/// A square of \a size points filled by \a picture, with rounded corners. For a null picture, sparkles on the theme's
/// accents, with slightly rounder corners.
QImage drawLogo(const QImage &picture, double size, double pixelRatio);

/// The logo, a square. Each one looks for its picture when it is made: logo.png among the resources of the bundle, then
/// the application's icon; if there is neither, the logo is drawn.
class TidloLogo : public tidlo::PictureItem
{
    Q_OBJECT
    QML_ELEMENT
    /// The square's side in points.
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
