// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/linux_session.h"

#include "platform/linux/bus_service.h"
#include "platform/linux/portal.h"
#include "platform/linux/session_desktops.h"
#include "platform/linux/x11/x11_settings.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QFileSystemWatcher>
#include <QSettings>
#include <QSocketNotifier>
#include <QStandardPaths>

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>
#include <sys/timerfd.h>
#include <unistd.h>

namespace tessel {

namespace {

const auto loginPath = QStringLiteral("/org/freedesktop/login1");
const auto loginInterface = QStringLiteral("org.freedesktop.login1.Manager");
const auto loginSessionInterface = QStringLiteral("org.freedesktop.login1.Session");
const auto lockedHint = QStringLiteral("LockedHint");
const auto propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");
const auto propertiesChanged = QStringLiteral("PropertiesChanged");
const auto powerPath = QStringLiteral("/org/freedesktop/UPower");
const auto powerInterface = QStringLiteral("org.freedesktop.UPower");
const auto onBattery = QStringLiteral("OnBattery");
const auto portalSettings = QStringLiteral("org.freedesktop.portal.Settings");
const auto xfceSettings = QStringLiteral("org.xfce.Xfconf");
const auto xfceSettingsPath = QStringLiteral("/org/xfce/Xfconf");
const auto xfceChannel = QStringLiteral("xsettings");
const auto xfceFont = QStringLiteral("/Gtk/FontName");

/// One of the desktop's settings in which the user asks for something.
struct DesktopSetting
{
    bool SessionState::*wish; ///< nullptr for the size of text
    QLatin1String space;
    QLatin1String key;
    bool (*isAsked)(const QVariant& value);
};

constexpr std::array desktopSettings{
    DesktopSetting{&SessionState::reducedMotion, QLatin1String("org.freedesktop.appearance"),
                   QLatin1String("reduced-motion"),
                   [](const QVariant& value) { return value.toUInt() == 1; }},
    DesktopSetting{&SessionState::reducedMotion, QLatin1String("org.gnome.desktop.interface"),
                   QLatin1String("enable-animations"),
                   [](const QVariant& value) { return value.isValid() && !value.toBool(); }},
    DesktopSetting{&SessionState::highContrast, QLatin1String("org.freedesktop.appearance"),
                   QLatin1String("contrast"), [](const QVariant& value) { return value.toUInt() == 1; }},
    DesktopSetting{&SessionState::highContrast, QLatin1String("org.gnome.desktop.a11y.interface"),
                   QLatin1String("high-contrast"), [](const QVariant& value) { return value.toBool(); }},
    DesktopSetting{nullptr, QLatin1String("org.gnome.desktop.interface"),
                   QLatin1String("text-scaling-factor"), nullptr},
};

/// What GNOME takes, too. Anything else counts as nothing said.
double textScale(double scale)
{
    return scale >= 0.5 && scale <= 3 ? scale : 1;
}

/// The file in which a desktop keeps the font of its programs: a list, whose second part is the size in
/// points.
struct FontFile
{
    QLatin1String desktop;
    QLatin1String name;
    QLatin1String key;
    double usualSize;
};

constexpr std::array fontFiles{
    // In the section "General", which QSettings leaves out.
    FontFile{QLatin1String("KDE"), QLatin1String("kdeglobals"), QLatin1String("font"), 10},
    FontFile{QLatin1String("LXQt"), QLatin1String("lxqt/lxqt.conf"), QLatin1String("Qt/font"), 11},
};

constexpr double usualXfceSize = 10;
constexpr double usualMateSize = 10;

/// \param size in points, as text
/// \param usual what the desktop begins with
double fontScale(const QString& size, double usual)
{
    return textScale(size.toDouble() / usual);
}

QString locateConfiguration(const QString& name)
{
    return QStandardPaths::locate(QStandardPaths::GenericConfigLocation, name);
}

/// The value within a variant, which the settings portal wraps twice.
QVariant unwrapped(QVariant value)
{
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

/// The new value of a property, from a signal that properties have changed; invalid if it is not among them.
QVariant changedProperty(const QDBusMessage& message, const QString& name)
{
    return qdbus_cast<QVariantMap>(message.arguments().value(1)).value(name);
}

} // namespace

template<typename Value>
void LinuxSession::set(Value SessionState::*field, Value value)
{
    SessionState changed = state();
    changed.*field = value;
    setState(changed);
}

LinuxSession::LinuxSession(const QDBusConnection& sessionBus, const QDBusConnection& systemBus)
{
    watchLoginManager(systemBus);
    watchBattery(systemBus);
    for (const auto& desktop : {QStringLiteral("freedesktop"), QStringLiteral("gnome"),
                                QStringLiteral("xfce"), QStringLiteral("mate"), QStringLiteral("cinnamon")})
        watchScreenSaver(sessionBus, QStringLiteral("org.%1.ScreenSaver").arg(desktop));
    watchDesktopSettings(sessionBus);
    watchXfceFont(sessionBus);
    watchFontFile();
    watchMateFont();
    watchClock();
}

LinuxSession::~LinuxSession()
{
    delete m_clockNotifier;
    if (m_clock >= 0)
        close(m_clock);
}

void LinuxSession::watchLoginManager(const QDBusConnection& systemBus)
{
    m_loginManager = new BusService(systemBus, QStringLiteral("org.freedesktop.login1"), this);
    connect(m_loginManager, &BusService::appeared, this, [this] {
        m_loginManager->listen(loginPath, loginInterface, QStringLiteral("PrepareForSleep"));
        holdUpSleep();
        findOwnSession();
    });
    connect(m_loginManager, &BusService::vanished, this, [this] {
        m_sleepLock = {};
        set(m_locked, lockedHint, false);
        set(&SessionState::asleep, false);
    });
    connect(m_loginManager, &BusService::received, this, [this](const QDBusMessage& message) {
        if (message.member() == propertiesChanged) {
            if (const QVariant locked = changedProperty(message, lockedHint); locked.isValid())
                set(m_locked, lockedHint, locked.toBool());
        } else {
            setAsleep(message.arguments().value(0).toBool());
        }
    });
}

/// Makes the machine wait before it sleeps until we have heard of it.
void LinuxSession::holdUpSleep()
{
    m_loginManager->call(loginPath, loginInterface, QStringLiteral("Inhibit"),
                         {QStringLiteral("sleep"), QCoreApplication::applicationName(),
                          //: why the machine waits a moment before it sleeps
                          tr("Keeps what is shown before the machine sleeps"), QStringLiteral("delay")},
                         [this](const QDBusMessage& reply) {
                             if (!state().asleep)
                                 m_sleepLock = reply.arguments().value(0).value<QDBusUnixFileDescriptor>();
                         });
}

void LinuxSession::setAsleep(bool asleep)
{
    if (asleep == state().asleep)
        return;
    if (asleep)
        Q_EMIT aboutToSleep();
    set(&SessionState::asleep, asleep);
    if (asleep) {
        m_sleepLock = {};
    } else {
        holdUpSleep();
        Q_EMIT woke();
    }
}

void LinuxSession::findOwnSession()
{
    const auto watch = [this](const QDBusMessage& reply) {
        watchLock(reply.arguments().value(0).value<QDBusObjectPath>().path());
    };
    const auto getSession = [this, watch](const QString& id, std::function<void()> failed) {
        m_loginManager->call(loginPath, loginInterface, QStringLiteral("GetSession"), {id}, watch,
                             std::move(failed));
    };
    const auto getOwn = [this, watch] {
        m_loginManager->call(loginPath, loginInterface, QStringLiteral("GetSessionByPID"),
                             {static_cast<uint>(QCoreApplication::applicationPid())}, watch);
    };
    // A program that the user's service manager starts belongs to no session; "auto" is then the one on the
    // screen. Not every login manager knows that word.
    const auto getAuto = [getSession, getOwn] { getSession(QStringLiteral("auto"), getOwn); };
    if (const QString id = qEnvironmentVariable("XDG_SESSION_ID"); !id.isEmpty())
        getSession(id, getAuto);
    else
        getAuto();
}

/// The session's signals Lock and Unlock are only requests, which nobody may follow: a pause that began with
/// one might never end. LockedHint is what a lock screen says of itself.
void LinuxSession::watchLock(const QString& sessionPath)
{
    m_loginManager->listen(sessionPath, propertiesInterface, propertiesChanged);
    m_loginManager->property(sessionPath, loginSessionInterface, lockedHint,
                             [this](const QVariant& locked) { set(m_locked, lockedHint, locked.toBool()); });
}

void LinuxSession::watchScreenSaver(const QDBusConnection& sessionBus, const QString& name)
{
    auto* saver = new BusService(sessionBus, name, this);
    connect(saver, &BusService::appeared, this, [this, saver, name] {
        saver->listen({}, name, QStringLiteral("ActiveChanged"));
        const QString path = QLatin1Char('/') + QString(name).replace(QLatin1Char('.'), QLatin1Char('/'));
        saver->call(path, name, QStringLiteral("GetActive"), {}, [this, name](const QDBusMessage& reply) {
            set(m_locked, name, reply.arguments().value(0).toBool());
        });
    });
    connect(saver, &BusService::received, this, [this, name](const QDBusMessage& message) {
        set(m_locked, name, message.arguments().value(0).toBool());
    });
    connect(saver, &BusService::vanished, this, [this, name] { set(m_locked, name, false); });
}

void LinuxSession::watchBattery(const QDBusConnection& systemBus)
{
    auto* power = new BusService(systemBus, QStringLiteral("org.freedesktop.UPower"), this);
    connect(power, &BusService::appeared, this, [this, power] {
        power->listen(powerPath, propertiesInterface, propertiesChanged);
        power->property(powerPath, powerInterface, onBattery,
                        [this](const QVariant& value) { set(&SessionState::onBattery, value.toBool()); });
    });
    connect(power, &BusService::received, this, [this](const QDBusMessage& message) {
        if (const QVariant value = changedProperty(message, onBattery); value.isValid())
            set(&SessionState::onBattery, value.toBool());
    });
    connect(power, &BusService::vanished, this, [this] { set(&SessionState::onBattery, false); });
}

void LinuxSession::watchDesktopSettings(const QDBusConnection& sessionBus)
{
    auto* desktop = new BusService(sessionBus, portal::service, this);
    // Nothing is asked for by a value that is not there.
    const auto take = [this](const DesktopSetting& setting, const QVariant& value) {
        if (setting.wish == nullptr)
            set(&SessionState::textScale, textScale(value.toDouble()));
        else
            set(claimOf(setting.wish), setting.key, setting.isAsked(value));
    };
    connect(desktop, &BusService::appeared, this, [desktop, take] {
        desktop->listen(portal::path, portalSettings, QStringLiteral("SettingChanged"));
        for (const DesktopSetting& setting : desktopSettings)
            desktop->call(portal::path, portalSettings, QStringLiteral("Read"),
                          {QString(setting.space), QString(setting.key)},
                          [take, &setting](const QDBusMessage& reply) {
                              take(setting, unwrapped(reply.arguments().value(0)));
                          });
    });
    connect(desktop, &BusService::received, this, [take](const QDBusMessage& message) {
        const QVariantList arguments = message.arguments();
        for (const DesktopSetting& setting : desktopSettings) {
            if (arguments.value(0).toString() == setting.space &&
                arguments.value(1).toString() == setting.key)
                take(setting, unwrapped(arguments.value(2)));
        }
    });
    connect(desktop, &BusService::vanished, this, [take] {
        for (const DesktopSetting& setting : desktopSettings)
            take(setting, {});
    });
}

void LinuxSession::watchXfceFont(const QDBusConnection& sessionBus)
{
    if (!sessionDesktops().contains(QStringLiteral("XFCE")))
        return;
    auto* xfce = new BusService(sessionBus, xfceSettings, this);
    const auto take = [this](const QVariant& font) { setFont(unwrapped(font).toString(), usualXfceSize); };
    connect(xfce, &BusService::appeared, this, [xfce, take] {
        xfce->listen(xfceSettingsPath, xfceSettings, QStringLiteral("PropertyChanged"));
        xfce->listen(xfceSettingsPath, xfceSettings, QStringLiteral("PropertyRemoved"));
        xfce->call(xfceSettingsPath, xfceSettings, QStringLiteral("GetProperty"), {xfceChannel, xfceFont},
                   [take](const QDBusMessage& reply) { take(reply.arguments().value(0)); });
    });
    connect(xfce, &BusService::received, this, [take](const QDBusMessage& message) {
        const QVariantList arguments = message.arguments();
        if (arguments.value(0) == xfceChannel && arguments.value(1) == xfceFont)
            take(arguments.value(2));
    });
}

/// Its settings lie where only its own programs read them.
void LinuxSession::watchMateFont()
{
    if (!sessionDesktops().contains(QStringLiteral("MATE")))
        return;
    m_x11Settings = std::make_unique<X11Settings>();
    const auto read = [this] { setFont(m_x11Settings->text(QStringLiteral("Gtk/FontName")), usualMateSize); };
    connect(m_x11Settings.get(), &X11Settings::changed, this, read);
    read();
}

/// \param name such as "Sans Bold 10"
void LinuxSession::setFont(const QString& name, double usualSize)
{
    set(&SessionState::fontScale, fontScale(name.section(QLatin1Char(' '), -1), usualSize));
}

void LinuxSession::watchFontFile()
{
    const QStringList desktops = sessionDesktops();
    const auto* const found = std::ranges::find_if(
        fontFiles, [&](const FontFile& file) { return desktops.contains(file.desktop); });
    if (found == fontFiles.end())
        return;
    const QString path = locateConfiguration(found->name);
    if (path.isEmpty())
        return;
    auto* watcher = new QFileSystemWatcher({path}, this);
    const auto read = [this, &file = *found] {
        const QSettings settings(locateConfiguration(file.name), QSettings::IniFormat);
        // In quotes or not, and so a text or a list of texts.
        const QString font = settings.value(file.key).toStringList().join(QLatin1Char(','));
        set(&SessionState::fontScale, fontScale(font.section(QLatin1Char(','), 1, 1), file.usualSize));
        readAnimationSpeed(settings);
    };
    connect(watcher, &QFileSystemWatcher::fileChanged, this, [watcher, read](const QString& changed) {
        // Replaced by a new file as a rule, which is then another one to watch.
        watcher->addPath(changed);
        read();
    });
    read();
}

/// Which KDE keeps beside its font.
void LinuxSession::readAnimationSpeed(const QSettings& settings)
{
    const auto key = QStringLiteral("KDE/AnimationDurationFactor");
    bool isNumber = false;
    const double factor = settings.value(key).toString().toDouble(&isNumber);
    set(m_reducedMotion, key, isNumber && factor <= 0);
}

/// A timer that never runs out, but is cancelled whenever the clock makes a jump.
void LinuxSession::watchClock()
{
    m_clock = timerfd_create(CLOCK_REALTIME, TFD_NONBLOCK | TFD_CLOEXEC);
    if (m_clock < 0)
        return;
    itimerspec farAway{};
    farAway.it_value.tv_sec = std::numeric_limits<std::int32_t>::max() * std::int64_t{2};
    if (timerfd_settime(m_clock, TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &farAway, nullptr) != 0)
        return;
    m_clockNotifier = new QSocketNotifier(m_clock, QSocketNotifier::Read);
    connect(m_clockNotifier, &QSocketNotifier::activated, this, &LinuxSession::readClock);
}

void LinuxSession::readClock()
{
    std::uint64_t expirations = 0;
    if (read(m_clock, &expirations, sizeof expirations) < 0 && errno == ECANCELED)
        Q_EMIT clockSet();
}

void LinuxSession::set(Claim& claim, const QString& by, bool isSo)
{
    if (isSo)
        claim.by.insert(by);
    else
        claim.by.erase(by);
    set(claim.field, !claim.by.empty());
}

LinuxSession::Claim& LinuxSession::claimOf(bool SessionState::*wish)
{
    return wish == m_reducedMotion.field ? m_reducedMotion : m_highContrast;
}

std::unique_ptr<Session> makeSession()
{
    return std::make_unique<LinuxSession>(QDBusConnection::sessionBus(), QDBusConnection::systemBus());
}

} // namespace tessel
