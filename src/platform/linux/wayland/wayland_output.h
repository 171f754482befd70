// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/linux/wayland/wayland_objects.h"
#include "platform/screens.h"

#include <QObject>

#include <cstdint>

namespace tessel {

/// One monitor, as the compositor describes it.
class WaylandOutput : public QObject
{
    Q_OBJECT

public:
    /// \param number by which the registry calls it
    WaylandOutput(std::uint32_t number, WaylandPointer<wl_output> output);

    /// \param manager tells its place in points from now on
    void followPlace(zxdg_output_manager_v1* manager);

    [[nodiscard]] std::uint32_t number() const { return m_number; }
    [[nodiscard]] wl_output* get() const { return m_output.get(); }

    /// Whether all has been told that a screen needs.
    [[nodiscard]] bool isKnown() const { return m_isKnown; }
    [[nodiscard]] Screen screen() const;
    /// Between two pictures of the monitor.
    [[nodiscard]] double refreshSeconds() const;

Q_SIGNALS:
    /// All of a change has been told.
    void changed();

private:
    struct Listener;
    struct PlaceListener;

    [[nodiscard]] QSize pixels() const;

    const std::uint32_t m_number;
    const WaylandPointer<wl_output> m_output;
    WaylandPointer<zxdg_output_v1> m_place;
    QString m_name;
    QPoint m_position;       ///< points
    QSize m_size;            ///< points; empty where only pixels and a scale are told
    QSize m_mode;            ///< pixels, before it is turned
    int m_refresh = 0;       ///< pictures in 1000 seconds; 0 if not told
    int m_scale = 1;         ///< rounded up
    bool m_isTurned = false; ///< by a quarter
    bool m_isKnown = false;
};

} // namespace tessel
