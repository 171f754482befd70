// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/wayland/wayland_panel_window.h"

#include "platform/linux/wayland/layer_shell.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <qpa/qplatformnativeinterface.h>
#include <qpa/qplatformwindow.h>

#include <algorithm>
#include <cstring>
#include <wayland-client.h>

namespace tessel {

namespace {

/// A surface that takes the keyboard when it is clicked, and leaves it to others else.
constexpr std::uint32_t keyboardOnDemand = 4;
/// Milliseconds within which nobody clicks elsewhere.
constexpr int atOnce = 300;

template<typename Object>
Object* resource(const char* name)
{
    return static_cast<Object*>(
        QGuiApplication::platformNativeInterface()->nativeResourceForIntegration(name));
}

struct LayerSearch
{
    wl_registry* registry = nullptr;
    WaylandPointer<zwlr_layer_shell_v1> found = {};

    static void global(void* data, wl_registry* registry, std::uint32_t number, const char* name,
                       std::uint32_t version)
    {
        if (std::strcmp(name, zwlr_layer_shell_v1_interface.name) == 0)
            static_cast<LayerSearch*>(data)->found.reset(static_cast<zwlr_layer_shell_v1*>(wl_registry_bind(
                registry, number, &zwlr_layer_shell_v1_interface, std::min(version, newestLayers))));
    }
    static void globalRemove(void* /*data*/, wl_registry* /*registry*/, std::uint32_t /*number*/) {}

    static constexpr wl_registry_listener all{global, globalRemove};
};

/// Asks on a queue of its own, so that no event of Qt's is told meanwhile.
WaylandPointer<zwlr_layer_shell_v1> findLayers(wl_display* display)
{
    wl_event_queue* const queue = wl_display_create_queue(display);
    auto* const wrapper = static_cast<wl_display*>(wl_proxy_create_wrapper(display));
    wl_proxy_set_queue(reinterpret_cast<wl_proxy*>(wrapper), queue);
    const WaylandPointer<wl_registry> registry(wl_display_get_registry(wrapper));
    wl_proxy_wrapper_destroy(wrapper);
    LayerSearch search;
    wl_registry_add_listener(registry.get(), &LayerSearch::all, &search);
    wl_display_roundtrip_queue(display, queue);
    if (search.found != nullptr)
        wl_proxy_set_queue(reinterpret_cast<wl_proxy*>(search.found.get()), nullptr);
    wl_proxy_set_queue(reinterpret_cast<wl_proxy*>(registry.get()), nullptr);
    wl_event_queue_destroy(queue);
    return std::move(search.found);
}

wl_surface* surfaceOf(QWindow& window)
{
    return static_cast<wl_surface*>(
        QGuiApplication::platformNativeInterface()->nativeResourceForWindow("surface", &window));
}

wl_output* outputOf(QScreen* screen)
{
    return screen == nullptr
               ? nullptr
               : static_cast<wl_output*>(
                     QGuiApplication::platformNativeInterface()->nativeResourceForScreen("output", screen));
}

} // namespace

struct WaylandPanelWindow::Listener
{
    static void configure(void* data, zwlr_layer_surface_v1* role, std::uint32_t serial,
                          std::uint32_t /*width*/, std::uint32_t /*height*/)
    {
        zwlr_layer_surface_v1_ack_configure(role, serial);
        static_cast<WaylandPanelWindow*>(data)->m_window.show();
    }

    static void closed(void* data, zwlr_layer_surface_v1* /*role*/)
    {
        static_cast<WaylandPanelWindow*>(data)->hide();
    }

