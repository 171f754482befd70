// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/shuffle_timer.h"
#include "support/test_store.h"

#include <QTest>
#include <QTimeZone>
#include <gtest/gtest.h>

#include <limits>

namespace tessel {
namespace {

using namespace std::chrono_literals;

constexpr qint64 minute = 60; ///< seconds

class FakeSession : public Session
{
};

class ShuffleTimerTest : public testing::Test
{
protected:
    void start()
    {
        m_timer = std::make_unique<ShuffleTimer>(*m_store, m_session, [this] { return m_now; });
        m_timer->start();
    }

    TestStore m_store;
    FakeSession m_session;
    QDateTime m_now = QDateTime({2026, 3, 1}, {12, 0}, QTimeZone::utc());
    std::unique_ptr<ShuffleTimer> m_timer;
};

TEST_F(ShuffleTimerTest, CountsFromTheLastServing)
{
    m_store->setShuffleMinutes(60);
    m_store->setLastServed(m_now.addSecs(-50 * minute));
    start();
    EXPECT_EQ(m_timer->remaining(), 10min);
}

TEST_F(ShuffleTimerTest, CountsFromNowWhereNoDateCanBeUsed)
{
    m_store->setShuffleMinutes(60);
    for (const QDateTime& date : {QDateTime(), m_now.addSecs(60 * minute + 1), m_now.addYears(7000)}) {
        m_store->setLastServed(date);
        start();
        EXPECT_EQ(m_timer->remaining(), 60min) << date.toString().toStdString();
        EXPECT_EQ(m_store->lastServed(), m_now) << date.toString().toStdString();
    }
    // Within one interval it may be a clock that was put back for the winter.
    m_store->setLastServed(m_now.addSecs(30 * minute));
    start();
    EXPECT_EQ(m_timer->remaining(), 90min);
}

TEST_F(ShuffleTimerTest, IsOffBelowOneMinute)
{
    for (const qint64 minutes : {qint64{0}, qint64{-1}, std::numeric_limits<qint64>::min()}) {
        m_store->setShuffleMinutes(minutes);
        start();
        EXPECT_FALSE(m_timer->remaining()) << minutes;
    }
}

TEST_F(ShuffleTimerTest, TakesHugeIntervalsForAHundredYears)
{
    for (const qint64 minutes : {qint64{1} << 62, std::numeric_limits<qint64>::max()}) {
        m_store->setShuffleMinutes(minutes);
        start();
        ASSERT_TRUE(m_timer->remaining());
        EXPECT_GT(*m_timer->remaining(), std::chrono::years(99));
        EXPECT_LT(*m_timer->remaining(), std::chrono::years(101));
    }
    // Waits that are longer than a timer can count do not come early.
    QTest::qWait(50);
    EXPECT_FALSE(m_store->desktop());
}

TEST_F(ShuffleTimerTest, MakesUpForWhatWasMissedByOneServing)
{
    m_store->setShuffleMinutes(60);
    m_store->setLastServed(m_now.addDays(-3));
    start();
    EXPECT_EQ(m_timer->remaining(), 1s);
    int servings = 0;
    QObject::connect(&*m_store, &Store::applied, m_timer.get(), [&] { ++servings; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return servings > 0; }, 30000));
    EXPECT_EQ(m_store->lastServed(), m_now);
    EXPECT_EQ(m_timer->remaining(), 60min);
    QTest::qWait(1200);
    EXPECT_EQ(servings, 1);
}

TEST_F(ShuffleTimerTest, CountsAnewFromTheMomentOfChoice)
{
    m_store->setLastServed(m_now.addSecs(-50 * minute));
    start();
    EXPECT_FALSE(m_timer->remaining());
    m_store->setShuffleMinutes(60);
    EXPECT_EQ(m_timer->remaining(), 60min);
    EXPECT_EQ(m_store->lastServed(), m_now);
    m_now = m_now.addSecs(10 * minute);
    m_store->setShuffleMinutes(60);
    EXPECT_EQ(m_timer->remaining(), 50min);
    m_store->setShuffleMinutes(0);
    EXPECT_FALSE(m_timer->remaining());
    EXPECT_EQ(m_store->lastServed(), m_now);
}

TEST_F(ShuffleTimerTest, LooksAgainAfterSleepAndWhenTheClockIsSet)
{
    m_store->setShuffleMinutes(60);
    start();
    m_now = m_now.addSecs(120 * minute);
    Q_EMIT m_session.woke();
    int servings = 0;
    QObject::connect(&*m_store, &Store::applied, m_timer.get(), [&] { ++servings; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return servings == 1; }, 30000));
    // Put back by a week: what was served is far ahead now.
    m_now = m_now.addDays(-7);
    Q_EMIT m_session.clockSet();
    EXPECT_EQ(m_timer->remaining(), 60min);
    EXPECT_EQ(m_store->lastServed(), m_now);
}

TEST_F(ShuffleTimerTest, GoesOnAfterARestart)
{
    start();
    m_store->setShuffleMinutes(1440);
    m_timer.reset();
    m_store.reopen();
    m_now = m_now.addSecs(60 * minute);
    start();
    EXPECT_EQ(m_timer->remaining(), 23h);
}

} // namespace
} // namespace tessel
