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

// Gives out the rectangles of a node one after the other, those of the last time first.
class Rectangles
{
public:
    /// \param shift in device pixels, of where the item begins to whole ones
    Rectangles(QQuickWindow* window, QSGNode* parent, QPointF shift, qreal scale)
        : m_window(window)
        , m_parent(parent)
        , m_next(static_cast<QSGRectangleNode*>(parent->firstChild()))
        , m_shift(shift)
        , m_scale(scale)
    {
    }

    /// \param pixels in the window's device pixels, from where the item begins
    void fill(const QRect& pixels, const QColor& colour)
    {
        if (m_next == nullptr) {
            m_next = m_window->createRectangleNode();
            m_parent->appendChildNode(m_next);
        }
        const QRectF points((pixels.x() + m_shift.x()) / m_scale, (pixels.y() + m_shift.y()) / m_scale,
                            pixels.width() / m_scale, pixels.height() / m_scale);
        if (m_next->rect() != points)
            m_next->setRect(points);
        if (m_next->color() != colour)
            m_next->setColor(colour);
        m_next = static_cast<QSGRectangleNode*>(m_next->nextSibling());
    }

    void removeRest()
    {
        while (m_next != nullptr) {
            auto* const rest = m_next;
            m_next = static_cast<QSGRectangleNode*>(rest->nextSibling());
            m_parent->removeChildNode(rest);
            delete rest;
        }
    }

private:
    QQuickWindow* m_window;
    QSGNode* m_parent;
    QSGRectangleNode* m_next;
    QPointF m_shift;
    qreal m_scale;
};

void fillShape(Rectangles& rectangles, QRect pixels, int radius, qreal scale, const QColor& colour)
{
    if (pixels.isEmpty())
        return;
    for (const QRect& rect : art::steppedRects(pixels.size(), radius, scale))
        rectangles.fill(rect.translated(pixels.topLeft()), colour);
}

void fillRegion(Rectangles& rectangles, const QRegion& region, const QColor& colour)
{
    for (const QRect& rect : region)
        rectangles.fill(rect, colour);
}

} // namespace

Stepped::Stepped(QQuickItem* parent) : QQuickItem(parent)
{
    setFlag(ItemHasContents);
    connect(this, &Stepped::changed, this, &QQuickItem::update);
}

QSGNode* Stepped::updatePaintNode(QSGNode* old, UpdatePaintNodeData* /*data*/)
{
    QSGNode* const node = old != nullptr ? old : new QSGNode;
    const qreal scale = window()->effectiveDevicePixelRatio();
    // Edges are rounded where they lie in the window, or shapes would be a device pixel off their neighbours.
    const QPointF begin = mapToScene(QPointF(0, 0)) * scale;
    const QPoint first = begin.toPoint();
    const QPoint last = (begin + QPointF(width(), height()) * scale).toPoint();
    Rectangles rectangles(window(), node, first - begin, scale);

    const QRect whole(0, 0, last.x() - first.x(), last.y() - first.y());
    const int line = std::max(1, static_cast<int>(std::lround(scale)));
    const QRect inside = whole.adjusted(line, line, -line, -line);
    if (m_part == Frame) {
        const auto shape = [&](int points) {
            const int margin = static_cast<int>(std::lround(points * scale));
            return art::steppedShape(whole.size() + QSize(2 * margin, 2 * margin), m_radius, scale)
                .translated(-margin, -margin);
        };
        if (m_ring.alpha() > 0) {
            fillRegion(rectangles, shape(4) - shape(2), m_ring);
            fillRegion(rectangles, shape(2) - shape(0), m_color);
        } else {
            fillRegion(rectangles, QRegion(whole) - shape(0), m_color);
        }
    } else if (m_part == Hairline) {
        const QRegion hole = art::steppedShape(inside.size(), m_radius, scale).translated(inside.topLeft());
        fillRegion(rectangles, art::steppedShape(whole.size(), m_radius, scale) - hole, m_hairline);
    } else {
        if (m_hairline.alpha() > 0)
            fillShape(rectangles, whole, m_radius, scale, m_hairline);
        fillShape(rectangles, m_hairline.alpha() > 0 ? inside : whole, m_radius, scale, m_color);
    }
    rectangles.removeRest();
    return node;
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
