// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace tessel {

/// A rectangle whose corners are stepped in art pixels: filled, with a hairline just inside if one is wanted,
/// or only its hairline, or a frame around a picture. It is made of plain rectangles, so that it lies on
/// whole device pixels at every scale and costs no picture.
class Stepped : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Part part MEMBER m_part NOTIFY changed)
    Q_PROPERTY(int radius MEMBER m_radius NOTIFY changed)
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY changed)
    Q_PROPERTY(QColor hairline MEMBER m_hairline NOTIFY changed)
    /// Of a frame: a ring 2 points outside, 2 wide, with `color` between it and the picture.
    Q_PROPERTY(QColor ring MEMBER m_ring NOTIFY changed)

public:
    enum Part
    {
        Whole,
        Hairline,
        Frame ///< the item is the picture: its corners are covered in `color`
    };
    Q_ENUM(Part)

    explicit Stepped(QQuickItem* parent = nullptr);

Q_SIGNALS:
    void changed();

protected:
    QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData* data) override;
    void geometryChange(const QRectF& now, const QRectF& before) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    struct Filled
    {
        QRect pixels; ///< the window's, from where the item begins
        QColor colour;
    };

    [[nodiscard]] std::vector<Filled> shapeOf(const QRect& whole, qreal scale) const;

    Part m_part = Whole;
    int m_radius = 0; // in cells
    QColor m_color;
    QColor m_hairline = Qt::transparent;
    QColor m_ring = Qt::transparent;
};

} // namespace tessel
