// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/page.h"
#include "controls/surroundings.h"

#include <QTest>
#include <gtest/gtest.h>

namespace tessel {
namespace {

TEST(Keyboard, AKnobTakesStepsLimitsAndTypedNumbers)
{
    Page page(R"(
        Knob {
            objectName: "knob"; focus: true; label: "Scale"; valueText: "1.00"; minimumValue: 0.3; maximumValue: 3
            onAdjusted: direction => page.say(direction > 0 ? "more" : "less")
            onLowestAsked: page.say("lowest")
            onHighestAsked: page.say("highest")
            onResetAsked: page.say("reset")
            onEntered: text => page.say("=" + text)
        }
        Item { objectName: "next"; activeFocusOnTab: true })");
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Down, Qt::Key_Right, Qt::Key_Up, Qt::Key_Home,
                              Qt::Key_End, Qt::Key_Backspace})
        page.press(key);
    EXPECT_EQ(page.heard(), QStringLiteral("less less more more lowest highest reset"));

    page.type("1.255");
    page.press(Qt::Key_Backspace);
    EXPECT_EQ(page.heard(), QString());
    page.press(Qt::Key_Return);
    EXPECT_EQ(page.heard(), QStringLiteral("=1.25"));
    page.type("7");
    page.press(Qt::Key_Escape);
    page.press(Qt::Key_Return);
    EXPECT_EQ(page.heard(), QString());
    page.type("2");
    page.press(Qt::Key_Tab);
    EXPECT_EQ(page.focus(), QStringLiteral("next"));
    EXPECT_EQ(page.heard(), QStringLiteral("=2"));

    // What a screen reader sees, and may write.
    QAccessibleInterface* const knob = page.accessible("knob");
    ASSERT_NE(knob->valueInterface(), nullptr);
    EXPECT_EQ(knob->role(), QAccessible::Slider);
    EXPECT_EQ(knob->text(QAccessible::Name), QStringLiteral("Scale"));
    EXPECT_DOUBLE_EQ(knob->valueInterface()->currentValue().toDouble(), 1.0);
    EXPECT_DOUBLE_EQ(knob->valueInterface()->minimumValue().toDouble(), 0.3);
    EXPECT_DOUBLE_EQ(knob->valueInterface()->maximumValue().toDouble(), 3.0);
    knob->valueInterface()->setCurrentValue(2.5);
    EXPECT_EQ(page.heard(), QStringLiteral("=2.5"));
    knob->actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
    EXPECT_EQ(page.heard(), QStringLiteral("more"));
}

TEST(Keyboard, SegmentsAndTabsAreOneStop)
{
    for (const char* type : {"Segmented", "TabBar"}) {
        const QByteArray body = QByteArray(type) + R"( {
                objectName: "choice"; width: 300; titles: ["a", "b", "c"]; current: 2
                onChosen: index => { current = index; page.say(index) }
            }
            SmallButton { objectName: "next"; y: 50; text: "Next" })";
        Page page(body);
        page.press(Qt::Key_Tab);
        EXPECT_EQ(page.window().activeFocusItem()->property("label").toString(), QStringLiteral("c"));
        page.press(Qt::Key_Right);
        page.press(Qt::Key_Right);
        page.press(Qt::Key_Left);
        EXPECT_EQ(page.heard(), QStringLiteral("0 1 0"));
        EXPECT_EQ(page.window().activeFocusItem()->property("label").toString(), QStringLiteral("a"));
        page.press(Qt::Key_Tab);
        EXPECT_EQ(page.focus(), QStringLiteral("next"));
        page.item("choice")->setProperty("current", 1);
        page.press(Qt::Key_Backtab);
        EXPECT_EQ(page.window().activeFocusItem()->property("label").toString(), QStringLiteral("b"));
    }
}

