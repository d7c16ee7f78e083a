#pragma once

#include "ui/design/PictureItem.h"

#include <QColor>

namespace tidlo {

/// A symbol, as large and heavy as text of the same font. A name without a drawing shows nothing and writes a warning.
/// A new colour needs no new drawing.
class Symbol : public tidlo::PictureItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString name MEMBER symbolName WRITE setName NOTIFY nameChanged)
    /// The font size in points.
    Q_PROPERTY(double size MEMBER fontSize WRITE setFontSize NOTIFY fontSizeChanged)
    /// The font weight, from 400 to 700.
    Q_PROPERTY(int weight MEMBER fontWeight WRITE setWeight NOTIFY weightChanged)
    Q_PROPERTY(QColor color MEMBER inkColor WRITE setColor NOTIFY colorChanged)

public:
    explicit Symbol(QQuickItem *parent = nullptr);

    void setName(const QString &name);
    void setFontSize(double size);
    void setWeight(int weight);
    void setColor(const QColor &color);

    QImage picture(double pixelRatio) override;

Q_SIGNALS:
    void nameChanged();
    void fontSizeChanged();
    void weightChanged();
    void colorChanged();

private:
    void changeDrawing();

    QString symbolName;
    double fontSize = 16;
    int fontWeight = 400;
    QColor inkColor = Qt::black;
    QImage ink; ///< Kept from one colour to the next; null when it has to be drawn.
};

} // namespace tidlo
