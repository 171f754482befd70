// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/look_json.h"
#include "render/png_file.h"
#include "support/fake_desktop.h"
#include "support/refusing_driver.h"
#include "wallpaper/wallpaper.h"

#include <QDir>
#include <QFile>
#include <gmock/gmock.h>

namespace tessel {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

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
        store = std::make_unique<Store>(StoreEnvironment{
            .settingsFile = home.filePath(QStringLiteral("a.conf")), .random = seededSource(7)});
        wallpaper = std::make_unique<Wallpaper>(
            WallpaperEnvironment{.store = *store,
                                 .windows = system,
                                 .session = session,
                                 .pictures = pictures,
                                 .graphics = graphics,
                                 .clocks = clocks,
                                 .preparer = preparer,
                                 .folder = home.filePath(QStringLiteral("Wallpapers")),
                                 .delays = {.animated = animatedDelay,
                                            .still = 150ms,
                                            .appearing = 10ms,
                                            .leaving = leavingDelay,
                                            .retry = 50ms}});
        QObject::connect(store.get(), &Store::applied, wallpaper.get(), &Wallpaper::apply);
        QObject::connect(wallpaper.get(), &Wallpaper::stillFailed, wallpaper.get(),
                         [this](const QString& message) { failures.append(message); });
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

    /// How many frames a second the last window is to ask for.
    [[nodiscard]] int rate() const { return windows.back()->rate; }

    /// Whether that window draws on.
    bool isMoving()
    {
        const int before = windows.back()->frames;
        return waitUntil([&] { return windows.back()->frames > before + 1; });
    }

    QTemporaryDir home;
    FakeWindowSystem system;
    FakeScreens& screens = system.screens();
    std::vector<std::shared_ptr<WindowRecord>>& windows = system.windows;
    FakeSession session;
    FakePictures pictures;
    std::chrono::milliseconds animatedDelay = 400ms;
    std::chrono::milliseconds leavingDelay = 1min;
    AnimationClocks clocks;
    LookPreparer preparer;
    QStringList failures;
    std::unique_ptr<Store> store;
    std::unique_ptr<Wallpaper> wallpaper;
};

TEST_F(WallpaperTest, ANewStartTouchesNothing)
{
    wallpaper->start();
    runEvents(100ms);
    EXPECT_TRUE(windows.empty());
    EXPECT_EQ(pictures.sets + pictures.restores, 0);
    EXPECT_FALSE(QDir(home.filePath(QStringLiteral("Wallpapers"))).exists());
}

TEST_F(WallpaperTest, AStillIsShownLiveAndThenBecomesThePicture)
{
    wallpaper->start();
    apply(1, false);
    ASSERT_TRUE(waitUntil([&] { return visibleWindows() == 1; }));
    EXPECT_EQ(pictures.sets, 0) << "the cross-fade comes first";
    ASSERT_TRUE(waitUntil([&] { return pictures.sets == 1 && visibleWindows() == 0; }));
    EXPECT_THAT(shownSeeds(), ElementsAre(1));
    EXPECT_EQ(store->latestPictures(), QStringList{pictures.shown[0].file});
    EXPECT_EQ(rate(), 0);
}

TEST_F(WallpaperTest, AnAnimationPlaysOnOverItsPicture)
{
    wallpaper->start();
    apply(2, true);
    ASSERT_TRUE(waitUntil([&] { return pictures.sets == 1; }));
    EXPECT_THAT(shownSeeds(), ElementsAre(2));
    EXPECT_EQ(system.picturesBehind.at(0).file, pictures.shown[0].file) << "for the icons in front";
    EXPECT_TRUE(isMoving());
    EXPECT_EQ(visibleWindows(), 1);
    store->applyToDesktop(*store->desktop(), RecordHistory::no, false, ContinueFromEditor::no);
    ASSERT_TRUE(waitUntil([&] { return visibleWindows() == 0; }));
    EXPECT_EQ(pictures.sets, 2);
}

TEST_F(WallpaperTest, RestsOnlyWhileNothingPlaysAndDrawsAgainAfterIt)
{
    int renewals = 0;
    const QObject context; // the graphics outlive this
    QObject::connect(&graphics, &Graphics::renewed, &context, [&renewals] { ++renewals; });
    wallpaper->start();
    apply(2, true);
    ASSERT_TRUE(waitUntil([&] { return pictures.sets == 1; }));
    wallpaper->rest();
    EXPECT_EQ(renewals, 0);
    EXPECT_TRUE(isMoving());
    apply(3, false);
    ASSERT_TRUE(waitUntil([&] { return pictures.sets == 2 && visibleWindows() == 0; }));
    wallpaper->rest();
    EXPECT_EQ(renewals, 1);
    apply(4, true);
    ASSERT_TRUE(waitUntil([&] { return pictures.sets == 3; }));
    EXPECT_TRUE(isMoving());
}