TEST(Keyboard, SegmentsFollowTheDirectionOfReading)
{
    Page page(R"(
        Segmented {
            LayoutMirroring.childrenInherit: true; LayoutMirroring.enabled: true
            width: 300; titles: ["a", "b"]; onChosen: index => page.say(index)
        })");
    page.press(Qt::Key_Tab);
    page.press(Qt::Key_Left);
    EXPECT_EQ(page.heard(), QStringLiteral("1"));
}

TEST(Keyboard, AMenuGivesTheFocusBack)
{
    Page page(R"(
        SmallButton { id: button; objectName: "button"; focus: true; text: "Export" }
        PopupMenu {
            id: menu; objectName: "menu"; anchors.fill: parent
            rows: [{text: "One"}, {text: "Two", disabled: true}, {text: "Three", separated: true}]
            onTriggered: index => page.say(index)
        })");
    QQuickItem* const menu = page.item("menu");
    const auto open = [&] {
        QMetaObject::invokeMethod(menu, "openUnder", Q_ARG(QQuickItem*, page.item("button")));
    };
    page.press(Qt::Key_Home);
    open();
    page.press(Qt::Key_Down); // past what cannot be chosen
    page.press(Qt::Key_Return);
    EXPECT_EQ(page.heard(), QStringLiteral("2"));
    EXPECT_FALSE(menu->isVisible());
    EXPECT_EQ(page.focus(), QStringLiteral("button"));

    open();
    page.type("o");
    EXPECT_EQ(menu->property("current").toInt(), 0);
    page.press(Qt::Key_Escape);
    EXPECT_FALSE(menu->isVisible());
    EXPECT_EQ(page.heard(), QString());
    EXPECT_EQ(page.focus(), QStringLiteral("button"));
    EXPECT_EQ(page.accessible("menu")->role(), QAccessible::PopupMenu);
}

TEST(Keyboard, NothingBehindASheetIsReached)
{
    Page page(R"(
        SmallButton { objectName: "button"; focus: true; text: "Behind"; onClicked: page.say("behind") }
        Keys.onEscapePressed: page.say("escaped")
        Sheet {
            objectName: "sheet"; anchors.fill: parent; title: "Save as preset"; text: "A name."
            asksText: true; firstTitle: "Save"; otherTitle: "Cancel"
            onAccepted: answer => page.say("saved:" + answer)
            onCanceled: page.say("canceled")
        })");
    QQuickItem* const sheet = page.item("sheet");
    const auto open = [&](const char* answer) {
        sheet->setProperty("answer", QString::fromLatin1(answer));
        QMetaObject::invokeMethod(sheet, "open");
    };
    open("Flow");
    page.type("Tide"); // what is proposed is selected
    page.press(Qt::Key_Return);
    EXPECT_EQ(page.heard(), QStringLiteral("saved:Tide"));
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_EQ(page.focus(), QStringLiteral("button"));

    open("Flow");
    for (int i = 0; i < 7; ++i) {
        page.press(i < 4 ? Qt::Key_Tab : Qt::Key_Backtab);
        EXPECT_TRUE(sheet->isAncestorOf(page.window().activeFocusItem()));
    }
    page.click("button");
    page.press(Qt::Key_Escape);
    EXPECT_EQ(page.heard(), QStringLiteral("canceled"));
    EXPECT_EQ(page.focus(), QStringLiteral("button"));
    page.press(Qt::Key_Escape);
    EXPECT_EQ(page.heard(), QStringLiteral("escaped"));
}

