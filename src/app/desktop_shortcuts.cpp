// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/desktop_shortcuts.h"

namespace tessel {

namespace {

/// All actions but the one that nobody wants to do by accident.
std::vector<Shortcut> shortcutsOfActions()
{
    std::vector<Shortcut> shortcuts;
    for (const QString& name : actionNames()) {
        const Action action = *actionNamed(name);
        if (action != Action::quit)
            shortcuts.push_back({name, actionTitle(action)});
    }
    return shortcuts;
}

} // namespace

DesktopShortcuts::DesktopShortcuts(Store& store, Shortcuts& shortcuts)
    : m_store(store)
    , m_shortcuts(shortcuts)
{
    connect(&shortcuts, &Shortcuts::offeredChanged, this, [this] {
        renew();
        Q_EMIT offeredChanged();
    });
    connect(&shortcuts, &Shortcuts::pressed, this, [this](const QString& id) {
        if (const std::optional<Action> action = actionNamed(id))
            Q_EMIT pressed(*action);
    });
    renew();
}

void DesktopShortcuts::renew()
{
    if (areOffered() && m_store.shortcutsWanted())
        m_shortcuts.takeAgain(shortcutsOfActions());
}

void DesktopShortcuts::setUp()
{
    m_shortcuts.ask(shortcutsOfActions(), [this](Shortcuts::Outcome outcome) { receive(outcome); });
}

void DesktopShortcuts::receive(Shortcuts::Outcome outcome)
{
    m_store.setShortcutsWanted(outcome == Shortcuts::Outcome::given);
    if (outcome == Shortcuts::Outcome::given)
        Q_EMIT told(tr("Keyboard shortcuts are set up"),
                    tr("Your desktop's settings list them under Tessel Broth. Change them there."));
    else if (outcome == Shortcuts::Outcome::failed)
        Q_EMIT told(tr("Your desktop gave no keyboard shortcuts"),
                    //: %1 is a command
                    tr("You can add one in its settings, for the command %1.")
                        .arg(QStringLiteral("tessel do new-wallpaper")));
}

} // namespace tessel
