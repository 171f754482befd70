// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/app_delegate.h"
#include "app/fake_login_item.h"
#include "app/open_dialogs.h"
#include "controls/look_pictures.h"
#include "edge/edge_panel.h"
#include "support/fake_desktop.h"
#include "support/test_store.h"

#include <QDir>
#include <QFile>
#include <QMenu>
#include <QPointer>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

namespace tessel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class FakeInstance : public RunningInstance
{
public:
    [[nodiscard]] bool isFirst() const override { return true; }
    QString askToComeForward() override { return {}; }
};

/// Notes what it is asked to do, and what the settings file held at that moment.
class FakeWallpaper : public DesktopWallpaper
{
public:
    explicit FakeWallpaper(TestStore& store) : m_store(store) {}

    void start() override { steps.emplace_back("start"); }
    void apply(ContinueFromEditor /*continuing*/) override { steps.emplace_back("apply"); }
    void rest() override { steps.emplace_back("rest"); }
    void stop() override
    {
        steps.emplace_back(openDialogs().isEmpty() ? "stop" : "stop while dialogs are open");
        savedAtStop = m_store.fileText();
        m_store->setDesktopPhase(6.5);
    }
    void keepPhase(double phase) { m_store->setDesktopPhase(phase); }

    std::vector<std::string> steps;
    QByteArray savedAtStop;

private:
    TestStore& m_store;
};

/// Shows messages, or says that nobody does.
class FakeNotifications : public Notifications
{
public:
    void show(const QString& title, const QString& text, std::function<void()> failed) override
    {
        if (areShown)
            messages.push_back((title + QLatin1Char('|') + text).toStdString());
        else
            failed();
    }

    bool areShown = true;
    std::vector<std::string> messages;
};

class FakeShade : public PanelShade
{
public:
    [[nodiscard]] std::optional<bool> isDark() const override { return false; }
    [[nodiscard]] bool recolorsIcons() const override { return false; }
};

/// A row of one of our menus, shown or not; nullptr if there is none of that title.
QAction* menuRow(const char* title)
{
    for (QWidget* widget : QApplication::topLevelWidgets())
        for (QAction* action : widget->actions())
            if (qobject_cast<QMenu*>(widget) != nullptr && action->text() == QLatin1String(title))
                return action;
    return nullptr;
}

/// A desktop that gives key combinations away, or not.
class FakeShortcuts : public Shortcuts
{
public:
    [[nodiscard]] bool isOffered() const override { return areOffered; }
    void ask(const std::vector<Shortcut>& wanted, std::function<void(Outcome)> done) override
    {
        asked = wanted;
        answer = std::move(done);
    }
    void takeAgain(const std::vector<Shortcut>& wanted) override { takenAgain = wanted; }
    void offer(bool offered)
    {
        areOffered = offered;
        Q_EMIT offeredChanged();
    }
    /// Whether it is asked; forgets that it was.
    bool wasAsked() { return !std::exchange(asked, {}).empty(); }
    /// The same for what was given before.
    bool wereTakenAgain() { return !std::exchange(takenAgain, {}).empty(); }

    bool areOffered = false;
    std::vector<Shortcut> asked;
    std::vector<Shortcut> takenAgain;
    std::function<void(Outcome)> answer;
};

class AppDelegateTest : public testing::Test
{
protected:
    AppDelegateTest() { m_store->setOnboarded(true); }

    AppDelegate& start()
    {
        m_delegate = std::make_unique<AppDelegate>(
            AppParts{.instance = m_instance,
                     .store = *m_store,
                     .wallpaper = m_wallpaper,
                     .session = m_session,
                     .login = m_login,
                     .notifications = m_notifications,
                     .dialogs = m_dialogs,
                     .quitSignals = m_quitSignals,
                     .trayHost = m_trayHost,
                     .panelShade = m_shade,
                     .shortcuts = m_shortcuts,
                     .edge = m_edge,
                     .playsWallpapers = true,
                     .makeOnboardingWindow = [this](Onboarding& onboarding) {
                         m_onboarding = &onboarding;
                         auto window = std::make_unique<OnboardingWindow>(onboarding, m_pictures, nullptr);
                         m_window = window.get();
                         return window;
                     }});
        m_delegate->start();
        return *m_delegate;
    }

