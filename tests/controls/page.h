// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/look_pictures.h"

#include <QAccessible>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QVariant>

#include <memory>
#include <vector>

namespace tessel {

/// A window of 400 x 400 points that shows a piece of QML made of controls, with a pointer and a keyboard.
class Page
{
public:
    /// \param body what is in the page; it may write `said` to tell the test something, such as
    /// `page.say("a")`
    explicit Page(const char* body);

    /// What the page has said so far, with spaces between; it is forgotten then.
    QString heard();

    /// The item with an object name; a failed test and a null pointer if there is none.
    QQuickItem* item(const char* name);
    QAccessibleInterface* accessible(const char* name);
    QVariant property(const char* name, const char* property);

    void press(int key, Qt::KeyboardModifiers modifiers = {});
    void type(const char* text);
    void moveTo(const char* name, double x, double y);
    void click(const char* name, Qt::MouseButton button = Qt::LeftButton);
    /// The object name of what has the focus.
    QString focus();

    QQuickWindow& window() { return m_window; }

private:
    LookPictures m_pictures;
    QQmlEngine m_engine;
    QQuickWindow m_window;
    std::unique_ptr<QQuickItem> m_root;
};

} // namespace tessel
