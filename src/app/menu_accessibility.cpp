// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/menu_accessibility.h"

#include <QAccessibleObject>
#include <QApplication>
#include <QMenu>

namespace tessel {

namespace {

QWidgetList openMenus()
{
    QWidgetList menus = QApplication::topLevelWidgets();
    menus.removeIf([](const QWidget* widget) {
        return qobject_cast<const QMenu*>(widget) == nullptr || widget->parentWidget() != nullptr ||
               !widget->isVisible();
    });
    return menus;
}

/// What Qt tells of the application, and after that its open menus.
class ApplicationWithMenus final : public QAccessibleApplication
{
public:
    [[nodiscard]] int childCount() const override
    {
        return QAccessibleApplication::childCount() + static_cast<int>(openMenus().size());
    }

    [[nodiscard]] QAccessibleInterface* child(int index) const override
    {
        const int others = QAccessibleApplication::childCount();
        return index < others ? QAccessibleApplication::child(index)
                              : QAccessible::queryAccessibleInterface(openMenus().value(index - others));
    }

    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override
    {
        const auto menu = openMenus().indexOf(qobject_cast<QWidget*>(child->object()));
        return menu < 0 ? QAccessibleApplication::indexOfChild(child)
                        : QAccessibleApplication::childCount() + static_cast<int>(menu);
    }
};

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object)
{
    return object == qApp ? new ApplicationWithMenus : nullptr;
}

} // namespace

void showMenusToScreenReaders()
{
    QAccessible::installFactory(makeInterface);
}

} // namespace tessel
