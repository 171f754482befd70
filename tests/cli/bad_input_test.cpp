// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/surroundings.h"
#include "tool.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace tessel {
namespace {

using testing::AllOf;
using testing::HasSubstr;

class BadInput : public Tool
{
protected:
    /// Runs the tool, which must fail with this exit code, and returns what it says of it.
    std::string complaint(int exitCode, const std::vector<std::string>& arguments,
                          const std::string& input = {})
    {
        const Outcome outcome = run(arguments, input);
        EXPECT_EQ(outcome.exitCode, exitCode)
            << testing::PrintToString(arguments).substr(0, 200) << outcome.error;
        EXPECT_EQ(outcome.out, "");
        EXPECT_LT(outcome.error.size(), 1000U);
        return outcome.error;
    }

    std::string lookComplaint(const std::string& look)
    {
        return complaint(1, {"inspect", "-", "--size", "64x64"}, look);
    }
};

TEST_F(BadInput, LooksAreRefusedWithTheKeyAndWhatWouldBeRight)
{
    std::string nested;
    nested.resize(10'000'000, '[');
    EXPECT_THAT(lookComplaint(R"({"pattern":36})"),
                AllOf(HasSubstr("pattern"), HasSubstr("36"), HasSubstr("35")));
    EXPECT_THAT(lookComplaint(R"({"seed":NaN})"), HasSubstr("standard input"));
    EXPECT_THAT(lookComplaint(""), HasSubstr("standard input"));
    EXPECT_THAT(lookComplaint(nested), HasSubstr("standard input"));
    EXPECT_THAT(complaint(1, {"inspect", "/dev/zero", "--size", "9x9"}), HasSubstr("too long to be a look"));
}

TEST_F(BadInput, TheDesktopIsAskedOnlyForWhatItCanDo)
{
    EXPECT_THAT(complaint(2, {"set"}), HasSubstr("a LOOK, --still or --animated"));
    EXPECT_THAT(complaint(2, {"set", "{}", "--still", "--animated"}), HasSubstr("--animated"));
    EXPECT_THAT(complaint(1, {"set", R"({"pattern":36})"}), HasSubstr("\"pattern\" holds 36"));
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), QStringLiteral("unix:path=/nowhere"));
    EXPECT_THAT(complaint(1, {"get"}), HasSubstr("no session bus"));
    EXPECT_THAT(complaint(1, {"set", "{}"}), HasSubstr("no session bus"));
    const PrivateBus bus;
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), bus.address());
    EXPECT_THAT(complaint(1, {"get"}), HasSubstr("not running"));
    EXPECT_THAT(complaint(1, {"do", "new-wallpaper"}), HasSubstr("not running"));
    EXPECT_THAT(complaint(1, {"set", "--still"}), HasSubstr("not running"));
}

TEST_F(BadInput, FilesThatHoldNoLookAreNamed)
{
    EXPECT_THAT(complaint(1, {"inspect", "missing.json", "--size", "9x9"}),
                HasSubstr("missing.json: there is no"));
    EXPECT_THAT(complaint(1, {"inspect", folder.path().toStdString(), "--size", "9x9"}),
                HasSubstr("is a folder"));
    const std::string text = write("text.json", "hello");
    EXPECT_THAT(complaint(1, {"inspect", text, "--size", "9x9"}), HasSubstr("text.json"));
    EXPECT_THAT(complaint(1, {"read", text}), HasSubstr("text.json"));
    ASSERT_EQ(run({"sheet", "dithers", "--tile", "32x18", "--out", "sheet.png"}).exitCode, 0);
    EXPECT_THAT(complaint(1, {"read", "sheet.png"}), HasSubstr("holds no look"));
}

TEST_F(BadInput, ArgumentsAreRefusedAsUsage)
{
    for (const char* size :
         {"0x10", "10x0", "-5x10", "10", "10x", "x10", "10x10x10", "axb", "1e3x10", "99999999999x1"})
        EXPECT_THAT(complaint(2, {"render", "--size", size, "--out", "a.png"}), HasSubstr("1920x1080"))
            << size;
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{},
                                                      {"cook"},
                                                      {"render", "--mix", "0.5"},
                                                      {"render", "--previous", "{}", "--mix", "2"},
                                                      {"render", "--previous", "{}", "--mix", "nan"},
                                                      {"render", "--animate", "nan"},
                                                      {"render", "--animate", "1", "--fps", "nan"},
                                                      {"render", "--animate", "1", "--loop-fade", "nan"},
                                                      {"render", "--time", "inf"},
                                                      {"render", "--time", "nan"},
                                                      {"render", "--reference", "0"},
                                                      {"render", "--edge", "top"},
                                                      {"sheet", "soups"},
                                                      {"list"},
                                                      {"list", "soups"},
                                                      {"shuffle", "--count", "-1"},
                                                      {"inspect"}})
        EXPECT_NE(complaint(2, arguments), "") << testing::PrintToString(arguments);
    EXPECT_EQ(run({"--help"}).exitCode, 0);
    EXPECT_EQ(run({"--version"}).exitCode, 0);
}

TEST_F(BadInput, SizesOverTheGpusLimitAskForASmallerOne)
{
    EXPECT_EQ(complaint(1, {"render", "--size", "1000000x900000", "--out", "a.png"}),
              "tessel: The 1000000x900000 image could not be rendered. Try a smaller size.\n");
    EXPECT_FALSE(std::filesystem::exists(path("a.png")));
}

TEST_F(BadInput, PhotosThatCannotBeShownAreNamedAndTheLookIsDrawnWithout)
{
    const std::string cut = write("cut.png", "\x89PNG\r\n\x1a\n cut off");
    for (const std::string& photo : {std::string("/missing/photo.jpg"), folder.path().toStdString(), cut}) {
        const std::string look = R"({"pattern":7,"imagePath":")" + photo + R"("})";
        const Outcome outcome = run({"render", look, "--size", "64x64", "--out", "photo.png"});
        EXPECT_EQ(outcome.exitCode, 0);
        EXPECT_THAT(outcome.error, HasSubstr("the photo " + photo + " cannot be shown"));
        EXPECT_EQ(outcome.error.find("the photo"), outcome.error.rfind("the photo")) << "once";
    }
}

TEST_F(BadInput, TargetsThatCannotBeWrittenAreNamedAndLeftWhole)
{
    EXPECT_THAT(complaint(1, {"render", "--size", "64x64", "--out", "/missing/folder/a.png"}),
                HasSubstr("/missing/folder"));
    EXPECT_THAT(complaint(1, {"render", "--size", "64x64", "--out", folder.path().toStdString()}),
                HasSubstr(folder.path().toStdString()));
    EXPECT_THAT(complaint(1, {"render", "--size", "64x64", "--out", "/dev/full"}), HasSubstr("/dev/full"));
    EXPECT_TRUE(std::filesystem::is_empty(folder.path().toStdString()));
}

TEST_F(BadInput, AMachineWithoutOpenGlIsToldWhatIsMissing)
{
    environment.insert(QStringLiteral("__EGL_VENDOR_LIBRARY_DIRS"), folder.path());
    environment.insert(QStringLiteral("LIBGL_DRIVERS_PATH"), folder.path());
    environment.remove(QStringLiteral("DISPLAY"));
    environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
    EXPECT_THAT(complaint(1, {"render", "--size", "64x64", "--out", "a.png"}),
                HasSubstr("no OpenGL 3.3 here"));
    EXPECT_EQ(run({"inspect", "--size", "64x64"}).exitCode, 0) << "what draws nothing needs none";
}

} // namespace
} // namespace tessel
