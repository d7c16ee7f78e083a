#pragma once

#include <QImage>
#include <QQuickItem>

namespace tidlo {

/// An item that shows one picture, pixel for pixel of the screen, or one of several. A picture is made only when it
/// is about to be seen, and again only when that is asked for or the screen's pixels change.
class PictureItem : public QQuickItem
{
    Q_OBJECT

public:
    explicit PictureItem(QQuickItem *parent = nullptr);

    /// Which of its pictures is shown, by a number of its own choice. Called while the main thread waits.
    virtual int shown() const { return 0; }

    /// What is shown where a point has \a pixelRatio pixels, which is the picture's own ratio; a null picture if that
    /// is nothing. Called while the main thread waits.
    virtual QImage picture(double pixelRatio) = 0;

    /// Where in the item a picture of that size stands; in the middle unless told otherwise. Both in points.
    virtual QPointF placeOf(const QSizeF &picture) const;

protected:
    /// Lets all pictures be made anew.
    void changePicture();

    void itemChange(ItemChange change, const ItemChangeData &data) override;
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *data) override;

private:
    bool isPictureOld = true;
};

} // namespace tidlo
