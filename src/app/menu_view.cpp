// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/menu_view.h"

#include <QAction>
#include <QActionGroup>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QProxyStyle>

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
    QString title;
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

class ScrollingStyle : public QProxyStyle
{
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override
    {
        return hint == SH_Menu_Scrollable ? 1 : QProxyStyle::styleHint(hint, option, widget, returned);
    }
};

/// The group of that name among a menu's rows, or nullptr for no name.
QActionGroup* groupNamed(QMenu& menu, const QString& name)
{
    if (name.isEmpty())
        return nullptr;
    if (auto* group = menu.findChild<QActionGroup*>(name, Qt::FindDirectChildrenOnly))
        return group;
    auto* group = new QActionGroup(&menu);
    group->setObjectName(name);
    return group;
}

/// The next row, from the selected one on and round the end, that begins with some text; nullptr for none.
QAction* nextWith(const QMenu& menu, const QString& beginning)
{
    const QList<QAction*> actions = menu.actions();
    const qsizetype selected = actions.indexOf(menu.activeAction());
    for (qsizetype i = 1; i <= actions.size(); ++i) {
        QAction* action = actions[(selected + i) % actions.size()];
        if (action->isEnabled() && rowAction(*action).title.startsWith(beginning, Qt::CaseInsensitive))
            return action;
    }
    return nullptr;
}

/// Goes to the next row that begins with what was typed, as arrow keys do: without opening its submenu, which
/// would get the keys from then on.
bool select(QMenu& menu, const QKeyEvent& key)
{
    const bool isLetter = !key.text().isEmpty() && key.text().front().isPrint() &&
                          !key.text().front().isSpace() && !(key.modifiers() & ~Qt::ShiftModifier);
    const QAction* found = isLetter ? nextWith(menu, key.text()) : nullptr;
    if (found == nullptr)
        return false;
    for (qsizetype i = 0; i < menu.actions().size() && menu.activeAction() != found; ++i) {
        QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
        QCoreApplication::sendEvent(&menu, &down);
    }
    return true;
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
    // On its way to the panel Qt turns the first "&", unless it ends the text, into the "_" of a mnemonic:
    // one more that underlines something without width, and the others stay.
    const qsizetype first = text.indexOf(ampersand);
    if (first >= 0 && first + 1 < text.size())
        text.prepend(QStringLiteral("&\u200B"));
    return text;
}

MenuView::MenuView(std::function<std::vector<MenuRow>()> rows)
    : m_rows(std::move(rows))
    , m_style(std::make_unique<ScrollingStyle>())
{
    prepare(m_menu);
    m_menu.setAccessibleName(QGuiApplication::applicationDisplayName());
    m_refreshing.setSingleShot(true);
    connect(&m_refreshing, &QTimer::timeout, this, &MenuView::refresh);
    connect(&m_menu, &QMenu::aboutToShow, this, &MenuView::refresh);
    refresh();
}

MenuView::~MenuView() = default;

void MenuView::prepare(QMenu& menu)
{
    menu.setStyle(m_style.get());
    menu.installEventFilter(this);
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
        update(menu, *action, row);
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
    update(menu, *action, row);
    if (!row.children.empty()) {
        auto* submenu = new QMenu(&menu);
        prepare(*submenu);
        fill(*submenu, row.children);
        action->setMenu(submenu);
    }
    connect(action, &QAction::triggered, this, [this, action] {
        // A choice turns the checkmark round by itself, which the state may not.
        refreshLater();
        // A copy: what runs may bring the menu up to date, and with it what this row runs.
        if (const auto run = action->run)
            run();
    });
    return action;
}

void MenuView::update(QMenu& menu, QAction& action, const MenuRow& row)
{
    if (row.isSeparator())
        return;
    rowAction(action).title = row.title;
    action.setText(actionText(row.title, drawer()));
    action.setShortcut(row.shortcut);
    action.setEnabled(row.enabled);
    action.setActionGroup(groupNamed(menu, row.group));
    action.setCheckable(row.checked.has_value());
    action.setChecked(row.checked.value_or(false));
    rowAction(action).run = row.run;
    if (action.menu() != nullptr)
        fill(*action.menu(), row.children);
}

bool MenuView::eventFilter(QObject* watched, QEvent* event)
{
    auto* menu = qobject_cast<QMenu*>(watched);
    if (event->type() != QEvent::KeyPress || menu == nullptr)
        return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    return runShortcut(key) || select(*menu, key);
}

bool MenuView::runShortcut(const QKeyEvent& key)
{
    const QKeySequence pressed(key.keyCombination());
    for (QAction* action : m_menu.actions()) {
        if (action->isEnabled() && action->shortcut() == pressed) {
            m_menu.hide();
            action->trigger();
            return true;
        }
    }
    return false;
}

} // namespace tessel
