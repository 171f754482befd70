// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/actions.h"
#include "model/store.h"
#include "platform/shortcuts.h"

namespace tessel {

/// Key combinations for the actions of the program, from a desktop that gives some. The user asks for them
/// once; from then on the program does at each start, and whenever the desktop's service is back.
class DesktopShortcuts : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive it.
    DesktopShortcuts(Store& store, Shortcuts& shortcuts);

    [[nodiscard]] bool areOffered() const { return m_shortcuts.isOffered(); }

    /// Asks the desktop, which asks the user, and tells what came of it.
    void setUp();

Q_SIGNALS:
    void offeredChanged();
    void pressed(tessel::Action action);
    /// Something that the user ought to know.
    void told(const QString& title, const QString& text);

private:
    void renew();
    void receive(Shortcuts::Outcome outcome);

    Store& m_store;
    Shortcuts& m_shortcuts;
};

} // namespace tessel
