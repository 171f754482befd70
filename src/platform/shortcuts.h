// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace tessel {

/// Something that a key combination can be given to.
struct Shortcut
{
    QString id;
    QString title; ///< what the user reads
};

/// Key combinations that work wherever the user is. The desktop has them: it asks the user which they are,
/// and keeps that.
class Shortcuts : public QObject
{
    Q_OBJECT

public:
    enum class Outcome : std::uint8_t
    {
        given,
        declined, ///< by the user
        failed
    };

    /// Whether the desktop has any to give.
    [[nodiscard]] virtual bool isOffered() const = 0;

    /// Asks for some, in place of those that were given before. The desktop may ask the user, or show its
    /// settings. \param done not called if the desktop is gone by then
    virtual void ask(const std::vector<Shortcut>& shortcuts, std::function<void(Outcome)> done) = 0;

    /// Takes those again that were given to an earlier run. The user is asked only if the desktop knows them
    /// no more.
    virtual void takeAgain(const std::vector<Shortcut>& shortcuts) = 0;

Q_SIGNALS:
    void offeredChanged();
    void pressed(const QString& id);
};

/// Asks at once whether there are any, and waits for nothing.
[[nodiscard]] std::unique_ptr<Shortcuts> watchShortcuts();

} // namespace tessel
