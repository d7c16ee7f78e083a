#include "ui/design/PictureItem.h"

#include <QQuickWindow>
#include <QSGImageNode>

#include <cmath>
#include <memory>

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
    // In the middle, but between no two points: that would blur it.
    const QSizeF around = (size() - shown->rect().size()) / 2;
    shown->setRect(QRectF(QPointF(std::round(around.width()), std::round(around.height())), shown->rect().size()));
    shown->setFiltering(QSGTexture::Linear);
    return shown.release();
}
