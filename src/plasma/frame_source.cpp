// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "plasma/frame_source.h"

#include "base/identity.h"
#include "base/shown_frames.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusUnixFileDescriptor>

#include <array>
#include <cstdint>
#include <fcntl.h>
#include <span>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/stat.h>

namespace tessel {

namespace {

constexpr std::size_t bytesPerPixel = sizeof(std::uint32_t);

struct Mapping
{
    void* memory;
    std::size_t bytes;
};

void unmap(void* mapping)
{
    const std::unique_ptr<Mapping> owned(static_cast<Mapping*>(mapping));
    munmap(owned->memory, owned->bytes);
}

/// \return whether that much can be read, now and later
bool holds(int file, std::size_t bytes)
{
    struct stat status
    {
    };
    const int seals = fcntl(file, F_GET_SEALS);
    return seals >= 0 && (seals & F_SEAL_SHRINK) != 0 && fstat(file, &status) == 0 &&
           static_cast<std::size_t>(status.st_size) >= bytes;
}

/// \return a picture in that memory; null where it cannot be one
QImage map(int file, int width, int height)
{
    const auto isSide = [](int length) { return length > 0 && length <= shown_frames::longestSide; };
    if (!isSide(width) || !isSide(height))
        return {};
    const auto rowBytes = static_cast<std::size_t>(width) * bytesPerPixel;
    const std::size_t bytes = rowBytes * static_cast<std::size_t>(height);
    if (!holds(file, bytes))
        return {};
    void* const memory = mmap(nullptr, bytes, PROT_READ, MAP_SHARED, file, 0);
    if (memory == MAP_FAILED)
        return {};
    auto mapping = std::make_unique<Mapping>(Mapping{memory, bytes});
    return {static_cast<const uchar*>(memory),
            width,
            height,
            static_cast<qsizetype>(rowBytes),
            QImage::Format_RGB32,
            unmap,
            mapping.release()};
}

} // namespace

FrameSource::FrameSource(QDBusConnection bus)
    : m_bus(std::move(bus))
    , m_program(identity::id, m_bus, QDBusServiceWatcher::WatchForRegistration)
{
    connect(&m_program, &QDBusServiceWatcher::serviceRegistered, this, &FrameSource::ask);
    m_bus.connect(identity::id, shown_frames::objectPath, shown_frames::interfaceName, shown_frames::changed,
                  this, SLOT(askFor(QString)));
}

void FrameSource::setScreen(const QString& name)
{
    if (std::exchange(m_screen, name) == name)
        return;
    close();
    ask();
}

void FrameSource::askFor(const QString& screen)
{
    if (screen == m_screen)
        ask();
}

/// An error says that nothing plays: it will be told when something does.
void FrameSource::ask()
{
    const int question = ++m_question;
    if (m_screen.isEmpty())
        return;
    auto message = QDBusMessage::createMethodCall(identity::id, shown_frames::objectPath,
                                                  shown_frames::interfaceName, shown_frames::open);
    message << m_screen;
    message.setAutoStartService(false);
    const auto* const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, question](QDBusPendingCallWatcher* finished) {
                finished->deleteLater();
                if (question == m_question)
                    take(finished->reply());
            });
}

void FrameSource::take(const QDBusMessage& answer)
{
    const QDBusPendingReply<QDBusUnixFileDescriptor, QDBusUnixFileDescriptor, int, int> reply(answer);
    if (reply.isError())
        return;
    close();
    QImage picture =
        map(reply.argumentAt<1>().fileDescriptor(), reply.argumentAt<2>(), reply.argumentAt<3>());
    m_socket = FileDescriptor(fcntl(reply.argumentAt<0>().fileDescriptor(), F_DUPFD_CLOEXEC, 0));
    if (picture.isNull() || !m_socket.isOpen())
        return;
    m_picture = std::move(picture);
    m_packets = std::make_unique<QSocketNotifier>(m_socket.get(), QSocketNotifier::Read);
    connect(m_packets.get(), &QSocketNotifier::activated, this, &FrameSource::read);
}

/// The first packet is the first frame: before, there is nothing to be seen.
void FrameSource::read()
{
    std::array<PixelRect, shown_frames::mostAreas> packet{};
    const ssize_t length = recv(m_socket.get(), packet.data(), sizeof packet, MSG_DONTWAIT);
    if (length <= 0)
        return close();
    for (const PixelRect& area :
         std::span(packet).first(static_cast<std::size_t>(length) / sizeof(PixelRect)))
        m_changes += m_picture.rect() & QRect(area.x, area.y, area.width, area.height);
    if (!std::exchange(m_isShown, true))
        Q_EMIT pictureChanged();
    Q_EMIT changed();
}

void FrameSource::acknowledge()
{
    const std::byte shown{};
    if (m_socket.isOpen())
        static_cast<void>(send(m_socket.get(), &shown, sizeof shown, MSG_NOSIGNAL));
}

void FrameSource::close()
{
    m_packets.reset();
    m_socket.close();
    m_changes = {};
    m_picture = {};
    if (std::exchange(m_isShown, false))
        Q_EMIT pictureChanged();
}

} // namespace tessel
