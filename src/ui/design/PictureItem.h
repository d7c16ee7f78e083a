#pragma once

#include <QImage>
#include <QQuickItem>

namespace tidlo {

/// An item that shows one of its pictures, mapped to the screen's pixels one to one. A picture is made only just before
/// it is seen, and made again only on request or when the screen's pixel ratio changes.
class PictureItem : public QQuickItem
{
    Q_OBJECT

public:
    explicit PictureItem(QQuickItem *parent = nullptr);

    /// The number of the picture to show; the subclass chooses the numbers. Called while the main thread waits.
    virtual int shown() const { return 0; }

    /// The picture to show where a point has \a pixelRatio pixels; it must carry that ratio itself. A null picture
    /// shows nothing. Called while the main thread waits.
    virtual QImage picture(double pixelRatio) = 0;

    /// Where in the item a picture of that size is drawn; in the middle by default. Both in points.
    virtual QPointF placeOf(const QSizeF &picture) const;

protected:
    /// Discards all pictures, so that they are made again.
    void changePicture();

    void itemChange(ItemChange change, const ItemChangeData &data) override;
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *data) override;

private:
    bool isPictureOld = true;
};

} // namespace tidlo
