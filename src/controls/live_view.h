// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/live_picture.h"

#include <QPointer>
#include <QQuickItem>

namespace tessel {

/// Shows a LivePicture as large as it is itself, pixel by pixel. While it cannot be seen nothing is drawn.
class LiveView : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(tessel::LivePicture* picture READ picture WRITE setPicture NOTIFY pictureChanged)

public:
    explicit LiveView(QQuickItem* parent = nullptr);
    ~LiveView() override;

    [[nodiscard]] LivePicture* picture() const { return m_picture; }
    void setPicture(LivePicture* picture);

Q_SIGNALS:
    void pictureChanged();

protected:
    /// What is shown of a picture: as many pixels as the item has.
    [[nodiscard]] virtual QImage shown(const QImage& picture) const;
    /// The part of the item that the picture takes, in points.
    [[nodiscard]] virtual QRectF pictureArea() const;

    /// Device pixels to a point.
    [[nodiscard]] double scale() const;

    QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData* data) override;
    void geometryChange(const QRectF& now, const QRectF& before) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    void updateSize();

    QPointer<LivePicture> m_picture;
};

} // namespace tessel
