// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tool.h"

#include <QImage>
#include <gmock/gmock.h>

#include <cmath>

namespace tessel {
namespace {

using testing::ContainsRegex;
using testing::EndsWith;
using testing::HasSubstr;

class RenderCommand : public Tool
{
protected:
    QImage load(const std::string& name) { return QImage(QString::fromStdString(path(name))); }
};

TEST_F(RenderCommand, WritesAnIndexedPictureThatHoldsItsLook)
{
    const Outcome outcome = run(
        {"render", R"({"seed":5,"imagePath":"/ä.jpg"})", "--size", "640x360", "--out", "a.png", "--timing"});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.out, "a.png\n");
    EXPECT_THAT(outcome.error,
                ContainsRegex("context .* ms, shaders .* ms, passes .* ms, read-back .* ms, encode"));
    const QImage picture = load("a.png");
    EXPECT_EQ(picture.size(), QSize(640, 360));
    EXPECT_LE(picture.colorCount(), 8);
    EXPECT_GT(picture.colorCount(), 1);
    EXPECT_THAT(run({"read", "a.png"}).out, HasSubstr(R"("imagePath":"/ä.jpg")"));
}

TEST_F(RenderCommand, IsReproducibleAndNamesItsFileAfterTheLook)
{
    ASSERT_EQ(run({"render", "--size", "320x180"}).out, "Flow Ember 320x180.png\n");
    const Outcome piped = run({"render", "--size", "320x180", "--out", "-"});
    EXPECT_EQ(QImage::fromData(QByteArray::fromStdString(piped.out)), load("Flow Ember 320x180.png"));
}

TEST_F(RenderCommand, DrawsFadesTimesAndReferences)
{
    const auto picture = [&](const std::vector<std::string>& more) {
        std::vector<std::string> arguments{"render", "--size", "160x90", "--out", "-"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.exitCode, 0) << outcome.error;
        return QImage::fromData(QByteArray::fromStdString(outcome.out)).convertToFormat(QImage::Format_RGB32);
    };
    const QImage plain = picture({});
    EXPECT_NE(picture({"--time", "40"}), plain);
    EXPECT_NE(picture({"--reference", "300"}), plain);
    EXPECT_EQ(picture({"--previous", R"({"seed":9})", "--mix", "1"}), plain);
    EXPECT_EQ(picture({"--previous", R"({"seed":9})", "--mix", "0"}), picture({R"({"seed":9})"}));
    EXPECT_NE(picture({"--previous", R"({"seed":9})", "--mix", "0.5"}), plain);
}

TEST_F(RenderCommand, DrawsAnimationsThatMeetTheirBeginning)
{
    const std::string look = R"({"pattern":2,"speed":4,"dither":0})";
    const std::vector<std::string> base{"render", look, "--size", "96x54", "--fps", "4", "--animate"};
    const auto frames = [&](const std::string& name, const std::vector<std::string>& more) {
        std::vector<std::string> arguments = base;
        arguments.insert(arguments.end(), more.begin(), more.end());
        arguments.insert(arguments.end(), {"--out", name});
        EXPECT_EQ(run(arguments).out, name + '\n');
        std::vector<QImage> pictures;
        for (int i = 1; !load(name + "/000" + std::to_string(i) + ".png").isNull(); ++i)
            pictures.push_back(load(name + "/000" + std::to_string(i) + ".png"));
        return pictures;
    };
    const std::vector<QImage> plain = frames("plain", {"2"});
    ASSERT_EQ(plain.size(), 8U);
    ASSERT_EQ(run({"render", look, "--size", "96x54", "--time", "3", "--out", "at3.png"}).exitCode, 0);
    EXPECT_EQ(plain[3], load("at3.png")) << "4 of phase a second, at its fourth frame";
    EXPECT_THAT(run({"read", "plain/0001.png"}).out, HasSubstr(R"("speed":4)"));

    const auto difference = [](const QImage& a, const QImage& b) {
        double sum = 0;
        for (int y = 0; y < a.height(); ++y)
            for (int x = 0; x < a.width(); ++x)
                sum += std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y)));
        return sum;
    };
    const std::vector<QImage> looped = frames("looped", {"1", "--loop-fade", "0.5"});
    ASSERT_EQ(looped.size(), 4U);
    EXPECT_EQ(looped[0], plain[2]) << "it begins where the fade ends";
    EXPECT_LT(difference(looped[3], looped[0]), difference(plain[5], plain[2]));

    const Outcome again = run({"render", look, "--size", "96x54", "--animate", "1", "--out", "plain"});
    EXPECT_EQ(again.exitCode, 1);
    EXPECT_THAT(again.error, HasSubstr("plain: is not empty"));
}

TEST_F(RenderCommand, DrawsContactSheets)
{
    ASSERT_EQ(run({"sheet", "dithers", "--tile", "96x54", "--out", "d.png"}).exitCode, 0);
    EXPECT_GT(load("d.png").width(), 3 * 96);
    ASSERT_EQ(run({"sheet", "shuffles", "--count", "3", "--tile", "96x54", "--random-seed", "4"}).out,
              "shuffles.png\n");
    EXPECT_TRUE(!load("shuffles.png").isNull());
    const std::string best = run({"sheet", "best", "--count", "2", "--tile", "96x54"}).out;
    EXPECT_EQ(nlohmann::json::parse(best.substr(0, best.find('\n')))["offset"], 0)
        << "a look that can be used";
    EXPECT_THAT(best, EndsWith("}\nbest.png\n"));
}

} // namespace
} // namespace tessel
