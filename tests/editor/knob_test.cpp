// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/knob.h"
#include "support/test_store.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tessel {
namespace {

class KnobTest : public testing::Test
{
protected:
    [[nodiscard]] std::unique_ptr<Knob> knob(float Look::*field)
    {
        return std::make_unique<Knob>(sliderOf(field), *m_store);
    }

    void set(float Look::*field, float value)
    {
        Look look = m_store->look();
        look.*field = value;
        m_store->setLook(look);
    }

    TestStore m_store;
};

void drag(Knob& knob, double widths)
{
    knob.startDrag();
    knob.dragBy(widths);
    knob.endDrag();
}

TEST_F(KnobTest, DragsFromWhereTheValueWas)
{
    const auto contrast = knob(&Look::contrast);
    contrast->startDrag();
    contrast->dragBy(0.2);
    contrast->dragBy(0.1); // from the start, not from the last place
    EXPECT_FLOAT_EQ(m_store->look().contrast, 1.15F + 0.25F);
    contrast->dragBy(9);
    EXPECT_EQ(m_store->look().contrast, 3.0F);
    contrast->dragBy(-9);
    EXPECT_EQ(m_store->look().contrast, 0.5F);
    contrast->endDrag();
    contrast->dragBy(0.5);
    EXPECT_EQ(m_store->look().contrast, 0.5F) << "no drag is under way";
}

TEST_F(KnobTest, EqualWaysOfALogarithmicKnobMultiplyEqually)
{
    const auto speed = knob(&Look::speed);
    drag(*speed, 0.5);
    EXPECT_EQ(m_store->look().speed, 2.0F);
    set(&Look::speed, 0.35F);
    drag(*speed, -0.5);
    const double start = std::log(35.0) / std::log(200.0);
    EXPECT_NEAR(m_store->look().speed, 0.01 * std::pow(200.0, start - 0.5), 1e-6);
    EXPECT_NEAR(speed->position(), start - 0.5, 1e-6);
    drag(*speed, -3);
    EXPECT_EQ(m_store->look().speed, 0.01F);
}

TEST_F(KnobTest, StepsAreRoundedToAndLimitsKept)
{
    const auto seed = knob(&Look::seed);
    const auto pixel = knob(&Look::pixel);
    const auto levels = knob(&Look::levels);
    for (const auto& each : {seed.get(), pixel.get(), levels.get()}) {
        for (double widths = -1.1; widths <= 1.1; widths += 0.0137) {
            drag(*each, widths);
            EXPECT_EQ(each->value(), std::round(each->value()));
            EXPECT_GE(each->value(), each->minimumValue());
            EXPECT_LE(each->value(), each->maximumValue());
            each->reset();
        }
    }
    // Half away from zero: 49.5 of 99 is 50.
    set(&Look::seed, 0);
    drag(*seed, 0.5);
    EXPECT_EQ(m_store->look().seed, 50.0F);
}

TEST_F(KnobTest, StepsOfKeysMoveByAStepOrATwentieth)
{
    const auto contrast = knob(&Look::contrast);
    set(&Look::contrast, 2.98F);
    contrast->adjust(+1);
    EXPECT_EQ(m_store->look().contrast, 3.0F);
    contrast->adjust(-1);
    EXPECT_FLOAT_EQ(m_store->look().contrast, 2.875F);

    const auto levels = knob(&Look::levels);
    levels->adjust(-1);
    EXPECT_EQ(m_store->look().levels, 4.0F);
    levels->toLowest();
    levels->adjust(-1);
    EXPECT_EQ(m_store->look().levels, 2.0F);
    levels->toHighest();
    EXPECT_EQ(m_store->look().levels, 16.0F);

    const auto speed = knob(&Look::speed);
    speed->adjust(+1);
    EXPECT_NEAR(m_store->look().speed, 0.35 * std::pow(200.0, 0.05), 1e-6);
    speed->reset();
    EXPECT_EQ(m_store->look().speed, 0.35F);
}

TEST_F(KnobTest, ReadsTypedNumbersAsPeopleWriteThem)
{
    const auto scale = knob(&Look::scale);
    EXPECT_TRUE(scale->enter(QStringLiteral(" 1,25 ")));
    EXPECT_EQ(m_store->look().scale, 1.25F);
    EXPECT_TRUE(scale->enter(QStringLiteral("99")));
    EXPECT_EQ(m_store->look().scale, 3.0F);
    for (const char* wrong : {"", "wide", "1.2.3", "1,000.5", "nan", "inf", "0x2", "1e999"})
        EXPECT_FALSE(scale->enter(QLatin1String(wrong))) << wrong;
    scale->setValue(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(m_store->look().scale, 3.0F);
    EXPECT_TRUE(knob(&Look::seed)->enter(QStringLiteral("41.5")));
    EXPECT_EQ(m_store->look().seed, 42.0F);
}

TEST_F(KnobTest, ShowsWhatTheLookHas)
{
    const auto speed = knob(&Look::speed);
    const auto levels = knob(&Look::levels);
    EXPECT_EQ(knob(&Look::offset)->label(), QStringLiteral("Shift"));
    EXPECT_EQ(speed->text(), QStringLiteral("0.35"));
    int told = 0;
    QObject::connect(speed.get(), &Knob::changed, speed.get(), [&] { ++told; });
    set(&Look::levels, 7.9F);
    EXPECT_EQ(levels->text(), QStringLiteral("7"));
    EXPECT_EQ(told, 0);
    // A file may hold what no knob gives.
    set(&Look::speed, 40.0F);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(speed->position(), 1.0);
    drag(*speed, -0.5);
    EXPECT_LT(m_store->look().speed, 0.2F);
}

} // namespace
} // namespace tessel
