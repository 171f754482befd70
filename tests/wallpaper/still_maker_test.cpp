// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/look_json.h"
#include "render/png_file.h"
#include "support/fake_desktop.h"
#include "wallpaper/still_maker.h"
#include "wallpaper/wallpaper_folder.h"

#include <QDir>
#include <QFile>
#include <QSet>
#include <gmock/gmock.h>

#include <future>

namespace tessel {
namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;

class StillMakerTest : public DrawingTest
{
protected:
    StillMakerTest()
    {
        QObject::connect(&maker, &StillMaker::written, &maker,
                         [this](const auto& pictures) { written.push_back(pictures); });
        for (const auto signal : {&StillMaker::failed, &StillMaker::notWritten})
            QObject::connect(&maker, signal, &maker,
                             [this](const QString& message) { failures.push_back(message); });
    }

    QTemporaryDir home;
    QString folder = home.filePath(QStringLiteral("a/Wallpapers"));
    StillMaker maker{graphics, folder};
    std::vector<std::vector<DesktopPicture>> written;
    std::vector<QString> failures;
    const std::vector<Screen> screens{{QStringLiteral("ONE"), QRect(0, 0, 320, 180), 1.0},
                                      {QStringLiteral("TWO"), QRect(320, 0, 100, 80), 1.5}};
};

TEST_F(StillMakerTest, MakesAFileForEveryScreen)
{
    Look look;
    look.seed = 77;
    maker.request({look, 3.0, Edge::left}, screens);
    ASSERT_TRUE(waitUntil([&] { return !written.empty(); }));
    ASSERT_EQ(written[0].size(), 2U);
    const QString stamp = QFileInfo(written[0][0].file).fileName().section(QLatin1Char('-'), 1, 1);
    for (std::size_t i = 0; i < 2; ++i) {
        const DesktopPicture& picture = written[0][i];
        EXPECT_EQ(picture.file.toStdString(),
                  (folder + QStringLiteral("/wall-%1-%2.png")).arg(stamp).arg(i).toStdString());
        EXPECT_EQ(picture.screen, screens[i]);
        EXPECT_EQ(QImage(picture.file).size(), screens[i].pixels().size());
        EXPECT_EQ(readLookText(picture.file.toStdString()), encodeLook(look));
    }
    EXPECT_EQ(countSame(QImage(written[0][0].file), draw(look, 320, 180, 3.0)), 320 * 180);
}

TEST_F(StillMakerTest, TellsOnlyOfTheLatestRequest)
{
    Look look;
    for (int seed = 0; seed < 5; ++seed) {
        look.seed = static_cast<float>(seed);
        maker.request({look}, screens);
        runEvents(std::chrono::milliseconds(seed));
    }
    ASSERT_TRUE(waitUntil([&] { return !written.empty(); }));
    runEvents(200ms);
    ASSERT_EQ(written.size(), 1U);
    EXPECT_EQ(readLookText(written[0][0].file.toStdString()), encodeLook(look));

    maker.request({look}, screens);
    maker.cancel();
    runEvents(200ms);
    EXPECT_EQ(written.size(), 1U);
}

TEST_F(StillMakerTest, AFolderThatCannotBeWrittenIsNamed)
{
    QFile obstacle(home.filePath(QStringLiteral("a")));
    ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
    maker.request({}, screens);
    ASSERT_TRUE(waitUntil([&] { return !failures.empty(); }));
    runEvents(100ms);
    ASSERT_EQ(failures.size(), 1U) << "once for all screens";
    EXPECT_THAT(failures[0].toStdString(), HasSubstr("Wallpapers: the folder cannot be made"));
    EXPECT_TRUE(written.empty());
}

TEST_F(StillMakerTest, SavesPicturesOfAnySize)
{
    std::vector<std::optional<QString>> answers;
    const auto note = [&](const std::optional<QString>& failure) { answers.push_back(failure); };
    const QString file = home.filePath(QStringLiteral("one.png"));
    maker.save({}, {640, 360}, file, note);
    maker.request({}, screens);
    maker.cancel();
    ASSERT_TRUE(waitUntil([&] { return answers.size() == 1; })) << "not given up with the stills";
    EXPECT_EQ(answers[0], std::nullopt);
    EXPECT_EQ(QImage(file).size(), QSize(640, 360));

    maker.save({}, {1000000, 100}, file, note);
    maker.save({}, {64, 64}, home.filePath(QStringLiteral("none/one.png")), note);
    ASSERT_TRUE(waitUntil([&] { return answers.size() == 3; }));
    EXPECT_EQ(answers[1].value_or(QString()).toStdString(),
              "The 1000000x100 image could not be rendered. Try a smaller size.");
    EXPECT_THAT(answers[2].value_or(QString()).toStdString(), HasSubstr("none"));
    EXPECT_EQ(QImage(file).size(), QSize(640, 360)) << "the old file stays";
}

TEST_F(StillMakerTest, WhatIsGivenUpIsNotWritten)
{
    std::promise<void> gate;
    maker.writer().run([open = gate.get_future().share()] { open.wait(); });
    int answers = 0;
    const auto note = [&](const std::optional<QString>& /*failure*/) { ++answers; };
    double progress = 0;
    const QString drawn = home.filePath(QStringLiteral("drawn.png"));
    const QString begun = home.filePath(QStringLiteral("begun.png"));
    const int first = maker.save({}, {64, 64}, drawn, note);
    const int second = maker.save({}, {2048, 2048}, begun, note, [&](double now) { progress = now; });
    // The first one is drawn then, and waits for the thread that writes.
    ASSERT_TRUE(waitUntil([&] { return progress > 0; }));
    EXPECT_LT(progress, 1);
    maker.giveUp(first);
    maker.giveUp(second);
    maker.giveUp(second);
    gate.set_value();
    maker.save({}, {64, 64}, home.filePath(QStringLiteral("last.png")), note);
    ASSERT_TRUE(waitUntil([&] { return answers > 0; }));
    EXPECT_EQ(answers, 1);
    EXPECT_FALSE(QFile::exists(drawn) || QFile::exists(begun));
}

TEST_F(StillMakerTest, LeavesTheEventLoopItsTurns)
{
    int turns = 0;
    QTimer heart;
    QObject::connect(&heart, &QTimer::timeout, &heart, [&] { ++turns; });
    heart.start(0);
    maker.request({}, {{QStringLiteral("LARGE"), QRect(0, 0, 2560, 2880), 2.0}});
    ASSERT_TRUE(waitUntil([&] { return !written.empty(); }));
    EXPECT_GE(turns, 4);
}

TEST(WallpaperFolderTest, NamesStillsByTheirTime)
{
    EXPECT_EQ(stillFileName(1731686400000, 0).toStdString(), "wall-01731686400000-0.png");
    EXPECT_EQ(stillFileName(7, 12).toStdString(), "wall-00000000000007-12.png");
}

TEST(WallpaperFolderTest, KeepsFourStillsForEachScreenAndThoseInUse)
{
    QTemporaryDir folder;
    const auto touch = [&](const QString& name) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    };
    for (int time = 0; time < 9; ++time)
        for (int screen = 0; screen < 3; ++screen)
            touch(stillFileName(1731686400000 + time, screen));
    touch(QStringLiteral("wall-notes.txt"));
    touch(QStringLiteral("holiday.png"));
    touch(QStringLiteral("wall-of-fame.jpg"));
    const QString inUse = folder.filePath(stillFileName(1731686400000, 1));
    pruneStills(folder.path(), 3, {inUse});

