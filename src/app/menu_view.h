// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/menu_row.h"

#include <QMenu>
#include <QTimer>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

class QAction;
class QKeyEvent;
class QStyle;

namespace tessel {

/// Who draws a menu: they read special characters of titles differently.
enum class MenuDrawer : std::uint8_t
{
    ourselves, ///< Qt, to which "&" marks a mnemonic
    panel      ///< another program that got it over D-Bus, to which "_" does
};

/// A title as an action's text, such that exactly the title is shown.
[[nodiscard]] QString actionText(const QString& title, MenuDrawer drawer);

/// A menu that shows rows. It is always filled, since panels may read it before it can be changed: it is
/// brought up to date before it opens, after every choice, and when refreshLater() says so. Actions whose
/// rows remain are changed in place, so that a panel which has the menu open does not lose it.
///
/// Where it is shown by ourselves, it scrolls rather than cover the screen with columns, its shortcuts work
/// while it is open, and a letter goes to the next row that begins with it.
class MenuView : public QObject
{
    Q_OBJECT

public:
    /// \param rows called for every update
    explicit MenuView(std::function<std::vector<MenuRow>()> rows);
    ~MenuView() override;

    [[nodiscard]] QMenu& menu() { return m_menu; }

    /// Brings the menu up to date, now or when all that happens at once has happened.
    void refresh();
    void refreshLater() { m_refreshing.start(); }

private:
    [[nodiscard]] MenuDrawer drawer();
    void prepare(QMenu& menu);
    void fill(QMenu& menu, const std::vector<MenuRow>& rows);
    QAction* makeAction(QMenu& menu, const MenuRow& row);
    void update(QMenu& menu, QAction& action, const MenuRow& row);
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool runShortcut(const QKeyEvent& key);

    std::function<std::vector<MenuRow>()> m_rows;
    std::unique_ptr<QStyle> m_style;
    QMenu m_menu;
    QTimer m_refreshing;
};

} // namespace tessel
