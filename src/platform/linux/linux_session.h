// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/session.h"

#include <QDBusConnection>
#include <QDBusUnixFileDescriptor>
#include <QString>

#include <set>

class QFileSystemWatcher;
class QSocketNotifier;

namespace tessel {

class BusService;

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
    void watchMotionSettings(const QDBusConnection& sessionBus);
    void watchKdeSettings();
    void readKdeSettings();
    void watchClock();
    void readClock();

    void set(bool SessionState::*field, bool value);
    void setLocked(const QString& by, bool locked);
    void setReducedMotion(const QString& by, bool reduced);

    BusService* m_loginManager = nullptr;
    QDBusUnixFileDescriptor m_sleepLock; ///< the machine waits, for a while, until it is closed
    std::set<QString> m_lockedBy;
    std::set<QString> m_motionReducedBy;
    QFileSystemWatcher* m_kdeSettings = nullptr;
    int m_clock = -1;
    QSocketNotifier* m_clockNotifier = nullptr;
};

} // namespace tessel
