// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/wayland/wayland_connection.h"

#include "platform/linux/wayland/layer_shell.h"
#include "viewporter-client.h"
#include "xdg-output-unstable-v1-client.h"

#include <QAbstractEventDispatcher>

#include <algorithm>
#include <cstring>
#include <wayland-client.h>

namespace tessel {

namespace {

/// Changed parts of a surface are told in pixels from this version on.
constexpr std::uint32_t damageInPixels = 4;
/// Monitors have names from this version on.
constexpr std::uint32_t namedOutputs = 4;
/// A place changes together with the rest of its monitor from this version on.
constexpr std::uint32_t placesWithOutputs = 3;

template<typename Object>
WaylandPointer<Object> bind(wl_registry* registry, std::uint32_t number, const wl_interface& interface,
                            std::uint32_t version)
{
    return WaylandPointer<Object>(
        static_cast<Object*>(wl_registry_bind(registry, number, &interface, version)));
}

} // namespace

struct WaylandConnection::Listener
{
    static WaylandConnection& self(void* data) { return *static_cast<WaylandConnection*>(data); }

    static void global(void* data, wl_registry* registry, std::uint32_t number, const char* name,
                       std::uint32_t version)
    {
        WaylandConnection& c = self(data);
        const auto is = [name](const wl_interface& interface) {
            return std::strcmp(name, interface.name) == 0;
        };
        if (is(wl_compositor_interface) && version >= damageInPixels)
            c.m_compositor = bind<wl_compositor>(registry, number, wl_compositor_interface, damageInPixels);
        else if (is(wl_shm_interface))
            c.m_sharedMemory = bind<wl_shm>(registry, number, wl_shm_interface, 1);
        else if (is(wp_viewporter_interface))
            c.m_viewporter = bind<wp_viewporter>(registry, number, wp_viewporter_interface, 1);
        else if (is(zwlr_layer_shell_v1_interface))
            c.m_layers = bind<zwlr_layer_shell_v1>(registry, number, zwlr_layer_shell_v1_interface,
                                                   std::min(version, newestLayers));
        else if (is(zxdg_output_manager_v1_interface))
            c.setPlaces(bind<zxdg_output_manager_v1>(registry, number, zxdg_output_manager_v1_interface,
                                                     std::min(version, placesWithOutputs)));
        else if (std::strcmp(name, "wp_alpha_modifier_v1") == 0)
            c.m_isRecent = true;
        else if (is(wl_output_interface))
            c.addOutput(
                bind<wl_output>(registry, number, wl_output_interface, std::min(version, namedOutputs)),
                number);
    }

    static void globalRemove(void* data, wl_registry* /*registry*/, std::uint32_t number)
    {
        self(data).removeOutput(number);
    }

    static constexpr wl_registry_listener all{global, globalRemove};
};

std::unique_ptr<WaylandConnection> WaylandConnection::open()
{
    // Without a name the library would try one that may belong to another session.
    if (!qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
        return nullptr;
    WaylandPointer<wl_display> display(wl_display_connect(nullptr));
    if (display == nullptr)
        return nullptr;
    return std::unique_ptr<WaylandConnection>(new WaylandConnection(std::move(display)));
}

WaylandConnection::WaylandConnection(WaylandPointer<wl_display> display)
    : m_display(std::move(display))
    , m_registry(wl_display_get_registry(m_display.get()))
    , m_notifier(wl_display_get_fd(m_display.get()), QSocketNotifier::Read)
    , m_isSway(qEnvironmentVariableIsSet("SWAYSOCK"))
{
    wl_registry_add_listener(m_registry.get(), &Listener::all, this);
    wl_display_roundtrip(m_display.get()); // what there is
    wl_display_roundtrip(m_display.get()); // how the monitors are
    connect(&m_notifier, &QSocketNotifier::activated, this, &WaylandConnection::read);
    // Whoever draws with OpenGL may have read events of ours on the way.
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this, [this] {
        dispatch();
        flush();
    });
}

WaylandConnection::~WaylandConnection() = default;

bool WaylandConnection::hasLayers() const
{
    return m_compositor != nullptr && m_sharedMemory != nullptr && m_viewporter != nullptr &&
           m_layers != nullptr;
}

std::vector<std::shared_ptr<WaylandOutput>> WaylandConnection::outputs() const
{
    auto known = m_outputs;
    std::erase_if(known, [](const auto& output) { return !output->isKnown(); });
    return known;
}

std::shared_ptr<WaylandOutput> WaylandConnection::output(const QString& name) const
{
    const auto found = std::ranges::find_if(m_outputs, [&name](const auto& output) {
        return output->isKnown() && output->screen().name == name;
    });
    return found == m_outputs.end() ? nullptr : *found;
}

void WaylandConnection::flush()
{
    wl_display_flush(m_display.get());
}

void WaylandConnection::addOutput(WaylandPointer<wl_output> object, std::uint32_t number)
{
    auto output = std::make_shared<WaylandOutput>(number, std::move(object));
    connect(output.get(), &WaylandOutput::changed, this, &WaylandConnection::outputsChanged);
    if (m_places != nullptr)
        output->followPlace(m_places.get());
    m_outputs.push_back(std::move(output));
}

void WaylandConnection::setPlaces(WaylandPointer<zxdg_output_manager_v1> manager)
{
    m_places = std::move(manager);
    for (const auto& output : m_outputs)
        output->followPlace(m_places.get());
}

void WaylandConnection::removeOutput(std::uint32_t number)
{
    const auto found =
        std::ranges::find_if(m_outputs, [number](const auto& each) { return each->number() == number; });
    if (found == m_outputs.end())
        return;
    const std::shared_ptr<WaylandOutput> removed = std::move(*found);
    m_outputs.erase(found);
    Q_EMIT outputRemoved(removed);
}

void WaylandConnection::read()
{
    dispatch();
    if (wl_display_prepare_read(m_display.get()) == 0)
        wl_display_read_events(m_display.get());
    dispatch();
    flush(); // what that was answered with
}

void WaylandConnection::dispatch()
{
    if (wl_display_dispatch_pending(m_display.get()) >= 0 || !m_notifier.isEnabled())
        return;
    m_notifier.setEnabled(false);
    Q_EMIT lost();
}

} // namespace tessel
