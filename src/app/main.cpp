// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/actions.h"
#include "app/app_delegate.h"
#include "app/interface.h"
#include "app/languages.h"
#include "app/menu_accessibility.h"
#include "app/status_icon.h"
#include "base/data_folder.h"
#include "base/identity.h"
#include "platform/accessibility_bus.h"
#include "platform/process.h"
#include "platform/stand_by.h"
#include "platform/window_system.h"
#include "render/crash_notes.h"
#include "wallpaper/wallpaper.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFile>

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace tessel {
namespace {

constexpr int usageError = 2;

/// Whoever quits, or logs out, waits no longer: not for a disk, nor for a photo or a shader in the making.
#ifdef TESSEL_SANITIZED // which looks for leaks then, and writes long about them
constexpr std::chrono::seconds longestEnd{60};
#else
constexpr std::chrono::seconds longestEnd{3};
#endif

void setNames()
{
    QCoreApplication::setApplicationName(identity::name);
    QCoreApplication::setApplicationVersion(QStringLiteral(TESSEL_VERSION));
    QGuiApplication::setApplicationDisplayName(identity::name);
    QGuiApplication::setDesktopFileName(identity::id);
}

void print(std::FILE* stream, const QString& text)
{
    std::fputs(text.toLocal8Bit().constData(), stream);
}

/// Answers arguments, for which no display is needed.
int answerArguments(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Makes wallpapers, and keeps a bowl in the panel from which to choose them.\n"
                       "Start it again to open its editor."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Shows this help."));
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     QStringLiteral("Shows the version."));
    parser.addOptions({help, version});
    const bool isUnderstood = parser.parse(QCoreApplication::arguments());
    if (isUnderstood && parser.isSet(help)) {
        print(stdout, parser.helpText());
        return EXIT_SUCCESS;
    }
    if (isUnderstood && parser.isSet(version)) {
        print(stdout, QStringLiteral("Tessel Broth %1\n").arg(QCoreApplication::applicationVersion()));
        return EXIT_SUCCESS;
    }
    const QString problem = isUnderstood
                                ? QStringLiteral("Nothing but --help and --version is expected, not \"%1\".")
                                      .arg(parser.positionalArguments().value(0))
                                : parser.errorText();
    print(stderr, QStringLiteral("tessel-broth: %1 See tessel-broth --help.\n").arg(problem));
    return usageError;
}

/// Qt ends the program in its own way where it finds no display: with a core dump.
void endWithoutDisplay(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message)
{
    if (type != QtFatalMsg) {
        print(stderr, message + QLatin1Char('\n'));
        return;
    }
    print(stderr, QStringLiteral("tessel-broth: There is no desktop to draw on. Start Tessel Broth within a "
                                 "graphical session, where DISPLAY or WAYLAND_DISPLAY is set.\n"));
    std::_Exit(EXIT_FAILURE);
}

/// Tells the user that nothing can be drawn, and whoever asks for anything, until somebody ends the program.
void tellOfNoGraphics(const QString& reason, RunningInstance& instance, Dialogs& dialogs)
{
    const Alert alert{QCoreApplication::translate("Main", "Tessel Broth cannot draw here"), reason};
    const QString refusal = alert.message + QStringLiteral(": ") + reason;
    print(stderr, QStringLiteral("tessel-broth: %1\n").arg(refusal)); // perhaps not even the alert can be
    instance.setAnswers(
        {.perform = [refusal](const QString& name, const QVariant&) -> std::optional<QString> {
             if (actionNamed(name) != Action::quit)
                 return refusal;
             QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
             return std::nullopt;
         },
         .wallpaper = [] { return ShownWallpaper(); }});
    QObject::connect(&dialogs, &Dialogs::quitRequested, qApp, &QCoreApplication::quit);
    dialogs.alert(alert, [](bool) { QCoreApplication::quit(); });
    QApplication::exec();
    instance.setAnswers({});
}

/// What draws; nullptr after telling the user that nothing can.
std::unique_ptr<Graphics> makeGraphics(WindowSystem& windows, RunningInstance& instance, Dialogs& dialogs)
{
    try {
        return std::make_unique<Graphics>([&windows] { return windows.makeContext(); });
    } catch (const ContextError& error) {
        tellOfNoGraphics(QString::fromUtf8(error.what()), instance, dialogs);
        return nullptr;
    }
}

/// Tells the user why the program neither starts nor comes forward, and ends with that.
int tellOfNoStart(const QString& reason)
{
    const Alert alert{QCoreApplication::translate("Main", "Tessel Broth cannot start"), reason};
    print(stderr, QStringLiteral("tessel-broth: %1: %2\n").arg(alert.message, reason));
    const std::unique_ptr<Notifications> notifications = makeNotifications();
    Dialogs dialogs(nullptr);
    QObject::connect(&dialogs, &Dialogs::quitRequested, qApp, &QCoreApplication::quit);
    QObject::connect(notifications.get(), &Notifications::shown, qApp, &QCoreApplication::quit);
    notifications->show(alert.message, alert.informative,
                        [&dialogs, &alert] { dialogs.alert(alert, [](bool) { QCoreApplication::quit(); }); });
    QApplication::exec();
    return EXIT_FAILURE;
}

/// \param returns to a desktop that was gone, where nobody has started it
int runApplication(bool returns)
{
    const std::unique_ptr<RunningInstance> instance = claimInstance();
    if (!instance->isFirst()) {
        const QString problem = returns ? QString() : instance->askToComeForward();
        return problem.isEmpty() ? EXIT_SUCCESS : tellOfNoStart(problem);
    }
    crash_notes::keep(QFile::encodeName(dataFolder() + QStringLiteral("/crashes")).toStdString(),
                      TESSEL_VERSION);
    const std::unique_ptr<WindowSystem> windows = makeWindowSystem();
    Dialogs dialogs(windows->focus());
    const std::unique_ptr<Graphics> graphics = makeGraphics(*windows, *instance, dialogs);
    endDrawingOnCaller(); // what draws in the background has its threads
    if (graphics == nullptr)
        return EXIT_FAILURE;
    Store store;
    AnimationClocks clocks;
    LookPreparer preparer;
    const std::unique_ptr<Session> session = makeSession();
    const std::unique_ptr<DesktopPictures> pictures = windows->makePictures();
    Wallpaper wallpaper({.store = store,
                         .windows = *windows,
                         .session = *session,
                         .pictures = *pictures,
                         .graphics = *graphics,
                         .clocks = clocks,
                         .preparer = preparer});
    const SceneServices services{
        .store = store, .session = *session, .graphics = *graphics, .clocks = clocks, .preparer = preparer};
    Interface interface({.scene = services, .store = store, .windows = *windows, .dialogs = dialogs});
    const std::unique_ptr<LoginItem> login = makeLoginItem();
    const std::unique_ptr<Notifications> notifications = makeNotifications();
    const std::unique_ptr<QuitSignals> quitSignals = watchQuitSignals();
    const std::unique_ptr<TrayHost> trayHost = watchTrayHost();
    const std::unique_ptr<PanelShade> panelShade = watchPanelShade();
    const std::unique_ptr<Shortcuts> shortcuts = watchShortcuts();
    AppDelegate delegate({.instance = *instance,
                          .store = store,
                          .wallpaper = wallpaper,
                          .session = *session,
                          .login = *login,
                          .notifications = *notifications,
                          .dialogs = dialogs,
                          .quitSignals = *quitSignals,
                          .trayHost = *trayHost,
                          .panelShade = *panelShade,
                          .shortcuts = *shortcuts,
                          .edge = interface.edge(),
                          .playsWallpapers = windows->hasWallpaperWindows(),
                          .makeOnboardingWindow = [&interface](Onboarding& onboarding) {
                              return interface.makeOnboardingWindow(onboarding);
                          }});
    QObject::connect(&interface, &Interface::told, &delegate, &AppDelegate::tell);
    QObject::connect(&delegate, &AppDelegate::leaving, [] {
        endWithin(longestEnd);
        crash_notes::forgetAccidents();
    });
    delegate.start();
    return QApplication::exec();
}

int run(int argc, char** argv)
{
    setNames();
    if (argc > 1)
        return answerArguments(argc, argv);
    const bool returns = standBy();
    avoidStuckAccessibility();
    showMenusToScreenReaders();
    // In the environment it would be told to every program that this one starts.
    QByteArray option("-platform");
    QByteArray platforms = preferredQtPlatforms();
    std::array<char*, 4> arguments{argv[0]};
    int count = 1;
    if (!platforms.isEmpty()) {
        arguments[1] = option.data();
        arguments[2] = platforms.data();
        count = 3;
    }
    const QtMessageHandler usual = qInstallMessageHandler(endWithoutDisplay);
    const QApplication application(count, arguments.data());
    qInstallMessageHandler(usual);
    speakTheUsersLanguage();
    QApplication::setQuitOnLastWindowClosed(false);
    // Docks and lists of windows show it on grounds of any colour; the theme's is in a tile of its own.
    QApplication::setWindowIcon(QIcon::fromTheme(identity::id, statusIcon(PanelTone::light)));
    return runApplication(returns);
}

} // namespace
} // namespace tessel

int main(int argc, char** argv)
{
    tessel::shareUnusedMemory();
    tessel::beginDrawingOnCaller();
    return tessel::run(argc, argv);
}
