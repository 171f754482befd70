// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/linux_session.h"
#include "platform/linux/x11/x11_connection.h"
#include "support/fake_service.h"
#include "support/surroundings.h"

#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QDBusVariant>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QTemporaryDir>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <unistd.h>
#include <utility>

namespace tessel {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

const auto manager = QStringLiteral("org.freedesktop.login1.Manager");
const auto managerPath = QStringLiteral("/org/freedesktop/login1");
const auto sessionPath = QStringLiteral("/org/freedesktop/login1/session/_37");
const auto sessionInterface = QStringLiteral("org.freedesktop.login1.Session");
const auto portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const auto settings = QStringLiteral("org.freedesktop.portal.Settings");
const auto gnomeInterface = QStringLiteral("org.gnome.desktop.interface");

/// A login manager with one session, that of the tests, and whoever holds up its sleep.
class LoginManager : public FakeService
{
public:
    explicit LoginManager(const QDBusConnection& bus)
        : FakeService(bus, QStringLiteral("org.freedesktop.login1"))
    {
        answer(manager + QStringLiteral(".GetSession"), [](const QVariantList& arguments) -> QVariantList {
            EXPECT_EQ(arguments, QVariantList{QStringLiteral("37")});
            return {QVariant::fromValue(QDBusObjectPath(sessionPath))};
        });
        answer(manager + QStringLiteral(".Inhibit"), [this](const QVariantList& arguments) {
            EXPECT_EQ(arguments.value(0), QStringLiteral("sleep"));
            EXPECT_EQ(arguments.value(3), QStringLiteral("delay"));
            return handOutLock();
        });
        setProperty(QStringLiteral("LockedHint"), false);
    }
    ~LoginManager() override { close(m_pipe[0]); }

    void prepareForSleep(bool sleeps)
    {
        signal(managerPath, manager, QStringLiteral("PrepareForSleep"), {sleeps});
    }

    [[nodiscard]] int locksHandedOut() const { return m_locks; }

    /// Whether the last lock is still open somewhere.
    [[nodiscard]] bool isHeldUp() const
    {
        char byte = 0;
        return read(m_pipe[0], &byte, 1) < 0;
    }

private:
    QVariantList handOutLock()
    {
        ++m_locks;
        if (m_pipe[0] >= 0)
            close(m_pipe[0]);
        EXPECT_EQ(pipe2(m_pipe.data(), O_CLOEXEC | O_NONBLOCK), 0);
        const QDBusUnixFileDescriptor lock(m_pipe[1]);
        close(m_pipe[1]);
        return {QVariant::fromValue(lock)};
    }

    int m_locks = 0;
    std::array<int, 2> m_pipe{-1, -1};
};

/// Knows whether the machine runs on its battery.
class PowerService : public FakeService
{
public:
    explicit PowerService(const QDBusConnection& bus)
        : FakeService(bus, QStringLiteral("org.freedesktop.UPower"))
    {
        setOnBattery(false);
    }

    void setOnBattery(bool on)
    {
        changeProperty(QStringLiteral("/org/freedesktop/UPower"), QStringLiteral("org.freedesktop.UPower"),
                       QStringLiteral("OnBattery"), on);
    }
};

class SessionTest : public testing::Test
{
protected:
    LinuxSession& makeSession() { return m_session.emplace(m_bus.connect(), m_bus.connect()); }

    /// Waits for what the session finds out about one thing.
    template<typename Value>
    void expectBecomes(Value SessionState::*field, Value value)
    {
        EXPECT_TRUE(waitUntil([&] { return m_session->state().*field == value; }));
    }

    /// Waits until the session has heard all that services of the system have told before.
    void expectAllHeard(PowerService& power)
    {
        const bool next = !m_session->state().onBattery;
        power.setOnBattery(next);
        expectBecomes(&SessionState::onBattery, next);
    }

