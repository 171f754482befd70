// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/x11/x11_settings.h"

#include <QByteArray>
#include <QDataStream>
#include <QIODevice>

namespace tessel {

namespace {

enum class Type : quint8
{
    number,
    text,
    color
};

/// A text of so many bytes, and what fills it up to a multiple of four; empty if there are not as many.
QByteArray readText(QDataStream& stream, quint32 length)
{
    if (length > stream.device()->bytesAvailable()) {
        stream.setStatus(QDataStream::ReadPastEnd);
        return {};
    }
    QByteArray text(static_cast<qsizetype>(length), Qt::Uninitialized);
    stream.readRawData(text.data(), static_cast<int>(length));
    stream.skipRawData(static_cast<int>((4 - length % 4) % 4));
    return text;
}

/// The text that goes by a name in the daemon's property; empty if there is none.
QByteArray findText(const QByteArray& property, const QByteArray& wanted)
{
    QDataStream stream(property);
    quint8 bigEndian = 0;
    quint32 serial = 0;
    quint32 count = 0;
    stream >> bigEndian;
    stream.setByteOrder(bigEndian != 0 ? QDataStream::BigEndian : QDataStream::LittleEndian);
    stream.skipRawData(3);
    stream >> serial >> count;
    while (count-- > 0 && stream.status() == QDataStream::Ok) {
        auto type = Type::number;
        quint16 nameLength = 0;
        stream >> type;
        stream.skipRawData(1);
        stream >> nameLength;
        const QByteArray name = readText(stream, nameLength);
        quint32 value = 0; ///< or how long it is
        stream >> serial >> value;
        if (type == Type::text) {
            QByteArray text = readText(stream, value);
            if (name == wanted)
                return text;
        } else if (type == Type::color) {
            stream.skipRawData(4);
        }
    }
    return {};
}

} // namespace

X11Settings::X11Settings()
{
    if (!m_connection.isValid())
        return;
    m_selection = m_connection.atom("_XSETTINGS_S" + std::to_string(m_connection.screenNumber()));
    connect(&m_events, &X11Events::received, this, &X11Settings::react);
    // Where a daemon tells that it has come.
    m_connection.listenToRoot(XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    findDaemon();
}

QString X11Settings::text(const QString& name)
{
    if (m_daemon == XCB_WINDOW_NONE)
        return {};
    const xcb_atom_t type = m_connection.atom("_XSETTINGS_SETTINGS");
    const std::string property = m_connection.text(m_daemon, "_XSETTINGS_SETTINGS", type);
    return QString::fromUtf8(findText(QByteArray::fromStdString(property), name.toUtf8()));
}

void X11Settings::findDaemon()
{
    xcb_connection_t* const server = m_connection.get();
    const auto owner =
        readReply(xcb_get_selection_owner_reply, server, xcb_get_selection_owner(server, m_selection));
    m_daemon = owner != nullptr ? owner->owner : xcb_window_t{XCB_WINDOW_NONE};
    if (m_daemon == XCB_WINDOW_NONE)
        return;
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(server, m_daemon, XCB_CW_EVENT_MASK, &events);
    xcb_flush(server);
}

void X11Settings::react(const xcb_generic_event_t& event)
{
    const auto type = event.response_type & 0x7F;
    if (type == XCB_PROPERTY_NOTIFY) {
        Q_EMIT changed();
    } else if (type == XCB_DESTROY_NOTIFY) {
        if (reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window != m_daemon)
            return;
        findDaemon();
        Q_EMIT changed();
    } else if (type == XCB_CLIENT_MESSAGE) {
        const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(event);
        if (message.type != m_connection.atom("MANAGER") || message.data.data32[1] != m_selection)
            return;
        findDaemon();
        Q_EMIT changed();
    }
}

} // namespace tessel
