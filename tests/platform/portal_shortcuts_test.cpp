// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/identity.h"
#include "platform/linux/portal.h"
#include "platform/linux/portal_shortcuts.h"
#include "support/fake_service.h"
#include "support/surroundings.h"

#include <QDBusObjectPath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tessel {
namespace {

using testing::ElementsAre;
using Outcome = Shortcuts::Outcome;

const auto shortcutsInterface = QStringLiteral("org.freedesktop.portal.GlobalShortcuts");
const auto registryInterface = QStringLiteral("org.freedesktop.host.portal.Registry");
const auto sessionInterface = QStringLiteral("org.freedesktop.portal.Session");

/// A desktop's portal, which answers as a test tells it to.
class PortalShortcutsTest : public testing::Test
{
protected:
    PortalShortcutsTest()
    {
        QObject::connect(&m_shortcuts, &Shortcuts::pressed, &m_shortcuts,
                         [this](const QString& id) { m_pressed.push_back(id.toStdString()); });
    }

    /// The portal appears.
    void offer()
    {
        m_portal = std::make_unique<FakeService>(m_bus.connect(), portal::service);
        m_portal->setProperty(QStringLiteral("version"), 1U);
        m_portal->answer(registryInterface + QStringLiteral(".Register"), [this](const auto& arguments) {
            m_names.push_back(arguments.value(0).toString());
            return QVariantList();
        });
        m_portal->answer(shortcutsInterface + QStringLiteral(".CreateSession"),
                         [this](const auto& arguments) {
                             return answerQuestion(arguments.value(0), m_sessionAnswer,
                                                   {{QStringLiteral("session_handle"), nextSession()}});
                         });
        m_portal->answer(
            shortcutsInterface + QStringLiteral(".ListShortcuts"), [this](const auto& arguments) {
                return answerQuestion(arguments.value(1), m_listAnswer,
                                      {{QStringLiteral("shortcuts"), QVariant::fromValue(m_known)}});
            });
        m_portal->answer(
            shortcutsInterface + QStringLiteral(".BindShortcuts"), [this](const auto& arguments) {
                m_bound.clear();
                for (const auto& [id, properties] : qdbus_cast<QList<PortalShortcut>>(arguments.value(1)))
                    m_bound.push_back(
                        (id + QLatin1Char('|') + properties[QStringLiteral("description")].toString())
                            .toStdString());
                return answerQuestion(arguments.value(3), m_bindAnswer, {});
            });
        m_portal->answer(sessionInterface + QStringLiteral(".Close"), [this](const auto&) {
            ++m_closed;
            return QVariantList();
        });
        ASSERT_TRUE(waitUntil([this] { return m_shortcuts.isOffered(); }));
    }

    QVariantList answerQuestion(const QVariant& options, uint code, const QVariantMap& results)
    {
        const QString path =
            portal::answerPath(m_own, qdbus_cast<QVariantMap>(options)[portal::handleToken].toString());
        m_portal->signal(path, portal::request, portal::response, {code, results});
        return {QVariant::fromValue(QDBusObjectPath(path))};
    }

    QString nextSession() { return m_session = QStringLiteral("/session/%1").arg(++m_sessions); }

    static std::vector<Shortcut> wanted()
    {
        return {{QStringLiteral("stir"), QStringLiteral("Stir It")},
                {QStringLiteral("taste"), QStringLiteral("Taste It")}};
    }

    Outcome ask()
    {
        std::optional<Outcome> outcome;
        m_shortcuts.ask(wanted(), [&](Outcome answer) { outcome = answer; });
        EXPECT_TRUE(waitUntil([&] { return outcome.has_value(); }));
        return outcome.value_or(Outcome::failed);
    }

    void press(const QString& session, const QString& id)
    {
        m_portal->signal(portal::path, shortcutsInterface, QStringLiteral("Activated"),
                         {QVariant::fromValue(QDBusObjectPath(session)), id, quint64{1}, QVariantMap()});
    }

