// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/focus.h"

#include <QCoreApplication>
#include <QDialog>
#include <QObject>
#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tessel {

/// Whether a dialog takes the focus from what the user is doing.
enum class TakeFocus : std::uint8_t
{
    no,
    yes
};

/// What an alert says, in plain text, and what can be answered.
struct Alert
{
    QString message;
    QString informative;
    QString button = QCoreApplication::translate("Dialogs", "OK"); ///< the first one, which Return presses
    QString otherButton{};                                         ///< empty for none
    TakeFocus takeFocus = TakeFocus::yes;
};

/// The application's small windows: alerts, questions, file dialogs. Each comes to the front on every
/// workspace and takes the focus, which goes to another of them at the end, or else back to where it was.
/// None of them holds anything up, the others included: the answer is told later. Ctrl+W and Escape close
/// them, Ctrl+Q asks to quit.
///
/// What is asked for while it is open already comes to the front, and the second request is answered as if it
/// had been cancelled.
class Dialogs : public QObject
{
    Q_OBJECT

public:
    /// \param focus may be nullptr; must outlive this
    explicit Dialogs(Focus* focus);
    ~Dialogs() override;

    /// \param done whether the first button was pressed
    void alert(
        const Alert& alert, const std::function<void(bool first)>& done = [](bool) {});

    /// Ends an alert that no longer says anything new, if it is open, as if it had been cancelled.
    void dismiss(const Alert& alert);

    /// Asks for the name of a preset.
    /// \param initial there to be typed over
    /// \param done the name without white space around it; none on Cancel or if there is nothing else
    void askPresetName(const QString& message, const QString& initial,
                       const std::function<void(std::optional<QString> name)>& done);

    /// Shows any dialog in the same manner and deletes it at the end.
    /// \param id of what must not be open twice
    /// \param ended called when it has been closed in any way
    /// \return false, with the dialog deleted, if something of that id is open already
    [[nodiscard]] bool present(const QString& id, std::unique_ptr<QDialog> dialog,
                               std::function<void()> ended);

    /// Closes all that are open, as if cancelled.
    void closeAll();

Q_SIGNALS:
    void quitRequested();

private:
    struct Open
    {
        QString id;
        QDialog* dialog;
        WId window;           ///< its own, which it loses when it is closed
        WId focusBefore;      ///< the window that had the focus, 0 for none
        bool isUserElsewhere; ///< whether the user is at another window
    };

    void addShortcuts(QDialog& dialog);
    void show(QDialog& dialog);
    void bringForward(QDialog& dialog);
    void close(QDialog& dialog, const std::function<void()>& ended);
    void handBackFocus(const Open& closed);
    bool eventFilter(QObject* watched, QEvent* event) override;
    void prepareWindow(QWindow& window);
    void noteActivation(const QObject* dialog, bool isActive);

    Focus* const m_focus;
    std::vector<Open> m_open; ///< the newest last
};

} // namespace tessel
