// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/menu_view.h"

#include <QAction>

#include <algorithm>
#include <utility>

namespace tessel {

namespace {

/// Carries a row's closure, so that the action can be given another one.
class RowAction : public QAction
{
public:
    using QAction::QAction;

    QString id;
    std::function<void()> run;
};

RowAction& rowAction(QAction& action)
{
    return static_cast<RowAction&>(action);
}

bool fits(QAction& action, const MenuRow& row)
{
    return rowAction(action).id == row.id && action.isSeparator() == row.isSeparator() &&
           (action.menu() != nullptr) == !row.children.empty();
}

/// Deleted later: it may be the one that is being triggered.
void drop(QMenu& menu, QAction& action)
{
    menu.removeAction(&action);
    if (action.menu() != nullptr)
        action.menu()->deleteLater();
    action.deleteLater();
}

} // namespace

QString actionText(const QString& title, MenuDrawer drawer)
{
    const QLatin1Char ampersand('&');
    QString text = title;
    if (drawer == MenuDrawer::ourselves)
        return text.replace(ampersand, QStringLiteral("&&"));
    // Not all panels show "__" as the "_" it stands for: something that looks like one.
    text.replace(QLatin1Char('_'), QChar(u'\u02CD'));
    // On its way to the panel Qt turns the first "&", unless it ends the text, into the "_" of a mnemonic;
    // before another "&" that only underlines it.
    const qsizetype first = text.indexOf(ampersand);
    if (first >= 0 && first + 1 < text.size())
        text.insert(first, ampersand);
    return text;
}

MenuView::MenuView(std::function<std::vector<MenuRow>()> rows) : m_rows(std::move(rows))
{
    m_refreshing.setSingleShot(true);
    connect(&m_refreshing, &QTimer::timeout, this, &MenuView::refresh);
    connect(&m_menu, &QMenu::aboutToShow, this, &MenuView::refresh);
    refresh();
}

void MenuView::refresh()
{
    fill(m_menu, m_rows());
}

MenuDrawer MenuView::drawer()
{
    return m_menu.platformMenu() == nullptr ? MenuDrawer::ourselves : MenuDrawer::panel;
}

void MenuView::fill(QMenu& menu, const std::vector<MenuRow>& rows)
{
    qsizetype at = 0;
    for (const MenuRow& row : rows) {
        const QList<QAction*> actions = menu.actions();
        const auto rest = actions.begin() + at;
        const auto found =
            std::find_if(rest, actions.end(), [&](QAction* action) { return fits(*action, row); });
        QAction* action = nullptr;
        if (found == actions.end()) {
            action = makeAction(menu, row);
            menu.insertAction(at < actions.size() ? actions[at] : nullptr, action);
        } else {
            std::for_each(rest, found, [&](QAction* stale) { drop(menu, *stale); });
            action = *found;
        }
        update(*action, row);
        ++at;
    }
    const QList<QAction*> actions = menu.actions();
    std::for_each(actions.begin() + at, actions.end(), [&](QAction* stale) { drop(menu, *stale); });
}

QAction* MenuView::makeAction(QMenu& menu, const MenuRow& row)
{
    auto* action = new RowAction(&menu);
    action->id = row.id;
    action->setSeparator(row.isSeparator());
    // Complete before the menu gets it: what is added empty is told to panels twice.
    update(*action, row);
    if (!row.children.empty()) {
        auto* submenu = new QMenu(&menu);
        fill(*submenu, row.children);
        action->setMenu(submenu);
    }
    connect(action, &QAction::triggered, this, [this, action] {
        // A choice turns the checkmark round by itself, which the state may not.
        refreshLater();
        if (action->run)
            action->run();
    });
    return action;
}

void MenuView::update(QAction& action, const MenuRow& row)
{
    if (row.isSeparator())
        return;
    action.setText(actionText(row.title, drawer()));
    action.setShortcut(row.shortcut);
    action.setEnabled(row.enabled);
    action.setCheckable(row.checked.has_value());
    action.setChecked(row.checked.value_or(false));
    rowAction(action).run = row.run;
    if (action.menu() != nullptr)
        fill(*action.menu(), row.children);
}

} // namespace tessel
