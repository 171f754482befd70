// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/menu_view.h"

#include <QAction>
#include <QActionGroup>
#include <QPointer>
#include <QScreen>
#include <QTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace tessel {
namespace {

using testing::ElementsAre;

MenuRow row(const char* title)
{
    return {QString::fromUtf8(title), QString::fromUtf8(title)};
}

MenuRow submenu(const char* title, std::vector<MenuRow> children)
{
    MenuRow made = row(title);
    made.children = std::move(children);
    return made;
}

std::vector<std::string> texts(const QMenu& menu)
{
    std::vector<std::string> list;
    for (const QAction* action : menu.actions())
        list.push_back(action->isSeparator() ? "-" : action->text().toStdString());
    return list;
}

class MenuViewTest : public testing::Test
{
protected:
    void change(std::vector<MenuRow> rows)
    {
        m_rows = std::move(rows);
        m_view.refresh();
    }

    std::vector<MenuRow> m_rows{row("a"), {QStringLiteral("line"), {}}, submenu("b", {row("x"), row("y")})};
    MenuView m_view{[this] { return m_rows; }};
    QMenu& m_menu = m_view.menu();
};

TEST_F(MenuViewTest, IsFilledFromTheBeginning)
{
    EXPECT_THAT(texts(m_menu), ElementsAre("a", "-", "b"));
    EXPECT_THAT(texts(*m_menu.actions().at(2)->menu()), ElementsAre("x", "y"));
}

TEST_F(MenuViewTest, ChangesActionsInPlace)
{
    const QList<QAction*> before = m_menu.actions();
    const QList<QAction*> childrenBefore = before.at(2)->menu()->actions();
    MenuRow renamed = row("a");
    renamed.title = QStringLiteral("A & B");
    renamed.enabled = false;
    renamed.checked = true;
    MenuRow checked = row("y");
    checked.checked = true;
    change({renamed, m_rows[1], submenu("b", {row("x"), checked})});
    EXPECT_EQ(m_menu.actions(), before);
    EXPECT_EQ(before.at(2)->menu()->actions(), childrenBefore);
    EXPECT_EQ(before.at(0)->text(), QStringLiteral("A && B"));
    EXPECT_FALSE(before.at(0)->isEnabled());
    EXPECT_TRUE(before.at(0)->isChecked());
    EXPECT_TRUE(childrenBefore.at(1)->isChecked());
}

TEST_F(MenuViewTest, RebuildsOnlyWhatCameAndWent)
{
    change({row("a"), row("b"), row("c"), row("d")});
    const QList<QAction*> before = m_menu.actions();
    const QPointer<QAction> gone = before.at(1);
    change({row("new"), row("a"), row("c"), row("d"), row("last")});
    EXPECT_THAT(texts(m_menu), ElementsAre("new", "a", "c", "d", "last"));
    const QList<QAction*> after = m_menu.actions();
    EXPECT_EQ(after.at(1), before.at(0));
    EXPECT_EQ(after.at(2), before.at(2));
    EXPECT_EQ(after.at(3), before.at(3));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(gone, nullptr);
}

TEST_F(MenuViewTest, KeepsRowsOfTheSameIdApart)
{
    change({row("a"), row("a"), row("a")});
    change({row("a"), row("a")});
    EXPECT_THAT(texts(m_menu), ElementsAre("a", "a"));
}

TEST_F(MenuViewTest, TakesACheckmarkBackThatTheStateDoesNotHave)
{
    MenuRow checked = row("a");
    checked.checked = true;
    int runs = 0;
    checked.run = [&] { ++runs; };
    change({checked});
    QAction* action = m_menu.actions().constFirst();
    action->trigger();
    EXPECT_FALSE(action->isChecked());
    EXPECT_TRUE(QTest::qWaitFor([&] { return action->isChecked(); }, 30000));
    EXPECT_EQ(runs, 1);
}

TEST_F(MenuViewTest, RunsWhatTheRowSaysNow)
{
    std::string ran;
    MenuRow first = row("a");
    first.run = [&] { ran = "old"; };
    change({first});
    first.run = [&] { ran = "new"; };
    change({first});
    m_menu.actions().constFirst()->trigger();
    EXPECT_EQ(ran, "new");
}

TEST_F(MenuViewTest, SurvivesARowThatRemovesItself)
{
    MenuRow once = row("once");
    once.run = [this] { change({row("a")}); };
    change({row("a"), once});
    m_menu.actions().at(1)->trigger();
    EXPECT_THAT(texts(m_menu), ElementsAre("a"));
}

TEST_F(MenuViewTest, KeepsWhatARowRunsWhileTheRowIsReplaced)
{
    auto held = std::make_shared<int>();
    bool isHeldAtEnd = false;
    MenuRow first = row("a");
    first.run = [this, held, &isHeldAtEnd] {
        // What it has captured may be gone after the change.
        bool& result = isHeldAtEnd;
        const std::weak_ptr<int> watched = held;
        change({row("a")});
        result = !watched.expired();
    };
    held.reset();
    change({std::move(first)});
    m_menu.actions().constFirst()->trigger();
    EXPECT_TRUE(isHeldAtEnd);
}

TEST_F(MenuViewTest, IsBroughtUpToDateBeforeItOpens)
{
    m_rows = {row("fresh")};
    Q_EMIT m_menu.aboutToShow();
    EXPECT_THAT(texts(m_menu), ElementsAre("fresh"));
}

TEST_F(MenuViewTest, ScrollsInOneColumn)
{
    change(std::vector<MenuRow>(200, row("a")));
    m_menu.popup({});
    const QList<QAction*> actions = m_menu.actions();
    EXPECT_EQ(m_menu.actionGeometry(actions.first()).left(), m_menu.actionGeometry(actions.last()).left());
    EXPECT_LE(m_menu.height(), m_menu.screen()->size().height());
}

TEST_F(MenuViewTest, RunsShortcutsWhileItIsOpen)
{
    int runs = 0;
    MenuRow quit = row("quit");
    quit.shortcut = QKeySequence(Qt::CTRL | Qt::Key_Q);
    quit.run = [&] { ++runs; };
    change({quit, submenu("b", {row("x")})});
    QMenu& child = *m_menu.actions().at(1)->menu();
    for (QMenu* menu : {&m_menu, &child}) {
        m_menu.popup({});
        m_menu.setActiveAction(child.menuAction());
        ASSERT_TRUE(QTest::qWaitFor([&] { return child.isVisible(); }, 30000));
        QTest::keyClick(menu, Qt::Key_Q, Qt::ControlModifier);
        EXPECT_FALSE(m_menu.isVisible());
        EXPECT_FALSE(child.isVisible());
    }
    EXPECT_EQ(runs, 2);
    quit.enabled = false;
    change({quit});
    QTest::keyClick(&m_menu, Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(runs, 2);
}

TEST_F(MenuViewTest, GoesToTheNextRowThatBeginsWithALetter)
{
    MenuRow disabled = row("Pa");
    disabled.enabled = false;
    change({row("Nori"), disabled, submenu("Pb", {row("x")}), row("&c"), row("Pd")});
    m_menu.popup({});
    std::vector<std::string> selected;
    for (const char letter : {'p', 'P', 'p', 'z', '&'}) {
        QTest::keyClick(&m_menu, letter);
        selected.push_back(m_menu.activeAction()->text().toStdString());
    }
    EXPECT_THAT(selected, ElementsAre("Pb", "Pd", "Pb", "Pb", "&&c"));
    EXPECT_FALSE(m_menu.actions().at(2)->menu()->isVisible());
}

TEST_F(MenuViewTest, ChecksOneOfAGroupAtMost)
{
    const auto radio = [](const char* title, bool checked) {
        MenuRow made = row(title);
        made.group = QStringLiteral("group");
        made.checked = checked;
        return made;
    };
    const auto checks = [this] {
        std::string list;
        for (const QAction* action : m_menu.actions())
            list += action->isChecked() ? 'x' : '-';
        return list;
    };
    change({radio("a", false), radio("b", true), row("c")});
    EXPECT_TRUE(m_menu.actions().at(0)->actionGroup()->isExclusive());
    EXPECT_EQ(m_menu.actions().at(0)->actionGroup(), m_menu.actions().at(1)->actionGroup());
    EXPECT_EQ(m_menu.actions().at(2)->actionGroup(), nullptr);
    EXPECT_EQ(checks(), "-x-");
    change({radio("a", true), radio("b", false), row("c")});
    EXPECT_EQ(checks(), "x--");
    change({radio("a", false), radio("b", false), row("c")});
    EXPECT_EQ(checks(), "---");
}

TEST(ActionText, EscapesWhatTheDrawerWouldTakeForAMnemonic)
{
    const auto text = [](const char* title, MenuDrawer drawer) {
        return actionText(QString::fromUtf8(title), drawer).toStdString();
    };
    EXPECT_EQ(text("a_b & c", MenuDrawer::ourselves), "a_b && c");
    EXPECT_EQ(text("a_b", MenuDrawer::panel), "a\u02CDb");
    EXPECT_EQ(text("a & b & c", MenuDrawer::panel), "&\u200Ba & b & c");
    EXPECT_EQ(text("a &", MenuDrawer::panel), "a &");
}

} // namespace
} // namespace tessel
