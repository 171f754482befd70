// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/controls.h"
#include "controls/live_picture.h"
#include "controls/look_pictures.h"
#include "edge/edge_controller.h"
#include "edge/edge_panel.h"
#include "edge/quick_actions.h"
#include "support/fake_desktop.h"
#include "support/test_store.h"

#include <QQmlEngine>
#include <QQuickItem>
#include <gtest/gtest.h>

void qml_register_types_TesselBroth_Edge();

namespace tessel {
namespace {

using namespace std::chrono_literals;

/// Long enough never to pass in a test, and short enough to wait for.
constexpr auto never = 1h;
constexpr auto soon = 1ms;

class EdgeControllerTest : public testing::Test
{
protected:
    EdgeControllerTest()
    {
        m_windows.panel = std::make_shared<PanelRecord>();
        m_windows.screens().set({screenAt(QRect(0, 0, 1440, 900))});
        installControls(m_engine, m_pictures);
        qml_register_types_TesselBroth_Edge();
    }

    static Screen screenAt(const QRect& frame, bool isPrimary = true)
    {
        return {.name = QStringLiteral("ONE"), .frame = frame, .workArea = frame, .isPrimary = isPrimary};
    }

    /// \param delays of what is to pass in the test
    EdgeController& open(const EdgeDelays& delays = {.hover = never, .click = never, .collapse = never})
    {
        m_controller = std::make_unique<EdgeController>(
            *m_store, m_windows,
            [this](EdgeState& state) {
                m_actions = std::make_unique<QuickActions>(*m_store, *m_controller);
                return EdgePanel::make(m_windows, m_engine,
                                       {{QStringLiteral("edge"), QVariant::fromValue(&state)},
                                        {QStringLiteral("actions"), QVariant::fromValue(m_actions.get())},
                                        {QStringLiteral("presets"), QVariant::fromValue(&m_presets)},
                                        {QStringLiteral("thumb"), QVariant::fromValue(&m_thumb)},
                                        {QStringLiteral("preview"), QVariant::fromValue(&m_preview)},
                                        {QStringLiteral("editor"), QVariant::fromValue(&m_editor)}});
            },
            delays);
        m_controller->install();
        return *m_controller;
    }

    [[nodiscard]] QPoint middleOf(Mode mode) { return m_controller->screenFrame(mode).center(); }
    void moveTo(QPoint position)
    {
        Q_EMIT m_windows.pointer->moved(position - m_windows.panel->frame.topLeft());
    }
    void press(QPoint position) { Q_EMIT m_windows.pointer->pressed(position); }

