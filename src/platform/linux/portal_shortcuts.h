// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/shortcuts.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantMap>

namespace tessel {

class BusService;

/// A key combination as the portal is told of it, and tells of it.
struct PortalShortcut
{
    QString id;
    QVariantMap properties;
};

QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcut& shortcut);
const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcut& shortcut);

/// Key combinations by the desktop's portal.
class PortalShortcuts final : public Shortcuts
{
    Q_OBJECT

public:
    /// \param sessionBus a connection of which nothing else asks the portal
    explicit PortalShortcuts(const QDBusConnection& sessionBus);

    [[nodiscard]] bool isOffered() const override { return m_isOffered; }
    void ask(const std::vector<Shortcut>& shortcuts, std::function<void(Outcome)> done) override;
    void takeAgain(const std::vector<Shortcut>& shortcuts) override;

private:
    void introduce();
    void askWhetherOffered();
    void setOffered(bool offered);
    void receive(const QDBusMessage& message);
    void receiveAnswer(const QString& path, uint code, const QVariantMap& results);
    void openSession();
    void listKnown();
    [[nodiscard]] bool areKnown(const QVariant& list) const;
    void bind();
    void closeSession();
    void end(Outcome outcome);

    QDBusConnection m_bus;
    BusService* m_portal = nullptr;
    bool m_isOffered = false;
    std::vector<Shortcut> m_wanted;
    bool m_takesAgain = false;           ///< rather than asking for them anew
    std::function<void(Outcome)> m_done; ///< while the portal is asked
    QString m_session;                   ///< that they were given in; empty while there is none
};

} // namespace tessel
