// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/desktops/plasma_pictures.h"
#include "support/fake_service.h"
#include "support/surroundings.h"

#include <QJSEngine>
#include <gtest/gtest.h>

#include <memory>

namespace tessel {
namespace {

/// Two desktops of which the second belongs to another activity, with what scripts can ask of them.
const char* const plasma = R"(
function Desktop(id, screen, plugin) {
    this.id = id;
    this.screen = screen;
    this.wallpaperPlugin = plugin;
    this.currentConfigGroup = [];
    this.config = {lastScreen: 0};
}
Desktop.prototype.key = function(name) { return this.currentConfigGroup.concat([name]).join('/'); };
Desktop.prototype.readConfig = function(name, otherwise) {
    var key = this.key(name);
    return key in this.config ? this.config[key] : otherwise;
};
Desktop.prototype.writeConfig = function(name, value) { this.config[this.key(name)] = value; };
var first = new Desktop(1, 0, 'org.kde.slideshow');
var second = new Desktop(2, -1, 'org.kde.slideshow');
function desktops() { return [first]; }
function activities() { return ['one', 'two']; }
function currentActivity() { return 'one'; }
function desktopsForActivity(activity) { return activity == 'one' ? [first] : [second]; }
function screenGeometry(screen) { return {x: 0, y: 0, width: 800, height: 600}; }
var printed = '';
function print(text) { printed += text; }
)";

/// What both desktops have.
struct Shown
{
    QString wallpapers;
    QString image; ///< of the wallpaper that is shown
};

class WallpaperScriptTest : public testing::Test
{
protected:
    WallpaperScriptTest()
    {
        m_screen.frame = QRect(0, 0, 800, 600);
        m_engine.evaluate(QString::fromLatin1(plasma));
        const QDBusConnection theirs = m_bus.connect();
        m_service = std::make_unique<FakeService>(
            theirs, "org.kde.plasmashell", "/PlasmaShell",
            [this](const QString&, const QVariantList& arguments) -> std::optional<QVariantList> {
                ++m_calls;
                return QVariantList{run(arguments.value(0).toString())};
            });
    }

    QString run(const QString& script)
    {
        const QJSValue result =
            m_engine.evaluate(QStringLiteral("printed = ''; (function() {%1})(); printed").arg(script));
        EXPECT_FALSE(result.isError()) << result.toString().toStdString();
        return result.toString();
    }

    void ask(void (*change)(const QDBusConnection&, const Screen&))
    {
        const int before = m_calls;
        change(m_ours, m_screen);
        ASSERT_TRUE(waitUntil([&] { return m_calls > before; }));
    }

    /// As the pictures are set and looked at: by a thread that waits.
    bool giveAndLook(const QString& file, bool giving)
    {
        bool shows = false;
        bool isDone = false;
        const std::unique_ptr<QThread> thread(QThread::create([&] {
            PlasmaPictures pictures(m_ours);
            const std::vector<DesktopPicture> list{{m_screen, file}};
            const QStringList failures =
                giving ? pictures.apply(list, PictureBackend::Which::different) : QStringList();
            EXPECT_TRUE(failures.isEmpty());
            shows = pictures.shows(list);
            isDone = true;
        }));
        thread->start();
        EXPECT_TRUE(waitUntil([&] { return thread->isFinished(); }));
        EXPECT_TRUE(isDone);
        return shows;
    }

    Shown shown()
    {
        return {
            run(QStringLiteral("print(first.wallpaperPlugin + ' ' + second.wallpaperPlugin)")),
            run(QStringLiteral("first.currentConfigGroup = ['Wallpaper', first.wallpaperPlugin, 'General'];"
                               "print(first.readConfig('Image', 'none'))"))};
    }

    PrivateBus m_bus;
    QDBusConnection m_ours = m_bus.connect();
    QJSEngine m_engine;
    std::unique_ptr<FakeService> m_service;
    Screen m_screen;
    int m_calls = 0;
};

const auto live = QStringLiteral("org.tesselbroth.wallpaper org.tesselbroth.wallpaper");

TEST_F(WallpaperScriptTest, ThePictureThatWasGivenIsThereAfterwards)
{
    ask(playOnPlasma);
    EXPECT_EQ(shown().wallpapers, live);
    EXPECT_TRUE(giveAndLook(QStringLiteral("/wall 1.png"), true)) << "it is to be seen once nothing plays";
    EXPECT_EQ(shown().wallpapers, live) << "and what plays goes on";
    EXPECT_EQ(shown().image, QStringLiteral("file:///wall%201.png"));
    ask(restOnPlasma);
    EXPECT_EQ(shown().wallpapers, QStringLiteral("org.kde.image org.kde.image"));
    EXPECT_EQ(shown().image, QStringLiteral("file:///wall%201.png"));

    ask(playOnPlasma);
    EXPECT_EQ(shown().wallpapers, live);
    EXPECT_EQ(shown().image, QStringLiteral("file:///wall%201.png")) << "until the first frame is there";
    EXPECT_TRUE(giveAndLook(QStringLiteral("/wall 1.png"), false));
}

TEST_F(WallpaperScriptTest, WhatTheUserHadOrChoosesIsKept)
{
    ask(restOnPlasma);
    EXPECT_EQ(shown().wallpapers, QStringLiteral("org.kde.slideshow org.kde.slideshow"));
    ask(playOnPlasma);
    ask(playOnPlasma);
    ask(restOnPlasma);
    EXPECT_EQ(shown().wallpapers, QStringLiteral("org.kde.slideshow org.kde.slideshow"));

    ask(playOnPlasma);
    EXPECT_TRUE(giveAndLook(QStringLiteral("/wall.png"), true));
    run(QStringLiteral("first.wallpaperPlugin = 'org.kde.color'"));
    EXPECT_FALSE(giveAndLook(QStringLiteral("/wall.png"), false)) << "it is another one";
    ask(restOnPlasma);
    EXPECT_EQ(shown().wallpapers, QStringLiteral("org.kde.color org.kde.image"));
}

} // namespace
} // namespace tessel
