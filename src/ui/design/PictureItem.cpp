#include "ui/design/PictureItem.h"

#include <QQuickWindow>
#include <QSGImageNode>

#include <cmath>
#include <map>
#include <memory>

namespace tidlo {

namespace {

/// The pictures made so far, and the one that is shown.
struct Pictures final : QSGNode
{
    std::map<int, std::unique_ptr<QSGTexture>> made;
    QSGImageNode *shown = nullptr;
};

} // namespace

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
    // On whole pixels: anything between would blur the picture.
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
    std::unique_ptr<Pictures> pictures(static_cast<Pictures *>(node));
    if (!pictures || isPictureOld)
        pictures = std::make_unique<Pictures>();
    std::unique_ptr<QSGTexture> &texture = pictures->made[shown()];
    const double ratio = window()->effectiveDevicePixelRatio();
    if (!texture) {
        const QImage drawn = picture(ratio);
        if (drawn.isNull())
            return nullptr;
        texture.reset(window()->createTextureFromImage(drawn, QQuickWindow::TextureCanUseAtlas));
        isPictureOld = false;
    }
    if (!pictures->shown) {
        pictures->shown = window()->createImageNode();
        pictures->appendChildNode(pictures->shown);
    }
    const QSizeF extent = QSizeF(texture->textureSize()) / ratio;
    pictures->shown->setTexture(texture.get());
    pictures->shown->setRect(QRectF(placeOf(extent), extent));
    pictures->shown->setFiltering(QSGTexture::Linear);
    return pictures.release();
}

} // namespace tidlo
