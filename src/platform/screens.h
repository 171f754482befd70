// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QRect>
#include <QSize>
#include <QString>

#include <cstdint>
#include <vector>

namespace tessel {

/// In what the places of monitors are measured.
enum class Layout : std::uint8_t
{
    pixels, ///< they stand side by side by their own pixels, as on X11
    points  ///< whatever each one's scale is, as on Wayland
};

/// One of the monitors.
struct Screen
{
    QString name;           ///< of its output, such as "HDMI-1"
    QRect frame;            ///< points
    double scale = 1;       ///< pixels per point
    QSize resolution = {};  ///< pixels; empty if they follow from the points
    QRect workArea = {};    ///< what panels leave of the frame
    bool isPrimary = false; ///< the one that the desktop's panels are on
    Layout layout = Layout::pixels;

    /// Where it lies among the pixels of the whole desktop.
    [[nodiscard]] QRect pixels() const
    {
        return {frame.topLeft(),
                resolution.isEmpty() ? (frame.size().toSizeF() * scale).toSize() : resolution};
    }

    /// Whether a picture or window for one is as good for the other: all but work area and rank is the same.
    [[nodiscard]] bool isSamePlace(const Screen& other) const
    {
        return name == other.name && frame == other.frame && scale == other.scale &&
               resolution == other.resolution;
    }

    bool operator==(const Screen&) const = default;
};

/// The monitors of the desktop, in the system's order.
class Screens : public QObject
{
    Q_OBJECT

public:
    [[nodiscard]] virtual std::vector<Screen> list() const = 0;

Q_SIGNALS:
    /// Monitors came, went, moved or changed their size or work area; once for a burst of such changes.
    void changed();
};

} // namespace tessel