    /// Asks as another program does.
    /// \return why it is refused; empty when it is done
    std::string ask(const char* action, const QVariant& parameter = {})
    {
        return m_instance.answers()
            .perform(QString::fromLatin1(action), parameter)
            .value_or(QString())
            .toStdString();
    }

    TestStore m_store;
    FakeInstance m_instance;
    FakeWallpaper m_wallpaper{m_store};
    FakeSession m_session;
    FakeLoginItem m_login;
    FakeNotifications m_notifications;
    Dialogs m_dialogs{nullptr};
    QuitSignals m_quitSignals;
    TrayHost m_trayHost;
    FakeShade m_shade;
    FakeShortcuts m_shortcuts;
    FakeWindowSystem m_windows;
    int m_panels = 0; ///< that were asked for
    EdgeController m_edge{*m_store, m_windows, [this](EdgeState&) {
                              ++m_panels;
                              return nullptr;
                          }};
    LookPictures m_pictures;
    QPointer<Onboarding> m_onboarding;
    QPointer<OnboardingWindow> m_window;
    std::unique_ptr<AppDelegate> m_delegate;
};

TEST_F(AppDelegateTest, LeavesEverythingSavedAndOnce)
{
    start();
    m_store->setLook(lookWithSeed(3));
    m_dialogs.alert({QStringLiteral("Anything?"), {}});
    Q_EMIT m_quitSignals.received();
    m_delegate->quit();
    m_delegate.reset();
    EXPECT_THAT(m_wallpaper.steps, ElementsAre("start", "stop"));
    // Taking the wallpaper down may be cut short, and keeps something itself.
    EXPECT_TRUE(m_wallpaper.savedAtStop.contains("look="));
    EXPECT_TRUE(m_store.fileText().contains("desktopPhase=6.5"));
}

TEST_F(AppDelegateTest, DoesWhatIsAskedForByName)
{
    start();
    ask("new-wallpaper");
    ASSERT_TRUE(m_store->desktop());
    const Look first = *m_store->desktop();
    ask("new-wallpaper");
    EXPECT_NE(*m_store->desktop(), first);
    ask("previous-wallpaper");
    EXPECT_EQ(*m_store->desktop(), first);
    EXPECT_TRUE(m_store->appliedMotion());
    ask("toggle-motion");
    EXPECT_FALSE(m_store->appliedMotion());
    EXPECT_THAT(ask("boil-over"), HasSubstr("The actions are new-wallpaper, "));
    EXPECT_THAT(ask("quit", true), HasSubstr("takes no parameter"));
    EXPECT_THAT(m_wallpaper.steps, ElementsAre("start", "apply", "apply", "apply", "apply"));
    ask("open-editor");
    EXPECT_NE(QApplication::activePopupWidget(), nullptr);
    QApplication::activePopupWidget()->close();
    ask("quit");
    EXPECT_EQ(m_wallpaper.steps.back(), "apply") << "the answer comes first";
    QCoreApplication::processEvents();
    EXPECT_EQ(m_wallpaper.steps.back(), "stop");
}

