// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/look_pictures.h"
#include "onboarding/onboarding_window.h"
#include "support/test_store.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QQuickItem>
#include <QTest>
#include <gmock/gmock.h>

namespace tessel {
namespace {

using testing::ElementsAre;

/// The introduction in its window.
class OnboardingViewTest : public testing::Test
{
protected:
    OnboardingViewTest()
    {
        m_window.bringForward();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_window.view(), 60000));
    }

    /// Everything that can be seen, parents first.
    [[nodiscard]] std::vector<QQuickItem*> items()
    {
        std::vector<QQuickItem*> found{m_window.view().contentItem()};
        for (std::size_t i = 0; i < found.size(); ++i)
            for (QQuickItem* child : found[i]->childItems())
                if (child->isVisible())
                    found.push_back(child);
        return found;
    }

    static std::string nameOf(QQuickItem* item)
    {
        QAccessibleInterface* const heard = QAccessible::queryAccessibleInterface(item);
        return heard != nullptr ? heard->text(QAccessible::Name).toStdString() : std::string();
    }

    [[nodiscard]] QRectF place(const char* name)
    {
        for (QQuickItem* item : items())
            if (nameOf(item) == name)
                return item->mapRectToScene(item->boundingRect());
        ADD_FAILURE() << "nothing is called " << name;
        return {};
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(&m_window.view(), key, modifiers);
    }
    [[nodiscard]] std::string focused() { return nameOf(m_window.view().activeFocusItem()); }

    /// The names along a whole round of Tab, from what has the focus.
    std::vector<std::string> walk()
    {
        std::vector<std::string> names;
        do {
            names.push_back(focused());
            press(Qt::Key_Tab);
        } while (names.size() < 20 && focused() != names.front());
        return names;
    }

    TestStore m_store;
    Onboarding m_onboarding{*m_store, OnboardingServices{.menuPlace = [] { return MenuPlace::panel; },
                                                         .opensAtLogin = [] { return false; },
                                                         .setOpensAtLogin = [](bool, const auto&) {}}};
    LookPictures m_pictures;
    OnboardingWindow m_window{m_onboarding, m_pictures, nullptr};
};

TEST_F(OnboardingViewTest, TheKeyboardAloneGetsThroughAllSteps)
{
    EXPECT_THAT(walk(), ElementsAre("Start cooking", "Close"));
    press(Qt::Key_Return);
    EXPECT_THAT(walk(), ElementsAre("Next", "Close", "Left", "Back"));
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    press(Qt::Key_Right);
    EXPECT_EQ(focused(), "Right");
    EXPECT_EQ(m_store->edge(), Edge::right);

    press(Qt::Key_Return); // from wherever there is nothing to press
    EXPECT_THAT(walk(), ElementsAre("Tomato Bisque", "Animated", "Back", "Serve it", "Close"));
    EXPECT_EQ(m_onboarding.bowl(), -1) << "going past it chooses nothing";
    press(Qt::Key_Right);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(focused(), "Split Pea");
    EXPECT_EQ(m_onboarding.bowl(), 4);
    press(Qt::Key_Return);

    EXPECT_THAT(walk(), ElementsAre("Let's eat", "Close", "Open at login", "Fresh bowl", "Back"));
    for (int i = 0; i < 3; ++i)
        press(Qt::Key_Tab);
    press(Qt::Key_Space);
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), "Daily");
    press(Qt::Key_Right);
    EXPECT_EQ(focused(), "Fresh bowl") << "what had the focus has gone with it";
    EXPECT_EQ(m_store->shuffleMinutes(), 0);
    press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(m_onboarding.step(), Onboarding::Bowls);
    EXPECT_EQ(focused(), "Split Pea");
    press(Qt::Key_Return);
    press(Qt::Key_Return);
    EXPECT_TRUE(m_store->onboarded());
}

TEST_F(OnboardingViewTest, EscapeClosesAndClosingFinishes)
{
    press(Qt::Key_Escape);
    EXPECT_TRUE(m_store->onboarded());
    EXPECT_FALSE(m_window.view().isVisible());
}

TEST_F(OnboardingViewTest, ScreenReadersHearOfEverythingThatCanBeFocused)
{
    for (int step = 0; step < 4; ++step) {
        for (QQuickItem* candidate : items()) {
            if (!candidate->activeFocusOnTab())
                continue;
            QAccessibleInterface* const heard = QAccessible::queryAccessibleInterface(candidate);
            ASSERT_NE(heard, nullptr);
            EXPECT_FALSE(heard->text(QAccessible::Name).isEmpty()) << candidate->metaObject()->className();
            EXPECT_NE(heard->role(), QAccessible::NoRole) << nameOf(candidate);
        }
        EXPECT_EQ(nameOf(m_window.view().rootObject()),
                  m_onboarding.title().replace(u'\n', u' ').toStdString());
        if (step < 3)
            m_onboarding.goForward();
    }
}

TEST_F(OnboardingViewTest, TheLeftEdgeAndReadingFromTheRightMirrorIt)
{
    m_onboarding.goForward();
    const double middle = m_window.view().width() / 2.0;
    EXPECT_GT(place("Left").x(), middle) << "the handle is on the left";
    m_onboarding.setEdge(1);
    EXPECT_LT(place("Right").x(), middle);
    EXPECT_GT(place("Next").x(), middle);

    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    EXPECT_LT(place("Right").x(), middle) << "the edge is physical";
    EXPECT_LT(place("Next").x(), place("Back").x());
    m_onboarding.goForward();
    EXPECT_GT(place("Tomato Bisque").x(), place("Borscht").x());
    press(Qt::Key_Left);
    EXPECT_EQ(focused(), "Miso Tide");
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

TEST_F(OnboardingViewTest, OnASmallScreenAllOfItIsThere)
{
    QQuickView& view = m_window.view();
    view.setMinimumSize({440, 280});
    view.resize(440, 280);
    ASSERT_TRUE(QTest::qWaitFor([&] { return qRound(view.rootObject()->width()) == 440; }, 60000));
    const QRectF forward = place("Start cooking");
    EXPECT_LE(forward.right(), 412 + 0.5);
    EXPECT_LE(forward.bottom(), 258 + 0.5);
    QTest::mouseClick(&view, Qt::LeftButton, {}, forward.center().toPoint());
    EXPECT_EQ(m_onboarding.step(), Onboarding::Ladle);
}

} // namespace
} // namespace tessel
