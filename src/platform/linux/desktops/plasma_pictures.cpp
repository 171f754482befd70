// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/desktops/plasma_pictures.h"

#include <QDBusMessage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>

#include <algorithm>

namespace tessel {

namespace {

/// Follows a line that defines `pictures` and `change`: which of them are to be set, or whether their
/// monitors' desktops are to take our own wallpaper for what plays, or to give it back. Prints for each
/// picture how many desktops are its monitor's and how many of them have it afterwards.
const char* const script = R"(
var found = {};
function keep(list) {
    for (var i = 0; i < list.length; ++i)
        found[list[i].id] = list[i];
}
keep(desktops());
var everyActivity = activities();
for (var a = 0; a < everyActivity.length; ++a)
    keep(desktopsForActivity(everyActivity[a]));

function lies(geometry, place) {
    return geometry.x == place.x && geometry.y == place.y && geometry.width == place.width
        && geometry.height == place.height;
}
// The desktops of other activities are on no screen, and remember theirs.
function screenOf(desktop) {
    desktop.currentConfigGroup = [];
    if (desktop.screen >= 0 || desktop.readConfig('activityId') == currentActivity())
        return desktop.screen;
    return Number(desktop.readConfig('lastScreen', -1));
}
function pictureOf(desktop) {
    var screen = screenOf(desktop);
    if (screen < 0)
        return null;
    var geometry = screenGeometry(screen);
    for (var i = 0; i < pictures.length; ++i) {
        if (lies(geometry, pictures[i].frame) || lies(geometry, pictures[i].pixels))
            return pictures[i];
    }
    return null;
}
var still = 'org.kde.image';
var live = 'org.tesselbroth.wallpaper';
function choose(desktop, wallpaper) {
    desktop.currentConfigGroup = ['Wallpaper', wallpaper, 'General'];
}
function imageOf(desktop) {
    choose(desktop, still);
    return String(desktop.readConfig('Image'));
}
function shows(desktop, picture) {
    var image = imageOf(desktop);
    return [still, live].indexOf(desktop.wallpaperPlugin) >= 0 && (image == picture.url || image == picture.file);
}
// What plays goes on in front of the picture.
function give(desktop, picture) {
    if (desktop.wallpaperPlugin == live) {
        choose(desktop, live);
        desktop.writeConfig('Image', picture.url);
        desktop.writeConfig('Before', still);
    } else {
        desktop.wallpaperPlugin = still;
    }
    choose(desktop, still);
    desktop.writeConfig('Image', picture.url);
}
function play(desktop) {
    if (desktop.wallpaperPlugin == live)
        return;
    var image = desktop.wallpaperPlugin == still ? imageOf(desktop) : '';
    choose(desktop, live);
    desktop.writeConfig('Image', image);
    desktop.writeConfig('Before', desktop.wallpaperPlugin);
    desktop.wallpaperPlugin = live;
}
function rest(desktop) {
    if (desktop.wallpaperPlugin != live)
        return;
    choose(desktop, live);
    desktop.wallpaperPlugin = String(desktop.readConfig('Before', still));
}
for (var id in found) {
    var desktop = found[id];
    var picture = pictureOf(desktop);
    if (picture === null)
        continue;
    if (change == 'play')
        play(desktop);
    else if (change == 'rest')
        rest(desktop);
    else if (change == 'all' || (change == 'different' && !shows(desktop, picture)))
        give(desktop, picture);
    picture.desktops += 1;
    picture.taken += shows(desktop, picture) ? 1 : 0;
}
print(JSON.stringify(pictures.map(function(p) { return [p.desktops, p.taken]; })));
)";

QJsonObject place(const QRect& rectangle)
{
    return {{QStringLiteral("x"), rectangle.x()},
            {QStringLiteral("y"), rectangle.y()},
            {QStringLiteral("width"), rectangle.width()},
            {QStringLiteral("height"), rectangle.height()}};
}

QString definitions(const std::vector<DesktopPicture>& pictures, const char* change)
{
    QJsonArray list;
    for (const DesktopPicture& picture : pictures) {
        list.append(QJsonObject{
            {QStringLiteral("frame"), place(picture.screen.frame)},
            // Plasma counts in pixels or in points, as the session is set up.
            {QStringLiteral("pixels"), place(picture.screen.pixels())},
            {QStringLiteral("file"), picture.file},
            {QStringLiteral("url"), QUrl::fromLocalFile(picture.file).toString(QUrl::FullyEncoded)},
            {QStringLiteral("desktops"), 0},
            {QStringLiteral("taken"), 0},
        });
    }
    const QString json = QString::fromUtf8(QJsonDocument(list).toJson(QJsonDocument::Compact));
    return QStringLiteral("var pictures = %1; var change = '%2';\n").arg(json, QLatin1String(change));
}

const DesktopCalls::Method evaluate{QStringLiteral("org.kde.plasmashell"), QStringLiteral("/PlasmaShell"),
                                    QStringLiteral("org.kde.PlasmaShell"), QStringLiteral("evaluateScript")};

QString scriptFor(const std::vector<DesktopPicture>& pictures, const char* change)
{
    return definitions(pictures, change) + QString::fromLatin1(script);
}

/// Asks in passing. A Plasma that is not there yet, or does not know our wallpaper, shows the still.
void ask(const QDBusConnection& bus, const Screen& screen, const char* change)
{
    auto question =
        QDBusMessage::createMethodCall(evaluate.service, evaluate.path, evaluate.interface, evaluate.name);
    question << scriptFor({DesktopPicture{screen, {}}}, change);
    question.setAutoStartService(false);
    bus.send(question);
}

QString problem(int desktops, int taken)
{
    if (desktops == 0)
        //: "it" is the desktop; behind a colon
        return DesktopPictures::tr("it has no desktop on this monitor.");
    if (taken < desktops)
        //: "it" is the desktop; behind a colon
        return DesktopPictures::tr("it kept the picture that it had. Is its layout locked?");
    return {};
}

} // namespace

QStringList PlasmaPictures::apply(const std::vector<DesktopPicture>& pictures, Which which)
{
    const QString answer = run(pictures, which == Which::all ? "all" : "different");
    const QJsonArray counts = QJsonDocument::fromJson(answer.toUtf8()).array();
    if (counts.size() != static_cast<qsizetype>(pictures.size()))
        //: "it" is the desktop; behind a colon
        throw DesktopError{DesktopPictures::tr("it answered “%1”.").arg(answer.left(200))};
    QStringList failures;
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        const QJsonArray count = counts.at(static_cast<qsizetype>(i)).toArray();
        const QString reason = problem(count.at(0).toInt(), count.at(1).toInt());
        if (!reason.isEmpty())
            failures << refusal(pictures[i], reason);
    }
    return failures;
}

bool PlasmaPictures::shows(const std::vector<DesktopPicture>& pictures)
{
    const QJsonArray counts = QJsonDocument::fromJson(run(pictures, "none").toUtf8()).array();
    return std::ranges::all_of(counts, [](const QJsonValue& count) {
        return count.toArray().at(0).toInt() == count.toArray().at(1).toInt();
    });
}

QString PlasmaPictures::run(const std::vector<DesktopPicture>& pictures, const char* change)
{
    return m_calls.call(evaluate, {scriptFor(pictures, change)}).value(0).toString().trimmed();
}

void playOnPlasma(const QDBusConnection& bus, const Screen& screen)
{
    ask(bus, screen, "play");
}

void restOnPlasma(const QDBusConnection& bus, const Screen& screen)
{
    ask(bus, screen, "rest");
}

} // namespace tessel