TEST_F(AppDelegateTest, AsksTheDesktopForShortcutsOnceTheUserHas)
{
    m_store->setDesktopMotion(true);
    start();
    m_notifications.messages.clear();
    EXPECT_EQ(menuRow("Keyboard Shortcuts..."), nullptr);
    m_shortcuts.offer(true);
    EXPECT_FALSE(m_shortcuts.wereTakenAgain()) << "nobody wants any yet";
    ASSERT_TRUE(waitUntil([&] { return menuRow("Keyboard Shortcuts...") != nullptr; }));
    const auto answerWith = [&](Shortcuts::Outcome outcome) {
        menuRow("Keyboard Shortcuts...")->trigger();
        EXPECT_EQ(m_shortcuts.asked.size(), 4U) << "all actions, and not the end";
        EXPECT_TRUE(m_shortcuts.wasAsked());
        m_shortcuts.answer(outcome);
    };
    answerWith(Shortcuts::Outcome::declined);
    answerWith(Shortcuts::Outcome::failed);
    m_delegate.reset();
    start();
    EXPECT_FALSE(m_shortcuts.wereTakenAgain());
    answerWith(Shortcuts::Outcome::given);
    EXPECT_THAT(m_notifications.messages,
                ElementsAre(HasSubstr("tessel do new-wallpaper"), HasSubstr("ready"), HasSubstr("set up")));
    m_delegate.reset();
    start();
    EXPECT_TRUE(m_shortcuts.wereTakenAgain()) << "as the user wished the last time";
    m_shortcuts.offer(false);
    EXPECT_FALSE(m_shortcuts.wereTakenAgain());
    m_shortcuts.offer(true);
    EXPECT_TRUE(m_shortcuts.wereTakenAgain()) << "whoever gives them was replaced";
    EXPECT_FALSE(m_shortcuts.wasAsked()) << "the user is left alone";

    Q_EMIT m_shortcuts.pressed(QStringLiteral("toggle-motion"));
    EXPECT_FALSE(m_store->desktopMotion());
    Q_EMIT m_shortcuts.pressed(QStringLiteral("boil-over"));
}

TEST_F(AppDelegateTest, PutsLooksOfOtherProgramsOnTheDesktop)
{
    start();
    EXPECT_EQ(m_instance.answers().wallpaper().look, QString());
    EXPECT_EQ(ask("set-motion", false), "");
    EXPECT_EQ(ask("set-look", QStringLiteral(R"({"seed":31})")), "");
    EXPECT_EQ(m_store->desktop(), lookWithSeed(31));
    EXPECT_EQ(m_store->look(), lookWithSeed(31));
    EXPECT_FALSE(m_store->appliedMotion());
    const ShownWallpaper shown = m_instance.answers().wallpaper();
    EXPECT_THAT(shown.look.toStdString(), HasSubstr(R"("seed":31)"));
    EXPECT_FALSE(shown.isAnimated);
    EXPECT_EQ(ask("set-look", shown.look), "");
    EXPECT_THAT(m_store->desktopHistory(), IsEmpty());

    EXPECT_THAT(ask("set-look"), HasSubstr("takes a look as JSON"));
    EXPECT_THAT(ask("set-look", QStringList(QStringLiteral("{}"))), HasSubstr("takes a look as JSON"));
    EXPECT_THAT(ask("set-look", QStringLiteral(R"({"pattern":36})")), HasSubstr("\"pattern\" holds 36"));
    EXPECT_THAT(ask("set-look", QString(20 << 20, QLatin1Char(' '))), HasSubstr("too long"));
    EXPECT_THAT(ask("set-motion", QStringLiteral("true")), HasSubstr("a Boolean"));
    EXPECT_THAT(ask("set-motion"), HasSubstr("a Boolean"));
    EXPECT_EQ(m_store->desktop(), lookWithSeed(31));
    EXPECT_THAT(m_wallpaper.steps, ElementsAre("start", "apply", "apply"));
    EXPECT_EQ(ask("set-motion", true), "");
    EXPECT_TRUE(m_store->appliedMotion());
}

TEST_F(AppDelegateTest, WhatIsKeptBeforeSleepIsOnDiskWhenSleepBegins)
{
    QObject::connect(&m_session, &Session::aboutToSleep, &m_wallpaper,
                     [this] { m_wallpaper.keepPhase(4.25); });
    start();
    Q_EMIT m_session.aboutToSleep();
    EXPECT_TRUE(m_store.fileText().contains("desktopPhase=4.25"));
}

TEST_F(AppDelegateTest, TellsOnceThatSettingsCannotBeSavedAndWhenTheyAre)
{
    m_store->setDesktopPhase(1.0);
    start();
    m_notifications.messages.clear();
    m_store->saveNow();
    QFile::remove(m_store.settingsFile());
    ASSERT_TRUE(QDir().mkpath(m_store.settingsFile()));
    m_store->setHandleHidden(true);
    EXPECT_FALSE(m_store->saveNow());
    EXPECT_FALSE(m_store->saveNow());
    EXPECT_THAT(m_notifications.messages,
                ElementsAre(HasSubstr("cannot be saved|\"" + m_store.settingsFile().toStdString())));
    ASSERT_TRUE(QDir().rmdir(m_store.settingsFile()));
    EXPECT_TRUE(m_store->saveNow());
    EXPECT_THAT(m_notifications.messages,
                ElementsAre(HasSubstr("cannot be saved"), HasSubstr("saved again")));
}

