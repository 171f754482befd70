// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/color_field.h"

#include <gtest/gtest.h>

#include <string>

namespace tessel {
namespace {

TEST(ColorFieldTest, EveryColourSurvivesTheWayThroughItsComponents)
{
    ColorField field(1);
    for (Color color = 0; color <= 0xFFFFFF; color += 0x010307) {
        field.restart(color);
        const double hue = field.hue();
        field.setHue(hue);
        ASSERT_EQ(field.value(), color);
    }
}

TEST(ColorFieldTest, KnowsTheComponentsOfAColour)
{
    ColorField field(3);
    field.setValue(0xD9583B);
    EXPECT_EQ(field.name(), QStringLiteral("Colour 3"));
    EXPECT_EQ(field.hex(), QStringLiteral("D9583B"));
    EXPECT_EQ(field.description(), QStringLiteral("hex D9583B"));
    EXPECT_EQ(field.hueText(), QStringLiteral("11\u00B0"));
    EXPECT_EQ(field.saturationText(), QStringLiteral("73"));
    EXPECT_EQ(field.brightnessText(), QStringLiteral("85"));
    EXPECT_EQ(field.color(), QColor(0xD9, 0x58, 0x3B));
}

TEST(ColorFieldTest, BlackAndGreyKeepHueAndSaturation)
{
    ColorField field(1);
    field.setValue(0x2266CC);
    const double hue = field.hue();
    const double saturation = field.saturation();
    field.setValue(0x000000);
    EXPECT_EQ(field.hex(), QStringLiteral("000000"));
    EXPECT_EQ(field.hue(), hue);
    EXPECT_EQ(field.saturation(), saturation);
    field.setBrightness(0xCC / 255.0);
    EXPECT_EQ(field.value(), 0x2266CCU);

    EXPECT_TRUE(field.enterHex(QStringLiteral("808080")));
    EXPECT_EQ(field.saturation(), 0.0);
    EXPECT_EQ(field.hue(), hue);
    field.restart(0x808080);
    EXPECT_EQ(field.hue(), 0.0) << "another palette's colour has nothing to keep";
}

TEST(ColorFieldTest, TellsEditsFromChangesOutside)
{
    ColorField field(1);
    int changed = 0;
    int edited = 0;
    QObject::connect(&field, &ColorField::changed, &field, [&] { ++changed; });
    QObject::connect(&field, &ColorField::edited, &field, [&] { ++edited; });
    field.setValue(0x112233);
    field.setValue(0x112233);
    EXPECT_EQ(changed, 1);
    EXPECT_EQ(edited, 0);
    field.setHue(2.0);
    EXPECT_EQ(field.hue(), 1.0);
    field.adjust(ColorField::Brightness, +1);
    EXPECT_EQ(field.brightnessText(), QStringLiteral("25"));
    EXPECT_EQ(edited, 2);
    EXPECT_TRUE(field.enterHex(field.hex()));
    EXPECT_EQ(edited, 2);
}

TEST(ColorFieldTest, TakesHexAsPeopleWriteIt)
{
    ColorField field(1);
    for (const char* text : {"ffaa00", "#FFAA00", "  #fa0 ", "FA0", "f f a a 0 0\n", "# ff aa 00"}) {
        field.setValue(0);
        EXPECT_TRUE(field.acceptsHex(QLatin1String(text)));
        EXPECT_TRUE(field.enterHex(QLatin1String(text))) << text;
        EXPECT_EQ(field.value(), 0xFFAA00U) << text;
    }
    for (const char* text :
         {"", "#", "ff", "ffaa0", "ffaa000", "gg0000", "+12345", "0xff00", "##fa0", "red"}) {
        EXPECT_FALSE(field.acceptsHex(QLatin1String(text)));
        EXPECT_FALSE(field.enterHex(QLatin1String(text))) << text;
    }
    EXPECT_FALSE(field.enterHex(QStringLiteral("\u0661\u0662\u0663"))) << "digits of another script";
    EXPECT_EQ(field.value(), 0xFFAA00U);
}

} // namespace
} // namespace tessel
