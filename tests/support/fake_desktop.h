// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/desktop_pictures.h"
#include "platform/session.h"
#include "platform/window_system.h"
#include "render/headless_context.h"
#include "support/drawing_test.h"
#include "support/surroundings.h"

#include <QImage>
#include <QPainter>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <memory>
#include <utility>

namespace tessel {

/// How many pixels of an image are those of a picture of its size.
inline int countSame(const QImage& image, const Picture& picture)
{
    int same = 0;
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x)
            same +=
                colorOf(image.pixel(x, y)) == colorOf(picture.row(y)[static_cast<std::size_t>(x)]) ? 1 : 0;
    }
    return same;
}

/// What a window has shown, and what was asked of it; outlives the window.
struct WindowRecord
{
    Screen screen;
    QImage image; ///< what is on it
    int frames = 0;
    int rate = 0; ///< of frames, that it is to ask for
    long paintedPixels = 0;
    bool hasPixels = false; ///< memory for all of them
    bool visible = false;
    bool alive = true;
};

/// A window in memory, which asks for frames by a timer.
class MemoryWindow : public WallpaperWindow, public PixelCanvas
{
public:
    explicit MemoryWindow(const std::shared_ptr<WindowRecord>& record) : m_record(record)
    {
        record->image = QImage(pixelSize(), QImage::Format_RGB32);
        record->image.fill(Qt::magenta);
        connect(&m_frames, &QTimer::timeout, this, &WallpaperWindow::frameDue);
    }
    ~MemoryWindow() override
    {
        m_record->alive = false;
        m_record->visible = false;
    }

    [[nodiscard]] QSize pixelSize() const override { return m_record->screen.pixels().size(); }
    [[nodiscard]] Canvas canvas() override { return static_cast<PixelCanvas*>(this); }
    void show() override
    {
        if (!std::exchange(m_record->visible, true))
            Q_EMIT contentLost();
    }
    void hide() override { m_record->visible = false; }
    void setFrameRate(int framesPerSecond) override
    {
        if (std::exchange(m_record->rate, framesPerSecond) == framesPerSecond)
            return;
        if (framesPerSecond == 0)
            m_frames.stop();
        else
            m_frames.start(1000 / framesPerSecond);
    }

    [[nodiscard]] bool isReady() const override { return m_record->visible; }
    [[nodiscard]] std::uint32_t* pixels() override
    {
        if (m_pixels.isNull())
            m_pixels = QImage(pixelSize(), QImage::Format_RGB32);
        m_record->hasPixels = true;
        return reinterpret_cast<std::uint32_t*>(m_pixels.bits());
    }
    void presentPixels(std::span<const PixelRect> changed) override
    {
        QPainter painter(&m_record->image);
        for (const PixelRect& area : changed) {
            const QRect rectangle(area.x, area.y, area.width, area.height);
            painter.drawImage(rectangle.topLeft(), m_pixels, rectangle);
            m_record->paintedPixels += long{area.width} * area.height;
        }
        ++m_record->frames;
    }
    void releasePixels() override
    {
        m_pixels = {};
        m_record->hasPixels = false;
    }
    void present(std::span<const ColoredRect> rectangles) override
    {
        QPainter painter(&m_record->image);
        for (const auto& [color, area] : rectangles) {
            painter.fillRect(area.x, area.y, area.width, area.height, QColor::fromRgb(color));
            m_record->paintedPixels += long{area.width} * area.height;
        }
        ++m_record->frames;
    }

private:
    std::shared_ptr<WindowRecord> m_record;
    QImage m_pixels;
    QTimer m_frames;
};

class FakeScreens : public Screens
{
public:
    [[nodiscard]] std::vector<Screen> list() const override
    {
        if (asked)
            asked();
        return m_list;
    }
    void set(std::vector<Screen> screens)
    {
        m_list = std::move(screens);
        Q_EMIT changed();
    }

    std::function<void()> asked; ///< called whenever somebody asks for the list

private:
    std::vector<Screen> m_list{{QStringLiteral("ONE"), QRect(0, 0, 320, 180), 1.0}};
};

