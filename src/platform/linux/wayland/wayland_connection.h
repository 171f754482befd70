// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/linux/wayland/wayland_objects.h"
#include "platform/linux/wayland/wayland_output.h"

#include <QObject>
#include <QSocketNotifier>

#include <cstdint>
#include <memory>
#include <vector>

namespace tessel {

/// A connection of our own to a compositor that lets programs stand below and above windows. Its events are
/// told on the main thread.
class WaylandConnection : public QObject
{
    Q_OBJECT

public:
    /// \return nullptr where there is no compositor
    [[nodiscard]] static std::unique_ptr<WaylandConnection> open();
    ~WaylandConnection() override;

    [[nodiscard]] wl_display* display() const { return m_display.get(); }
    [[nodiscard]] wl_compositor* compositor() const { return m_compositor.get(); }
    [[nodiscard]] wl_shm* sharedMemory() const { return m_sharedMemory.get(); }
    [[nodiscard]] wp_viewporter* viewporter() const { return m_viewporter.get(); }
    [[nodiscard]] zwlr_layer_shell_v1* layers() const { return m_layers.get(); }

    /// Whether it lets programs do so; else there are outputs at most.
    [[nodiscard]] bool hasLayers() const;

    /// Whether what comes later on a layer stands below what was there: so it is in sway before 1.10.
    [[nodiscard]] bool stacksLatestLowest() const { return m_isSway && !m_isRecent; }

    /// Those whose properties are known, in the order in which they came.
    [[nodiscard]] std::vector<std::shared_ptr<WaylandOutput>> outputs() const;
    /// nullptr if there is none of that name.
    [[nodiscard]] std::shared_ptr<WaylandOutput> output(const QString& name) const;

    /// Sends what was asked for.
    void flush();

Q_SIGNALS:
    /// Outputs came or changed.
    void outputsChanged();
    void outputRemoved(const std::shared_ptr<tessel::WaylandOutput>& output);
    /// The compositor is gone.
    void lost();

private:
    struct Listener;

    explicit WaylandConnection(WaylandPointer<wl_display> display);
    void addOutput(WaylandPointer<wl_output> object, std::uint32_t number);
    void setPlaces(WaylandPointer<zxdg_output_manager_v1> manager);
    void removeOutput(std::uint32_t number);
    void read();
    void dispatch();

    const WaylandPointer<wl_display> m_display;
    WaylandPointer<wl_registry> m_registry;
    WaylandPointer<wl_compositor> m_compositor;
    WaylandPointer<wl_shm> m_sharedMemory;
    WaylandPointer<wp_viewporter> m_viewporter;
    WaylandPointer<zwlr_layer_shell_v1> m_layers;
    WaylandPointer<zxdg_output_manager_v1> m_places;
    std::vector<std::shared_ptr<WaylandOutput>> m_outputs;
    QSocketNotifier m_notifier;
    const bool m_isSway;
    bool m_isRecent = false; ///< it offers what wlroots has had since 0.18
};

} // namespace tessel