TEST_F(AppDelegateTest, TellsWhatTheWallpaperCannotShowWhoeverListens)
{
    start();
    m_notifications.messages.clear();
    Q_EMIT m_wallpaper.stillFailed(QStringLiteral("The disk is full."));
    Q_EMIT m_wallpaper.photoMissing(QStringLiteral("summer.jpg"));
    EXPECT_THAT(m_notifications.messages,
                ElementsAre(HasSubstr("|The disk is full."), HasSubstr("|summer.jpg")));
    m_notifications.areShown = false;
    Q_EMIT m_wallpaper.stillFailed(QStringLiteral("The disk is full."));
    EXPECT_EQ(openInformative(), QStringLiteral("The disk is full."));
    m_dialogs.closeAll();
    Look broken;
    broken.scale = std::numeric_limits<float>::infinity();
    m_store->setLook(broken);
    EXPECT_THAT(openInformative().toStdString(), HasSubstr("\"scale\" holds inf"));
    m_dialogs.closeAll();
}

TEST_F(AppDelegateTest, GreetsUntilThereIsAWallpaper)
{
    m_notifications.areShown = false;
    start();
    EXPECT_EQ(openMessage(), QStringLiteral("Tessel Broth is ready"));
    ask("new-wallpaper");
    EXPECT_THAT(openDialogs(), IsEmpty());
    m_delegate.reset();
    start();
    EXPECT_THAT(openDialogs(), IsEmpty());
    m_notifications.areShown = true;
    m_delegate.reset();
    start();
    EXPECT_THAT(m_notifications.messages, IsEmpty());
}

TEST_F(AppDelegateTest, IntroducesItselfOnce)
{
    m_store->setOnboarded(false);
    start();
    ASSERT_NE(m_window, nullptr);
    EXPECT_EQ(m_panels, 0) << "the handle comes at the end";
    EXPECT_THAT(m_notifications.messages, IsEmpty());
    const QPointer<OnboardingWindow> first = m_window;
    Q_EMIT m_instance.activated();
    EXPECT_EQ(m_window, first);

    m_onboarding->setBowl(2);
    m_window->view().close();
    EXPECT_TRUE(m_store->onboarded());
    EXPECT_TRUE(m_store->desktop());
    EXPECT_EQ(m_panels, 1);
    EXPECT_EQ(m_edge.mode(), Mode::handle);
    EXPECT_TRUE(waitUntil([&] { return first.isNull() && m_onboarding.isNull(); }));
    m_delegate.reset();
    start();
    EXPECT_EQ(m_window, nullptr);
}

TEST_F(AppDelegateTest, TheLastButtonOfTheIntroductionShowsTheStrip)
{
    m_store->setOnboarded(false);
    start();
    for (int step = 0; step < 4; ++step)
        m_onboarding->goForward();
    EXPECT_EQ(m_edge.mode(), Mode::quick);
    EXPECT_EQ(m_panels, 1);
}

TEST_F(AppDelegateTest, AnIntroductionLeftOpenComesAgain)
{
    m_store->setOnboarded(false);
    start();
    m_onboarding->setBowl(1);
    const Look before = m_store->look();
    Q_EMIT m_window->quitRequested();
    EXPECT_TRUE(waitUntil([&] { return m_window.isNull(); }));
    EXPECT_NE(m_store->look(), before);
    EXPECT_FALSE(m_store->desktop());
    m_delegate.reset();
    start();
    EXPECT_NE(m_window, nullptr);
}

TEST_F(AppDelegateTest, WhoeverHasAWallpaperNeedsNoIntroduction)
{
    m_store->setOnboarded(false);
    m_store->applyToDesktop(lookWithSeed(2), RecordHistory::yes, {}, ContinueFromEditor::no);
    start();
    EXPECT_EQ(m_window, nullptr);
    EXPECT_TRUE(m_store->onboarded());
    EXPECT_EQ(m_panels, 1);
}

} // namespace
} // namespace tessel
