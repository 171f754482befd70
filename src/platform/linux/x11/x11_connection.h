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

/// Waits for the answer to a question; nullptr if the server refuses it or is gone.
/// \param read as readReply(xcb_get_geometry_reply, connection, xcb_get_geometry(connection, window))
template<typename Reply, typename Cookie>
[[nodiscard]] XcbPointer<Reply> readReply(Reply* (*read)(xcb_connection_t*, Cookie, xcb_generic_error_t**),
                                          xcb_connection_t* connection, Cookie cookie)
{
    return XcbPointer<Reply>(read(connection, cookie, nullptr));
}

/// Asks for a window's property, of any type by default; readProperty() gives its 32-bit items, none if it is
/// missing or of another type. Many can be asked for before the first is read.
[[nodiscard]] xcb_get_property_cookie_t askProperty(xcb_connection_t* connection, xcb_window_t window,
                                                    xcb_atom_t name,
                                                    xcb_atom_t type = XCB_GET_PROPERTY_TYPE_ANY);
[[nodiscard]] std::vector<std::uint32_t> readProperty(xcb_connection_t* connection,
                                                      xcb_get_property_cookie_t cookie);

/// Whether the server has an extension.
[[nodiscard]] bool hasExtension(xcb_connection_t* connection, xcb_extension_t& extension);

/// Waits until the server has done all it was asked for.
void waitForServer(xcb_connection_t* connection);

/// Ten bits for each colour, on a few screens.
inline constexpr std::uint8_t deepColorDepth = 30;

/// The same picture in the format of drawables of a depth.
/// \param picture Format_RGB32
[[nodiscard]] QImage inFormatOf(std::uint8_t depth, const QImage& picture);

/// Copies a picture into a drawable, its top left corner at `to`.
/// \param depth the drawable's
/// \param picture in its format
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
    /// All zero while there is no server.
    [[nodiscard]] const xcb_screen_t& screen() const;
    [[nodiscard]] int screenNumber() const { return m_screenNumber; }
    [[nodiscard]] xcb_window_t root() const { return screen().root; }

    [[nodiscard]] xcb_atom_t atom(const std::string& name);

    /// The 32-bit items of a window's property; none if it is missing or of another type.
    [[nodiscard]] std::vector<std::uint32_t> property(xcb_window_t window, const std::string& name,
                                                      xcb_atom_t type);
    /// The bytes of a window's property; none if it is missing or of another type.
    [[nodiscard]] std::string text(xcb_window_t window, const std::string& name, xcb_atom_t type);
    void setProperty(xcb_window_t window, const std::string& name, xcb_atom_t type,
                     std::span<const std::uint32_t> items);

    /// Has the root window's events told too, besides those that others have asked for.
    void listenToRoot(std::uint32_t events);

    /// Copies a picture into a drawable of the screen's depth, its top left corner at `to`.
    /// \param picture Format_RGB32
    void put(xcb_drawable_t drawable, const QImage& picture, QPoint to);

    /// Whether the server has an extension.
    [[nodiscard]] bool hasExtension(xcb_connection_t* connection, xcb_extension_t& extension);

    /// Waits until the server has done all it was asked for.
    void sync() { waitForServer(get()); }

private:
    struct Disconnect
    {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };
    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    const xcb_screen_t* m_screen = nullptr; ///< of the connection's setup
    int m_screenNumber = 0;
    std::uint32_t m_rootEvents = XCB_EVENT_MASK_NO_EVENT;
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

/// Tells an X11Connection's events as they come, also those that came while a reply was waited for.
class X11Events : public QObject
{
    Q_OBJECT

public:
    /// \param connection must outlive this
    explicit X11Events(X11Connection& connection);

Q_SIGNALS:
    void received(const xcb_generic_event_t& event);
    /// The server has sent something, and all events that were waiting have been told.
    void drained();

private:
    void drain();
    void tellQueued();

    X11Connection& m_connection;
    QSocketNotifier* m_notifier = nullptr; ///< there while there is a server
};

} // namespace tessel
