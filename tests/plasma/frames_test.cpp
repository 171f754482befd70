// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/identity.h"
#include "base/shown_frames.h"
#include "plasma/frame_source.h"
#include "plasma/wallpaper_frames.h"
#include "platform/linux/plasma/plasma_frames.h"
#include "platform/linux/plasma/plasma_wallpaper_window.h"
#include "support/fake_service.h"
#include "support/surroundings.h"

#include <QDBusUnixFileDescriptor>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QStandardItemModel>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <memory>
#include <random>
#include <sys/mman.h>
#include <sys/socket.h>

namespace tessel {
namespace {

using namespace std::chrono_literals;

constexpr QSize size(600, 300); // more than one tile each way
const auto screenName = QStringLiteral("Virtual-1");

Screen screenOf(QSize points, double scale)
{
    Screen screen;
    screen.name = screenName;
    screen.frame = QRect(QPoint(), points);
    screen.scale = scale;
    return screen;
}

/// What the program has of one screen, and a drawing of what is to be seen there.
class Program
{
public:
    explicit Program(const QDBusConnection& bus)
        : m_bus(bus)
        , m_frames(bus)
        , m_window(m_frames, screenOf(size, 1), [] { return 1.0 / 60; })
    {
        m_bus.registerService(identity::id);
        QObject::connect(&m_window, &WallpaperWindow::contentLost, &m_window, [this] {
            if (canvas().isReady())
                drawWhole();
        });
        QObject::connect(&m_window, &WallpaperWindow::frameDue, &m_window, [this] { ++due; });
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program() { m_bus.unregisterService(identity::id); }

    [[nodiscard]] PlasmaWallpaperWindow& window() { return m_window; }
    [[nodiscard]] PixelCanvas& canvas() { return m_window; }

    void drawWhole()
    {
        drawn.fill(color);
        std::fill_n(canvas().pixels(), size.width() * size.height(), color);
        canvas().presentPixels(std::array{PixelRect{0, 0, size.width(), size.height()}});
    }

    void drawRectangles(std::size_t count)
    {
        const auto below = [this](int limit) {
            return std::uniform_int_distribution(0, limit - 1)(m_random);
        };
        std::vector<ColoredRect> made;
        for (std::size_t i = 0; i < count; ++i) {
            const QRect area =
                QRect(below(size.width()), below(size.height()), 1 + below(40), 1 + below(40)) & drawn.rect();
            const auto paint = static_cast<std::uint32_t>(below(0x1000000));
            made.push_back(
                {paint,
                 {static_cast<std::int16_t>(area.x()), static_cast<std::int16_t>(area.y()),
                  static_cast<std::uint16_t>(area.width()), static_cast<std::uint16_t>(area.height())}});
            for (int y = area.top(); y <= area.bottom(); ++y)
                for (int x = area.left(); x <= area.right(); ++x)
                    drawn.setPixel(x, y, 0xFF000000U | paint);
        }
        canvas().present(made);
    }

    QRgb color = 0xFF204060;
    int due = 0;
    QImage drawn{size, QImage::Format_RGB32};

private:
    QDBusConnection m_bus;
    std::mt19937 m_random{1};
    PlasmaFrames m_frames;
    PlasmaWallpaperWindow m_window;
};

class FramesTest : public testing::Test
{
protected:
    std::unique_ptr<FrameSource> makeSource()
    {
        auto source = std::make_unique<FrameSource>(m_bus.connect());
        source->setScreen(screenName);
        return source;
    }

    void startProgram() { m_program = std::make_unique<Program>(m_bus.connect()); }

    /// Until what is drawn first is in the source.
    void show(const FrameSource& source)
    {
        m_program->window().show();
        ASSERT_TRUE(waitUntil([&] { return !source.picture().isNull(); }));
        EXPECT_EQ(source.picture(), m_program->drawn);
    }

