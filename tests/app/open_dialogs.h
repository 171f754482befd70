// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <stdexcept>

namespace tessel {

inline QList<QDialog*> openDialogs()
{
    QList<QDialog*> list;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* dialog = qobject_cast<QDialog*>(widget);
        if (dialog != nullptr && dialog->isVisible())
            list << dialog;
    }
    return list;
}

/// The only dialog that is open.
inline QDialog& openDialog()
{
    if (openDialogs().size() != 1)
        throw std::logic_error(std::to_string(openDialogs().size()) + " dialogs are open");
    return *openDialogs().constFirst();
}

/// What the only dialog says, and what it says below that in more detail.
inline QString openMessage()
{
    return openDialog().findChild<QLabel*>(QStringLiteral("message"))->text();
}

inline QString openInformative()
{
    return openDialog().findChild<QLabel*>(QStringLiteral("informative"))->text();
}

inline void press(const char* button)
{
    for (QPushButton* candidate : openDialog().findChildren<QPushButton*>()) {
        if (candidate->text() == QLatin1String(button)) {
            QTest::mouseClick(candidate, Qt::LeftButton);
            return;
        }
    }
    throw std::logic_error(std::string("there is no button ") + button);
}

} // namespace tessel
