// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "onboarding/onboarding.h"
#include "support/test_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tessel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class OnboardingTest : public testing::Test
{
protected:
    OnboardingTest() { open(); }

    void open()
    {
        m_endings.clear();
        m_onboarding = std::make_unique<Onboarding>(
            *m_store, OnboardingServices{.menuPlace = [this] { return m_menuPlace; },
                                         .hasHandle = m_hasHandle,
                                         .opensAtLogin = [this] { return m_opensAtLogin; },
                                         .setOpensAtLogin =
                                             [this](bool on, const std::function<void()>& done) {
                                                 m_opensAtLogin = on && !m_refusesLogin;
                                                 done();
                                             }});
        QObject::connect(m_onboarding.get(), &Onboarding::finished, m_onboarding.get(),
                         [this](Ending ending) { m_endings.push_back(ending); });
    }

    void goTo(Onboarding::Step step)
    {
        while (m_onboarding->step() != step)
            m_onboarding->goForward();
    }

    [[nodiscard]] std::string text(Onboarding::Step step)
    {
        goTo(step);
        return m_onboarding->text().toStdString();
    }

    TestStore m_store;
    MenuPlace m_menuPlace = MenuPlace::panel;
    bool m_hasHandle = true;
    bool m_opensAtLogin = false;
    bool m_refusesLogin = false;
    std::vector<Ending> m_endings;
    std::unique_ptr<Onboarding> m_onboarding;
};

const Look& lookOf(int bowl)
{
    static const std::vector<Bowl> all = bowls();
    return all.at(static_cast<std::size_t>(bowl)).look;
}

TEST_F(OnboardingTest, SettingsAreInTheStoreAtOnceAndFollowIt)
{
    m_onboarding->setEdge(1);
    EXPECT_EQ(m_store->edge(), Edge::right);
    m_onboarding->setMotion(0);
    EXPECT_FALSE(m_store->motion());

    EXPECT_FALSE(m_onboarding->servesFresh());
    m_onboarding->setServesFresh(true);
    EXPECT_EQ(m_store->shuffleMinutes(), 1440);
    m_onboarding->setInterval(0);
    EXPECT_EQ(m_store->shuffleMinutes(), 60);
    m_onboarding->setInterval(2);
    EXPECT_FALSE(m_onboarding->servesFresh()) << "never is the same as off";
    m_onboarding->setServesFresh(true);
    EXPECT_EQ(m_store->shuffleMinutes(), 60) << "what was chosen before";

    int changes = 0;
    QObject::connect(m_onboarding.get(), &Onboarding::intervalChanged, m_onboarding.get(),
                     [&] { ++changes; });
    m_store->setShuffleMinutes(1440); // as the menu does
    EXPECT_EQ(m_onboarding->interval(), 1);
    EXPECT_EQ(changes, 1);
}

TEST_F(OnboardingTest, TheSwitchShowsWhatTheDesktopHasMadeOfIt)
{
    int answers = 0;
    QObject::connect(m_onboarding.get(), &Onboarding::opensAtLoginChanged, m_onboarding.get(),
                     [&] { ++answers; });
    m_refusesLogin = true;
    m_onboarding->setOpensAtLogin(true);
    EXPECT_FALSE(m_onboarding->opensAtLogin());
    EXPECT_EQ(answers, 1) << "it goes back";
    m_refusesLogin = false;
    m_onboarding->setOpensAtLogin(true);
    EXPECT_TRUE(m_onboarding->opensAtLogin());
}

TEST_F(OnboardingTest, ABowlIsServedOnceOnTheWayToTheLastStep)
{
    goTo(Onboarding::Bowls);
    m_onboarding->setBowl(2);
    EXPECT_FALSE(m_store->desktop());
    m_onboarding->goForward();
    EXPECT_EQ(m_store->desktop(), lookOf(2));
    EXPECT_EQ(m_store->look(), lookOf(2));
    EXPECT_TRUE(m_store->appliedMotion());

    m_onboarding->goBack();
    m_onboarding->setBowl(4);
    m_onboarding->goForward();
    EXPECT_EQ(m_store->desktop(), lookOf(4));
    m_store->shuffle(); // from the menu
    const Look chosenLast = *m_store->desktop();
    m_onboarding->goForward();
    EXPECT_EQ(m_store->desktop(), chosenLast);
    EXPECT_THAT(m_endings, ElementsAre(Ending::completed));
    EXPECT_TRUE(m_store->onboarded());
}

TEST_F(OnboardingTest, ClosingEndsItOnEveryStepWithTheBowlThatWasChosen)
{
    for (const auto step : {Onboarding::Welcome, Onboarding::Ladle, Onboarding::Bowls, Onboarding::Warm}) {
        m_store->setOnboarded(false);
        open();
        goTo(step);
        const std::optional<Look> before = m_store->desktop();
        m_onboarding->finish(Ending::closed);
        EXPECT_EQ(m_store->desktop(), before) << "nothing was chosen";
        EXPECT_TRUE(m_store->onboarded());

        open();
        goTo(step);
        m_onboarding->setBowl(step);
        m_onboarding->finish(Ending::closed);
        m_onboarding->finish(Ending::completed); // as the window closes behind it
        EXPECT_EQ(m_store->desktop(), lookOf(step));
        EXPECT_THAT(m_endings, ElementsAre(Ending::closed));
    }
    m_store.reopen();
    EXPECT_TRUE(m_store->onboarded());
}

TEST_F(OnboardingTest, LeftOpenItKeepsTheBowlForTheNextTime)
{
    m_onboarding->keepBowl();
    EXPECT_EQ(m_store->look(), Look());
    m_onboarding->setBowl(3);
    m_onboarding->keepBowl();
    EXPECT_EQ(m_store->look(), lookOf(3));
    EXPECT_FALSE(m_store->desktop());
    EXPECT_FALSE(m_store->onboarded());
}

TEST_F(OnboardingTest, ItSaysWhereThingsAreOnThisDesktop)
{
    EXPECT_THAT(text(Onboarding::Ladle), HasSubstr("edge of your screen"));
    EXPECT_THAT(text(Onboarding::Warm), HasSubstr("from the menu bar"));
    m_menuPlace = MenuPlace::handle;
    EXPECT_THAT(text(Onboarding::Warm), HasSubstr("right-click"));
    m_hasHandle = false;
    m_menuPlace = MenuPlace::panel;
    open();
    EXPECT_THAT(text(Onboarding::Ladle), HasSubstr("in your panel"));
    m_menuPlace = MenuPlace::reopening;
    EXPECT_THAT(m_onboarding->text().toStdString(), HasSubstr("once more"));
    EXPECT_THAT(text(Onboarding::Warm), HasSubstr("once more"));
}

TEST_F(OnboardingTest, TheBrothIsWhatWillBeServed)
{
    m_store->setLook(lookOf(1));
    const QString kept = m_onboarding->brothPicture();
    m_onboarding->setBowl(5);
    EXPECT_NE(m_onboarding->brothPicture(), kept);
    m_onboarding->setBowl(1);
    EXPECT_EQ(m_onboarding->brothPicture(), kept);
}

} // namespace
} // namespace tessel