    const WithApplication<QCoreApplication> m_application;
    PrivateBus m_bus;
    const QDBusConnection m_own = m_bus.connect();
    PortalShortcuts m_shortcuts{m_own};
    std::unique_ptr<FakeService> m_portal;
    uint m_sessionAnswer = portal::agreed;
    uint m_listAnswer = portal::agreed;
    uint m_bindAnswer = portal::agreed;
    int m_sessions = 0;
    int m_closed = 0;
    QString m_session;
    QStringList m_names;
    QList<PortalShortcut> m_known; ///< that the session has from the start
    std::vector<std::string> m_bound;
    std::vector<std::string> m_pressed;
};

TEST_F(PortalShortcutsTest, HearsWhatIsPressedInItsOwnSession)
{
    EXPECT_FALSE(m_shortcuts.isOffered());
    offer();
    EXPECT_EQ(m_names, QStringList{identity::id}) << "before anything else is asked";
    ASSERT_EQ(ask(), Outcome::given);
    EXPECT_THAT(m_bound, ElementsAre("stir|Stir It", "taste|Taste It"));
    press(QStringLiteral("/session/of/another"), QStringLiteral("stir"));
    press(m_session, QStringLiteral("taste"));
    EXPECT_TRUE(waitUntil([&] { return !m_pressed.empty(); }));
    EXPECT_THAT(m_pressed, ElementsAre("taste"));

    // In one session they can be asked for only once.
    ASSERT_EQ(ask(), Outcome::given);
    EXPECT_EQ(m_closed, 1);
    EXPECT_EQ(m_sessions, 2);
    m_portal.reset();
    EXPECT_TRUE(waitUntil([&] { return !m_shortcuts.isOffered(); }));
    offer();
    EXPECT_EQ(ask(), Outcome::given);
    EXPECT_EQ(m_closed, 1) << "that session went with its portal";
}

TEST_F(PortalShortcutsTest, TakesAgainWhatThePortalHasKept)
{
    offer();
    m_known = {{QStringLiteral("taste"), {}}, {QStringLiteral("stir"), {}}};
    m_shortcuts.takeAgain(wanted());
    // Only what is pressed tells that the session is there.
    EXPECT_TRUE(waitUntil([&] {
        if (!m_session.isEmpty())
            press(m_session, QStringLiteral("taste"));
        return !m_pressed.empty();
    }));
    EXPECT_THAT(m_bound, ElementsAre()) << "that might show the desktop's settings at each login";

    m_known.removeLast();
    m_shortcuts.takeAgain(wanted());
    EXPECT_TRUE(waitUntil([this] { return m_bound.size() == 2; })) << "one is new";
    m_bound.clear();
    m_listAnswer = 2;
    m_shortcuts.takeAgain(wanted());
    EXPECT_TRUE(waitUntil([this] { return m_bound.size() == 2; })) << "it does not say what it has";
}

TEST_F(PortalShortcutsTest, TellsWhoDidNotWantThem)
{
    offer();
    m_bindAnswer = portal::cancelled;
    EXPECT_EQ(ask(), Outcome::declined);
    EXPECT_TRUE(waitUntil([&] { return m_closed == 1; }));
    press(m_session, QStringLiteral("stir"));
    static constexpr uint otherEnd = 2;
    m_sessionAnswer = otherEnd;
    EXPECT_EQ(ask(), Outcome::failed);
    EXPECT_THAT(m_pressed, ElementsAre());
    m_portal.reset();
    ASSERT_TRUE(waitUntil([this] { return !m_shortcuts.isOffered(); }));
    FakeService unable(m_bus.connect(), portal::service);
    unable.setProperty(QStringLiteral("version"), 1U);
    ASSERT_TRUE(waitUntil([this] { return m_shortcuts.isOffered(); }));
    EXPECT_EQ(ask(), Outcome::failed) << "an unknown method";
}

} // namespace
} // namespace tessel
