// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/look_json.h"
#include "render/png_file.h"
#include "support/fake_desktop.h"
#include "wallpaper/wallpaper.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <gmock/gmock.h>

namespace tessel {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

constexpr auto left = QRect(0, 0, 320, 180);
constexpr auto right = QRect(320, 0, 200, 100);

class WallpaperTest : public DrawingTest
{
protected:
    WallpaperTest() { restart(); }

    /// Ends the program and starts it again, up to the applier's being told to.
    void restart()
    {
        wallpaper.reset();
        if (store)
            store->saveNow();
        store.reset();
        store = std::make_unique<Store>(
            StoreEnvironment{.settingsFile = home.filePath(QStringLiteral("a.conf"))});
        wallpaper = std::make_unique<Wallpaper>(WallpaperEnvironment{
            .store = *store,
            .screens = screens,
            .session = session,
            .occlusion = occlusion,
            .pictures = hasPictures ? &pictures : nullptr,
            .makeWindow = [this](const Screen& screen) { return makeWindow(screen); },
            .makeCurrent = [] {},
            .rasterizer = Rasterizer::software,
            .folder = home.filePath(QStringLiteral("Wallpapers")),
            .delays = {.animated = 400ms, .still = 150ms, .settling = 10ms, .leaving = 1s}});
        QObject::connect(store.get(), &Store::applied, wallpaper.get(), &Wallpaper::apply);
        QObject::connect(wallpaper.get(), &Wallpaper::stillFailed, wallpaper.get(),
                         [this](const QString& message) { failures.append(message); });
    }

    std::unique_ptr<DesktopWindow> makeWindow(const Screen& screen)
    {
        const auto record = std::make_shared<WindowRecord>();
        record->screen = screen;
        windows.push_back(record);
        return std::make_unique<MemoryWindow>(record);
    }

    static Look lookWithSeed(int seed)
    {
        Look look;
        look.seed = static_cast<float>(seed);
        return look;
    }

    void apply(int seed, bool motion)
    {
        store->applyToDesktop(lookWithSeed(seed), RecordHistory::yes, motion, ContinueFromEditor::no);
    }

    /// The seeds of the looks in the pictures that the desktop shows.
    std::vector<float> shownSeeds()
    {
        std::vector<float> seeds;
        for (const DesktopPicture& picture : pictures.shown)
            seeds.push_back(decodeLook(readLookText(picture.file.toStdString()).value_or("")).seed);
        return seeds;
    }

    int visibleWindows()
    {
        return static_cast<int>(
            std::ranges::count_if(windows, [](const auto& window) { return window->visible; }));
    }

    /// How many frames the last window draws in a while.
    int framesIn(std::chrono::milliseconds duration)
    {
        const int before = windows.back()->frames;
        settle(duration);
        return windows.back()->frames - before;
    }

