// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/page.h"
#include "controls/tips.h"

#include <QTest>
#include <gtest/gtest.h>

namespace tessel {
namespace {

constexpr const char* oneKnob = R"(
    Knob {
        objectName: "knob"; x: 20; y: 20; width: 100; label: "Scale"; position: 0.5; valueText: "1.00"
        onDragStarted: page.say("start")
        onDraggedBy: widths => page.say("by" + widths.toFixed(1))
        onDragEnded: page.say("end")
        onResetAsked: page.say("reset")
        onAdjusted: direction => page.say(direction > 0 ? "more" : "less")
    })";

QPoint at(Page& page, const char* name, double x, double y)
{
    return page.item(name)->mapToScene(QPointF(x, y)).toPoint();
}

TEST(Pointer, AKnobIsDraggedByTheWayThatThePointerGoes)
{
    Page page(oneKnob);
    QWindow* const window = &page.window();
    QTest::mousePress(window, Qt::LeftButton, {}, at(page, "knob", 90, 25));
    EXPECT_EQ(page.heard(), QString());
    // From its right end, far to the left and out of it, and out of the window.
    QTest::mouseMove(window, at(page, "knob", 80, 5));
    QTest::mouseMove(window, at(page, "knob", 40, 200));
    QTest::mouseMove(window, at(page, "knob", -60, 25));
    QTest::mouseRelease(window, Qt::LeftButton, {}, at(page, "knob", -60, 25));
    EXPECT_EQ(page.heard(), QStringLiteral("start by-0.1 by-0.5 by-1.5 end"));

    // A press that does not move is no drag, two are a reset.
    page.click("knob");
    EXPECT_EQ(page.heard(), QString());
    QTest::mouseDClick(window, Qt::LeftButton, {}, at(page, "knob", 50, 25));
    EXPECT_EQ(page.heard(), QStringLiteral("reset"));
}

void turnWheel(Page& page, const char* name, int angle, Qt::KeyboardModifiers modifiers = {})
{
    const QPointF place = at(page, name, 30, 20);
    QWheelEvent event(place, place, QPoint(), QPoint(0, angle), Qt::NoButton, modifiers, Qt::NoScrollPhase,
                      false);
    QGuiApplication::sendEvent(&page.window(), &event);
}

TEST(Pointer, TheWheelTurnsAKnobOnlyWithControlAndScrollsOtherwise)
{
    Page page(R"(
        ScrollArea {
            view: flick; anchors.fill: parent
            Flickable {
                id: flick; objectName: "flick"; anchors.fill: parent; contentHeight: 1000; interactive: false
                Knob { objectName: "knob"; y: 100; onAdjusted: direction => page.say(direction > 0 ? "more" : "less") }
            }
        })");
    turnWheel(page, "knob", 120, Qt::ControlModifier);
    EXPECT_EQ(page.heard(), QStringLiteral("more"));
    EXPECT_EQ(page.property("flick", "contentY").toDouble(), 0);
    turnWheel(page, "knob", -120);
    EXPECT_EQ(page.heard(), QString());
    EXPECT_TRUE(QTest::qWaitFor([&] { return page.property("flick", "contentY").toDouble() == 72; }, 60000));
    turnWheel(page, "knob", 1200);
    EXPECT_TRUE(QTest::qWaitFor([&] { return page.property("flick", "contentY").toDouble() == 0; }, 60000));
}

TEST(Pointer, ALetGoOutsideIsNoClick)
{
    Page page(
        R"(SmallButton { objectName: "button"; x: 20; y: 20; text: "Save"; onClicked: page.say("clicked") })");
    QWindow* const window = &page.window();
    QTest::mousePress(window, Qt::LeftButton, {}, at(page, "button", 5, 5));
    EXPECT_TRUE(page.property("button", "pressed").toBool());
    QTest::mouseMove(window, at(page, "button", 5, 90));
    EXPECT_FALSE(page.property("button", "pressed").toBool());
    QTest::mouseRelease(window, Qt::LeftButton, {}, at(page, "button", 5, 90));
    EXPECT_EQ(page.heard(), QString());
    page.click("button");
    EXPECT_EQ(page.heard(), QStringLiteral("clicked"));
}

TEST(Pointer, AMenuStaysInsideAndClosesByAPressBesideIt)
{
    Page page(R"(
        Item { objectName: "corner"; x: 390; y: 390; width: 10; height: 10 }
        PopupMenu {
            objectName: "menu"; anchors.fill: parent; rows: [{text: "Rename..."}, {text: "Delete"}]
            onTriggered: index => page.say("row" + index)
            onClosed: page.say("closed")
        })");
    QQuickItem* const menu = page.item("menu");
    const auto open = [&] {
        QMetaObject::invokeMethod(menu, "openAt", Q_ARG(QQuickItem*, page.item("corner")), Q_ARG(double, 0.0),
                                  Q_ARG(double, 0.0));
    };
    open();
    EXPECT_TRUE(menu->isVisible());
    for (QQuickItem* child : menu->childItems())
        EXPECT_TRUE(menu->boundingRect().contains(child->mapRectToItem(menu, child->boundingRect())));
    QTest::mouseClick(&page.window(), Qt::LeftButton, {}, QPoint(10, 10));
    EXPECT_FALSE(menu->isVisible());
    EXPECT_EQ(page.heard(), QStringLiteral("closed"));

    open();
    QTest::mouseClick(&page.window(), Qt::LeftButton, {}, QPoint(330, 375));
    EXPECT_EQ(page.heard(), QStringLiteral("closed row1"));
}

TEST(Pointer, ATipWaitsTheFirstTimeOnly)
{
    Page page(R"(
        Item { objectName: "a" }
        Item { objectName: "b" })");
    QQuickItem* const a = page.item("a");
    QQuickItem* const b = page.item("b");
    Tips tips;
    tips.enter(a, QStringLiteral("Undo"));
    EXPECT_EQ(tips.target(), nullptr);
    ASSERT_TRUE(QTest::qWaitFor([&] { return tips.target() == a; }, 60000));
    tips.enter(b, QStringLiteral("Close"));
    EXPECT_EQ(tips.target(), b);
    EXPECT_EQ(tips.text(), QStringLiteral("Close"));
    tips.leave(a); // comes late, and is none of b's business
    EXPECT_EQ(tips.target(), b);

    // A press says that no more is to be told, not even soon after.
    tips.press(b);
    EXPECT_EQ(tips.target(), nullptr);
    tips.enter(a, QStringLiteral("Undo"));
    EXPECT_EQ(tips.target(), nullptr);
    tips.leave(a);

    // What has no tip ends another's.
    tips.enter(a, QStringLiteral("Undo"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return tips.target() == a; }, 60000));
    tips.enter(b, QString());
    EXPECT_EQ(tips.target(), nullptr);
}

} // namespace
} // namespace tessel
