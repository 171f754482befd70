// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/x11/x11_occlusion.h"

#include <QTimer>

#include <algorithm>
#include <chrono>
#include <string>
#include <utility>
#include <xcb/shape.h>

namespace tessel {

/// The names that matter here, as the server numbers them.
struct X11OcclusionAtoms
{
    explicit X11OcclusionAtoms(X11Connection& connection)
        : clientList(connection.atom("_NET_CLIENT_LIST"))
        , currentDesktop(connection.atom("_NET_CURRENT_DESKTOP"))
        , showingDesktop(connection.atom("_NET_SHOWING_DESKTOP"))
        , compositor(connection.atom("_NET_WM_CM_S" + std::to_string(connection.screenNumber())))
        , state(connection.atom("_NET_WM_STATE"))
        , stateHidden(connection.atom("_NET_WM_STATE_HIDDEN"))
        , stateShaded(connection.atom("_NET_WM_STATE_SHADED"))
        , stateFullScreen(connection.atom("_NET_WM_STATE_FULLSCREEN"))
        , oldState(connection.atom("WM_STATE"))
        , desktop(connection.atom("_NET_WM_DESKTOP"))
        , type(connection.atom("_NET_WM_WINDOW_TYPE"))
        , typeDesktop(connection.atom("_NET_WM_WINDOW_TYPE_DESKTOP"))
        , frame(connection.atom("_NET_FRAME_EXTENTS"))
        , shadow(connection.atom("_GTK_FRAME_EXTENTS"))
        , opacity(connection.atom("_NET_WM_WINDOW_OPACITY"))
        , opaqueRegion(connection.atom("_NET_WM_OPAQUE_REGION"))
    {
    }

    /// Whether a window's property says something about what it covers.
    [[nodiscard]] bool matters(xcb_atom_t property) const
    {
        const auto mattering = {state, oldState, desktop, type, frame, shadow, opacity, opaqueRegion};
        return std::ranges::find(mattering, property) != mattering.end();
    }

    xcb_atom_t clientList;
    xcb_atom_t currentDesktop;
    xcb_atom_t showingDesktop;
    xcb_atom_t compositor;
    xcb_atom_t state;
    xcb_atom_t stateHidden;
    xcb_atom_t stateShaded;
    xcb_atom_t stateFullScreen;
    xcb_atom_t oldState;
    xcb_atom_t desktop;
    xcb_atom_t type;
    xcb_atom_t typeDesktop;
    xcb_atom_t frame;
    xcb_atom_t shadow;
    xcb_atom_t opacity;
    xcb_atom_t opaqueRegion;
};

namespace {

/// Dragging a window sends hundreds of events.
constexpr std::chrono::milliseconds pace{100};

constexpr std::uint32_t everyWorkspace = 0xFFFFFFFF;
constexpr std::uint32_t fullOpacity = 0xFFFFFFFF;
constexpr std::uint32_t iconicState = 3;

/// Of rectangles of one window: one with more is too ragged to be worth the work.
constexpr int mostRectangles = 32;

/// Of answers: more than monitors anywhere.
constexpr std::size_t mostAnswers = 32;

using Items = std::vector<std::uint32_t>;

std::uint32_t firstOr(const Items& items, std::uint32_t otherwise)
{
    return items.empty() ? otherwise : items.front();
}

bool contains(const Items& items, std::uint32_t item)
{
    return std::ranges::find(items, item) != items.end();
}

/// The edges of a frame, in the order left, right, top, bottom.
QMargins margins(const Items& edges)
{
    if (edges.size() < 4)
        return {};
    // A window can claim anything.
    static constexpr std::uint32_t widest = 1U << 12U;
    const auto edge = [&edges](std::size_t index) {
        return static_cast<int>(std::min(edges[index], widest));
    };
    return {edge(0), edge(2), edge(1), edge(3)};
}

QRegion regionOf(const Items& numbers, QPoint origin)
{
    QRegion region;
    const std::size_t count = std::min(numbers.size() / 4, static_cast<std::size_t>(mostRectangles));
    for (std::size_t i = 0; i < count; ++i) {
        const auto number = [&](std::size_t index) {
            return static_cast<std::int16_t>(numbers[i * 4 + index]);
        };
        region += QRect(origin + QPoint(number(0), number(1)), QSize(number(2), number(3)));
    }
    return region;
}

} // namespace

/// Everything that is to be known about a window: asked when it is made, with the answers waited for only
/// when they are read, so that the server gets the questions about all windows at once.
class X11Occlusion::Question
{
public:
    Question(xcb_connection_t* connection, xcb_window_t root, const X11OcclusionAtoms& atoms,
             xcb_window_t window)
        : m_connection(connection)
        , m_atoms(atoms)
        , m_attributes(xcb_get_window_attributes(connection, window))
        , m_geometry(xcb_get_geometry(connection, window))
        , m_position(xcb_translate_coordinates(connection, window, root, 0, 0))
        , m_shape(xcb_shape_get_rectangles(connection, window, XCB_SHAPE_SK_BOUNDING))
        , m_state(askProperty(connection, window, atoms.state))
        , m_oldState(askProperty(connection, window, atoms.oldState))
        , m_desktop(askProperty(connection, window, atoms.desktop))
        , m_type(askProperty(connection, window, atoms.type))
        , m_frame(askProperty(connection, window, atoms.frame))
        , m_shadow(askProperty(connection, window, atoms.shadow))
        , m_opacity(askProperty(connection, window, atoms.opacity))
        , m_opaqueRegion(askProperty(connection, window, atoms.opaqueRegion))
    {
    }