    PrivateBus m_bus;
    std::unique_ptr<Program> m_program;
};

TEST_F(FramesTest, AreThoseOfTheProgramInWhateverOrderTheyStart)
{
    const auto early = makeSource();
    startProgram();
    show(*early);

    m_program->color = 0xFF103050;
    const auto late = makeSource();
    ASSERT_TRUE(waitUntil([&] { return !late->picture().isNull(); }));
    EXPECT_EQ(late->picture(), m_program->drawn);
    EXPECT_TRUE(waitUntil([&] { return early->picture().isNull(); })) << "another one has them now";
}

TEST_F(FramesTest, AreAskedForOnlyOnceTheOneBeforeIsSeen)
{
    const auto source = makeSource();
    startProgram();
    show(*source);
    m_program->window().setFrameRate(60);
    runEvents(200ms);
    EXPECT_EQ(m_program->due, 0);
    EXPECT_FALSE(m_program->canvas().isReady()) << "what is being read must not be written";

    source->acknowledge();
    ASSERT_TRUE(waitUntil([&] { return m_program->due > 0; }));
    const int before = m_program->due;
    EXPECT_TRUE(waitUntil([&] { return m_program->due > before; }))
        << "where nothing changes it is tried again";
    m_program->window().setFrameRate(0);
    const int stopped = m_program->due;
    runEvents(100ms);
    EXPECT_EQ(m_program->due, stopped);
}

TEST_F(FramesTest, TellWhereTheyHaveChanged)
{
    const auto source = makeSource();
    startProgram();
    show(*source);
    QImage seen = source->picture().copy();
    static_cast<void>(source->takeChanges());
    source->acknowledge();
    for (const std::size_t count : {1U, 7U, 300U, 301U, 2000U}) {
        ASSERT_TRUE(waitUntil([&] { return m_program->canvas().isReady(); }));
        m_program->drawRectangles(count);
        ASSERT_TRUE(waitUntil([&] { return source->picture() == m_program->drawn; }));
        ASSERT_TRUE(waitUntil([&] { return !m_program->canvas().isReady(); }));
        QCoreApplication::processEvents();
        for (const QRect& area : source->takeChanges())
            for (int y = area.top(); y <= area.bottom(); ++y)
                for (int x = area.left(); x <= area.right(); ++x)
                    seen.setPixel(x, y, source->picture().pixel(x, y));
        EXPECT_EQ(seen, m_program->drawn) << count;
        source->acknowledge();
    }
}

TEST_F(FramesTest, EndWithEitherSide)
{
    auto source = makeSource();
    startProgram();
    show(*source);
    const QImage kept = source->picture();
    m_program->window().hide();
    EXPECT_TRUE(waitUntil([&] { return source->picture().isNull(); }));
    EXPECT_EQ(kept.pixel(0, 0), m_program->color) << "who still draws it can read it";

    show(*source);
    source.reset();
    EXPECT_TRUE(waitUntil([&] { return m_program->window().sharedPixels() == nullptr; }));
    EXPECT_FALSE(m_program->canvas().isReady());

    source = makeSource();
    show(*source);
    m_program.reset();
    EXPECT_TRUE(waitUntil([&] { return source->picture().isNull(); }));
    startProgram();
    show(*source);
}

/// A program that answers with whatever it likes.
class OddProgramTest : public testing::Test
{
protected:
    OddProgramTest() : m_source(m_bus.connect())
    {
        m_source.setScreen(screenName);
        std::array<int, 2> ends{};
        EXPECT_EQ(socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_NONBLOCK, 0, ends.data()), 0);
        m_socket = FileDescriptor(ends[0]);
        m_theirs = FileDescriptor(ends[1]);
    }

    static FileDescriptor makeMemory(off_t bytes, int seals)
    {
        FileDescriptor file(memfd_create("test", MFD_CLOEXEC | MFD_ALLOW_SEALING));
        EXPECT_EQ(ftruncate(file.get(), bytes), 0);
        EXPECT_EQ(fcntl(file.get(), F_ADD_SEALS, seals), 0);
        return file;
    }

    /// Has the source ask, answers that, and sends a packet.
    void answer(const FileDescriptor& memory, const QVariant& width, const QVariant& height,
                std::span<const std::byte> packet)
    {
        int asked = 0;
        m_program.reset();
        m_program = std::make_unique<FakeService>(
            m_bus.connect(), "org.tesselbroth.TesselBroth", "/org/tesselbroth/TesselBroth/Frames",
            [&](const QString&, const QVariantList&) -> std::optional<QVariantList> {
                ++asked;
                return QVariantList{QVariant::fromValue(QDBusUnixFileDescriptor(m_theirs.get())),
                                    QVariant::fromValue(QDBusUnixFileDescriptor(memory.get())), width,
                                    height};
            });
        ASSERT_TRUE(waitUntil([&] { return asked > 0; }));
        ASSERT_GE(send(m_socket.get(), packet.data(), packet.size(), MSG_NOSIGNAL), 0);
    }

    bool isRefused(const FileDescriptor& memory, const QVariant& width, const QVariant& height)
    {
        const PixelRect area{0, 0, 2, 2};
        answer(memory, width, height, std::as_bytes(std::span(&area, 1)));
        runEvents(100ms);
        return m_source.picture().isNull();
    }

