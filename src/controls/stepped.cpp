// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/stepped.h"

#include "controls/art_pixels.h"

#include <QQuickWindow>
#include <QSGRectangleNode>

#include <algorithm>
#include <cmath>

namespace tessel {

namespace {

template<typename Shape>
void fillShape(Shape& shape, QRect pixels, int radius, qreal scale, const QColor& colour)
{
    if (pixels.isEmpty())
        return;
    for (const QRect& rect : art::steppedRects(pixels.size(), radius, scale))
        shape.push_back({rect.translated(pixels.topLeft()), colour});
}

template<typename Shape>
void fillRegion(Shape& shape, const QRegion& region, const QColor& colour)
{
    for (const QRect& rect : region)
        shape.push_back({rect, colour});
}

} // namespace

Stepped::Stepped(QQuickItem* parent) : QQuickItem(parent)
{
    setFlag(ItemHasContents);
    connect(this, &Stepped::changed, this, &QQuickItem::update);
}

QSGNode* Stepped::updatePaintNode(QSGNode* old, UpdatePaintNodeData* /*data*/)
{
    const qreal scale = window()->effectiveDevicePixelRatio();
    // Edges are rounded where they lie in the window, or shapes would be a device pixel off their neighbours.
    const QPointF begin = mapToScene(QPointF(0, 0)) * scale;
    const QPoint first = begin.toPoint();
    const QPoint last = (begin + QPointF(width(), height()) * scale).toPoint();
    const QPointF shift = first - begin;

    const std::vector<Filled> shape = shapeOf(QRect(0, 0, last.x() - first.x(), last.y() - first.y()), scale);
    // The software renderer loses track of where a child is that is added later: another number, another
    // node.
    if (old != nullptr && old->childCount() != static_cast<int>(shape.size())) {
        delete old;
        old = nullptr;
    }
    if (old == nullptr) {
        old = new QSGNode;
        for (std::size_t i = 0; i < shape.size(); ++i)
            old->appendChildNode(window()->createRectangleNode());
    }
    auto* node = static_cast<QSGRectangleNode*>(old->firstChild());
    for (const auto& [pixels, colour] : shape) {
        const QRectF points((pixels.x() + shift.x()) / scale, (pixels.y() + shift.y()) / scale,
                            pixels.width() / scale, pixels.height() / scale);
        if (node->rect() != points)
            node->setRect(points);
        if (node->color() != colour)
            node->setColor(colour);
        node = static_cast<QSGRectangleNode*>(node->nextSibling());
    }
    return old;
}

std::vector<Stepped::Filled> Stepped::shapeOf(const QRect& whole, qreal scale) const
{
    std::vector<Filled> shape;
    const int line = std::max(1, static_cast<int>(std::lround(scale)));
    const QRect inside = whole.adjusted(line, line, -line, -line);
    const auto around = [&](int points) {
        const int margin = static_cast<int>(std::lround(points * scale));
        return art::steppedShape(whole.size() + QSize(2 * margin, 2 * margin), m_radius, scale)
            .translated(-margin, -margin);
    };
    switch (m_part) {
    case Whole:
        if (m_hairline.alpha() > 0)
            fillShape(shape, whole, m_radius, scale, m_hairline);
        fillShape(shape, m_hairline.alpha() > 0 ? inside : whole, m_radius, scale, m_color);
        break;
    case Hairline:
        fillRegion(shape,
                   around(0) - art::steppedShape(inside.size(), m_radius, scale).translated(inside.topLeft()),
                   m_hairline);
        break;
    case Frame:
        if (m_ring.alpha() > 0) {
            fillRegion(shape, around(4) - around(2), m_ring);
            fillRegion(shape, around(2) - around(0), m_color);
        } else {
            fillRegion(shape, QRegion(whole) - around(0), m_color);
        }
        break;
    }
    return shape;
}

void Stepped::geometryChange(const QRectF& now, const QRectF& before)
{
    QQuickItem::geometryChange(now, before);
    update();
}

void Stepped::itemChange(ItemChange change, const ItemChangeData& data)
{
    if (change == ItemDevicePixelRatioHasChanged)
        update();
    QQuickItem::itemChange(change, data);
}

} // namespace tessel
