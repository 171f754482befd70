// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/login_item.h"
#include "support/fake_service.h"
#include "support/surroundings.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tessel {
namespace {

using Status = LoginItem::Status;

const auto entry = QStringLiteral("/autostart/org.tesselbroth.TesselBroth.desktop");

void write(const QString& path, const QByteArray& content)
{
    ASSERT_TRUE(QDir().mkpath(QFileInfo(path).path()));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

QByteArray read(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(cannot be read)");
}

/// Why something did not work.
std::optional<QString> failure(LoginItem& item, void (LoginItem::*request)(const LoginItem::Done&))
{
    std::optional<QString> told = QStringLiteral("(nothing was told)");
    (item.*request)([&](const std::optional<QString>& why) { told = why; });
    return told;
}

class LoginItemTest : public testing::Test
{
protected:
    LoginItemTest()
    {
        write(m_program, "#!/bin/sh\n");
        QFile::setPermissions(m_program, QFile::ReadOwner | QFile::ExeOwner);
    }

    QTemporaryDir m_home;
    QTemporaryDir m_system;
    const Variable m_ownFolder{"XDG_CONFIG_HOME", m_home.path().toLocal8Bit()};
    const Variable m_everybodysFolder{"XDG_CONFIG_DIRS", m_system.path().toLocal8Bit()};
    QString m_own = m_home.path() + entry;
    QString m_everybodys = m_system.path() + entry;
    QString m_program = m_home.filePath(QStringLiteral("bin/tessel broth"));
};

TEST_F(LoginItemTest, IsSwitchedOnAndOff)
{
    AutostartEntry item(m_program);
    EXPECT_EQ(item.status(), Status::off);
    EXPECT_EQ(failure(item, &LoginItem::registerItem), std::nullopt);
    EXPECT_EQ(item.status(), Status::enabled);
    EXPECT_THAT(read(m_own).toStdString(),
                testing::HasSubstr("\nExec=\"" + m_program.toStdString() + "\"\n"));
    EXPECT_EQ(failure(item, &LoginItem::unregisterItem), std::nullopt);
    EXPECT_EQ(item.status(), Status::off);
    EXPECT_FALSE(QFile::exists(m_own));
}

TEST_F(LoginItemTest, WhatAnotherToolSwitchedOffStaysOff)
{
    for (const QByteArray line :
         {"Hidden=true", "X-GNOME-Autostart-enabled = false", "X-MATE-Autostart-enabled=false"}) {
        const QByteArray text =
            "# Comment\n[Desktop Entry]\nExec=tessel-broth\n" + line + "\n[Other]\nHidden=false\n";
        write(m_own, text);
        AutostartEntry item(m_program);
        EXPECT_EQ(item.status(), Status::requiresApproval) << line.toStdString();
        EXPECT_NE(failure(item, &LoginItem::registerItem), std::nullopt);
        EXPECT_EQ(failure(item, &LoginItem::unregisterItem), std::nullopt);
        EXPECT_EQ(item.status(), Status::requiresApproval);
        EXPECT_EQ(read(m_own), text);
    }
}

TEST_F(LoginItemTest, TheSystemsEntryCountsUntilTheUserHasOne)
{
    write(m_everybodys, "[Desktop Entry]\nExec=tessel-broth\n");
    AutostartEntry item(m_program);
    EXPECT_EQ(item.status(), Status::enabled);
    EXPECT_EQ(failure(item, &LoginItem::unregisterItem), std::nullopt);
    EXPECT_EQ(item.status(), Status::off) << "switched off by us: no approval is needed";
    EXPECT_EQ(failure(item, &LoginItem::registerItem), std::nullopt);
    EXPECT_EQ(item.status(), Status::enabled);
    write(m_own, "[Desktop Entry]\nHidden=true\n");
    EXPECT_EQ(item.status(), Status::requiresApproval);
}

TEST_F(LoginItemTest, AMovedProgramIsOffAndRegisteredAnew)
{
    AutostartEntry item(m_program);
    ASSERT_EQ(failure(item, &LoginItem::registerItem), std::nullopt);
    const QString elsewhere = m_home.filePath(QStringLiteral("bin/elsewhere"));
    ASSERT_TRUE(QFile::rename(m_program, elsewhere));
    AutostartEntry moved(elsewhere);
    EXPECT_EQ(moved.status(), Status::off);
    EXPECT_EQ(failure(moved, &LoginItem::registerItem), std::nullopt);
    EXPECT_EQ(moved.status(), Status::enabled);
}

TEST_F(LoginItemTest, TellsWhyTheFileCannotBeWritten)
{
    write(m_home.filePath(QStringLiteral("autostart")), "a file where the folder should be");
    AutostartEntry item(m_program);
    const auto reason = failure(item, &LoginItem::registerItem);
    ASSERT_TRUE(reason.has_value());
    EXPECT_THAT(reason->toStdString(), testing::HasSubstr(QFileInfo(m_own).path().toStdString() + " could"));
}

TEST(PortalLoginItemTest, AsksThePortalAndRemembersTheAnswer)
{
    const WithApplication<QCoreApplication> application;
    const QTemporaryDir folder;
    PrivateBus bus;
    const QDBusConnection own = bus.connect();
    FakeService portal(bus.connect(), QStringLiteral("org.freedesktop.portal.Desktop"));
    std::pair<uint, bool> answer(0U, true);
    portal.answer(
        QStringLiteral("org.freedesktop.portal.Background.RequestBackground"), [&](const auto& arguments) {
            const auto options = qdbus_cast<QVariantMap>(arguments.value(1));
            const QString path =
                QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2")
                    .arg(own.baseService().mid(1).replace(QLatin1Char('.'), QLatin1Char('_')),
                         options[QStringLiteral("handle_token")].toString());
            const bool isOn = answer.second && options[QStringLiteral("autostart")].toBool();
            portal.signal(path, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"),
                          {answer.first, QVariantMap{{QStringLiteral("autostart"), isOn}}});
            return QVariantList{QVariant::fromValue(QDBusObjectPath(path))};
        });
    const QString mark = folder.filePath(QStringLiteral("deep/mark"));
    const auto ask = [&](void (LoginItem::*request)(const LoginItem::Done&)) {
        PortalLoginItem item(own, mark);
        std::optional<bool> isDone;
        (item.*request)([&](const std::optional<QString>& why) { isDone = !why; });
        EXPECT_TRUE(waitUntil([&] { return isDone.has_value(); }));
        return std::pair(isDone, item.status());
    };
    EXPECT_EQ(ask(&LoginItem::registerItem), std::pair(std::optional(true), Status::enabled));
    EXPECT_EQ(PortalLoginItem(own, mark).status(), Status::enabled);
    EXPECT_EQ(ask(&LoginItem::unregisterItem), std::pair(std::optional(true), Status::off));
    for (const uint response : {0U, 1U}) {
        answer = {response, false};
        EXPECT_EQ(ask(&LoginItem::registerItem), std::pair(std::optional(true), Status::requiresApproval));
    }
    answer = {2U, false};
    EXPECT_EQ(ask(&LoginItem::registerItem), std::pair(std::optional(false), Status::off));
}

TEST(ExecValueTest, FollowsBothLevelsOfQuoting)
{
    const std::vector<std::pair<const char*, const char*>> cases{
        {"/usr/bin/tessel-broth", "/usr/bin/tessel-broth"},
        {"/opt/50%/tb", "/opt/50%%/tb"},
        {"/opt/my apps/tb", R"("/opt/my apps/tb")"},
        {"/opt/$HOME/`x`/tb", R"("/opt/\\$HOME/\\`x\\`/tb")"},
        {R"(/opt/say "hi"/tb)", R"("/opt/say \\"hi\\"/tb")"},
        {R"(/opt/back\slash)", R"("/opt/back\\\\slash")"},
        {"/opt/two\nlines", R"("/opt/two\nlines")"},
    };
    for (const auto& [path, expected] : cases)
        EXPECT_EQ(execValue(QString::fromLatin1(path)).toStdString(), expected);
}

} // namespace
} // namespace tessel