    PrivateBus m_bus;
    FrameSource m_source;
    FileDescriptor m_socket;
    FileDescriptor m_theirs;
    std::unique_ptr<FakeService> m_program;
};

constexpr off_t pictureBytes = 10L * 20 * 4;

TEST_F(OddProgramTest, IsNotBelieved)
{
    const FileDescriptor enough = makeMemory(pictureBytes, F_SEAL_SHRINK);
    EXPECT_TRUE(isRefused(makeMemory(pictureBytes, 0), 10, 20))
        << "it could be made smaller while it is read";
    EXPECT_TRUE(isRefused(makeMemory(pictureBytes - 1, F_SEAL_SHRINK), 10, 20));
    EXPECT_TRUE(isRefused(enough, -10, -20));
    EXPECT_TRUE(isRefused(enough, 0, 20));
    EXPECT_TRUE(isRefused(enough, 1 << 30, 1 << 30));
    EXPECT_TRUE(isRefused(enough, QStringLiteral("10"), 20));
}

TEST_F(OddProgramTest, ChangesNothingOutsideThePicture)
{
    const FileDescriptor memory = makeMemory(pictureBytes, F_SEAL_SHRINK);
    const std::array areas{PixelRect{-5, -5, 7, 7}, PixelRect{30000, 30000, 65535, 65535},
                           PixelRect{9, 19, 65535, 65535}};
    const auto packet = std::as_bytes(std::span(areas));
    answer(memory, 10, 20, packet.first(packet.size() - 3));
    ASSERT_TRUE(waitUntil([&] { return !m_source.picture().isNull(); }));
    EXPECT_EQ(m_source.takeChanges(), QRegion(0, 0, 2, 2)) << "half an area is none";
    ASSERT_EQ(send(m_socket.get(), packet.data(), packet.size(), 0), static_cast<ssize_t>(packet.size()));
    QRegion changes;
    ASSERT_TRUE(waitUntil([&] { return !(changes += m_source.takeChanges()).isEmpty(); }));
    EXPECT_EQ(changes, QRegion(0, 0, 2, 2) + QRegion(9, 19, 1, 1));
}

class WallpaperTest : public FramesTest
{
protected:
    WallpaperTest()
    {
        m_plasma.resize(size);
        m_item.setSize(size);
        m_item.setScreen(screenName);
        m_plasma.show();
    }

    void play()
    {
        startProgram();
        m_program->window().show();
        m_program->window().setFrameRate(60);
        ASSERT_TRUE(waitUntil([&] { return m_item.isPlaying(); }));
    }

    [[nodiscard]] bool isWanted() const { return m_program->canvas().isReady(); }
    QImage shown() { return m_plasma.grabWindow().convertToFormat(QImage::Format_RGB32); }

    QQuickWindow m_plasma;
    WallpaperFrames m_item{m_plasma.contentItem(), m_bus.connect()};
};

TEST_F(WallpaperTest, IsWhatPlasmaLoads)
{
    QQmlEngine engine;
    engine.addImportPath(QStringLiteral(TESSEL_QML));
    QQmlComponent component(&engine);
    component.setData("import org.tesselbroth.wallpaper\nWallpaperFrames { screen: 'Virtual-1' }", {});
    const std::unique_ptr<QObject> item(component.create());
    ASSERT_NE(item, nullptr) << component.errorString().toStdString();
    EXPECT_EQ(item->property("playing"), false);
}

TEST_F(WallpaperTest, ShowsFramesWhileItIsSeen)
{
    play();
    for (const std::size_t count : {3U, 40U, 400U}) {
        ASSERT_TRUE(waitUntil([&] { return isWanted(); })) << "it was shown";
        EXPECT_EQ(shown(), m_program->drawn);
        m_program->drawRectangles(count);
    }
    ASSERT_TRUE(waitUntil([&] { return isWanted(); }));
    EXPECT_EQ(shown(), m_program->drawn);

    m_plasma.hide();
    m_program->drawRectangles(3);
    runEvents(200ms);
    EXPECT_FALSE(isWanted());
    m_plasma.show();
    EXPECT_TRUE(waitUntil([&] { return isWanted(); }));

    m_item.setVisible(false);
    EXPECT_TRUE(waitUntil([&] { return m_program->window().sharedPixels() == nullptr; }));
    EXPECT_FALSE(m_item.isPlaying());
}

/// Windows as Plasma lists them.
class WindowList : public QStandardItemModel
{
public:
    enum Role : std::uint16_t
    {
        isMinimized = Qt::UserRole + 1,
        isFullScreen,
        isMaximized
    };

    [[nodiscard]] QHash<int, QByteArray> roleNames() const override
    {
        return {{isMinimized, "IsMinimized"}, {isFullScreen, "IsFullScreen"}, {isMaximized, "IsMaximized"}};
    }
};

TEST_F(WallpaperTest, AsksForNothingBelowAWindowThatCoversIt)
{
    WindowList windows;
    m_item.setWindows(&windows);
    play();
    ASSERT_TRUE(waitUntil([&] { return isWanted(); }));
    for (const WindowList::Role role : {WindowList::isFullScreen, WindowList::isMaximized}) {
        windows.appendRow(new QStandardItem);
        windows.appendRow(new QStandardItem);
        m_program->drawRectangles(2);
        EXPECT_TRUE(waitUntil([&] { return isWanted(); })) << "windows beside it do not matter";

        windows.item(1)->setData(true, role);
        m_program->drawRectangles(2);
        runEvents(200ms);
        EXPECT_FALSE(isWanted());
        EXPECT_EQ(shown(), m_program->drawn) << "what was on its way is there when it comes out";
        windows.item(1)->setData(false, role);
        EXPECT_TRUE(waitUntil([&] { return isWanted(); }));

        windows.item(0)->setData(true, role);
        m_program->drawRectangles(2);
        runEvents(100ms);
        EXPECT_FALSE(isWanted());
        windows.removeRows(0, 2);
        EXPECT_TRUE(waitUntil([&] { return isWanted(); })) << "the window was closed";
    }
}

} // namespace
} // namespace tessel
