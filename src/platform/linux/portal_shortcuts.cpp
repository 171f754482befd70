// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/portal_shortcuts.h"

#include "base/identity.h"
#include "platform/linux/bus_service.h"
#include "platform/linux/portal.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusObjectPath>

#include <algorithm>
#include <utility>

namespace tessel {

QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcut& shortcut)
{
    argument.beginStructure();
    argument << shortcut.id << shortcut.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcut& shortcut)
{
    argument.beginStructure();
    argument >> shortcut.id >> shortcut.properties;
    argument.endStructure();
    return argument;
}

namespace {

const auto shortcutsInterface = QStringLiteral("org.freedesktop.portal.GlobalShortcuts");
const auto sessionInterface = QStringLiteral("org.freedesktop.portal.Session");
const auto registryInterface = QStringLiteral("org.freedesktop.host.portal.Registry");
const auto activated = QStringLiteral("Activated");
const auto closed = QStringLiteral("Closed");

/// The portal makes the paths of our questions and of the session from these.
const auto sessionQuestion = QStringLiteral("shortcuts_session");
const auto listQuestion = QStringLiteral("shortcuts_list");
const auto bindQuestion = QStringLiteral("shortcuts_bind");
const auto sessionToken = QStringLiteral("shortcuts");

} // namespace

PortalShortcuts::PortalShortcuts(const QDBusConnection& sessionBus)
    : m_bus(sessionBus)
    , m_portal(new BusService(sessionBus, portal::service, this))
{
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<QList<PortalShortcut>>();
    connect(m_portal, &BusService::appeared, this, [this] {
        for (const QString& question : {sessionQuestion, listQuestion, bindQuestion})
            m_portal->listen(portal::answerPath(m_bus, question), portal::request, portal::response);
        m_portal->listen(portal::path, shortcutsInterface, activated);
        m_portal->listen({}, sessionInterface, closed);
        introduce();
    });
    connect(m_portal, &BusService::vanished, this, [this] {
        m_session.clear();
        m_done = nullptr;
        setOffered(false);
    });
    connect(m_portal, &BusService::received, this, &PortalShortcuts::receive);
}

/// Tells the portal whose combinations these are, so that the desktop's settings list them under the
/// program's name. It knows by itself what a sandbox or a session's unit holds, and older ones cannot be
/// told.
void PortalShortcuts::introduce()
{
    m_portal->call(
        portal::path, registryInterface, QStringLiteral("Register"), {identity::id, QVariantMap()},
        [this](const QDBusMessage&) { askWhetherOffered(); }, [this] { askWhetherOffered(); });
}

void PortalShortcuts::askWhetherOffered()
{
    m_portal->property(portal::path, shortcutsInterface, QStringLiteral("version"),
                       [this](const QVariant& version) { setOffered(version.toUInt() > 0); });
}

void PortalShortcuts::ask(const std::vector<Shortcut>& shortcuts, std::function<void(Outcome)> done)
{
    m_wanted = shortcuts;
    m_takesAgain = false;
    m_done = std::move(done);
    openSession();
}

void PortalShortcuts::takeAgain(const std::vector<Shortcut>& shortcuts)
{
    m_wanted = shortcuts;
    m_takesAgain = true;
    m_done = nullptr;
    openSession();
}

void PortalShortcuts::openSession()
{
    closeSession();
    m_portal->call(
        portal::path, shortcutsInterface, QStringLiteral("CreateSession"),
        {QVariantMap{{portal::handleToken, sessionQuestion},
                     {QStringLiteral("session_handle_token"), sessionToken}}},
        [](const QDBusMessage&) {}, [this] { end(Outcome::failed); });
}

void PortalShortcuts::setOffered(bool offered)
{
    if (offered == m_isOffered)
        return;
    m_isOffered = offered;
    Q_EMIT offeredChanged();
}

void PortalShortcuts::receive(const QDBusMessage& message)
{
    const QVariantList arguments = message.arguments();
    if (message.member() == portal::response)
        receiveAnswer(message.path(), arguments.value(0).toUInt(),
                      qdbus_cast<QVariantMap>(arguments.value(1)));
    else if (message.member() == closed && message.path() == m_session)
        m_session.clear();
    else if (message.member() == activated && arguments.value(0).value<QDBusObjectPath>().path() == m_session)
        Q_EMIT pressed(arguments.value(1).toString());
}

void PortalShortcuts::receiveAnswer(const QString& path, uint code, const QVariantMap& results)
{
    const bool isAgreed = code == portal::agreed;
    if (path == portal::answerPath(m_bus, listQuestion)) {
        if (!m_takesAgain || m_session.isEmpty())
            return; // they were asked for anew meanwhile
        if (isAgreed && areKnown(results.value(QStringLiteral("shortcuts"))))
            end(Outcome::given);
        else
            bind();
    } else if (!isAgreed) {
        end(code == portal::cancelled ? Outcome::declined : Outcome::failed);
    } else if (path == portal::answerPath(m_bus, sessionQuestion)) {
        m_session = results.value(QStringLiteral("session_handle")).toString();
        if (m_takesAgain)
            listKnown();
        else
            bind();
    } else {
        end(Outcome::given);
    }
}

/// Some portals give a session at once what they have kept for the program, and show their settings whenever
/// they are asked to bind.
void PortalShortcuts::listKnown()
{
    m_portal->call(
        portal::path, shortcutsInterface, QStringLiteral("ListShortcuts"),
        {QVariant::fromValue(QDBusObjectPath(m_session)), QVariantMap{{portal::handleToken, listQuestion}}},
        [](const QDBusMessage&) {},
        [this] {
            if (!m_session.isEmpty())
                bind();
        });
}

bool PortalShortcuts::areKnown(const QVariant& list) const
{
    const auto known = qdbus_cast<QList<PortalShortcut>>(list);
    return std::ranges::all_of(m_wanted, [&](const Shortcut& wanted) {
        return std::ranges::any_of(known, [&](const PortalShortcut& each) { return each.id == wanted.id; });
    });
}

void PortalShortcuts::bind()
{
    QList<PortalShortcut> shortcuts;
    for (const Shortcut& each : m_wanted)
        shortcuts.push_back({each.id, {{QStringLiteral("description"), each.title}}});
    const QString window; // none that the question would belong to
    m_portal->call(
        portal::path, shortcutsInterface, QStringLiteral("BindShortcuts"),
        {QVariant::fromValue(QDBusObjectPath(m_session)), QVariant::fromValue(shortcuts), window,
         QVariantMap{{portal::handleToken, bindQuestion}}},
        [](const QDBusMessage&) {}, [this] { end(Outcome::failed); });
}

/// In one session they can be asked for only once.
void PortalShortcuts::closeSession()
{
    if (!m_session.isEmpty())
        m_portal->call(std::exchange(m_session, {}), sessionInterface, QStringLiteral("Close"), {},
                       [](const QDBusMessage&) {});
}

void PortalShortcuts::end(Outcome outcome)
{
    if (outcome != Outcome::given)
        closeSession();
    if (const auto done = std::exchange(m_done, nullptr))
        done(outcome);
}

std::unique_ptr<Shortcuts> watchShortcuts()
{
    // The portal takes a program's name only in the first call of a connection, and Qt has asked it for
    // settings on its own.
    return std::make_unique<PortalShortcuts>(
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("shortcuts")));
}

} // namespace tessel
