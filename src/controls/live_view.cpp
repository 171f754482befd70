// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/live_view.h"

#include <QQuickWindow>
#include <QSGImageNode>

#include <memory>

namespace tessel {

LiveView::LiveView(QQuickItem* parent) : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

LiveView::~LiveView()
{
    if (m_picture != nullptr)
        m_picture->setSize({});
}

void LiveView::setPicture(LivePicture* picture)
{
    if (picture == m_picture)
        return;
    if (m_picture != nullptr) {
        m_picture->disconnect(this);
        m_picture->setSize({});
    }
    m_picture = picture;
    if (m_picture != nullptr)
        connect(m_picture, &LivePicture::drawn, this, &QQuickItem::update);
    updateSize();
    Q_EMIT pictureChanged();
}

QImage LiveView::shown(const QImage& picture) const
{
    return picture;
}

QRectF LiveView::pictureArea() const
{
    return boundingRect();
}

QSGNode* LiveView::updatePaintNode(QSGNode* old, UpdatePaintNodeData* /*data*/)
{
    const QImage picture = m_picture != nullptr ? m_picture->image() : QImage();
    std::unique_ptr<QSGImageNode> node(static_cast<QSGImageNode*>(old));
    if (picture.isNull())
        return nullptr;
    if (node == nullptr) {
        node.reset(window()->createImageNode());
        node->setOwnsTexture(true);
        node->setFiltering(QSGTexture::Nearest);
    }
    node->setTexture(window()->createTextureFromImage(shown(picture)));
    node->setRect(boundingRect());
    return node.release();
}

void LiveView::geometryChange(const QRectF& now, const QRectF& before)
{
    QQuickItem::geometryChange(now, before);
    if (now.size() != before.size())
        updateSize();
}

void LiveView::itemChange(ItemChange change, const ItemChangeData& data)
{
    QQuickItem::itemChange(change, data);
    if (change == ItemVisibleHasChanged || change == ItemDevicePixelRatioHasChanged ||
        change == ItemSceneChange)
        updateSize();
}

double LiveView::scale() const
{
    return window() != nullptr ? window()->effectiveDevicePixelRatio() : 1.0;
}

void LiveView::updateSize()
{
    if (m_picture == nullptr)
        return;
    const bool isSeen = isVisible() && window() != nullptr;
    m_picture->setSize(isSeen ? (pictureArea().size() * scale()).toSize() : QSize());
    update();
}

} // namespace tessel
