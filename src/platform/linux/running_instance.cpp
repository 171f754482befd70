// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/running_instance.h"

#include "base/data_folder.h"
#include "base/identity.h"

#include <QDBusConnectionInterface>
#include <QDir>
#include <QFile>
#include <QSocketNotifier>

#include <algorithm>
#include <iterator>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>

namespace tessel {

namespace {

const auto interfaceName = QStringLiteral("org.freedesktop.Application");

/// A lock file older than this that does not say whose it is was left behind by a program that was killed as
/// it made it.
constexpr std::chrono::milliseconds namelessLockAge{1000};

QString noAnswer()
{
    return RunningInstance::tr(
        "It already runs, but does not answer. End it, or log out and in again, and then "
        "start it once more.");
}

const auto stillStarting = QStringLiteral("Tessel Broth is starting or ending. Ask again in a moment.");

void refuse(const QDBusConnection& bus, const QDBusMessage& message, const QString& reason)
{
    message.setDelayedReply(true);
    bus.send(message.createErrorReply(QDBusError::InvalidArgs, reason));
}

/// Below the folder of this login if there is one, which empties itself.
QString lockFolder()
{
    QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!runtime.isEmpty() && QDir(runtime).exists())
        return runtime;
    return dataFolder();
}

/// \return an address that is refused by all calls if the path is too long for one
sockaddr_un socketAddress(const QString& path)
{
    sockaddr_un address{};
    const QByteArray name = QFile::encodeName(path);
    if (name.size() >= std::ssize(address.sun_path))
        return address;
    address.sun_family = AF_UNIX;
    std::ranges::copy(name, std::begin(address.sun_path));
    return address;
}

} // namespace

ApplicationInterface::ApplicationInterface(QDBusConnection bus, RunningInstance* instance)
    : QDBusAbstractAdaptor(instance)
    , m_bus(std::move(bus))
    , m_instance(instance)
{
}

void ApplicationInterface::Activate(const QVariantMap& /*platformData*/)
{
    Q_EMIT m_instance->activated();
}

void ApplicationInterface::Open(const QStringList& /*uris*/, const QVariantMap& platformData)
{
    Activate(platformData);
}

void ApplicationInterface::ActivateAction(const QString& name, const QVariantList& parameter,
                                          const QVariantMap& /*platformData*/, const QDBusMessage& message)
{
    const auto& perform = m_instance->answers().perform;
    std::optional<QString> refusal = stillStarting;
    if (parameter.size() > 1)
        refusal = QStringLiteral("An action takes one parameter at most, not %1.").arg(parameter.size());
    else if (perform)
        refusal = perform(name, parameter.value(0));
    if (refusal)
        refuse(m_bus, message, *refusal);
}

WallpaperInterface::WallpaperInterface(QDBusConnection bus, RunningInstance* instance)
    : QDBusAbstractAdaptor(instance)
    , m_bus(std::move(bus))
    , m_instance(instance)
{
}

void WallpaperInterface::Wallpaper(const QDBusMessage& message, QString& look, bool& animated)
{
    const auto& wallpaper = m_instance->answers().wallpaper;
    if (!wallpaper) {
        refuse(m_bus, message, stillStarting);
        return;
    }
    const ShownWallpaper shown = wallpaper();
    look = shown.look;
    animated = shown.isAnimated;
}

BusInstance::BusInstance(QDBusConnection bus, std::chrono::milliseconds patience)
    : m_bus(std::move(bus))
    , m_patience(patience)
{
    new ApplicationInterface(m_bus, this);
    new WallpaperInterface(m_bus, this);
    // Before the name is ours, since a call may come the moment that it is.
    m_bus.registerObject(identity::objectPath, this, QDBusConnection::ExportAdaptors);
    // Neither waits in a queue for the name, nor lets another take it.
    m_isFirst = m_bus.registerService(identity::id);
    if (!m_isFirst)
        m_bus.unregisterObject(identity::objectPath);
}

BusInstance::~BusInstance()
{
    if (!m_isFirst)
        return;
    m_bus.unregisterService(identity::id);
    m_bus.unregisterObject(identity::objectPath);
}

QString BusInstance::askToComeForward()
{
    auto question = QDBusMessage::createMethodCall(identity::id, identity::objectPath, interfaceName,
                                                   QStringLiteral("Activate"));
    question << QVariantMap();
    question.setAutoStartService(false);
    const auto answer = m_bus.call(question, QDBus::Block, static_cast<int>(m_patience.count()));
    if (answer.type() != QDBusMessage::ErrorMessage)
        return {};
    if (QDBusError(answer).type() == QDBusError::NoReply)
        return noAnswer();
    return RunningInstance::tr(
               "Its name on the session bus is not to be had: another program has it, or the bus "
               "refuses it. End that program, or log out and in again, and then start Tessel "
               "Broth once more. The answer was: %1")
        .arg(answer.errorMessage());
}

LockFileInstance::LockFileInstance(const QString& folder)
    : m_lock(folder + QLatin1Char('/') + identity::id + QStringLiteral(".lock"))
    , m_socketFile(folder + QLatin1Char('/') + identity::id + QStringLiteral(".socket"))
    , m_socket(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0))
{
    // It is held for days, and not taken away for its age: while its holder lives, the file itself is locked.
    m_lock.setStaleLockTime(namelessLockAge);
    QDir().mkpath(folder);
    m_isFirst = m_lock.tryLock() || m_lock.error() != QLockFile::LockFailedError;
    if (m_isFirst)
        listen();
}

LockFileInstance::~LockFileInstance()
{
    if (m_isFirst)
        QFile::remove(m_socketFile);
    close(m_socket);
}

void LockFileInstance::listen()
{
    // One that was killed leaves its own.
    QFile::remove(m_socketFile);
    const sockaddr_un address = socketAddress(m_socketFile);
    if (bind(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        qWarning("Tessel Broth will not hear when it is started once more.");
        return;
    }
    auto* notifier = new QSocketNotifier(m_socket, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &LockFileInstance::hear);
}

void LockFileInstance::hear()
{
    char byte = 0;
    while (recv(m_socket, &byte, sizeof byte, 0) > 0) {
    }
    Q_EMIT activated();
}

QString LockFileInstance::askToComeForward()
{
    const sockaddr_un address = socketAddress(m_socketFile);
    const char byte = 0;
    const auto* const receiver = reinterpret_cast<const sockaddr*>(&address);
    return sendto(m_socket, &byte, sizeof byte, 0, receiver, sizeof address) < 0 ? noAnswer() : QString();
}

std::unique_ptr<RunningInstance> claimInstance()
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (bus.isConnected())
        return std::make_unique<BusInstance>(bus);
    return std::make_unique<LockFileInstance>(lockFolder());
}

} // namespace tessel
