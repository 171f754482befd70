// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>

namespace tessel {

/// Makes sure that the program runs once for each user session, and hears what others ask of it.
class RunningInstance : public QObject
{
    Q_OBJECT

public:
    /// Whether this process is the one; if it is not, the one that is has been asked to come forward.
    [[nodiscard]] virtual bool isFirst() const = 0;

Q_SIGNALS:
    /// The user has started the program once more.
    void activated();
    /// One of the program's actions was asked for by name, such as "new-wallpaper".
    void actionRequested(const QString& name);
};

/// Takes the place of the running instance if it is free.
/// \param actions the names that can be asked for
[[nodiscard]] std::unique_ptr<RunningInstance> claimInstance(const QStringList& actions);

} // namespace tessel