    /// Reads every answer, also of a window that is gone: one left behind would stay in memory.
    [[nodiscard]] Window read()
    {
        const Items state = readProperty(m_connection, m_state);
        const bool isShown = readIsShown(state);
        const auto geometry = readReply(xcb_get_geometry_reply, m_connection, m_geometry);
        const auto position = readReply(xcb_translate_coordinates_reply, m_connection, m_position);
        const auto shape = readReply(xcb_shape_get_rectangles_reply, m_connection, m_shape);
        const Items desktop = readProperty(m_connection, m_desktop);
        const QMargins frame = margins(readProperty(m_connection, m_frame));
        const QMargins shadow = margins(readProperty(m_connection, m_shadow));
        const Items opacity = readProperty(m_connection, m_opacity);
        const Items opaqueRegion = readProperty(m_connection, m_opaqueRegion);

        Window window;
        window.isKnown = true;
        window.workspace = firstOr(desktop, everyWorkspace);
        if (!isShown || geometry == nullptr || position == nullptr || shape == nullptr)
            return window;

        const QPoint origin(position->dst_x, position->dst_y);
        const QRect client(origin, QSize(geometry->width, geometry->height));
        const QRegion body = shapeOf(*shape, client) & client.marginsRemoved(shadow);
        // Around a window of its own shape the manager draws no whole frame.
        const bool isRectangle = body.rectCount() == 1;
        const QRegion edges = isRectangle ? QRegion(client.marginsAdded(frame)) - client : QRegion();
        window.whole = body + edges;
        window.isFullScreen = contains(state, m_atoms.stateFullScreen);
        if (firstOr(opacity, fullOpacity) != fullOpacity)
            return window;
        static constexpr int depthWithAlpha = 32;
        const bool hasAlpha = geometry->depth == depthWithAlpha;
        window.opaque = hasAlpha ? (body & regionOf(opaqueRegion, origin)) + edges : window.whole;
        return window;
    }

private:
    bool readIsShown(const Items& state)
    {
        const auto attributes = readReply(xcb_get_window_attributes_reply, m_connection, m_attributes);
        const Items oldState = readProperty(m_connection, m_oldState);
        const Items type = readProperty(m_connection, m_type);
        return attributes != nullptr && attributes->map_state == XCB_MAP_STATE_VIEWABLE &&
               !contains(state, m_atoms.stateHidden) && !contains(state, m_atoms.stateShaded) &&
               firstOr(oldState, 0) != iconicState && !contains(type, m_atoms.typeDesktop);
    }

