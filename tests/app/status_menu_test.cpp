// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/status_menu.h"
#include "support/test_store.h"

#include <QApplication>
#include <QFontMetrics>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace tessel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Preset presetNamed(const std::string& name)
{
    return {"6F9619FF-8B86-D011-B42D-00C04FC964FF", name, lookWithSeed(3), true};
}

const MenuRow& find(const std::vector<MenuRow>& rows, const char* title)
{
    const auto found = std::find_if(rows.begin(), rows.end(),
                                    [&](const MenuRow& row) { return row.title == QLatin1String(title); });
    if (found == rows.end())
        throw std::out_of_range(title);
    return *found;
}

std::vector<std::string> titles(const std::vector<MenuRow>& rows)
{
    std::vector<std::string> list;
    list.reserve(rows.size());
    for (const MenuRow& row : rows)
        list.push_back(row.isSeparator() ? "-" : row.title.toStdString());
    return list;
}

std::vector<std::string> checkedTitles(const std::vector<MenuRow>& rows)
{
    std::vector<std::string> list;
    for (const MenuRow& row : rows)
        if (row.checked.value_or(false))
            list.push_back(row.title.toStdString());
    return list;
}

class StatusMenu : public testing::Test
{
protected:
    std::vector<MenuRow> rows(LoginItem::Status login = LoginItem::Status::off)
    {
        return statusMenuRows(*m_store, login, m_mode, m_commands);
    }

    std::vector<MenuRow> children(const char* title) { return find(rows(), title).children; }

    void showOnDesktop(const Look& look, bool motion)
    {
        m_store->applyToDesktop(look, RecordHistory::yes, motion, ContinueFromEditor::no);
    }

    TestStore m_store;
    std::optional<Mode> m_mode = Mode::handle;
    std::vector<std::string> m_asked;
    StatusCommands m_commands{
        [this](Action action) { m_asked.push_back(actionName(action).toStdString()); },
        [this] { m_asked.emplace_back("editor"); },
        [this] { m_asked.emplace_back("save"); },
        [this](bool on) { m_asked.emplace_back(on ? "login on" : "login off"); },
        nullptr,
        nullptr,
        [this] { m_asked.emplace_back("updates"); },
        [this](const QString& address) { m_asked.push_back(address.toStdString()); },
    };
};

TEST_F(StatusMenu, OpensAndClosesTheEditorWhereThereCanBeOne)
{
    EXPECT_EQ(rows().front().title, QStringLiteral("Open Editor"));
    m_mode = Mode::open;
    find(rows(), "Close Editor").run();
    EXPECT_THAT(m_asked, ElementsAre("editor"));
    m_mode.reset();
    EXPECT_EQ(rows().front().title, QStringLiteral("New Wallpaper"));
}

TEST_F(StatusMenu, SaysFirstWhatCannotBeShown)
{
    m_commands.explainStills = [this] { m_asked.emplace_back("why"); };
    EXPECT_THAT(titles(rows()).front(), "Wallpapers stay still here");
    m_mode.reset();
    const std::vector<MenuRow> made = rows();
    EXPECT_EQ(titles(made)[0], "Wallpapers stay still here, and there is no handle");
    EXPECT_EQ(titles(made)[1], "-");
    EXPECT_EQ(titles(made)[2], "New Wallpaper");
    made.front().run();
    EXPECT_THAT(m_asked, ElementsAre("why"));
}

TEST_F(StatusMenu, ChoosesStillOrAnimatedAlsoForTheFirstWallpaper)
{
    EXPECT_THAT(checkedTitles(rows()), ElementsAre("Animated Wallpaper"));
    EXPECT_TRUE(find(rows(), "Still Wallpaper").enabled);
    find(rows(), "Still Wallpaper").run();
    EXPECT_FALSE(m_store->motion());
    EXPECT_FALSE(m_store->desktop());
    EXPECT_THAT(checkedTitles(rows()), ElementsAre("Still Wallpaper"));
    m_store->shuffle();
    EXPECT_FALSE(m_store->appliedMotion());
    find(rows(), "Animated Wallpaper").run();
    EXPECT_TRUE(m_store->appliedMotion());
    EXPECT_FALSE(m_store->motion()) << "that is the editor's choice for what it applies";
    EXPECT_THAT(checkedTitles(rows()), ElementsAre("Animated Wallpaper"));
}

TEST_F(StatusMenu, AppliesPresetsWithTheirMotionAndHistory)
{
    m_store->setPresets({presetNamed("Miso"), presetNamed("Dashi")});
    showOnDesktop(lookWithSeed(1), false);
    EXPECT_THAT(titles(children("Presets")), ElementsAre("Miso", "Dashi", "-", "Save as Preset..."));
    EXPECT_THAT(checkedTitles(children("Presets")), IsEmpty());
    find(children("Presets"), "Dashi").run();
    EXPECT_EQ(*m_store->desktop(), lookWithSeed(3));
    EXPECT_TRUE(m_store->appliedMotion());
    EXPECT_THAT(m_store->desktopHistory(), ElementsAre(lookWithSeed(1)));
    // Both are what is on the desktop, until it stands still.
    EXPECT_THAT(checkedTitles(children("Presets")), ElementsAre("Miso", "Dashi"));
    find(rows(), "Still Wallpaper").run();
    EXPECT_THAT(checkedTitles(children("Presets")), IsEmpty());
    find(children("Presets"), "Save as Preset...").run();
    EXPECT_THAT(m_asked, ElementsAre("save"));
}