TEST(Keyboard, AHexFieldTakesColoursAndRefusesTheRest)
{
    Page page(R"(
        HexField {
            id: field; objectName: "field"; width: 72; hex: "D9583B"
            function accepts(text: string): bool {
                const digits = text.replace(/[#\s]/g, "")
                return /^([0-9a-f]{3}|[0-9a-f]{6})$/i.test(digits)
            }
            onEntered: text => page.say(text.replace(/ /g, "_"))
        }
        SmallButton { objectName: "next"; y: 50; text: "Next" })");
    page.press(Qt::Key_Tab);
    page.type("274b5");
    EXPECT_EQ(page.heard(), QString());
    EXPECT_FALSE(page.property("field", "wrong").toBool());
    page.type("e");
    EXPECT_EQ(page.heard(), QStringLiteral("274b5e"));

    page.type("0");
    EXPECT_TRUE(page.property("field", "wrong").toBool());
    page.press(Qt::Key_Return);
    EXPECT_TRUE(page.property("field", "wrong").toBool());
    EXPECT_EQ(page.heard(), QString());
    page.press(Qt::Key_Tab);
    EXPECT_EQ(page.property("field", "text").toString(), QStringLiteral("D9583B"));
    EXPECT_FALSE(page.property("field", "wrong").toBool());

    page.press(Qt::Key_Backtab);
    page.type("#f00");
    page.press(Qt::Key_Tab); // left, three digits count
    EXPECT_EQ(page.heard(), QStringLiteral("#f00"));
    page.press(Qt::Key_Backtab);
    page.type(" # 27 4B 5E ");
    EXPECT_EQ(page.heard().section(u' ', 0, 0), QStringLiteral("_#_27_4B_5E"));
}

TEST(Keyboard, ButtonsSayWhatTheyAreAndCanBePressed)
{
    Page page(R"(
        IconButton { objectName: "icon"; symbol: "x"; tip: "Close"; onClicked: page.say("close") }
        ToggleRow { objectName: "toggle"; y: 40; width: 200; label: "Invert"; on: true; onToggled: on => page.say(on) }
        PaletteSwatch {
            objectName: "mine"; y: 80; title: "Mine 1"; kind: PaletteSwatch.Mine; stops: ["black", "white"]
            onClicked: page.say("chosen"); onEditAsked: page.say("edit"); onDeleteAsked: page.say("delete")
        }
        PaletteSwatch {
            objectName: "builtin"; y: 140; title: "Ember"; stops: ["black", "white"]
            onEditAsked: page.say("edit"); onDeleteAsked: page.say("delete"); onMenuRequested: page.say("menu")
        })");
    QAccessibleInterface* const icon = page.accessible("icon");
    EXPECT_EQ(icon->role(), QAccessible::Button);
    EXPECT_EQ(icon->text(QAccessible::Name), QStringLiteral("Close"));
    icon->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(page.heard(), QStringLiteral("close"));

    QAccessibleInterface* const toggle = page.accessible("toggle");
    EXPECT_EQ(toggle->role(), QAccessible::CheckBox);
    EXPECT_TRUE(toggle->state().checked);
    EXPECT_EQ(toggle->text(QAccessible::Description), QStringLiteral("On"));
    toggle->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(page.heard(), QStringLiteral("false"));

    page.item("mine")->forceActiveFocus(Qt::TabFocusReason);
    page.press(Qt::Key_Space);
    page.press(Qt::Key_E);
    page.press(Qt::Key_Delete);
    EXPECT_EQ(page.heard(), QStringLiteral("chosen edit delete"));
    page.item("builtin")->forceActiveFocus(Qt::TabFocusReason);
    page.press(Qt::Key_E);
    page.press(Qt::Key_Delete);
    page.press(Qt::Key_Menu);
    EXPECT_EQ(page.heard(), QStringLiteral("menu"));
}

TEST(Keyboard, RingsAreForThoseWhoUseKeys)
{
    Page page(R"(SmallButton { objectName: "button"; focus: true; text: "Save" })");
    page.press(Qt::Key_Tab);
    EXPECT_TRUE(Surroundings::instance().usesKeys());
    page.click("button");
    EXPECT_FALSE(Surroundings::instance().usesKeys());
    page.press(Qt::Key_Shift);
    EXPECT_FALSE(Surroundings::instance().usesKeys());
}

} // namespace
} // namespace tessel