    static QRegion shapeOf(const xcb_shape_get_rectangles_reply_t& shape, const QRect& client)
    {
        const int count = xcb_shape_get_rectangles_rectangles_length(&shape);
        if (count > mostRectangles)
            return {};
        QRegion region;
        const xcb_rectangle_t* rectangles = xcb_shape_get_rectangles_rectangles(&shape);
        for (int i = 0; i < count; ++i) {
            const auto& [x, y, width, height] = rectangles[i];
            region += QRect(client.topLeft() + QPoint(x, y), QSize(width, height));
        }
        return region;
    }

    xcb_connection_t* m_connection;
    const X11OcclusionAtoms& m_atoms;
    xcb_get_window_attributes_cookie_t m_attributes;
    xcb_get_geometry_cookie_t m_geometry;
    xcb_translate_coordinates_cookie_t m_position;
    xcb_shape_get_rectangles_cookie_t m_shape;
    xcb_get_property_cookie_t m_state;
    xcb_get_property_cookie_t m_oldState;
    xcb_get_property_cookie_t m_desktop;
    xcb_get_property_cookie_t m_type;
    xcb_get_property_cookie_t m_frame;
    xcb_get_property_cookie_t m_shadow;
    xcb_get_property_cookie_t m_opacity;
    xcb_get_property_cookie_t m_opaqueRegion;
};

X11Occlusion::X11Occlusion(X11Connection& connection, X11Events& events)
    : m_connection(connection)
    , m_pending(new QTimer(this))
{
    m_pending->setSingleShot(true);
    m_pending->setInterval(pace);
    connect(m_pending, &QTimer::timeout, this, &X11Occlusion::refresh);
    if (!m_connection.isValid())
        return;
    if (!hasExtension(m_connection.get(), xcb_shape_id))
        return;
    m_shapeEvent = xcb_get_extension_data(m_connection.get(), &xcb_shape_id)->first_event + XCB_SHAPE_NOTIFY;
    m_atoms = std::make_unique<X11OcclusionAtoms>(m_connection);
    // The root's structure brings the announcement of a compositing manager.
    m_connection.listenToRoot(XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    connect(&events, &X11Events::received, this, &X11Occlusion::handle);
    refresh();
}

X11Occlusion::~X11Occlusion() = default;

bool X11Occlusion::computeCovered(const QRect& pixels) const
{
    return !pixels.isEmpty() && QRegion(pixels).subtracted(m_covered).isEmpty();
}

bool X11Occlusion::isCovered(const QRect& pixels) const
{
    const auto known = std::ranges::find(m_answers, pixels, &Answer::pixels);
    if (known != m_answers.end())
        return known->isCovered;
    if (m_answers.size() == mostAnswers)
        m_answers.erase(m_answers.begin());
    m_answers.push_back({pixels, computeCovered(pixels)});
    return m_answers.back().isCovered;
}

void X11Occlusion::handle(const xcb_generic_event_t& event)
{
    static constexpr std::uint8_t sentByClient = 0x80;
    const int type = event.response_type & ~sentByClient;
    // In all of these the window that it is about stands at the same place.
    const auto& about = reinterpret_cast<const xcb_configure_notify_event_t&>(event);
    switch (type) {
    case XCB_PROPERTY_NOTIFY: {
        const auto& property = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        handleProperty(property.window, property.atom);
        break;
    }
    case XCB_CONFIGURE_NOTIFY:
    case XCB_MAP_NOTIFY:
    case XCB_UNMAP_NOTIFY:
    case XCB_REPARENT_NOTIFY:
        forget(about.window);
        break;
    case XCB_DESTROY_NOTIFY:
        forget(about.window);
        if (about.window == m_compositor)
            schedule();
        break;
    case XCB_CLIENT_MESSAGE:
        schedule();
        break;
    default:
        if (type == m_shapeEvent)
            forget(reinterpret_cast<const xcb_shape_notify_event_t&>(event).affected_window);
    }
}

void X11Occlusion::handleProperty(xcb_window_t window, xcb_atom_t atom)
{
    if (window != m_connection.root()) {
        if (m_atoms->matters(atom))
            forget(window);
    } else if (atom == m_atoms->clientList) {
        schedule();
    } else if (atom == m_atoms->currentDesktop || atom == m_atoms->showingDesktop) {
        // The manager may hide the frames, of which we hear nothing, and leave the windows as they are.
        forgetAll();
    }
}

void X11Occlusion::forget(xcb_window_t window)
{
    const auto found = m_windows.find(window);
    if (found == m_windows.end())
        return;
    found->second.isKnown = false;
    schedule();
}

void X11Occlusion::forgetAll()
{
    for (auto& [id, window] : m_windows)
        window.isKnown = false;
    schedule();
}

void X11Occlusion::schedule()
{
    if (!m_pending->isActive())
        m_pending->start();
}

void X11Occlusion::refresh()
{
    askRoot();
    askWindows();
    addUp();
}

void X11Occlusion::askRoot()
{
    xcb_connection_t* server = m_connection.get();
    const auto list = askProperty(server, m_connection.root(), m_atoms->clientList);
    const auto desktop = askProperty(server, m_connection.root(), m_atoms->currentDesktop);
    const auto showing = askProperty(server, m_connection.root(), m_atoms->showingDesktop);
    followList(readProperty(server, list));
    m_workspace = firstOr(readProperty(server, desktop), 0);
    m_isShowingDesktop = firstOr(readProperty(server, showing), 0) != 0;
    followCompositor();
}

void X11Occlusion::followList(const std::vector<std::uint32_t>& listed)
{
    std::erase_if(m_windows, [&listed](const auto& known) { return !contains(listed, known.first); });
    static constexpr std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    for (const xcb_window_t window : listed) {
        if (!m_windows.try_emplace(window).second)
            continue;
        // Before its state is asked for, so that no change falls between.
        xcb_change_window_attributes(m_connection.get(), window, XCB_CW_EVENT_MASK, &events);
        xcb_shape_select_input(m_connection.get(), window, 1);
    }
}

xcb_window_t X11Occlusion::askCompositor() const
{
    xcb_connection_t* server = m_connection.get();
    const auto owner = readReply(xcb_get_selection_owner_reply, server,
                                 xcb_get_selection_owner(server, m_atoms->compositor));
    return owner != nullptr ? owner->owner : xcb_window_t{XCB_WINDOW_NONE};
}

void X11Occlusion::followCompositor()
{
    const bool wasBlending = isBlending();
    xcb_window_t owner = askCompositor();
    while (owner != m_compositor) {
        m_compositor = owner;
        static constexpr std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        // Its end is the end of blending. A manager that composes may own this with one of the listed
        // windows' kin, or with the root, whose events are chosen already.
        if (owner != XCB_WINDOW_NONE && owner != m_connection.root() && !m_windows.contains(owner))
            xcb_change_window_attributes(m_connection.get(), owner, XCB_CW_EVENT_MASK, &events);
        // It may have ended before it could be heard.
        owner = askCompositor();
    }
    if (wasBlending != isBlending())
        Q_EMIT blendingChanged();
}

void X11Occlusion::askWindows()
{
    std::vector<std::pair<Window*, Question>> questions;
    for (auto& [id, window] : m_windows)
        if (!window.isKnown)
            questions.emplace_back(&window, Question(m_connection.get(), m_connection.root(), *m_atoms, id));
    for (auto& [window, question] : questions)
        *window = question.read();
}

void X11Occlusion::addUp()
{
    m_covered = {};
    const QRegion filledBefore = std::exchange(m_filled, {});
    for (const auto& [id, window] : m_windows) {
        if (m_isShowingDesktop || (window.workspace != m_workspace && window.workspace != everyWorkspace))
            continue;
        m_covered += m_compositor != XCB_WINDOW_NONE ? window.opaque : window.whole;
        if (window.isFullScreen)
            m_filled += window.whole;
    }
    if (m_filled != filledBefore)
        Q_EMIT filledChanged();
    bool isDifferent = false;
    for (Answer& answer : m_answers) {
        const bool before = std::exchange(answer.isCovered, computeCovered(answer.pixels));
        isDifferent = isDifferent || before != answer.isCovered;
    }
    if (isDifferent)
        Q_EMIT changed();
}

} // namespace tessel
