// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "render/crash_notes.h"
#include "render/drawing_error.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <thread>

namespace tessel {
namespace {

class CrashNotes : public testing::Test
{
protected:
    CrashNotes()
    {
        bad.pattern = Pattern::halo;
        bad.dither = Dither::noise;
        good = bad;
        good.dither = Dither::smooth;
    }

    void start(std::string_view renderer = "A card")
    {
        crash_notes::keep(file, "1.0");
        crash_notes::setDriver(renderer, "3.3");
    }

    /// A program that draws, and ends like this.
    void crash(
        const Look& look, const std::function<void()>& fault = [] { raise(SIGSEGV); })
    {
        EXPECT_DEATH(
            {
                start();
                crash_notes::setDrawn(good);
                crash_notes::setDrawn(look);
                fault();
            },
            "");
    }

    static bool isRefused(const Look& look)
    {
        try {
            crash_notes::check(look);
            return false;
        } catch (const DrawingError&) {
            return true;
        }
    }

    QTemporaryDir folder;
    std::filesystem::path file = folder.filePath(QStringLiteral("new/crashes")).toStdString();
    Look bad;
    Look good;
};

TEST_F(CrashNotes, RefuseWhatHasEndedTheProgramTwice)
{
    crash(bad);
    start();
    EXPECT_FALSE(isRefused(bad)) << "once may be an accident";
    crash(bad, [] { std::abort(); });
    start();
    EXPECT_TRUE(isRefused(bad));
    EXPECT_FALSE(isRefused(good));
    start("Another card");
    EXPECT_FALSE(isRefused(bad));
    crash_notes::forgetAccidents();
    start();
    EXPECT_TRUE(isRefused(bad)) << "a proper end does not make the driver better";
}

TEST_F(CrashNotes, ForgetAnAccidentAtAProperEnd)
{
    crash(bad);
    start();
    crash_notes::forgetAccidents();
    EXPECT_FALSE(std::filesystem::exists(file));
    crash(bad);
    start();
    EXPECT_FALSE(isRefused(bad));
}

TEST_F(CrashNotes, KnowWhatAThreadOfTheDriverWasAtWorkOn)
{
    const auto onAnotherThread = [] { std::thread([] { raise(SIGBUS); }).join(); };
    crash(bad, onAnotherThread);
    crash(bad, onAnotherThread);
    start();
    EXPECT_TRUE(isRefused(bad));
}

TEST_F(CrashNotes, SayNothingWhereNothingWasDrawn)
{
    EXPECT_DEATH(
        {
            start();
            raise(SIGSEGV);
        },
        "");
    EXPECT_FALSE(std::filesystem::exists(file));
}

} // namespace
} // namespace tessel
