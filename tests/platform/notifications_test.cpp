// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/notifications.h"
#include "support/fake_service.h"
#include "support/surroundings.h"

#include <gtest/gtest.h>

namespace tessel {
namespace {

using namespace std::chrono_literals;

/// Whether it is told in time that a message was not shown.
bool isFailureTold(BusNotifications& notifications)
{
    bool isTold = false;
    notifications.show(QStringLiteral("Ready"), QStringLiteral("Click the bowl."), [&] { isTold = true; });
    EXPECT_FALSE(isTold) << "the caller is not ready yet";
    return waitUntil([&] { return isTold; });
}

TEST(NotificationsTest, TellsThatNobodyShowsMessages)
{
    const WithApplication<QCoreApplication> application;
    BusNotifications withoutBus(QDBusConnection(QStringLiteral("no bus")));
    EXPECT_TRUE(isFailureTold(withoutBus));

    PrivateBus bus;
    BusNotifications withoutService(bus.connect());
    EXPECT_TRUE(isFailureTold(withoutService));

    FakeService service(bus.connect(), QStringLiteral("org.freedesktop.Notifications"));
    service.hang();
    BusNotifications withoutAnswer(bus.connect(), 50ms);
    EXPECT_TRUE(isFailureTold(withoutAnswer));
}

TEST(NotificationsTest, WritesMarkupOnlyForThoseWhoReadIt)
{
    const WithApplication<QCoreApplication> application;
    PrivateBus bus;
    QStringList capabilities{QStringLiteral("body")};
    QStringList texts;
    const FakeService service(bus.connect(), "org.freedesktop.Notifications", "/",
                              [&](const QString& method, const QVariantList& arguments) -> QVariantList {
                                  if (method == QLatin1String("GetCapabilities"))
                                      return {capabilities};
                                  texts << arguments.value(4).toString();
                                  return {1U};
                              });
    BusNotifications notifications(bus.connect());
    const auto show = [&] {
        notifications.show(QStringLiteral("Saved"), QStringLiteral("\"a & b\" <i>"),
                           [] { ADD_FAILURE() << "not shown"; });
    };
    show();
    ASSERT_TRUE(waitUntil([&] { return texts.size() == 1; }));
    capabilities << QStringLiteral("body-markup");
    show();
    ASSERT_TRUE(waitUntil([&] { return texts.size() == 2; }));
    EXPECT_EQ(texts[0], QStringLiteral("\"a & b\" <i>"));
    EXPECT_EQ(texts[1], QStringLiteral("&quot;a &amp; b&quot; &lt;i&gt;"));
}

} // namespace
} // namespace tessel
