// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <QQuickItem>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

#include <chrono>

namespace tessel {

/// Decides which control's tip is shown: it waits until the pointer rests, and no longer for the next control
/// soon after.
class Tips : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    /// What the tip belongs to, or null while there is none to show.
    Q_PROPERTY(QQuickItem* target READ target NOTIFY shownChanged)
    Q_PROPERTY(QString text READ text NOTIFY shownChanged)

public:
    explicit Tips(QObject* parent = nullptr);

    /// How long the pointer rests before the first tip, and after a tip has gone the next comes at once.
    static constexpr std::chrono::milliseconds restTime{500};
    static constexpr std::chrono::milliseconds graceTime{300};

    [[nodiscard]] QQuickItem* target() const { return m_isShown ? m_target.data() : nullptr; }
    [[nodiscard]] QString text() const { return m_text; }

    /// The pointer has come over a control, or the keyboard's focus has come to it.
    Q_INVOKABLE void enter(QQuickItem* control, const QString& text);
    /// It has left it. Nothing happens if another control has been entered since.
    Q_INVOKABLE void leave(QQuickItem* control);
    /// The control is pressed: what it does is known.
    Q_INVOKABLE void press(QQuickItem* control);

Q_SIGNALS:
    void shownChanged();

private:
    void show();
    void hide();

    QPointer<QQuickItem> m_target;
    QString m_text;
    bool m_isShown = false;
    QTimer m_rest;
    QElapsedTimer m_sinceHidden;
};

} // namespace tessel
