// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QRect>

#include <cstdint>
#include <cstdlib>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>
#include <xcb/xcb.h>

class QImage;
class QSocketNotifier;

namespace tessel {

/// Releases what xcb hands out: replies and events.
struct XcbRelease
{
    void operator()(void* pointer) const { std::free(pointer); }
};
template<typename Type>
using XcbPointer = std::unique_ptr<Type, XcbRelease>;

/// Copies a picture into a drawable, its top left corner at `to`.
/// \param depth the drawable's
/// \param picture Format_RGB32
void putImage(xcb_connection_t* connection, xcb_drawable_t drawable, xcb_gcontext_t context,
              std::uint8_t depth, const QImage& picture, QPoint to);

/// A connection to the X server of our own, beside Qt's. One that cannot be made, or breaks, answers with
/// nothing. For one thread.
class X11Connection
{
public:
    X11Connection();

    /// Whether there is an X server at the other end.
    [[nodiscard]] bool isValid() const;

    [[nodiscard]] xcb_connection_t* get() const { return m_connection.get(); }
    [[nodiscard]] const xcb_screen_t& screen() const { return *m_screen; }
    [[nodiscard]] xcb_window_t root() const { return m_screen->root; }

    [[nodiscard]] xcb_atom_t atom(const std::string& name);

    /// The 32-bit items of a window's property; none if it is missing or of another type.
    [[nodiscard]] std::vector<std::uint32_t> property(xcb_window_t window, const std::string& name,
                                                      xcb_atom_t type);
    /// The bytes of a window's property; none if it is missing or of another type.
    [[nodiscard]] std::string text(xcb_window_t window, const std::string& name, xcb_atom_t type);
    void setProperty(xcb_window_t window, const std::string& name, xcb_atom_t type,
                     std::span<const std::uint32_t> items);

    /// Copies a picture into a drawable of the screen's depth, its top left corner at `to`.
    /// \param picture Format_RGB32
    void put(xcb_drawable_t drawable, const QImage& picture, QPoint to);

    /// Waits until the server has done all it was asked for.
    void sync();

private:
    struct Disconnect
    {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };
    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    const xcb_screen_t* m_screen = nullptr;
    std::map<std::string, xcb_atom_t> m_atoms;
};

/// The monitors' places among all pixels, the primary one first; none if the server cannot tell.
[[nodiscard]] std::vector<QRect> monitorPlaces(const X11Connection& connection);

/// The windows right below one, from the lowest to the uppermost.
[[nodiscard]] std::vector<xcb_window_t> childrenOf(const X11Connection& connection, xcb_window_t window);

/// The ancestor of a window, or itself, that is a child of the root.
[[nodiscard]] xcb_window_t outermost(const X11Connection& connection, xcb_window_t window);

/// Where a window can be seen among all pixels; nothing if it is not mapped or has no pixels.
[[nodiscard]] std::optional<QRect> placeOf(const X11Connection& connection, xcb_window_t window);

/// Tells an X11Connection's events as they come.
class X11Events : public QObject
{
    Q_OBJECT

public:
    /// \param connection must outlive this
    explicit X11Events(X11Connection& connection);

    /// Tells those that came while a reply was waited for: nothing else would before the next one comes.
    void drain();

Q_SIGNALS:
    void received(const xcb_generic_event_t& event);
    /// All events that were waiting have been told.
    void drained();

private:
    X11Connection& m_connection;
    QSocketNotifier* m_notifier;
};

} // namespace tessel
