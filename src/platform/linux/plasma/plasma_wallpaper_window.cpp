// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/plasma/plasma_wallpaper_window.h"

#include "base/shown_frames.h"
#include "platform/linux/desktops/plasma_pictures.h"
#include "platform/linux/plasma/plasma_frames.h"

#include <array>
#include <sys/socket.h>
#include <utility>

namespace tessel {

PlasmaWallpaperWindow::PlasmaWallpaperWindow(PlasmaFrames& frames, Screen screen,
                                             std::function<double()> refreshSeconds)
    : m_frames(frames)
    , m_screen(std::move(screen))
    , m_refreshSeconds(std::move(refreshSeconds))
{
    connect(&m_pause, &QTimer::timeout, this, &PlasmaWallpaperWindow::drawNext);
    m_opening.setSingleShot(true);
    connect(&m_opening, &QTimer::timeout, this, &LiveSurface::contentLost);
}

PlasmaWallpaperWindow::~PlasmaWallpaperWindow()
{
    hide();
}

void PlasmaWallpaperWindow::show()
{
    if (std::exchange(m_isShown, true))
        return;
    m_frames.setWindow(m_screen.name, this);
    playOnPlasma(m_frames.bus(), m_screen);
}

void PlasmaWallpaperWindow::hide()
{
    if (!std::exchange(m_isShown, false))
        return;
    restOnPlasma(m_frames.bus(), m_screen);
    m_frames.setWindow(m_screen.name, nullptr);
    close();
}

FileDescriptor PlasmaWallpaperWindow::open()
{
    close();
    std::array<int, 2> ends{-1, -1};
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends.data()) != 0)
        return {};
    m_socket = FileDescriptor(ends[0]);
    FileDescriptor theirs(ends[1]);
    m_pixels = SharedPixels::make(pixelSize());
    if (m_pixels == nullptr) {
        close();
        return {};
    }
    m_answers = std::make_unique<QSocketNotifier>(m_socket.get(), QSocketNotifier::Read);
    connect(m_answers.get(), &QSocketNotifier::activated, this, &PlasmaWallpaperWindow::readAnswer);
    m_opening.start();
    return theirs;
}

/// Gives all memory back; what is drawn next has to be drawn whole.
void PlasmaWallpaperWindow::close()
{
    m_opening.stop();
    m_pause.stop();
    m_isOnItsWay = false;
    m_answers.reset();
    m_socket.close();
    m_pixels.reset();
}

void PlasmaWallpaperWindow::setFrameRate(int framesPerSecond)
{
    if (std::exchange(m_framesPerSecond, framesPerSecond) == framesPerSecond)
        return;
    if (framesPerSecond == 0)
        m_pause.stop();
    else if (isReady() && !m_pause.isActive())
        waitForNext();
}

void PlasmaWallpaperWindow::presentPixels(std::span<const PixelRect> changed)
{
    const std::array whole{PixelRect{0, 0, static_cast<std::uint16_t>(pixelSize().width()),
                                     static_cast<std::uint16_t>(pixelSize().height())}};
    const std::span<const PixelRect> told = changed.size() > shown_frames::mostAreas ? whole : changed;
    if (told.empty())
        return;
    // Where it fails the other side is gone, as its socket is about to tell.
    m_isOnItsWay = true;
    static_cast<void>(send(m_socket.get(), told.data(), told.size_bytes(), MSG_NOSIGNAL));
}

void PlasmaWallpaperWindow::present(std::span<const ColoredRect> rectangles)
{
    m_areas.clear();
    for (const ColoredRect& rectangle : rectangles) {
        fillRectangle(pixels(), pixelSize().width(), rectangle);
        m_areas.push_back(rectangle.area);
    }
    presentPixels(m_areas);
}

/// Nothing comes from a socket that the other side has closed.
void PlasmaWallpaperWindow::readAnswer()
{
    std::byte shown{};
    if (recv(m_socket.get(), &shown, sizeof shown, 0) <= 0)
        return close();
    m_isOnItsWay = false;
    waitForNext();
}

void PlasmaWallpaperWindow::waitForNext()
{
    if (m_framesPerSecond > 0)
        m_pause.startAfterShown(m_framesPerSecond, m_refreshSeconds());
}

/// Where nothing has changed nothing was shown, and nobody will answer.
void PlasmaWallpaperWindow::drawNext()
{
    Q_EMIT frameDue();
    if (isReady() && !m_pause.isActive() && m_framesPerSecond > 0)
        m_pause.start(1000 / m_framesPerSecond);
}

} // namespace tessel