TEST_F(WallpaperTest, AHandleOnTheOtherSideLeavesThePictureAlone)
{
    wallpaper->start();
    Look mirrored = lookWithSeed(3);
    mirrored.pattern = Pattern::beams;
    mirrored.speed = 0;
    store->applyToDesktop(mirrored, RecordHistory::yes, true, ContinueFromEditor::no);
    ASSERT_TRUE(waitUntil([&] { return pictures.sets == 1 && rate() == 0; }));
    const QImage before = windows.back()->image;
    store->setEdge(Edge::right);
    Q_EMIT session.woke(); // draws it once more, at once
    EXPECT_EQ(windows.back()->image, before);
    EXPECT_EQ(pictures.sets, 1);
    store->applyToDesktop(lookWithSeed(4), RecordHistory::yes, false, ContinueFromEditor::no);
    store->applyToDesktop(mirrored, RecordHistory::yes, false, ContinueFromEditor::no);
    ASSERT_TRUE(waitUntil([&] { return pictures.sets == 2; }));
    EXPECT_NE(QImage(pictures.shown[0].file).convertToFormat(before.format()), before) << "the next one is";
}

TEST_F(WallpaperTest, ABurstOfLooksMakesOneStillOfTheLast)
{
    wallpaper->start();
    for (int seed = 0; seed < 10; ++seed)
        apply(seed, false);
    ASSERT_TRUE(waitUntil([&] { return pictures.sets > 0 && visibleWindows() == 0; }));
    runEvents(300ms);
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
    runEvents(600ms);
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
    runEvents(100ms);
    EXPECT_EQ(visibleWindows(), 1);
    answer();
    EXPECT_TRUE(waitUntil([&] { return visibleWindows() == 0; }));
}

TEST_F(WallpaperTest, DoesNothingThatNobodySees)
{
    wallpaper->start();
    apply(5, true);
    ASSERT_TRUE(waitUntil([&] { return pictures.sets == 1; }));
    for (const SessionState& unseen : {SessionState{.asleep = true}, SessionState{.locked = true}}) {
        session.become(unseen);
        EXPECT_EQ(rate(), 0);
        session.become({});
        EXPECT_GT(rate(), 0);
    }
    Look resting = lookWithSeed(5);
    resting.speed = 0;
    store->applyToDesktop(resting, RecordHistory::no, true, ContinueFromEditor::no);
    ASSERT_TRUE(waitUntil([&] { return visibleWindows() == 1 && rate() == 0; })) << "nothing can move";
}

TEST_F(WallpaperTest, ADesktopThatTakesNoPicturesKeepsItsIcons)
{
    pictures.takesPictures = false;
    pictures.failures = {QStringLiteral("of a kind that takes none")};
    wallpaper->start();
    apply(6, true);
    ASSERT_TRUE(waitUntil([&] { return !failures.isEmpty(); })) << "it is told";
    EXPECT_EQ(visibleWindows(), 0);

    pictures.takesPictures = true;
    Q_EMIT pictures.desktopChanged();
    EXPECT_TRUE(waitUntil([&] { return visibleWindows() == 1; })) << "another desktop has come";
    pictures.takesPictures = false;
    Q_EMIT pictures.desktopChanged();
    EXPECT_EQ(visibleWindows(), 0) << "and another";
}

TEST_F(WallpaperTest, ADesktopThatRefusesKeepsItsPictureAndIsReported)
{
    pictures.failures = {QStringLiteral("ONE did not take it")};
    wallpaper->start();
    apply(7, false);
    ASSERT_TRUE(waitUntil([&] { return !failures.isEmpty() && visibleWindows() == 0; }));
    EXPECT_EQ(failures, QStringList{QStringLiteral("ONE did not take it")});
}

TEST_F(WallpaperTest, WhatADesktopRefusesCostsNoPictureThatItTook)
{
    wallpaper->start();
    apply(1, false);
    ASSERT_TRUE(waitUntil([&] { return pictures.sets == 1 && visibleWindows() == 0; }));
    const QString taken = pictures.shown[0].file;
    pictures.failures = {QStringLiteral("ONE did not take it")};
    for (int seed = 2; seed < 8; ++seed) {
        apply(seed, false);
        ASSERT_TRUE(waitUntil([&] { return failures.size() == seed - 1; }));
    }
    EXPECT_TRUE(QFile::exists(taken)) << "the desktop still shows it";
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
    const QString obstacle = home.filePath(QStringLiteral("Wallpapers"));
    ASSERT_TRUE(QFile(obstacle).open(QIODevice::WriteOnly));
    wallpaper->start();
    apply(8, false);
    ASSERT_TRUE(waitUntil([&] { return !failures.isEmpty(); }));
    EXPECT_EQ(pictures.sets, 0);
    EXPECT_EQ(visibleWindows(), 1) << "the look is shown all the same";
    EXPECT_TRUE(store->latestPictures().isEmpty());

    ASSERT_TRUE(QFile::remove(obstacle));
    EXPECT_TRUE(waitUntil([&] { return pictures.sets == 1 && visibleWindows() == 0; })) << "tried again";
    EXPECT_THAT(shownSeeds(), ElementsAre(8));
    EXPECT_EQ(failures.size(), 1) << "told once";
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
    runEvents(300ms);
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

    leavingDelay = 10ms;
    restart();
    wallpaper->start();
    pictures.answers = false;
    apply(12, true);
    ASSERT_TRUE(waitUntil([&] { return pictures.sets == 2; }));
    wallpaper->stop();
    EXPECT_EQ(visibleWindows(), 0) << "a desktop that hangs holds nobody up for good";
}