class FakeSession : public Session
{
public:
    void become(const SessionState& state) { setState(state); }
};

/// What was asked of a panel.
struct PanelRecord
{
    QRect frame;
    QRegion shape;
    QRegion inputRegion;
    KeyboardFocus focus = KeyboardFocus::never;
    bool isBlended = true;
};

class MemoryPanel : public PanelWindow
{
public:
    MemoryPanel(QWindow& window, std::shared_ptr<PanelRecord> record)
        : m_window(window)
        , m_record(std::move(record))
    {
    }

    void show() override { m_window.show(); }
    void hide() override { m_window.hide(); }
    void setFrame(const QRect& frame) override
    {
        m_record->frame = frame;
        m_window.setGeometry(frame);
    }
    [[nodiscard]] bool isBlended() const override { return m_record->isBlended; }
    void setShape(const QRegion& shape) override { m_record->shape = shape; }
    void setInputRegion(const QRegion& region) override { m_record->inputRegion = region; }
    void setKeyboardFocus(KeyboardFocus focus) override { m_record->focus = focus; }

private:
    QWindow& m_window;
    const std::shared_ptr<PanelRecord> m_record;
};

/// Windows in memory, and a context without any.
class FakeWindowSystem : public WindowSystem
{
public:
    [[nodiscard]] std::unique_ptr<GlContext> makeContext() override
    {
        return std::make_unique<HeadlessContext>();
    }
    [[nodiscard]] FakeScreens& screens() override { return m_screens; }
    [[nodiscard]] bool hasWallpaperWindows() const override { return true; }
    [[nodiscard]] std::unique_ptr<WallpaperWindow> makeWallpaperWindow(const Screen& screen,
                                                                       Rasterizer /*rasterizer*/) override
    {
        const auto record = std::make_shared<WindowRecord>();
        record->screen = screen;
        windows.push_back(record);
        return std::make_unique<MemoryWindow>(record);
    }
    void leaveIconsFree(const std::vector<DesktopPicture>& pictures) override { picturesBehind = pictures; }
    [[nodiscard]] std::unique_ptr<DesktopPictures> makePictures() override { return nullptr; }
    [[nodiscard]] bool hasPanelWindows() const override { return panel != nullptr; }
    [[nodiscard]] std::unique_ptr<PanelWindow> makePanelWindow(QWindow& window) override
    {
        return panel != nullptr ? std::make_unique<MemoryPanel>(window, panel) : nullptr;
    }
    [[nodiscard]] std::unique_ptr<PointerFeed> makePointerFeed(QWindow& /*window*/) override
    {
        auto feed = std::make_unique<PointerFeed>();
        pointer = feed.get();
        return feed;
    }
    [[nodiscard]] Focus* focus() override { return nullptr; }
    void setTextScale(double /*text*/, double /*font*/) override {}

    std::vector<std::shared_ptr<WindowRecord>> windows;
    std::vector<DesktopPicture> picturesBehind;
    std::shared_ptr<PanelRecord> panel; ///< null: no windows float here
    QPointer<PointerFeed> pointer;      ///< of the panel that there is

private:
    FakeScreens m_screens;
};

/// A desktop that shows what it is told to, or refuses.
class FakePictures : public DesktopPictures
{
public:
    void set(const std::vector<DesktopPicture>& pictures) override
    {
        ++sets;
        answer(pictures);
    }
    void restore(const std::vector<DesktopPicture>& pictures) override
    {
        ++restores;
        answer(pictures);
    }

    [[nodiscard]] bool canSet() const override { return takesPictures; }

    bool takesPictures = true;
    std::vector<DesktopPicture> shown;
    QStringList failures;
    int sets = 0;
    int restores = 0;
    bool answers = true; ///< false: it hangs

private:
    void answer(const std::vector<DesktopPicture>& pictures)
    {
        shown = pictures;
        if (!answers)
            return;
        QMetaObject::invokeMethod(
            this, [this] { Q_EMIT finished(failures); }, Qt::QueuedConnection);
    }
};

} // namespace tessel