    const QStringList left = QDir(folder.path()).entryList(QDir::Files);
    EXPECT_EQ(left.size(), 12 + 1 + 3) << left.join(QLatin1Char(' ')).toStdString();
    EXPECT_TRUE(QFile::exists(inUse));
    for (const auto& name : {QStringLiteral("holiday.png"), QStringLiteral("wall-notes.txt"),
                             QStringLiteral("wall-of-fame.jpg")})
        EXPECT_TRUE(left.contains(name)) << "not ours: " << name.toStdString();
    EXPECT_FALSE(left.contains(stillFileName(1731686400004, 0)));
    EXPECT_TRUE(left.contains(stillFileName(1731686400005, 0)));
    pruneStills(folder.path(), 0, {});
    const auto stills = [&] { return QDir(folder.path()).entryList({QStringLiteral("wall-0*")}); };
    EXPECT_EQ(stills().size(), 4) << "as for one screen";
    // The clock was years ahead when those were made.
    touch(stillFileName(1731686300000, 0));
    pruneStills(folder.path(), 1, {}, QDateTime::fromMSecsSinceEpoch(1731686300001));
    EXPECT_EQ(stills().size(), 4);
    EXPECT_TRUE(stills().contains(stillFileName(1731686300000, 0)));
}

} // namespace
} // namespace tessel