TEST_F(WallpaperTest, TheAnimationGoesOnWhereItWas)
{
    wallpaper->start();
    clocks.setPhase(Source::editor, 123.5);
    store->applyToDesktop(lookWithSeed(1), RecordHistory::yes, true, ContinueFromEditor::yes);
    EXPECT_NEAR(clocks.phase(Source::desktop), 123.5, 0.2);
    ASSERT_TRUE(waitUntil([&] { return clocks.phase(Source::desktop) > 123.55; }));
    wallpaper->stop();
    EXPECT_EQ(visibleWindows(), 0);
    const double phase = clocks.phase(Source::desktop);
    restart();
    wallpaper->start();
    EXPECT_NEAR(clocks.phase(Source::desktop), phase, 0.2);
    apply(2, true);
    EXPECT_GE(clocks.phase(Source::desktop), phase) << "restored once only";
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
        const Picture picture = draw(fresh, 320, 180, clocks.phase(Source::desktop));
        return countSame(windows.back()->image, picture) > 320 * 180 * 9 / 10;
    };
    EXPECT_TRUE(waitUntil(showsFresh));
}

TEST_F(WallpaperTest, ALookThatTheDriverRefusesLeavesTheLastOne)
{
    wallpaper->start();
    apply(1, false);
    ASSERT_TRUE(waitUntil([&] { return pictures.sets == 1 && visibleWindows() == 0; }));
    const RefusingDriver driver("An eclipse");
    Look refused = lookWithSeed(2);
    refused.pattern = Pattern::halo;
    for (const bool motion : {false, true}) {
        failures.clear();
        store->applyToDesktop(refused, RecordHistory::yes, motion, ContinueFromEditor::no);
        ASSERT_TRUE(waitUntil([&] { return !failures.isEmpty(); }));
        runEvents(300ms);
        EXPECT_EQ(failures.size(), 1) << "told once";
        EXPECT_TRUE(failures[0].contains(QStringLiteral("Halo")));
        EXPECT_FALSE(failures[0].contains(QStringLiteral("smaller size")));
        EXPECT_EQ(pictures.sets, 1);
        EXPECT_EQ(visibleWindows(), 0);
    }
    restart();
    wallpaper->start();
    ASSERT_TRUE(waitUntil([&] { return failures.size() == 2; })) << "the next start is none the worse";
    apply(3, true);
    EXPECT_TRUE(waitUntil([&] { return pictures.sets == 2 && visibleWindows() == 1; }));
    EXPECT_THAT(shownSeeds(), ElementsAre(3));
}

TEST_F(WallpaperTest, AnAnimationsPictureWaitsOnlyBehindOneOfOurs)
{
    animatedDelay = 1h;
    restart();
    wallpaper->start();
    apply(1, true);
    ASSERT_TRUE(waitUntil([&] { return pictures.sets == 1; })) << "the desktop showed somebody else's";
    apply(2, true);
    const std::vector<Screen> one = screens.list();
    Screen smaller = one[0];
    smaller.frame = QRect(0, 0, 160, 90);
    screens.set({smaller});
    runEvents(500ms);
    EXPECT_EQ(pictures.sets, 1);
    screens.set({smaller, {.name = QStringLiteral("TWO"), .frame = right}});
    EXPECT_TRUE(waitUntil([&] { return pictures.sets == 2; })) << "a new screen shows nothing of ours";
}

TEST_F(WallpaperTest, APictureThatSomebodyElseSetsEndsOurs)
{
    wallpaper->start();
    apply(1, true);
    ASSERT_TRUE(waitUntil([&] { return pictures.sets == 1 && visibleWindows() == 1; }));
    Q_EMIT pictures.replaced();
    EXPECT_EQ(visibleWindows(), 0);
    EXPECT_EQ(store->desktop(), std::nullopt) << "as the menu shows";
    restart();
    wallpaper->start();
    runEvents(300ms);
    EXPECT_EQ(visibleWindows(), 0);
    EXPECT_EQ(pictures.sets + pictures.restores, 1) << "it is left alone";
    store->previousWallpaper();
    EXPECT_TRUE(waitUntil([&] { return pictures.sets == 2; })) << "until ours is asked for";
}

} // namespace
} // namespace tessel
