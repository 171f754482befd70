// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/panel_shade.h"
#include "support/fake_service.h"
#include "support/surroundings.h"

#include <QDBusVariant>
#include <gtest/gtest.h>

#include <memory>

namespace tessel {
namespace {

const auto settings = QStringLiteral("org.xfce.Xfconf");
const auto darkMode = QStringLiteral("/panels/dark-mode");

class PanelShadeTest : public testing::Test
{
protected:
    void startXfceSettings() { m_settings = std::make_unique<FakeService>(m_bus.connect(), settings); }

    void answer(bool isDark)
    {
        m_settings->answer(settings + QStringLiteral(".GetProperty"),
                           [isDark](const QVariantList& arguments) -> QVariantList {
                               EXPECT_EQ(arguments, (QVariantList{QStringLiteral("xfce4-panel"), darkMode}));
                               return {QVariant::fromValue(QDBusVariant(isDark))};
                           });
    }

    void tell(const char* member, const QVariantList& arguments)
    {
        m_settings->signal(QStringLiteral("/org/xfce/Xfconf"), settings, QString::fromLatin1(member),
                           arguments);
    }

    void change(const QString& channel, const QString& name, bool value)
    {
        tell("PropertyChanged", {channel, name, QVariant::fromValue(QDBusVariant(value))});
    }

    WithApplication<QCoreApplication> m_application;
    PrivateBus m_bus;
    std::unique_ptr<FakeService> m_settings;
};

TEST_F(PanelShadeTest, FollowsTheSettingsOfXfce)
{
    startXfceSettings();
    answer(false);
    for (const QString& desktop : {QStringLiteral("XFCE"), QString()}) {
        const LinuxPanelShade shade(m_bus.connect(), desktop);
        int changes = 0;
        QObject::connect(&shade, &PanelShade::changed, [&] { ++changes; });
        EXPECT_EQ(shade.isDark(), true);
        EXPECT_TRUE(waitUntil([&] { return shade.isDark() == std::nullopt; }));
        change(QStringLiteral("xsettings"), darkMode, true);
        change(QStringLiteral("xfce4-panel"), QStringLiteral("/panels/panel-1/size"), true);
        change(QStringLiteral("xfce4-panel"), darkMode, true);
        EXPECT_TRUE(waitUntil([&] { return shade.isDark() == true; }));
        tell("PropertyRemoved", {QStringLiteral("xfce4-panel"), darkMode});
        EXPECT_TRUE(waitUntil([&] { return shade.isDark() == std::nullopt; }));
        EXPECT_EQ(changes, 3);
    }
}

TEST_F(PanelShadeTest, HasTheColoursOfWindowsOnXfceUnlessSet)
{
    startXfceSettings();
    const LinuxPanelShade xfce(m_bus.connect(), QStringLiteral("XFCE"));
    const LinuxPanelShade unknown(m_bus.connect(), QString());
    EXPECT_TRUE(waitUntil([&] { return xfce.isDark() == std::nullopt; }));
    EXPECT_EQ(unknown.isDark(), true);
}

TEST_F(PanelShadeTest, KnowsWhichDesktopsHaveTheColoursOfWindows)
{
    startXfceSettings();
    answer(true);
    const LinuxPanelShade gnome(m_bus.connect(), QStringLiteral("ubuntu:GNOME"));
    const LinuxPanelShade plasma(m_bus.connect(), QStringLiteral("KDE"));
    EXPECT_TRUE(waitUntil([&] { return gnome.isDark() == true; }));
    EXPECT_EQ(plasma.isDark(), std::nullopt);
    EXPECT_FALSE(gnome.recolorsIcons());
    EXPECT_TRUE(plasma.recolorsIcons());
}

} // namespace
} // namespace tessel