    QPoint m_elsewhere{700, 100};
    TestStore m_store;
    FakeWindowSystem m_windows;
    FakeSession m_session;
    Graphics m_graphics{[this] { return m_windows.makeContext(); }};
    AnimationClocks m_clocks;
    LookPreparer m_preparer;
    const SceneServices m_services{*m_store, m_session, m_graphics, m_clocks, m_preparer};
    LivePicture m_thumb{Source::thumb, m_services, m_windows.screens()};
    LivePicture m_preview{Source::editor, m_services, m_windows.screens()};
    QObject m_editor;
    QObject m_presets;
    LookPictures m_pictures;
    QQmlEngine m_engine;
    std::unique_ptr<QuickActions> m_actions;
    std::unique_ptr<EdgeController> m_controller;
};

TEST_F(EdgeControllerTest, ClicksGoThroughAllButWhatIsShown)
{
    EdgeController& edge = open();
    EXPECT_EQ(m_windows.panel->frame, QRect(0, 70, 372, 760));
    EXPECT_EQ(m_windows.panel->inputRegion, QRegion(QRect(8, 358, 44, 44))) << "a little around the handle";
    edge.setMode(Mode::quick);
    EXPECT_EQ(m_windows.panel->inputRegion, QRegion(QRect(2, 352, 56, 248)));
    m_store->setHandleHidden(true);
    EXPECT_EQ(edge.mode(), Mode::handle);
    EXPECT_TRUE(m_windows.panel->inputRegion.isEmpty());
    moveTo(middleOf(Mode::handle));
    EXPECT_FALSE(edge.state().hovering());
}

TEST_F(EdgeControllerTest, IsPlacedAnewAtOnceAndKeepsItsMode)
{
    EdgeController& edge = open();
    edge.setMode(Mode::open);
    m_store->setEdge(Edge::right);
    EXPECT_EQ(m_windows.panel->frame, QRect(1068, 70, 372, 760));
    EXPECT_EQ(edge.mode(), Mode::open);
    Screen second = screenAt(QRect(1440, 0, 1024, 600), true);
    second.workArea.setTop(40);
    m_windows.screens().set({screenAt(QRect(0, 0, 1440, 900), false), second});
    EXPECT_EQ(m_windows.panel->frame, QRect(2092, 40, 372, 560)) << "the desktop's own panels went there";
    m_windows.screens().set({});
    EXPECT_EQ(m_windows.panel->frame, QRect(2092, 40, 372, 560));
}

TEST_F(EdgeControllerTest, HoverOpensTheStripWhichCollapsesOnceThePointerWasInIt)
{
    EdgeController& edge = open({.hover = soon, .click = never, .collapse = soon});
    moveTo(middleOf(Mode::handle) + QPoint(21, 0));
    EXPECT_TRUE(edge.state().hovering()) << "3 points outside";
    ASSERT_TRUE(waitUntil([&] { return edge.mode() == Mode::quick; }));
    edge.clickHandle();
    EXPECT_EQ(edge.mode(), Mode::quick) << "the click was meant to open it";
    moveTo(edge.screenFrame(Mode::quick).topLeft() + QPoint(20, 53 + 36 * 3));
    EXPECT_EQ(edge.state().quickHover(), 3);
    Q_EMIT m_windows.pointer->left();
    EXPECT_EQ(edge.state().quickHover(), std::nullopt);
    ASSERT_TRUE(waitUntil([&] { return edge.mode() == Mode::handle; }));
}

TEST_F(EdgeControllerTest, AStripThatNobodyEnteredStaysUntilAClickElsewhere)
{
    EdgeController& edge = open({.hover = soon, .click = soon, .collapse = soon});
    edge.clickHandle();
    EXPECT_EQ(edge.mode(), Mode::quick);
    moveTo(m_elsewhere);
    QCoreApplication::processEvents();
    EXPECT_EQ(edge.mode(), Mode::quick);
    press(edge.screenFrame(Mode::quick).center());
    EXPECT_EQ(edge.mode(), Mode::quick);
    press(m_elsewhere);
    EXPECT_EQ(edge.mode(), Mode::handle);
    edge.setMode(Mode::open);
    EXPECT_EQ(m_windows.panel->focus, KeyboardFocus::taken);
    edge.setHeld(true);
    press(m_elsewhere);
    EXPECT_EQ(edge.mode(), Mode::open) << "a dialog of the editor's is open";
    edge.setHeld(false);
    press(m_elsewhere);
    EXPECT_EQ(edge.mode(), Mode::handle);
    EXPECT_EQ(m_windows.panel->focus, KeyboardFocus::never);
}

TEST_F(EdgeControllerTest, AMenuHasThePanelAndTheKeyboardUntilSomethingElseIsClicked)
{
    EdgeController& edge = open({.hover = never, .click = soon, .collapse = soon});
    edge.clickHandle();
    edge.setMenuOpen(true);
    EXPECT_EQ(m_windows.panel->inputRegion, QRegion(QRect(0, 0, 372, 760)));
    EXPECT_EQ(m_windows.panel->focus, KeyboardFocus::taken);
    press(m_windows.panel->frame.topLeft() + QPoint(200, 20));
    EXPECT_EQ(edge.mode(), Mode::quick);
    edge.setMenuOpen(false);
    EXPECT_EQ(m_windows.panel->inputRegion, QRegion(QRect(2, 352, 56, 248)));
    EXPECT_EQ(m_windows.panel->focus, KeyboardFocus::never);
    edge.setMenuOpen(true);
    press(m_elsewhere);
    EXPECT_EQ(edge.mode(), Mode::handle);
}

TEST_F(EdgeControllerTest, APeekEndsUnlessThePointerHasComeIn)
{
    EdgeController& edge = open({.hover = never, .click = soon, .collapse = soon});
    edge.peek(soon);
    EXPECT_EQ(edge.mode(), Mode::quick);
    ASSERT_TRUE(waitUntil([&] { return edge.mode() == Mode::handle; }));
    edge.peek(soon);
    moveTo(middleOf(Mode::quick));
    // What comes after the end of the peek in the same queue.
    bool isLater = false;
    QTimer::singleShot(2ms, [&] { isLater = true; });
    ASSERT_TRUE(waitUntil([&] { return isLater; }));
    EXPECT_EQ(edge.mode(), Mode::quick);
    Q_EMIT m_windows.pointer->left();
    ASSERT_TRUE(waitUntil([&] { return edge.mode() == Mode::handle; }));
}

TEST_F(EdgeControllerTest, TheEditorsEndAbandonsAPaletteThatIsBeingEdited)
{
    EdgeController& edge = open();
    edge.setMode(Mode::open);
    m_store->beginEditing(std::nullopt, {1, 2});
    edge.setMode(Mode::handle);
    EXPECT_FALSE(m_store->stopsBeforeEdit());
}

TEST_F(EdgeControllerTest, WithoutBlendingTheWindowIsCutToWhatItShows)
{
    m_windows.panel->isBlended = false;
    EdgeController& edge = open();
    const auto shapeOf = [this] { return m_windows.panel->shape.boundingRect(); };
    EXPECT_EQ(shapeOf(), QRect(12, 362, 36, 36));
    EXPECT_FALSE(m_windows.panel->shape.contains(QPoint(13, 363))) << "the handle is round";
    edge.setMode(Mode::quick);
    EXPECT_EQ(shapeOf(), QRect(6, 356, 48, 240));
    edge.setMode(Mode::open);
    EXPECT_EQ(shapeOf(), QRect(12, 20, 312, 720));
    m_store->setHandleHidden(true);
    EXPECT_TRUE(m_windows.panel->shape.isEmpty());
}

TEST_F(EdgeControllerTest, QuickActionsSayWhatTheyWillDo)
{
    EdgeController& edge = open();
    const auto text = [this](int row, const char* role) {
        return m_actions->data(m_actions->index(row, 0), m_actions->roleNames().key(role)).toString();
    };
    EXPECT_EQ(text(1, "label"), QStringLiteral("No previous wallpaper"));
    EXPECT_EQ(text(1, "isEnabled"), QStringLiteral("false"));
    EXPECT_EQ(text(2, "label"), QStringLiteral("Animated · click to freeze"));
    m_actions->run(0);
    m_actions->run(0);
    const Look second = *m_store->desktop();
    EXPECT_EQ(text(1, "label"), QStringLiteral("Previous wallpaper"));
    m_actions->run(1);
    EXPECT_NE(*m_store->desktop(), second);
    m_actions->run(2);
    EXPECT_FALSE(m_store->appliedMotion());
    EXPECT_EQ(text(2, "label"), QStringLiteral("Still · click to animate"));
    EXPECT_EQ(text(2, "symbol"), QStringLiteral("live-photo-off"));
    m_actions->run(4);
    EXPECT_EQ(edge.mode(), Mode::open);
}

TEST_F(EdgeControllerTest, WhereNoWindowsFloatItOnlyKeepsItsMode)
{
    m_windows.panel = nullptr;
    EdgeController& edge = open();
    EXPECT_FALSE(edge.isInstalled());
    m_store->setEdge(Edge::right);
    edge.setMode(Mode::open);
    EXPECT_EQ(edge.mode(), Mode::open);
}

} // namespace
} // namespace tessel
