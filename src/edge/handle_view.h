// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/live_view.h"

namespace tessel {

/// The round handle, a bowl seen from above: a rim of art pixels around the desktop's look.
class HandleView : public tessel::LiveView // the name that qmllint finds it by
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool hovered MEMBER m_hovered WRITE setHovered NOTIFY stateChanged)
    Q_PROPERTY(bool pressed MEMBER m_pressed WRITE setPressed NOTIFY stateChanged)

public:
    using LiveView::LiveView;

    void setHovered(bool hovered);
    void setPressed(bool pressed);

Q_SIGNALS:
    void stateChanged();

protected:
    [[nodiscard]] QImage shown(const QImage& picture) const override;
    [[nodiscard]] QRectF pictureArea() const override;

private:
    bool m_hovered = false;
    bool m_pressed = false;
};

/// The handle as a picture.
/// \param picture for the disc inside the rim, of (width - 8 points) in device pixels
/// \param scale device pixels to a point
[[nodiscard]] QImage drawHandle(const QImage& picture, bool hovered, bool pressed, double scale);

} // namespace tessel
