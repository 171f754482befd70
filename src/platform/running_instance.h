// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QVariant>

#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace tessel {

/// What is on the desktop, for other programs.
struct ShownWallpaper
{
    QString look; ///< as JSON; empty while there is none
    bool isAnimated = false;
};

/// What the program does for others, and tells them. They may ask for anything, with anything.
struct InstanceAnswers
{
    /// Does what is asked for by name, such as "new-wallpaper".
    /// \param parameter what it is asked with; invalid for nothing
    /// \return why it is refused, for whoever has asked; nothing when it is done
    std::function<std::optional<QString>(const QString& action, const QVariant& parameter)> perform;
    std::function<ShownWallpaper()> wallpaper;
};

/// Makes sure that the program runs once for each user session, and hears what others ask of it.
class RunningInstance : public QObject
{
    Q_OBJECT

public:
    /// Whether this process is the one.
    [[nodiscard]] virtual bool isFirst() const = 0;

    /// Has the one that is come forward.
    /// \return why it did not, and what to do, in sentences for the user; empty where it did
    [[nodiscard]] virtual QString askToComeForward() = 0;

    /// Answers others from now on; before, and after this was called with none, they are told to wait.
    void setAnswers(InstanceAnswers answers) { m_answers = std::move(answers); }
    [[nodiscard]] const InstanceAnswers& answers() const { return m_answers; }

Q_SIGNALS:
    /// The user has started the program once more.
    void activated();

private:
    InstanceAnswers m_answers;
};

/// Takes the place of the running instance if it is free.
[[nodiscard]] std::unique_ptr<RunningInstance> claimInstance();

} // namespace tessel
