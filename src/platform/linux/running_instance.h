// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/running_instance.h"

#include <QDBusAbstractAdaptor>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QLockFile>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <chrono>

namespace tessel {

/// The owner of the program's name on the session bus, or one that found it taken.
class BusInstance : public RunningInstance
{
    Q_OBJECT

public:
    /// \param patience with one that runs already, but is still starting, or hangs
    explicit BusInstance(QDBusConnection bus, std::chrono::milliseconds patience = std::chrono::seconds(5));
    ~BusInstance() override;

    [[nodiscard]] bool isFirst() const override { return m_isFirst; }
    [[nodiscard]] QString askToComeForward() override;

private:
    QDBusConnection m_bus;
    const std::chrono::milliseconds m_patience;
    bool m_isFirst = false;
};

/// The holder of a lock file, where there is no session bus. A socket beside it takes the place of the bus.
class LockFileInstance : public RunningInstance
{
    Q_OBJECT

public:
    /// \param folder made if it is missing; where no file can be written, everybody is first
    explicit LockFileInstance(const QString& folder);
    ~LockFileInstance() override;
    LockFileInstance(const LockFileInstance&) = delete;
    LockFileInstance& operator=(const LockFileInstance&) = delete;

    [[nodiscard]] bool isFirst() const override { return m_isFirst; }
    [[nodiscard]] QString askToComeForward() override;

private:
    void listen();
    void hear();

    QLockFile m_lock;
    const QString m_socketFile;
    const int m_socket;
    bool m_isFirst = false;
};

/// What the desktop calls on the running instance (Desktop Entry rules, "D-Bus Activation").
class ApplicationInterface : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    ApplicationInterface(QDBusConnection bus, RunningInstance* instance);

    Q_SLOT void Activate(const QVariantMap& platformData);
    /// We open no files: the user has only started the program in another way.
    Q_SLOT void Open(const QStringList& uris, const QVariantMap& platformData);
    Q_SLOT void ActivateAction(const QString& name, const QVariantList& parameter,
                               const QVariantMap& platformData, const QDBusMessage& message);

private:
    QDBusConnection m_bus;
    RunningInstance* m_instance;
};

/// What scripts read of the running instance.
class WallpaperInterface : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.tesselbroth.TesselBroth")

public:
    WallpaperInterface(QDBusConnection bus, RunningInstance* instance);

    /// The look on the desktop as JSON, empty while there is none, and whether it is animated.
    Q_SLOT void Wallpaper(const QDBusMessage& message, QString& look, bool& animated);

private:
    QDBusConnection m_bus;
    RunningInstance* m_instance;
};

} // namespace tessel
