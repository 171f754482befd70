// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/app_delegate.h"

#include "app/commands.h"
#include "app/requests.h"
#include "app/status_menu.h"
#include "base/identity.h"
#include "platform/process.h"

#include <QApplication>
#include <QCursor>
#include <QSessionManager>

#include <array>
#include <chrono>
#include <cstdio>
#include <utility>

namespace tessel {

namespace {

/// The signals of what the menu shows. The edited look is not among them, which a slider changes all the
/// time.
constexpr std::array menuSignals{&Store::desktopChanged,       &Store::desktopHistoryChanged,
                                 &Store::appliedMotionChanged, &Store::motionChanged,
                                 &Store::presetsChanged,       &Store::shuffleMinutesChanged,
                                 &Store::edgeChanged,          &Store::handleHiddenChanged};

/// How long after a change everything is done that comes of it, cross-fades and stills too.
constexpr std::chrono::seconds timeToRest{15};

/// How long after that the next look is ready, and with it the last that leaves something behind.
constexpr std::chrono::seconds timeToPrepare{5};

/// How long the strip shows itself after the introduction.
constexpr std::chrono::milliseconds firstPeek{3500};

/// Damaged settings stay as they are until they are changed, so that there is nothing for the user to do.
void reportProblems(const std::vector<SettingProblem>& problems)
{
    for (const SettingProblem& problem : problems) {
        const QString key = problem.key.isEmpty() ? QString() : problem.key + QStringLiteral(": ");
        std::fprintf(stderr, "Tessel Broth: settings: %s%s\n", qUtf8Printable(key),
                     qUtf8Printable(problem.message));
    }
}

} // namespace

AppDelegate::AppDelegate(const AppParts& parts)
    : m_parts(parts)
    , m_shuffleTimer(parts.store, parts.session)
    , m_shortcuts(parts.store, parts.shortcuts)
    , m_panelMenu([this] { return menuRows(); })
    , m_popupMenu([this] { return menuRows(); })
{
    m_rest.setSingleShot(true);
    m_rest.setInterval(timeToRest);
}

AppDelegate::~AppDelegate()
{
    m_parts.instance.setAnswers({});
}

void AppDelegate::start()
{
    reportProblems(m_parts.store.problems());
    connectStore(); // first: the look of the last time may be one that cannot be drawn
    m_parts.wallpaper.start();
    connectSystem();
    m_shuffleTimer.start();
    // Whoever has a wallpaper has found the way before there was an introduction.
    if (m_parts.store.desktop())
        m_parts.store.setOnboarded(true);
    const bool isFirst = !m_parts.store.onboarded();
    if (!isFirst)
        m_parts.edge.install();
    installMenu();
    if (isFirst)
        showOnboarding();
    else if (m_parts.trayHost.isKnown())
        greet();
    else // it is to say where the menu is
        connect(&m_parts.trayHost, &TrayHost::changed, this, &AppDelegate::greet, Qt::SingleShotConnection);
}

void AppDelegate::quit()
{
    leave();
    QCoreApplication::exit();
}

void AppDelegate::connectStore()
{
    Store& store = m_parts.store;
    connect(&store, &Store::applied, &m_parts.wallpaper, &DesktopWallpaper::apply);
    for (const auto signal : menuSignals)
        connect(&store, signal, &m_panelMenu, &MenuView::refreshLater);
    connect(&store, &Store::refused, this,
            [this](const QString& message) { tell(tr("Tessel Broth could not use that"), message); });
    connect(&store, &Store::savingFailed, this, [this](const QString& message) {
        tell(tr("Your settings cannot be saved"),
             //: %1 says why, without an end
             tr("%1. Tessel Broth keeps trying.").arg(message));
    });
    connect(&store, &Store::savingResumed, this,
            [this] { tell(tr("Your settings are saved again"), tr("Nothing has been lost.")); });
    connect(&m_parts.wallpaper, &DesktopWallpaper::stillFailed, this,
            [this](const QString& message) { tell(tr("The desktop picture stays as it was"), message); });
    connect(&m_parts.wallpaper, &DesktopWallpaper::photoMissing, this, [this](const QString& message) {
        tell(tr("The photo of this wallpaper cannot be shown"), message);
    });
}

void AppDelegate::connectSystem()
{
    connect(&m_parts.instance, &RunningInstance::activated, this, &AppDelegate::reopen);
    m_parts.instance.setAnswers(requestAnswers(m_parts.store, [this](Action action) { perform(action); }));
    // After the wallpaper, which has heard of it before us and keeps where the animation is.
    connect(&m_parts.session, &Session::aboutToSleep, this,
            [this] { static_cast<void>(m_parts.store.saveNow()); });
    connect(&m_shortcuts, &DesktopShortcuts::pressed, this, &AppDelegate::perform);
    connect(&m_shortcuts, &DesktopShortcuts::told, this, &AppDelegate::tell);
    connect(&m_shortcuts, &DesktopShortcuts::offeredChanged, &m_panelMenu, &MenuView::refreshLater);
    connect(&m_parts.dialogs, &Dialogs::quitRequested, this, &AppDelegate::quit);
    connect(&m_parts.quitSignals, &QuitSignals::received, this, &AppDelegate::quit);
    connect(qApp, &QCoreApplication::aboutToQuit, this, &AppDelegate::leave);
    connect(&m_rest, &QTimer::timeout, this, &AppDelegate::rest);
    for (const auto signal : {&Store::desktopChanged, &Store::appliedMotionChanged})
        connect(&m_parts.store, signal, this, &AppDelegate::restLater);
    connect(&m_parts.edge, &EdgeController::modeChanged, this,
            [this] { m_parts.edge.mode() == Mode::open ? restLater() : m_rest.start(); });
    m_rest.start();
    // Whether the program starts with the session is the user's choice, made elsewhere.
    connect(qApp, &QGuiApplication::saveStateRequest, this,
            [](QSessionManager& session) { session.setRestartHint(QSessionManager::RestartNever); });
    connect(qApp, &QGuiApplication::commitDataRequest, this,
            [this](QSessionManager& /*session*/) { static_cast<void>(m_parts.store.saveNow()); });
}

/// Looks are drawn from now on; rests some time after the last.
void AppDelegate::restLater()
{
    m_hasDrawn = true;
    m_rest.start();
}

/// Gives back what is not in use. Handle and strip leave only memory behind, and come and go with the
/// pointer.
void AppDelegate::rest()
{
    if (m_hasDrawn && m_parts.edge.mode() != Mode::open) {
        m_hasDrawn = false;
        m_parts.wallpaper.rest();
    }
    QTimer::singleShot(timeToPrepare, this, [] {
        releaseUnusedMemory();
        releaseUnusedCode();
    });
}

void AppDelegate::installMenu()
{
    m_tray = std::make_unique<TrayIcon>(m_panelMenu.menu(), m_parts.trayHost, m_parts.panelShade);
    connect(m_tray.get(), &TrayIcon::clicked, this, &AppDelegate::popUpMenu);
    connect(&m_parts.edge, &EdgeController::modeChanged, &m_panelMenu, &MenuView::refreshLater);
    connect(&m_parts.edge, &EdgeController::menuRequested, this, [this] {
        m_parts.edge.setHeld(true);
        popUpMenu();
    });
    connect(&m_popupMenu.menu(), &QMenu::aboutToHide, this, [this] { m_parts.edge.setHeld(false); });
    // A panel may need other titles for the same.
    connect(m_tray.get(), &TrayIcon::shown, &m_panelMenu, &MenuView::refreshLater);
    m_panelMenu.refresh();
}

void AppDelegate::greet()
{
    if (m_parts.store.desktop())
        return;
    const Alert greeting{
        .message = tr("Tessel Broth is ready"), .informative = wayToBegin(), .takeFocus = TakeFocus::no};
    m_parts.notifications.show(greeting.message, greeting.informative, [this, greeting] {
        // It may have taken long to find that nobody shows messages.
        if (!m_parts.store.desktop())
            m_parts.dialogs.alert(greeting);
    });
    connect(
        &m_parts.store, &Store::desktopChanged, this, [this, greeting] { m_parts.dialogs.dismiss(greeting); },
        Qt::SingleShotConnection);
}

/// Where the first wallpaper is to be had here.
QString AppDelegate::wayToBegin() const
{
    if (m_tray->hasPanel())
        return tr("Click the bowl in your panel and choose New Wallpaper for your first one.");
    if (!m_parts.edge.isInstalled())
        return tr(
            "Start Tessel Broth once more to see its menu and choose New Wallpaper for your first one.");
    if (m_parts.store.handleHidden())
        return tr("Start Tessel Broth once more to make your first wallpaper in its editor.");
    return tr(
        "Point at the round handle at the edge of your screen and choose New wallpaper for your first one.");
}

/// What starting the program once more does.
void AppDelegate::reopen()
{
    m_parts.store.onboarded() ? openEditor() : showOnboarding();
}

void AppDelegate::showOnboarding()
{
    if (m_onboarding == nullptr) {
        m_onboarding = std::make_unique<Onboarding>(m_parts.store, onboardingServices());
        connect(m_onboarding.get(), &Onboarding::finished, this, &AppDelegate::finishOnboarding);
        m_onboardingWindow = m_parts.makeOnboardingWindow(*m_onboarding);
        // Not from within the window, which goes with it.
        connect(m_onboardingWindow.get(), &OnboardingWindow::quitRequested, this, &AppDelegate::quit,
                Qt::QueuedConnection);
    }
    m_onboardingWindow->bringForward();
}

/// Called from within what it takes away.
void AppDelegate::finishOnboarding(Ending ending)
{
    m_onboardingWindow->view().hide();
    QMetaObject::invokeMethod(this, &AppDelegate::closeOnboarding, Qt::QueuedConnection);
    m_parts.edge.install();
    m_panelMenu.refreshLater();
    if (ending == Ending::completed)
        m_parts.edge.peek(firstPeek);
}

void AppDelegate::closeOnboarding()
{
    m_onboardingWindow.reset();
    m_onboarding.reset();
    restLater();
}

OnboardingServices AppDelegate::onboardingServices()
{
    return {.menuPlace = [this] { return menuPlace(); },
            .hasHandle = m_parts.edge.canInstall(),
            .opensAtLogin = [this] { return m_parts.login.status() == LoginItem::Status::enabled; },
            .setOpensAtLogin =
                [this](bool on, const std::function<void()>& done) {
                    setLaunchAtLogin(m_parts.login, m_parts.dialogs, on, [this, done](bool) {
                        m_panelMenu.refreshLater();
                        done();
                    });
                }};
}

MenuPlace AppDelegate::menuPlace() const
{
    if (m_tray->hasPanel())
        return MenuPlace::panel;
    return m_parts.edge.canInstall() ? MenuPlace::handle : MenuPlace::reopening;
}

void AppDelegate::popUpMenu()
{
    QMenu& menu = m_popupMenu.menu();
    menu.popup(QCursor::pos());
    menu.raise();
    menu.activateWindow();
}

/// Where no window of ours can float, the menu is all there is.
void AppDelegate::openEditor()
{
    m_parts.edge.install();
    if (m_parts.edge.isInstalled())
        m_parts.edge.setMode(Mode::open);
    else
        popUpMenu();
}

void AppDelegate::toggleEditor()
{
    if (m_parts.edge.mode() == Mode::open)
        m_parts.edge.setMode(Mode::handle);
    else
        openEditor();
}

void AppDelegate::perform(Action action)
{
    Store& store = m_parts.store;
    switch (action) {
    case Action::newWallpaper:
        store.shuffle();
        break;
    case Action::previousWallpaper:
        store.previousWallpaper();
        break;
    case Action::toggleMotion:
        store.setDesktopMotion(!store.desktopMotion());
        break;
    case Action::openEditor:
        openEditor();
        break;
    case Action::quit:
        quit();
        break;
    }
}

void AppDelegate::leave()
{
    if (std::exchange(m_hasLeft, true))
        return;
    Q_EMIT leaving();
    m_parts.dialogs.closeAll();
    if (m_onboarding != nullptr)
        m_onboarding->keepBowl();
    closeOnboarding();
    static_cast<void>(m_parts.store.saveNow());
    m_tray.reset();
    // This may take a moment, and keeps something itself.
    m_parts.wallpaper.stop();
    if (!m_parts.store.saveNow())
        std::fputs("Tessel Broth: the last changes could not be saved.\n", stderr);
}

void AppDelegate::tell(const QString& title, const QString& text)
{
    m_parts.notifications.show(title, text, [this, title, text] { m_parts.dialogs.alert({title, text}); });
}

std::vector<MenuRow> AppDelegate::menuRows()
{
    const StatusCommands commands{
        [this](Action action) { perform(action); },
        [this] { toggleEditor(); },
        [this] { saveAsPreset(m_parts.store, m_parts.dialogs); },
        [this](bool on) {
            setLaunchAtLogin(m_parts.login, m_parts.dialogs, on,
                             [this](bool) { m_panelMenu.refreshLater(); });
        },
        m_parts.playsWallpapers ? nullptr : std::function([this] {
            openWebPage(identity::waylandPage, m_parts.dialogs);
        }),
        m_shortcuts.areOffered() ? std::function([this] { m_shortcuts.setUp(); }) : nullptr,
        [this] { checkForUpdates(m_parts.dialogs); },
        [this](const QString& address) { openWebPage(address, m_parts.dialogs); },
    };
    const EdgeController& edge = m_parts.edge;
    return statusMenuRows(m_parts.store, m_parts.login.status(),
                          edge.canInstall() ? std::optional(edge.mode()) : std::nullopt, commands);
}

} // namespace tessel
