#include "ui/design/PictureItem.h"

#include <QQuickWindow>
#include <QSGImageNode>

#include <cmath>
#include <memory>

namespace tidlo {

PictureItem::PictureItem(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

void PictureItem::changePicture()
{
    isPictureOld = true;
    update();
}

QPointF PictureItem::placeOf(const QSizeF &picture) const
{
    // Between no two points: that would blur it.
    const QSizeF around = (size() - picture) / 2;
    return {std::round(around.width()), std::round(around.height())};
}

void PictureItem::itemChange(ItemChange change, const ItemChangeData &data)
{
    if (change == ItemDevicePixelRatioHasChanged || change == ItemSceneChange)
        changePicture();
    QQuickItem::itemChange(change, data);
}

QSGNode *PictureItem::updatePaintNode(QSGNode *node, UpdatePaintNodeData *)
{
    std::unique_ptr<QSGImageNode> shown(static_cast<QSGImageNode *>(node));
    if (!shown || isPictureOld) {
        const QImage drawn = picture(window()->effectiveDevicePixelRatio());
        if (drawn.isNull())
            return nullptr;
        if (!shown) {
            shown.reset(window()->createImageNode());
            shown->setOwnsTexture(true);
        }
        shown->setTexture(window()->createTextureFromImage(drawn, QQuickWindow::TextureCanUseAtlas));
        shown->setRect(QRectF(QPointF(), drawn.deviceIndependentSize()));
        isPictureOld = false;
    }
    const QSizeF extent = shown->rect().size();
    shown->setRect(QRectF(placeOf(extent), extent));
    shown->setFiltering(QSGTexture::Linear);
    return shown.release();
}

} // namespace tidlo
