// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/session.h"

#include <QDBusConnection>
#include <QDBusUnixFileDescriptor>
#include <QString>

#include <memory>
#include <set>

class QSettings;
class QSocketNotifier;

namespace tessel {

class BusService;
class X11Settings;

/// What the services of a Linux desktop tell: the login manager, screen savers, the power service and the
/// desktop's settings. Each may be missing, and may come later.
class LinuxSession : public Session
{
    Q_OBJECT

public:
    LinuxSession(const QDBusConnection& sessionBus, const QDBusConnection& systemBus);
    ~LinuxSession() override;

private:
    void watchLoginManager(const QDBusConnection& systemBus);
    void holdUpSleep();
    void setAsleep(bool asleep);
    void findOwnSession();
    void watchLock(const QString& sessionPath);

    void watchScreenSaver(const QDBusConnection& sessionBus, const QString& name);
    void watchBattery(const QDBusConnection& systemBus);
    void watchDesktopSettings(const QDBusConnection& sessionBus);
    void watchXfceFont(const QDBusConnection& sessionBus);
    void watchFontFile();
    void watchMateFont();
    void setFont(const QString& name, double usualSize);
    void readAnimationSpeed(const QSettings& settings);
    void watchClock();
    void readClock();

    /// Something that is so as long as any of those who know says it.
    struct Claim
    {
        bool SessionState::*const field;
        std::set<QString> by{};
    };

    template<typename Value>
    void set(Value SessionState::*field, Value value);
    void set(Claim& claim, const QString& by, bool isSo);
    Claim& claimOf(bool SessionState::*wish);

    BusService* m_loginManager = nullptr;
    QDBusUnixFileDescriptor m_sleepLock; ///< the machine waits, for a while, until it is closed
    Claim m_locked{&SessionState::locked};
    Claim m_reducedMotion{&SessionState::reducedMotion};
    Claim m_highContrast{&SessionState::highContrast};
    std::unique_ptr<X11Settings> m_x11Settings; ///< where they tell of the font
    int m_clock = -1;
    QSocketNotifier* m_clockNotifier = nullptr;
};

} // namespace tessel
