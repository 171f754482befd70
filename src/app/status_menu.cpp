// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/status_menu.h"

#include "base/identity.h"
#include "model/palette.h"

#include <QApplication>
#include <QCoreApplication>
#include <QFontMetrics>

#include <algorithm>
#include <utility>

namespace tessel {

namespace {

struct StatusMenu
{
    Q_DECLARE_TR_FUNCTIONS(StatusMenu)
};

/// The most of a name in a menu, in pixels.
constexpr int widestName = 320;

/// The most of a name that is looked at, in UTF-16 units: far more than fits, but nothing that takes long.
constexpr qsizetype longestName = 1000;

/// The separator below the settings.
const auto beforeAbout = QStringLiteral("before-about");

MenuRow separator(const QString& id)
{
    return {id, {}};
}

MenuRow row(const QString& id, const QString& title, std::function<void()> run)
{
    MenuRow made{id, title};
    made.run = std::move(run);
    return made;
}

MenuRow checkedRow(const QString& id, const QString& title, bool checked, std::function<void()> run)
{
    MenuRow made = row(id, title, std::move(run));
    made.checked = checked;
    return made;
}

MenuRow radioRow(const QString& id, const QString& title, const QString& group, bool checked,
                 std::function<void()> run)
{
    MenuRow made = checkedRow(id, title, checked, std::move(run));
    made.group = group;
    return made;
}

MenuRow submenu(const QString& id, const QString& title, std::vector<MenuRow> children)
{
    MenuRow made{id, title};
    made.children = std::move(children);
    return made;
}

MenuRow actionRow(const StatusCommands& commands, Action action)
{
    MenuRow made = row(actionName(action), actionTitle(action),
                       [perform = commands.perform, action] { perform(action); });
    made.shortcut = actionShortcut(action);
    return made;
}

/// Whether a character would break the line, or turn the direction of the rows around it.
bool disturbs(QChar character)
{
    const char16_t code = character.unicode();
    return character.category() == QChar::Other_Control || code == u'\u2028' || code == u'\u2029' ||
           (code >= u'\u202A' && code <= u'\u202E') || (code >= u'\u2066' && code <= u'\u2069');
}

MenuRow motionRow(Store& store, const QString& id, const QString& title, bool motion)
{
    return radioRow(id, title, QStringLiteral("motion"), store.desktopMotion() == motion,
                    [&store, motion] { store.setDesktopMotion(motion); });
}

MenuRow intervalRow(Store& store, const QString& id, const QString& title, qint64 minutes)
{
    return radioRow(id, title, QStringLiteral("interval"), store.shuffleMinutes() == minutes,
                    [&store, minutes] { store.setShuffleMinutes(minutes); });
}

MenuRow edgeRow(Store& store, const QString& id, Edge edge)
{
    //: where the handle is
    const QString name = edge == Edge::left ? StatusMenu::tr("Left") : StatusMenu::tr("Right");
    return radioRow(id, name, QStringLiteral("handle"), !store.handleHidden() && store.edge() == edge,
                    [&store, edge] {
                        store.setEdge(edge);
                        store.setHandleHidden(false);
                    });
}

std::vector<MenuRow> intervalRows(Store& store)
{
    //: how often there is a fresh bowl
    return {intervalRow(store, QStringLiteral("hourly"), StatusMenu::tr("Every Hour"), 60),
            intervalRow(store, QStringLiteral("daily"), StatusMenu::tr("Every Day"), 1440),
            intervalRow(store, QStringLiteral("never"), StatusMenu::tr("Never"), 0)};
}

std::vector<MenuRow> handleRows(Store& store)
{
    return {edgeRow(store, QStringLiteral("left"), Edge::left),
            edgeRow(store, QStringLiteral("right"), Edge::right),
            //: there is no handle
            radioRow(QStringLiteral("hidden"), StatusMenu::tr("Hidden"), QStringLiteral("handle"),
                     store.handleHidden(), [&store] { store.setHandleHidden(true); })};
}

std::vector<MenuRow> creditRows(const StatusCommands& commands)
{
    const auto page = [&](const QString& id, const QString& title, const QString& address) {
        return row(id, title, [open = commands.openWebPage, address] { open(address); });
    };
    return {page(QStringLiteral("web-page"), StatusMenu::tr("Web Page"), identity::webPage),
            page(QStringLiteral("source-code"), StatusMenu::tr("Source Code"), identity::sourcePage)};
}

MenuRow launchRow(LoginItem::Status login, const StatusCommands& commands)
{
    const bool on = login == LoginItem::Status::enabled;
    return checkedRow(QStringLiteral("launch-at-login"), StatusMenu::tr("Launch at Login"), on,
                      [set = commands.setLaunchAtLogin, on] { set(!on); });
}

MenuRow editorRow(Mode mode, const StatusCommands& commands)
{
    const QString title =
        mode == Mode::open ? StatusMenu::tr("Close Editor") : actionTitle(Action::openEditor);
    MenuRow made = row(actionName(Action::openEditor), title, commands.toggleEditor);
    made.shortcut = actionShortcut(Action::openEditor);
    return made;
}

/// What cannot be shown here; the guide says why.
MenuRow limitsRow(bool hasHandle, const StatusCommands& commands)
{
    return row(QStringLiteral("limits"),
               //: "here": on this desktop
               hasHandle ? StatusMenu::tr("Wallpapers stay still here")
                         : StatusMenu::tr("Wallpapers stay still here, and there is no handle"),
               commands.explainStills);
}

MenuRow previousRow(const Store& store, const StatusCommands& commands)
{
    MenuRow made = actionRow(commands, Action::previousWallpaper);
    made.enabled = !store.desktopHistory().empty();
    return made;
}

} // namespace

std::vector<MenuRow> statusMenuRows(Store& store, LoginItem::Status login, std::optional<Mode> mode,
                                    const StatusCommands& commands)
{
    std::vector<MenuRow> rows{
        actionRow(commands, Action::newWallpaper),
        previousRow(store, commands),
        separator(QStringLiteral("before-motion")),
        //: a wallpaper that does not move
        motionRow(store, QStringLiteral("still"), StatusMenu::tr("Still Wallpaper"), false),
        motionRow(store, QStringLiteral("animated"), StatusMenu::tr("Animated Wallpaper"), true),
        submenu(QStringLiteral("presets"), StatusMenu::tr("Presets"),
                presetRows(store, commands.saveAsPreset)),
        separator(QStringLiteral("before-settings")),
        //: a new wallpaper every hour or day
        submenu(QStringLiteral("fresh-bowl"), StatusMenu::tr("Fresh Bowl"), intervalRows(store)),
        //: the round handle at the edge of the screen
        submenu(QStringLiteral("handle"), StatusMenu::tr("Handle Position"), handleRows(store)),
        launchRow(login, commands),
        separator(beforeAbout),
        row(QStringLiteral("updates"), StatusMenu::tr("Check for Updates..."), commands.checkForUpdates),
        submenu(QStringLiteral("credit"), StatusMenu::tr("Made by the Tessel Broth developers"),
                creditRows(commands)),
        actionRow(commands, Action::quit),
    };
    if (commands.setUpShortcuts)
        rows.insert(std::ranges::find(rows, beforeAbout, &MenuRow::id),
                    row(QStringLiteral("shortcuts"), StatusMenu::tr("Keyboard Shortcuts..."),
                        commands.setUpShortcuts));
    if (mode)
        rows.insert(rows.begin(), editorRow(*mode, commands));
    if (commands.explainStills)
        rows.insert(rows.begin(),
                    {limitsRow(mode.has_value(), commands), separator(QStringLiteral("below-limits"))});
    return rows;
}

std::vector<MenuRow> presetRows(Store& store, const std::function<void()>& saveAsPreset)
{
    std::vector<MenuRow> rows;
    for (const Preset& preset : store.presets()) {
        const bool isShown = store.desktop() == preset.look && store.appliedMotion() == preset.motion;
        rows.push_back(
            checkedRow(QString::fromStdString(preset.id), menuTitle(preset), isShown, [&store, preset] {
                store.applyToDesktop(preset.look, RecordHistory::yes, preset.motion, ContinueFromEditor::no);
            }));
    }
    if (!rows.empty())
        rows.push_back(separator(QStringLiteral("before-save")));
    MenuRow save = row(QStringLiteral("save-as-preset"), StatusMenu::tr("Save as Preset..."), saveAsPreset);
    save.enabled = store.desktop().has_value();
    rows.push_back(std::move(save));
    return rows;
}

QString menuTitle(const Preset& preset)
{
    QString name = QString::fromStdString(preset.name).left(longestName);
    std::replace_if(name.begin(), name.end(), disturbs, QChar(QChar::Space));
    name = name.simplified();
    if (name.isEmpty())
        name = QString::fromStdString(displayTitle(preset.look));
    return QFontMetrics(QApplication::font("QMenu")).elidedText(name, Qt::ElideRight, widestName);
}

} // namespace tessel