TEST_F(StatusMenu, ChecksTheInterval)
{
    EXPECT_THAT(checkedTitles(children("Fresh Bowl")), ElementsAre("Never"));
    find(children("Fresh Bowl"), "Every Hour").run();
    EXPECT_EQ(m_store->shuffleMinutes(), 60);
    EXPECT_THAT(checkedTitles(children("Fresh Bowl")), ElementsAre("Every Hour"));
    find(children("Fresh Bowl"), "Every Day").run();
    EXPECT_EQ(m_store->shuffleMinutes(), 1440);
    m_store->setShuffleMinutes(7);
    EXPECT_THAT(checkedTitles(children("Fresh Bowl")), IsEmpty());
    find(children("Fresh Bowl"), "Never").run();
    EXPECT_EQ(m_store->shuffleMinutes(), 0);
}

TEST_F(StatusMenu, ChecksNoSideWhileTheHandleIsHidden)
{
    EXPECT_THAT(checkedTitles(children("Handle Position")), ElementsAre("Left"));
    find(children("Handle Position"), "Hidden").run();
    EXPECT_THAT(checkedTitles(children("Handle Position")), ElementsAre("Hidden"));
    find(children("Handle Position"), "Right").run();
    EXPECT_THAT(checkedTitles(children("Handle Position")), ElementsAre("Right"));
    m_store.reopen();
    EXPECT_EQ(m_store->edge(), Edge::right);
    EXPECT_FALSE(m_store->handleHidden());
}

TEST_F(StatusMenu, AsksForTheOppositeOfTheTrueLoginStatus)
{
    for (const auto status : {LoginItem::Status::off, LoginItem::Status::requiresApproval}) {
        EXPECT_EQ(find(rows(status), "Launch at Login").checked, false);
        find(rows(status), "Launch at Login").run();
    }
    EXPECT_EQ(find(rows(LoginItem::Status::enabled), "Launch at Login").checked, true);
    find(rows(LoginItem::Status::enabled), "Launch at Login").run();
    EXPECT_THAT(m_asked, ElementsAre("login on", "login on", "login off"));
}

TEST_F(StatusMenu, StartsTheRest)
{
    find(rows(), "Check for Updates...").run();
    for (const MenuRow& page : children("Made by the Tessel Broth developers"))
        page.run();
    find(rows(), "New Wallpaper").run();
    find(rows(), "Previous Wallpaper").run();
    find(rows(), "Quit Tessel Broth").run();
    EXPECT_THAT(m_asked, ElementsAre("updates", "https://tesselbroth.org", "https://tesselbroth.org/source",
                                     "new-wallpaper", "previous-wallpaper", "quit"));
    EXPECT_FALSE(find(rows(), "Previous Wallpaper").enabled);
    showOnDesktop(lookWithSeed(1), false);
    showOnDesktop(lookWithSeed(2), false);
    EXPECT_TRUE(find(rows(), "Previous Wallpaper").enabled);
}

TEST_F(StatusMenu, NamesAndShortcutsOfActionsAreTheirOwn)
{
    std::set<QString> titles;
    std::set<QString> shortcuts;
    for (const QString& name : actionNames()) {
        const std::optional<Action> action = actionNamed(name);
        ASSERT_TRUE(action) << name.toStdString();
        EXPECT_EQ(actionName(*action), name);
        EXPECT_TRUE(titles.insert(actionTitle(*action)).second) << name.toStdString();
        const QString keys = actionShortcut(*action).toString();
        EXPECT_TRUE(keys.isEmpty() || shortcuts.insert(keys).second) << name.toStdString();
    }
    EXPECT_FALSE(actionNamed(QStringLiteral("boil-over")));
}

TEST_F(StatusMenu, ShowsAnyNameOnOneLine)
{
    const auto shown = [](const std::string& name) { return menuTitle(presetNamed(name)).toStdString(); };
    EXPECT_EQ(shown("Salt & Pepper"), "Salt & Pepper");
    EXPECT_EQ(shown("two\nlines\tand\x01 more"), "two lines and more");
    EXPECT_EQ(shown(""), "Flow Ember");
    EXPECT_EQ(shown(" \n "), "Flow Ember");
    // Would turn the rest of the menu round.
    EXPECT_EQ(shown("a\u202Eb"), "a b");
}

TEST_F(StatusMenu, CutsNamesThatAreTooWide)
{
    const auto shown = [](const QString& name) { return menuTitle(presetNamed(name.toStdString())); };
    const QFontMetrics font(QApplication::font("QMenu"));
    // A hand with its skin tone is one character made of four.
    const QString hand = QStringLiteral("\U0001F44B\U0001F3FD");
    for (const QString& character : {QStringLiteral("W"), QStringLiteral("i"), hand}) {
        const QString name = shown(character.repeated(5000));
        EXPECT_LE(font.horizontalAdvance(name), 320);
        EXPECT_GT(font.horizontalAdvance(name + character.repeated(2)), 320);
        EXPECT_EQ(name.chopped(1), character.repeated((name.size() - 1) / character.size()));
        EXPECT_TRUE(name.endsWith(QChar(u'\u2026')));
    }
}

} // namespace
} // namespace tessel