    const Variable m_sessionId{"XDG_SESSION_ID", "37"};
    WithApplication<QCoreApplication> m_application;
    PrivateBus m_bus;
    std::optional<LinuxSession> m_session;
};

TEST_F(SessionTest, HoldsUpSleepUntilItWasHeardOf)
{
    PowerService power(m_bus.connect());
    LoginManager login(m_bus.connect());
    auto& session = makeSession();
    std::vector<std::string> heard;
    QObject::connect(&session, &Session::aboutToSleep, [&] {
        runEvents(50ms);
        heard.emplace_back(login.isHeldUp() ? "about to sleep, held up" : "about to sleep, too late");
    });
    ASSERT_TRUE(waitUntil([&] { return login.locksHandedOut() == 1; }));
    expectAllHeard(power);
    QObject::connect(&session, &Session::changed,
                     [&] { heard.emplace_back(session.state().asleep ? "asleep" : "not asleep"); });
    QObject::connect(&session, &Session::woke, [&] { heard.emplace_back("woke"); });
    login.prepareForSleep(true);
    EXPECT_TRUE(waitUntil([&] { return !login.isHeldUp(); }));
    expectBecomes(&SessionState::asleep, true);
    login.prepareForSleep(false);
    expectBecomes(&SessionState::asleep, false);
    EXPECT_TRUE(waitUntil([&] { return login.locksHandedOut() == 2 && login.isHeldUp(); }));
    EXPECT_THAT(heard, ElementsAre("about to sleep, held up", "asleep", "not asleep", "woke"));
}

TEST_F(SessionTest, IsLockedWhileTheLockScreenOrAnySaverSaysSo)
{
    PowerService power(m_bus.connect());
    auto login = std::make_unique<LoginManager>(m_bus.connect());
    login->setProperty(QStringLiteral("LockedHint"), true);
    const auto savers = QStringLiteral("org.xfce.ScreenSaver");
    FakeService saver(m_bus.connect(), savers);
    saver.answer(savers + QStringLiteral(".GetActive"),
                 [](const QVariantList&) { return QVariantList{false}; });
    makeSession();
    expectBecomes(&SessionState::locked, true);

    const auto setLogin = [&](bool locked) {
        login->changeProperty(sessionPath, sessionInterface, QStringLiteral("LockedHint"), locked);
    };
    const auto setSaver = [&](bool active) {
        saver.signal(QStringLiteral("/"), savers, QStringLiteral("ActiveChanged"), {active});
    };
    setLogin(false);
    expectBecomes(&SessionState::locked, false);
    setSaver(true);
    expectBecomes(&SessionState::locked, true);
    setLogin(true);
    setLogin(false);
    expectAllHeard(power);
    EXPECT_TRUE(m_session->state().locked) << "behind the screen saver";
    setSaver(false);
    expectBecomes(&SessionState::locked, false);

    setLogin(true);
    expectBecomes(&SessionState::locked, true);
    login.reset();
    expectBecomes(&SessionState::locked, false);
}

TEST_F(SessionTest, AnotherSessionsLockIsNotOurs)
{
    PowerService power(m_bus.connect());
    LoginManager login(m_bus.connect());
    makeSession();
    ASSERT_TRUE(waitUntil([&] { return login.locksHandedOut() == 1; }));
    login.signal(QStringLiteral("/org/freedesktop/login1/session/_38"),
                 QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("PropertiesChanged"),
                 {sessionInterface, QVariantMap{{QStringLiteral("LockedHint"), true}}, QStringList()});
    expectAllHeard(power);
    EXPECT_FALSE(m_session->state().locked);
}

TEST_F(SessionTest, AServiceThatComesLateOrAgainIsPickedUp)
{
    makeSession();
    for (int round = 0; round < 2; ++round) {
        PowerService power(m_bus.connect());
        power.setOnBattery(true);
        expectBecomes(&SessionState::onBattery, true);
        power.setOnBattery(false);
        expectBecomes(&SessionState::onBattery, false);
        power.changeProperty(QStringLiteral("/org/freedesktop/UPower"),
                             QStringLiteral("org.freedesktop.UPower"), QStringLiteral("LidIsClosed"), true);
        power.setOnBattery(true);
        expectBecomes(&SessionState::onBattery, true);
    }
    expectBecomes(&SessionState::onBattery, false);
}

TEST_F(SessionTest, ThePortalsSettingsAreFollowed)
{
    FakeService portal(m_bus.connect(), QStringLiteral("org.freedesktop.portal.Desktop"));
    portal.answer(settings + QStringLiteral(".Read"), [](const QVariantList& arguments) -> QVariantList {
        const QVariant value = arguments.value(0) == gnomeInterface ? QVariant(false) : QVariant(0U);
        return {QVariant::fromValue(QDBusVariant(QVariant::fromValue(QDBusVariant(value))))};
    });
    makeSession();
    expectBecomes(&SessionState::reducedMotion, true);
    const auto change = [&](const QString& space, const QString& key, const QVariant& value) {
        portal.signal(portalPath, settings, QStringLiteral("SettingChanged"),
                      {space, key, QVariant::fromValue(QDBusVariant(value))});
    };
    change(gnomeInterface, QStringLiteral("enable-animations"), true);
    expectBecomes(&SessionState::reducedMotion, false);
    change(gnomeInterface, QStringLiteral("cursor-blink"), false);
    runEvents(50ms);
    EXPECT_FALSE(m_session->state().reducedMotion);
    const auto appearance = QStringLiteral("org.freedesktop.appearance");
    change(appearance, QStringLiteral("reduced-motion"), 1U);
    expectBecomes(&SessionState::reducedMotion, true);

    EXPECT_FALSE(m_session->state().highContrast);
    const auto access = QStringLiteral("org.gnome.desktop.a11y.interface");
    change(appearance, QStringLiteral("contrast"), 1U);
    expectBecomes(&SessionState::highContrast, true);
    change(access, QStringLiteral("high-contrast"), true);
    change(appearance, QStringLiteral("contrast"), 0U);
    runEvents(50ms);
    EXPECT_TRUE(m_session->state().highContrast) << "one of them is enough";
    change(access, QStringLiteral("high-contrast"), false);
    expectBecomes(&SessionState::highContrast, false);
    EXPECT_TRUE(m_session->state().reducedMotion);
}

TEST_F(SessionTest, TextIsAsLargeAsThePortalSaysIfItCanBe)
{
    const auto key = QStringLiteral("text-scaling-factor");
    {
        FakeService portal(m_bus.connect(), QStringLiteral("org.freedesktop.portal.Desktop"));
        portal.answer(settings + QStringLiteral(".Read"), [&](const QVariantList& arguments) -> QVariantList {
            const QVariant value = arguments.value(1) == key ? QVariant(1.25) : QVariant(true);
            return {QVariant::fromValue(QDBusVariant(QVariant::fromValue(QDBusVariant(value))))};
        });
        makeSession();
        expectBecomes(&SessionState::textScale, 1.25);
        for (const auto& [value, scale] :
             {std::pair(QVariant(0.5), 0.5), std::pair(QVariant(1e9), 1.0), std::pair(QVariant(3.0), 3.0),
              std::pair(QVariant(std::nan("")), 1.0), std::pair(QVariant(2.0), 2.0)}) {
            portal.signal(portalPath, settings, QStringLiteral("SettingChanged"),
                          {gnomeInterface, key, QVariant::fromValue(QDBusVariant(value))});
            expectBecomes(&SessionState::textScale, scale);
        }
    }
    expectBecomes(&SessionState::textScale, 1.0);
}

void replaceFile(const QString& path, const QByteArray& content)
{
    QSaveFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
    ASSERT_TRUE(file.commit());
}

class KdeSessionTest : public SessionTest
{
protected:
    const QTemporaryDir home;
    const Variable configuration{"XDG_CONFIG_HOME", home.path().toLocal8Bit()};
    const Variable desktop{"XDG_CURRENT_DESKTOP", "KDE"};
    const QString file = home.filePath(QStringLiteral("kdeglobals"));
};

TEST_F(KdeSessionTest, MotionIsReducedByTheAnimationSpeed)
{
    replaceFile(file, "[KDE]\nAnimationDurationFactor=0\n");
    makeSession();
    EXPECT_TRUE(m_session->state().reducedMotion);
    replaceFile(file, "[KDE]\nAnimationDurationFactor=0.5\n");
    expectBecomes(&SessionState::reducedMotion, false);
    replaceFile(file, "[KDE]\nAnimationDurationFactor=0\n");
    expectBecomes(&SessionState::reducedMotion, true);
    replaceFile(file, "[KDE]\nwidgetStyle=Breeze\n");
    expectBecomes(&SessionState::reducedMotion, false);
}

TEST_F(KdeSessionTest, TheFontTellsTheSizeOfText)
{
    replaceFile(file, "[General]\nfont=Noto Sans,15,-1,5,50,0,0,0,0,0\n");
    makeSession();
    EXPECT_EQ(m_session->state().fontScale, 1.5);
    for (const auto& [content, scale] :
         {std::pair("[General]\nfont=Noto Sans,12.5,-1,5,400,0,0,0,0,0,0,0,0,0,0,1\n", 1.25),
          std::pair("[General]\nfont=Noto Sans,-1,20,5,50,0,0,0,0,0\n", 1.0),
          std::pair("[General]\nfont=Noto Sans,9,-1,5,50,0,0,0,0,0\n", 0.9), std::pair("[General]\n", 1.0)}) {
        replaceFile(file, content);
        expectBecomes(&SessionState::fontScale, scale);
    }
    EXPECT_EQ(m_session->state().textScale, 1) << "which the portal tells, and an X server's resolution has";
}

TEST_F(SessionTest, LxqtsFontTellsTheSizeOfText)
{
    const QTemporaryDir home;
    const Variable configuration("XDG_CONFIG_HOME", home.path().toLocal8Bit());
    const Variable desktop("XDG_CURRENT_DESKTOP", "LXQt");
    const QString file = home.filePath(QStringLiteral("lxqt/lxqt.conf"));
    ASSERT_TRUE(QDir().mkpath(QFileInfo(file).path()));
    replaceFile(file, "[Qt]\nfont=\"Sans,11,-1,5,50,0,0,0,0,0\"\n");
    makeSession();
    EXPECT_EQ(m_session->state().fontScale, 1);
    replaceFile(file, "[Qt]\nfont=\"Noto Sans,22,-1,5,400,0,0,0,0,0,0,0,0,0,0,1\"\n");
    expectBecomes(&SessionState::fontScale, 2.0);
}

TEST_F(SessionTest, XfcesFontTellsTheSizeOfText)
{
    const Variable desktop("XDG_CURRENT_DESKTOP", "XFCE");
    const auto name = QStringLiteral("org.xfce.Xfconf");
    FakeService xfce(m_bus.connect(), name);
    xfce.answer(name + QStringLiteral(".GetProperty"), [](const QVariantList& arguments) -> QVariantList {
        EXPECT_EQ(arguments, (QVariantList{QStringLiteral("xsettings"), QStringLiteral("/Gtk/FontName")}));
        return {QVariant::fromValue(QDBusVariant(QStringLiteral("Noto Sans Bold 15")))};
    });
    makeSession();
    expectBecomes(&SessionState::fontScale, 1.5);
    const auto change = [&](const QString& signal, const QString& key, const QVariantList& value) {
        xfce.signal(QStringLiteral("/org/xfce/Xfconf"), name, signal,
                    QVariantList{QStringLiteral("xsettings"), key} + value);
    };
    const auto font = [](const QString& text) { return QVariant::fromValue(QDBusVariant(text)); };
    const auto key = QStringLiteral("/Gtk/FontName");
    change(QStringLiteral("PropertyChanged"), key, {font(QStringLiteral("Sans 12"))});
    expectBecomes(&SessionState::fontScale, 1.2);
    change(QStringLiteral("PropertyChanged"), QStringLiteral("/Gtk/MonospaceFontName"),
           {font(QStringLiteral("Mono 20"))});
    change(QStringLiteral("PropertyChanged"), key, {font(QStringLiteral("Sans 8"))});
    expectBecomes(&SessionState::fontScale, 0.8);
    change(QStringLiteral("PropertyRemoved"), key, {});
    expectBecomes(&SessionState::fontScale, 1.0);
}

/// Plays the settings daemon of an X desktop.
class X11SettingsDaemon
{
public:
    X11SettingsDaemon()
    {
        xcb_create_window(m_server.get(), XCB_COPY_FROM_PARENT, m_window, m_server.root(), 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        const xcb_atom_t selection = m_server.atom("_XSETTINGS_S0");
        xcb_set_selection_owner(m_server.get(), m_window, selection, XCB_CURRENT_TIME);
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = m_server.root();
        message.type = m_server.atom("MANAGER");
        message.data.data32[1] = selection;
        message.data.data32[2] = m_window;
        xcb_send_event(m_server.get(), 0, m_server.root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY,
                       reinterpret_cast<const char*>(&message));
        m_server.sync();
    }

    void tell(const QByteArray& settings)
    {
        const xcb_atom_t name = m_server.atom("_XSETTINGS_SETTINGS");
        xcb_change_property(m_server.get(), XCB_PROP_MODE_REPLACE, m_window, name, name, 8,
                            static_cast<std::uint32_t>(settings.size()), settings.data());
        m_server.sync();
    }

    /// A number, a colour and a font, as a machine of either byte order tells them.
    static QByteArray settings(const QByteArray& font, QDataStream::ByteOrder order)
    {
        QByteArray bytes;
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        stream.setByteOrder(order);
        const auto add = [&](quint8 type, const QByteArray& name) {
            stream << type << quint8{0} << static_cast<quint16>(name.size());
            stream.writeRawData(name, static_cast<int>(name.size()));
            stream.writeRawData("\0\0\0", static_cast<int>(-name.size() & 3));
            stream << quint32{7};
        };
        stream << quint8{order == QDataStream::BigEndian} << quint8{0} << quint16{0} << quint32{8}
               << quint32{3};
        add(0, "Xft/DPI");
        stream << quint32{98304};
        add(2, "Net/Odd");
        stream << quint64{0x1234567812345678};
        add(1, "Gtk/FontName");
        stream << static_cast<quint32>(font.size());
        stream.writeRawData(font, static_cast<int>(font.size()));
        stream.writeRawData("\0\0\0", static_cast<int>(-font.size() & 3));
        return bytes;
    }

private:
    X11Connection m_server;
    xcb_window_t m_window = xcb_generate_id(m_server.get());
};

TEST_F(SessionTest, MatesFontTellsTheSizeOfText)
{
    const VirtualDisplay display;
    const Variable desktop("XDG_CURRENT_DESKTOP", "MATE");
    makeSession();
    EXPECT_EQ(m_session->state().fontScale, 1) << "without a daemon";
    std::optional<X11SettingsDaemon> daemon(std::in_place);
    daemon->tell(X11SettingsDaemon::settings("Noto Sans Bold 15", QDataStream::LittleEndian));
    expectBecomes(&SessionState::fontScale, 1.5);
    daemon->tell(X11SettingsDaemon::settings("Sans 8", QDataStream::BigEndian));
    expectBecomes(&SessionState::fontScale, 0.8);

    const QByteArray whole = X11SettingsDaemon::settings("Sans 20", QDataStream::LittleEndian);
    // What fills up the last text is not missed.
    for (qsizetype length = 0; length + 1 < whole.size(); ++length) {
        daemon->tell(whole);
        expectBecomes(&SessionState::fontScale, 2.0);
        daemon->tell(whole.left(length));
        expectBecomes(&SessionState::fontScale, 1.0);
    }

    daemon->tell(whole);
    expectBecomes(&SessionState::fontScale, 2.0);
    daemon.reset();
    expectBecomes(&SessionState::fontScale, 1.0);
    daemon.emplace();
    daemon->tell(X11SettingsDaemon::settings("Sans 12", QDataStream::LittleEndian));
    expectBecomes(&SessionState::fontScale, 1.2);
    makeSession();
    EXPECT_EQ(m_session->state().fontScale, 1.2) << "told before we came";
}

TEST_F(SessionTest, StartsNothingByAsking)
{
    const QTemporaryDir home;
    ASSERT_TRUE(QDir(home.path()).mkpath(QStringLiteral("dbus-1/services")));
    const QString mark = home.filePath(QStringLiteral("started"));
    for (const auto* name : {"org.freedesktop.ScreenSaver", "org.freedesktop.portal.Desktop",
                             "org.freedesktop.UPower", "org.freedesktop.login1"}) {
        replaceFile(home.filePath(QStringLiteral("dbus-1/services/%1.service").arg(QLatin1String(name))),
                    QByteArray("[D-BUS Service]\nName=") + name + "\nExec=/bin/touch " + mark.toLocal8Bit() +
                        '\n');
    }
    qputenv("XDG_DATA_HOME", home.path().toLocal8Bit());
    PrivateBus bus;
    qunsetenv("XDG_DATA_HOME");
    const LinuxSession session(bus.connect(), bus.connect());
    runEvents(300ms);
    EXPECT_FALSE(QFile::exists(mark));
    // What would have started: the way to notice it works.
    bus.connect().send(QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.UPower"),
                                                      QStringLiteral("/"), QStringLiteral("a.b"),
                                                      QStringLiteral("C")));
    EXPECT_TRUE(waitUntil([&] { return QFile::exists(mark); }));
}

TEST_F(SessionTest, WithoutAnyBusNothingIsSo)
{
    const QDBusConnection nowhere(QStringLiteral("nowhere"));
    const LinuxSession session(nowhere, nowhere);
    runEvents(50ms);
    EXPECT_EQ(session.state(), SessionState());
}

} // namespace
} // namespace tessel
