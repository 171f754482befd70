// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/actions.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace tessel {

namespace {

constexpr auto context = "Actions";

struct Row
{
    Action action;
    const char* name;
    const char* title;
    Qt::Key key; ///< with Ctrl
};

constexpr std::array rows{
    Row{Action::newWallpaper, "new-wallpaper", QT_TRANSLATE_NOOP("Actions", "New Wallpaper"), Qt::Key_N},
    Row{Action::previousWallpaper, "previous-wallpaper", QT_TRANSLATE_NOOP("Actions", "Previous Wallpaper"),
        Qt::Key_P},
    //: makes a still wallpaper animated, and an animated one still
    Row{Action::toggleMotion, "toggle-motion", QT_TRANSLATE_NOOP("Actions", "Still or Animated"),
        Qt::Key_unknown},
    Row{Action::openEditor, "open-editor", QT_TRANSLATE_NOOP("Actions", "Open Editor"), Qt::Key_E},
    Row{Action::quit, "quit", QT_TRANSLATE_NOOP("Actions", "Quit Tessel Broth"), Qt::Key_Q},
};

const Row& row(Action action)
{
    return *std::ranges::find(rows, action, &Row::action);
}

} // namespace

QString actionName(Action action)
{
    return QString::fromLatin1(row(action).name);
}

std::optional<Action> actionNamed(const QString& name)
{
    const auto* const found =
        std::ranges::find_if(rows, [&](const Row& each) { return name == QLatin1String(each.name); });
    return found == rows.end() ? std::nullopt : std::optional(found->action);
}

QStringList actionNames()
{
    QStringList names;
    for (const Row& each : rows)
        names.append(QString::fromLatin1(each.name));
    return names;
}

QString actionTitle(Action action)
{
    return QCoreApplication::translate(context, row(action).title);
}

QKeySequence actionShortcut(Action action)
{
    const Qt::Key key = row(action).key;
    return key == Qt::Key_unknown ? QKeySequence() : QKeySequence(Qt::CTRL | key);
}

} // namespace tessel