    QTemporaryDir home;
    FakeScreens screens;
    FakeSession session;
    FakeOcclusion occlusion;
    FakePictures pictures;
    bool hasPictures = true;
    std::vector<std::shared_ptr<WindowRecord>> windows;
    QStringList failures;
    std::unique_ptr<Store> store;
    std::unique_ptr<Wallpaper> wallpaper;
};

TEST_F(WallpaperTest, ANewStartTouchesNothing)
{
    wallpaper->start();
    settle(100ms);
    EXPECT_TRUE(windows.empty());
    EXPECT_EQ(pictures.sets + pictures.restores, 0);
    EXPECT_FALSE(QDir(home.filePath(QStringLiteral("Wallpapers"))).exists());
}

TEST_F(WallpaperTest, AStillIsShownLiveAndThenBecomesThePicture)
{
    wallpaper->start();
    apply(1, false);
    ASSERT_TRUE(waitUntil([&] { return visibleWindows() == 1; }));
    EXPECT_TRUE(session.isWatching);
    EXPECT_EQ(pictures.sets, 0) << "the cross-fade comes first";
    ASSERT_TRUE(waitUntil([&] { return pictures.sets == 1 && visibleWindows() == 0; }));
    EXPECT_THAT(shownSeeds(), ElementsAre(1));
    EXPECT_FALSE(session.isWatching);
    EXPECT_EQ(store->latestPictures(), QStringList(pictures.shown[0].file));
    EXPECT_EQ(framesIn(300ms), 0);
}

TEST_F(WallpaperTest, AnAnimationPlaysOnOverItsPicture)
{
    wallpaper->start();
    apply(2, true);
    ASSERT_TRUE(waitUntil([&] { return pictures.sets == 1; }));
    EXPECT_THAT(shownSeeds(), ElementsAre(2));
    EXPECT_TRUE(waitUntil([&] { return windows.back()->pictureBehind == pictures.shown[0].file; }));
    settle(100ms);
    EXPECT_EQ(visibleWindows(), 1);
    EXPECT_GT(framesIn(500ms), 4);
    store->applyToDesktop(*store->desktop(), RecordHistory::no, false, ContinueFromEditor::no);
    ASSERT_TRUE(waitUntil([&] { return visibleWindows() == 0; }));
    EXPECT_EQ(pictures.sets, 2);
}

TEST_F(WallpaperTest, AHandleOnTheOtherSideMakesAnotherPicture)
{
    apply(3, false);
    ASSERT_TRUE(waitUntil([&] { return pictures.sets == 1 && visibleWindows() == 0; }));
    store->setEdge(Edge::right);
    ASSERT_TRUE(waitUntil([&] { return visibleWindows() == 1; })) << "it is cross-faded to";
    EXPECT_TRUE(waitUntil([&] { return pictures.sets == 2 && visibleWindows() == 0; }));
}

TEST_F(WallpaperTest, ABurstOfLooksMakesOneStillOfTheLast)
{
    wallpaper->start();
    for (int seed = 0; seed < 10; ++seed) {
        apply(seed, false);
        settle(30ms);
    }
    ASSERT_TRUE(waitUntil([&] { return pictures.sets > 0 && visibleWindows() == 0; }));
    settle(300ms);
    EXPECT_EQ(pictures.sets, 1);
    EXPECT_THAT(shownSeeds(), ElementsAre(9));
    EXPECT_EQ(QDir(home.filePath(QStringLiteral("Wallpapers"))).entryList(QDir::Files).size(), 1);
}

TEST_F(WallpaperTest, FollowsTheScreens)
{
    wallpaper->start();
    apply(3, true);
    ASSERT_TRUE(waitUntil([&] { return pictures.sets == 1; }));
    const std::vector<Screen> one = screens.list();
    screens.set(one);
    EXPECT_EQ(windows.size(), 1U) << "the same screens keep their windows";

    const std::vector<Screen> two{one[0], {QStringLiteral("TWO"), right, 1.0}};
    screens.set(two);
    ASSERT_TRUE(waitUntil([&] { return pictures.sets == 2 && visibleWindows() == 2; }));
    ASSERT_EQ(windows.size(), 3U);
    EXPECT_FALSE(windows[0]->alive);
    EXPECT_THAT(shownSeeds(), ElementsAre(3, 3));

    screens.set({});
    EXPECT_EQ(visibleWindows(), 0);
    apply(4, true);
    settle(600ms);
    EXPECT_EQ(pictures.sets, 2) << "nothing to show it on";
    screens.set(one);
    ASSERT_TRUE(waitUntil([&] { return pictures.sets == 3 && visibleWindows() == 1; }));
    EXPECT_THAT(shownSeeds(), ElementsAre(4));
}

TEST_F(WallpaperTest, TheSameScreensOnceMoreDoNotKeepTheWindows)
{
    wallpaper->start();
    apply(3, false);
    // After the applier, which then waits for the desktop to show its picture.
    QObject::connect(&pictures, &DesktopPictures::finished, wallpaper.get(),
                     [this] { screens.set(screens.list()); });
    ASSERT_TRUE(waitUntil([&] { return pictures.sets == 1; }));
    EXPECT_TRUE(waitUntil([&] { return visibleWindows() == 0; }));
}

TEST_F(WallpaperTest, OnlyTheNewestPictureTakesTheWindowsDown)
{
    pictures.answers = false;
    wallpaper->start();
    apply(3, false);
    ASSERT_TRUE(waitUntil([&] { return pictures.sets == 1; }));
    apply(4, false);
    // The desktop has the first picture only when the second begins to be made.
    const auto answer = [this] { Q_EMIT pictures.finished({}); };
    screens.asked = [&, isOnItsWay = false]() mutable {
        if (!std::exchange(isOnItsWay, true))
            QMetaObject::invokeMethod(&pictures, answer, Qt::QueuedConnection);
    };
    ASSERT_TRUE(waitUntil([&] { return pictures.sets == 2; }));
    settle(100ms);
    EXPECT_EQ(visibleWindows(), 1);
    answer();
    EXPECT_TRUE(waitUntil([&] { return visibleWindows() == 0; }));
}

TEST_F(WallpaperTest, DoesNothingThatNobodySees)
{
    wallpaper->start();
    apply(5, true);
    ASSERT_TRUE(waitUntil([&] { return pictures.sets == 1; }));
    occlusion.cover(left);
    EXPECT_EQ(framesIn(300ms), 0);
    occlusion.cover({});
    EXPECT_GT(framesIn(300ms), 2);
    for (const SessionState& unseen :
         {SessionState{.asleep = true}, SessionState{.locked = true}, SessionState{.screensOff = true}}) {
        session.become(unseen);
        EXPECT_EQ(framesIn(200ms), 0);
        session.become({});
        EXPECT_GT(framesIn(200ms), 1);
    }
    Look resting = lookWithSeed(5);
    resting.speed = 0;
    store->applyToDesktop(resting, RecordHistory::no, true, ContinueFromEditor::no);
    ASSERT_TRUE(waitUntil([&] { return visibleWindows() == 1 && framesIn(200ms) == 0; }))
        << "nothing can move";
}

TEST_F(WallpaperTest, OnlyTheCoveredScreenRests)
{
    screens.set({{QStringLiteral("ONE"), left, 1.0}, {QStringLiteral("TWO"), right, 1.0}});
    wallpaper->start();
    apply(5, true);
    ASSERT_TRUE(waitUntil([&] { return visibleWindows() == 2 && pictures.sets == 1; }));
    occlusion.cover(left);
    const int before = windows[0]->frames;
    EXPECT_GT(framesIn(300ms), 2) << "the other one";
    EXPECT_EQ(windows[0]->frames, before);
}

TEST_F(WallpaperTest, AnUnknownDesktopKeepsOurWindows)
{
    hasPictures = false;
    restart();
    wallpaper->start();
    apply(6, false);
    ASSERT_TRUE(waitUntil([&] { return windows.size() == 1 && !windows[0]->holds({}); }));
    const Picture still = draw(lookWithSeed(6), 320, 180, wallpaper->clocks().phase(Source::desktop));
    const QImage expected(reinterpret_cast<const uchar*>(still.pixels.get()), 320, 180, QImage::Format_RGB32);
    EXPECT_TRUE(windows[0]->holds(expected));
    settle(100ms);
    EXPECT_EQ(visibleWindows(), 1);
    EXPECT_EQ(framesIn(300ms), 0);

    restart();
    wallpaper->start();
    ASSERT_TRUE(waitUntil([&] { return visibleWindows() == 1; }));
    EXPECT_TRUE(windows.back()->holds(expected)) << "from the file";
}

TEST_F(WallpaperTest, ADesktopThatRefusesIsReportedAndOurWindowsStay)
{
    pictures.failures = {QStringLiteral("ONE did not take it")};
    wallpaper->start();
    apply(7, false);
    ASSERT_TRUE(waitUntil([&] { return !failures.isEmpty() && !windows[0]->holds({}); }));
    settle(100ms);
    EXPECT_EQ(failures, QStringList{QStringLiteral("ONE did not take it")});
    EXPECT_EQ(visibleWindows(), 1);
    pictures.failures.clear();
    Q_EMIT session.woke();
    EXPECT_TRUE(waitUntil([&] { return visibleWindows() == 0; })) << "it takes it now";
}

TEST_F(WallpaperTest, AMissingPhotoIsTold)
{
    QStringList told;
    QObject::connect(wallpaper.get(), &Wallpaper::photoMissing,
                     [&](const QString& message) { told << message; });
    Look look = lookWithSeed(8);
    look.pattern = Pattern::image;
    look.imagePath = "/nowhere/summer.jpg";
    store->applyToDesktop(look, RecordHistory::yes, false, ContinueFromEditor::no);
    ASSERT_TRUE(waitUntil([&] { return pictures.sets == 1; }));
    ASSERT_EQ(told.size(), 1);
    EXPECT_TRUE(told[0].contains(QStringLiteral("/nowhere/summer.jpg")));
}

TEST_F(WallpaperTest, AFullDiskCostsNothing)
{
    ASSERT_TRUE(QFile(home.filePath(QStringLiteral("Wallpapers"))).open(QIODevice::WriteOnly));
    wallpaper->start();
    apply(8, false);
    ASSERT_TRUE(waitUntil([&] { return !failures.isEmpty(); }));
    EXPECT_EQ(pictures.sets, 0);
    EXPECT_EQ(visibleWindows(), 1) << "the look is shown all the same";
    EXPECT_THAT(store->latestPictures(), testing::IsEmpty());
}

TEST_F(WallpaperTest, StartsWithThePicturesOfBefore)
{
    wallpaper->start();
    apply(9, false);
    ASSERT_TRUE(waitUntil([&] { return pictures.sets == 1 && visibleWindows() == 0; }));
    const QString file = pictures.shown[0].file;
    restart();
    wallpaper->start();
    ASSERT_TRUE(waitUntil([&] { return pictures.restores == 1; }));
    settle(300ms);
    EXPECT_EQ(pictures.shown[0].file, file);
    EXPECT_EQ(pictures.sets, 1);
    EXPECT_EQ(visibleWindows(), 0);

    QFile::remove(file);
    restart();
    wallpaper->start();
    ASSERT_TRUE(waitUntil([&] { return pictures.sets == 2; })) << "made anew";
    EXPECT_THAT(shownSeeds(), ElementsAre(9));

    // Killed before the still of a newer look was made.
    apply(10, false);
    restart();
    wallpaper->start();
    ASSERT_TRUE(waitUntil([&] { return pictures.sets == 3; }));
    EXPECT_THAT(shownSeeds(), ElementsAre(10));
}

TEST_F(WallpaperTest, LeavesThePictureOfWhatWasShown)
{
    wallpaper->start();
    apply(11, true);
    ASSERT_TRUE(waitUntil([&] { return visibleWindows() == 1; }));
    wallpaper->stop();
    EXPECT_EQ(pictures.sets, 1) << "long before its time";
    EXPECT_THAT(shownSeeds(), ElementsAre(11));
    EXPECT_EQ(visibleWindows(), 0);
    restart();
    wallpaper->start();
    ASSERT_TRUE(waitUntil([&] { return pictures.restores == 1; })) << "it is known as the latest";

    wallpaper->stop();
    EXPECT_EQ(pictures.sets, 1) << "nothing was to be made";

    QElapsedTimer time;
    time.start();
    pictures.answers = false;
    apply(12, true);
    wallpaper->stop();
    EXPECT_EQ(pictures.sets, 2);
    EXPECT_LT(time.elapsed(), 5000) << "a desktop that hangs is not waited for";
}

TEST_F(WallpaperTest, TheAnimationGoesOnWhereItWas)
{
    wallpaper->start();
    wallpaper->clocks().setPhase(Source::editor, 123.5);
    store->applyToDesktop(lookWithSeed(1), RecordHistory::yes, true, ContinueFromEditor::yes);
    EXPECT_NEAR(wallpaper->clocks().phase(Source::desktop), 123.5, 0.2);
    ASSERT_TRUE(waitUntil([&] { return visibleWindows() == 1; }));
    settle(300ms);
    wallpaper->stop();
    EXPECT_EQ(visibleWindows(), 0);
    const double phase = wallpaper->clocks().phase(Source::desktop);
    EXPECT_GT(phase, 123.55);
    restart();
    wallpaper->start();
    EXPECT_NEAR(wallpaper->clocks().phase(Source::desktop), phase, 0.2);
    settle(50ms);
    apply(2, true);
    EXPECT_GE(wallpaper->clocks().phase(Source::desktop), phase) << "restored once only";
}

TEST_F(WallpaperTest, ALookThatHasToBeBuiltIsNotWaitedFor)
{
    wallpaper->start();
    apply(1, true);
    ASSERT_TRUE(waitUntil([&] { return visibleWindows() == 1; }));
    Look fresh = lookWithSeed(1);
    fresh.pattern = Pattern::fold;
    fresh.dither = Dither::halftone;
    const int before = windows.back()->frames;
    store->applyToDesktop(fresh, RecordHistory::yes, true, ContinueFromEditor::no);
    EXPECT_EQ(windows.back()->frames, before) << "drawn without its shaders";

    const auto showsFresh = [&] {
        const Picture picture = draw(fresh, 320, 180, wallpaper->clocks().phase(Source::desktop));
        return countSame(windows.back()->image, picture) > 320 * 180 * 9 / 10;
    };
    EXPECT_TRUE(waitUntil(showsFresh));
}

} // namespace
} // namespace tessel