    static constexpr zwlr_layer_surface_v1_listener all{configure, closed};
};

std::unique_ptr<WaylandPanelWindow> WaylandPanelWindow::make(QWindow& window)
{
    auto* const display = resource<wl_display>("wl_display");
    if (display == nullptr)
        return nullptr;
    WaylandPointer<zwlr_layer_shell_v1> layers = findLayers(display);
    if (layers == nullptr)
        return nullptr;
    return std::unique_ptr<WaylandPanelWindow>(new WaylandPanelWindow(window, std::move(layers)));
}

WaylandPanelWindow::WaylandPanelWindow(QWindow& window, WaylandPointer<zwlr_layer_shell_v1> layers)
    : m_window(window)
    , m_layers(std::move(layers))
{
    // Qt leaves a surface without a role alone only where it is told so.
    qputenv("QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT", "1");
    m_window.setFlags(m_window.flags() | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint |
                      Qt::BypassWindowManagerHint);
    connect(&m_window, &QWindow::activeChanged, this, &WaylandPanelWindow::followActivity);
    m_window.installEventFilter(this);
}

WaylandPanelWindow::~WaylandPanelWindow()
{
    hide();
}

void WaylandPanelWindow::show()
{
    if (m_role != nullptr || m_frame.isEmpty())
        return;
    m_screen = QGuiApplication::screenAt(m_frame.center());
    m_window.setGeometry(m_frame);
    m_window.create();
    m_role.reset(zwlr_layer_shell_v1_get_layer_surface(
        m_layers.get(), surfaceOf(m_window), outputOf(m_screen), ZWLR_LAYER_SHELL_V1_LAYER_OVERLAY, "panel"));
    zwlr_layer_surface_v1_add_listener(m_role.get(), &Listener::all, this);
    describe();
    m_window.setMask(m_inputRegion);
    commit();
}

/// The role ends first: it is of the surface, which ends with Qt's window.
void WaylandPanelWindow::hide()
{
    if (m_role == nullptr)
        return;
    m_role.reset();
    m_window.destroy();
}

void WaylandPanelWindow::setFrame(const QRect& frame)
{
    if (frame == m_frame)
        return;
    const QSize shownSize = m_frame.size();
    m_frame = frame;
    if (m_role == nullptr)
        return;
    // Its surface is made anew on another screen, and at another scale of points.
    if (QGuiApplication::screenAt(frame.center()) != m_screen || m_window.size() != shownSize) {
        hide();
        show();
        return;
    }
    m_window.setGeometry(frame);
    describe();
    commit();
}

bool WaylandPanelWindow::isAtRightEdge() const
{
    return m_screen != nullptr && m_frame.center().x() > m_screen->geometry().center().x();
}

/// The compositor centres it between the panels at the top and at the bottom.
void WaylandPanelWindow::describe()
{
    const QSize size = m_window.handle()->geometry().size(); // in the compositor's points
    zwlr_layer_surface_v1_set_size(m_role.get(), static_cast<std::uint32_t>(size.width()),
                                   static_cast<std::uint32_t>(size.height()));
    zwlr_layer_surface_v1_set_anchor(m_role.get(), isAtRightEdge() ? ZWLR_LAYER_SURFACE_V1_ANCHOR_RIGHT
                                                                   : ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT);
    zwlr_layer_surface_v1_set_keyboard_interactivity(m_role.get(), interactivity());
}

std::uint32_t WaylandPanelWindow::interactivity() const
{
    if (m_keyboard == KeyboardFocus::never)
        return ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_NONE;
    if (m_hold == Hold::shared && zwlr_layer_surface_v1_get_version(m_role.get()) >= keyboardOnDemand)
        return ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_ON_DEMAND;
    return ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_EXCLUSIVE;
}

void WaylandPanelWindow::commit()
{
    wl_surface_commit(surfaceOf(m_window));
}

void WaylandPanelWindow::setInputRegion(const QRegion& region)
{
    m_inputRegion = region;
    if (m_role == nullptr)
        return;
    m_window.setMask(region);
    commit();
}

void WaylandPanelWindow::setKeyboardFocus(KeyboardFocus focus)
{
    if (std::exchange(m_keyboard, focus) == focus)
        return;
    hold(Hold::taking);
}

/// Some compositors, labwc among them, take the keyboard away from whoever gives it free.
void WaylandPanelWindow::followActivity()
{
    if (m_window.isActive() && m_hold == Hold::taking) {
        m_sinceShared.start();
        hold(Hold::shared);
    } else if (!m_window.isActive() && m_hold == Hold::shared && !m_sinceShared.hasExpired(atOnce)) {
        hold(Hold::keeping);
    }
}

bool WaylandPanelWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Leave && m_hold == Hold::keeping)
        hold(Hold::shared);
    return PanelWindow::eventFilter(watched, event);
}

void WaylandPanelWindow::hold(Hold hold)
{
    m_hold = hold;
    updateKeyboard();
}

void WaylandPanelWindow::updateKeyboard()
{
    if (m_role == nullptr)
        return;
    zwlr_layer_surface_v1_set_keyboard_interactivity(m_role.get(), interactivity());
    commit();
}

} // namespace tessel
