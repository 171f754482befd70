// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/desktop_pictures.h"
#include "platform/desktop_window.h"
#include "platform/occlusion.h"
#include "platform/session.h"
#include "support/drawing_test.h"
#include "support/surroundings.h"

#include <QColorSpace>
#include <QImage>
#include <QPainter>

#include <functional>
#include <memory>
#include <mutex>

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
    long paintedPixels = 0;
    bool visible = false;
    bool alive = true;
    std::mutex mutex;
    QImage backdrop;
    QString pictureBehind;

    [[nodiscard]] bool holds(const QImage& picture)
    {
        const std::scoped_lock lock(mutex);
        // An image from a file also has a colour space, which does not matter here.
        QImage plain = backdrop;
        plain.setColorSpace({});
        return plain == picture;
    }
};

/// A window in memory.
class MemoryWindow : public DesktopWindow
{
public:
    explicit MemoryWindow(const std::shared_ptr<WindowRecord>& record) : m_record(record)
    {
        record->image = QImage(pixelSize(), QImage::Format_RGB32);
        record->image.fill(Qt::magenta);
    }
    ~MemoryWindow() override
    {
        m_record->alive = false;
        m_record->visible = false;
    }

    [[nodiscard]] QSize pixelSize() const override { return m_record->screen.pixels().size(); }
    void show() override
    {
        if (!std::exchange(m_record->visible, true))
            Q_EMIT exposed();
    }
    void hide() override { m_record->visible = false; }
    void setPictureBehind(const QString& file) override { m_record->pictureBehind = file; }
    [[nodiscard]] bool makeCurrent() override { return m_record->visible; }
    void swap() override { ++m_record->frames; }
    std::uint32_t* pixels() override
    {
        if (m_pixels.isNull())
            m_pixels = QImage(pixelSize(), QImage::Format_RGB32);
        return reinterpret_cast<std::uint32_t*>(m_pixels.bits());
    }
    void showPixels() override
    {
        m_record->image = m_pixels.copy();
        ++m_record->frames;
    }
    void releasePixels() override { m_pixels = {}; }
    void fill(std::uint32_t color, std::span<const PixelRect> rectangles) override
    {
        QPainter painter(&m_record->image);
        for (const PixelRect& area : rectangles) {
            painter.fillRect(area.x, area.y, area.width, area.height, QColor::fromRgb(color));
            m_record->paintedPixels += long{area.width} * area.height;
        }
    }
    void flush() override { ++m_record->frames; }
    [[nodiscard]] std::function<void(const QImage&)> backdropSetter() const override
    {
        return [record = m_record](const QImage& picture) {
            const std::scoped_lock lock(record->mutex);
            record->backdrop = picture;
        };
    }

private:
    std::shared_ptr<WindowRecord> m_record;
    QImage m_pixels;
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
    void setWatchingScreens(bool watching) override { isWatching = watching; }
    void become(const SessionState& state) { setState(state); }

    bool isWatching = false;
};

class FakeOcclusion : public Occlusion
{
public:
    [[nodiscard]] bool isCovered(const QRect& pixels) const override { return m_covered.contains(pixels); }
    void cover(const QRect& pixels)
    {
        m_covered = pixels;
        Q_EMIT changed();
    }

private:
    QRect m_covered;
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
