// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/actions.h"
#include "app/desktop_shortcuts.h"
#include "app/dialogs.h"
#include "app/menu_view.h"
#include "app/shuffle_timer.h"
#include "app/tray_icon.h"
#include "edge/edge_controller.h"
#include "model/store.h"
#include "onboarding/onboarding_window.h"
#include "platform/login_item.h"
#include "platform/notifications.h"
#include "platform/quit_signals.h"
#include "platform/running_instance.h"
#include "platform/session.h"
#include "wallpaper/desktop_wallpaper.h"

#include <QTimer>

#include <functional>
#include <memory>

namespace tessel {

/// What the application consists of; all of it must outlive the delegate.
struct AppParts
{
    RunningInstance& instance;
    Store& store;
    DesktopWallpaper& wallpaper;
    Session& session;
    LoginItem& login;
    Notifications& notifications;
    Dialogs& dialogs;
    QuitSignals& quitSignals;
    TrayHost& trayHost;
    PanelShade& panelShade;
    Shortcuts& shortcuts;
    EdgeController& edge;
    bool playsWallpapers; ///< or the desktop only shows stills
    /// Shows the introduction of the first start.
    std::function<std::unique_ptr<OnboardingWindow>(Onboarding& onboarding)> makeOnboardingWindow;
};

/// Runs the application: brings its parts together at the start, puts its menu into the panel, hears what is
/// asked of it, and leaves everything in order at the end.
class AppDelegate : public QObject
{
    Q_OBJECT

public:
    explicit AppDelegate(const AppParts& parts);
    ~AppDelegate() override;

    /// Shows the wallpaper and the menu, and at the first start the introduction; to be called once.
    void start();

    /// Saves everything, takes the windows down and ends the event loop.
    void quit();

    /// Says something that needs no answer, in a message of the desktop's where it shows them.
    void tell(const QString& title, const QString& text);

Q_SIGNALS:
    /// The program begins to end: everything is saved and taken down now.
    void leaving();

private:
    void connectStore();
    void connectSystem();
    void restLater();
    void rest();
    void installMenu();
    void greet();
    void reopen();
    void showOnboarding();
    void finishOnboarding(Ending ending);
    void closeOnboarding();
    [[nodiscard]] OnboardingServices onboardingServices();
    [[nodiscard]] MenuPlace menuPlace() const;
    [[nodiscard]] QString wayToBegin() const;
    void popUpMenu();
    void openEditor();
    void toggleEditor();
    void perform(Action action);
    void leave();
    [[nodiscard]] std::vector<MenuRow> menuRows();

    AppParts m_parts;
    ShuffleTimer m_shuffleTimer;
    DesktopShortcuts m_shortcuts;
    MenuView m_panelMenu;
    MenuView m_popupMenu; ///< the same where a panel does not show it
    QTimer m_rest;        ///< runs while something that was done may leave things behind
    std::unique_ptr<TrayIcon> m_tray;
    std::unique_ptr<Onboarding> m_onboarding; ///< while the introduction is open, as is its window
    std::unique_ptr<OnboardingWindow> m_onboardingWindow;
    bool m_hasDrawn = true; ///< since the last rest
    bool m_hasLeft = false;
};

} // namespace tessel
