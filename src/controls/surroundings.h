// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace tessel {

/// What the interface has to go by: how the desktop wants it to behave, which typefaces there are, and
/// whether somebody is using the keyboard. There is one, for every engine.
class Surroundings : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    /// No springs, no scaling: cuts, and fades of at most 0.1 s.
    Q_PROPERTY(bool reducedMotion READ reducedMotion WRITE setReducedMotion NOTIFY reducedMotionChanged)
    /// Text and borders stand out more.
    Q_PROPERTY(bool highContrast READ highContrast WRITE setHighContrast NOTIFY highContrastChanged)
    /// A compositing manager mixes windows, so that shells may have shadows.
    Q_PROPERTY(bool composited READ composited WRITE setComposited NOTIFY compositedChanged)
    /// The last thing done was done with a key: what has the focus shows a ring.
    Q_PROPERTY(bool usesKeys READ usesKeys NOTIFY usesKeysChanged)
    Q_PROPERTY(QString textFamily READ textFamily CONSTANT)
    Q_PROPERTY(QString displayFamily READ displayFamily CONSTANT)

public:
    static Surroundings& instance();
    /// For QML, which must not delete it.
    static Surroundings* create(QQmlEngine* engine, QJSEngine* scripts);

    [[nodiscard]] bool reducedMotion() const { return m_reducedMotion; }
    void setReducedMotion(bool reduced);
    [[nodiscard]] bool highContrast() const { return m_highContrast; }
    void setHighContrast(bool high);
    [[nodiscard]] bool composited() const { return m_composited; }
    void setComposited(bool composited);
    [[nodiscard]] bool usesKeys() const { return m_usesKeys; }
    [[nodiscard]] QString textFamily() const { return m_textFamily; }
    [[nodiscard]] QString displayFamily() const { return m_displayFamily; }

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void reducedMotionChanged();
    void highContrastChanged();
    void compositedChanged();
    void usesKeysChanged();

private:
    Surroundings();
    void setUsesKeys(bool uses);

    bool m_reducedMotion = false;
    bool m_highContrast = false;
    bool m_composited = true;
    bool m_usesKeys = false;
    QString m_textFamily;
    QString m_displayFamily;
};

} // namespace tessel
