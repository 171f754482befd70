// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QRect>
#include <QSize>
#include <QString>

#include <memory>
#include <vector>

class QScreen;
class QTimer;

namespace tessel {

class X11Connection;

/// One of the monitors.
struct Screen
{
    QString name;          ///< of its output, such as "HDMI-1"
    QRect frame;           ///< points
    double scale = 1;      ///< pixels per point
    QSize resolution = {}; ///< pixels; empty if they follow from the points

    bool operator==(const Screen&) const = default;

    /// Where it lies among the pixels of the whole desktop.
    [[nodiscard]] QRect pixels() const
    {
        return {frame.topLeft(),
                resolution.isEmpty() ? (frame.size().toSizeF() * scale).toSize() : resolution};
    }
};

/// The monitors of the desktop, in the system's order.
class Screens : public QObject
{
    Q_OBJECT

public:
    [[nodiscard]] virtual std::vector<Screen> list() const = 0;

Q_SIGNALS:
    /// Monitors came, went, moved or changed their size; once for a burst of such changes.
    void changed();
};

/// The monitors that Qt sees.
class QtScreens : public Screens
{
    Q_OBJECT

public:
    QtScreens();
    ~QtScreens() override;
    [[nodiscard]] std::vector<Screen> list() const override;

private:
    void watch(const QScreen* screen);
    void readMonitors();

    QTimer* m_settling; ///< runs through a burst of changes
    std::unique_ptr<X11Connection>
        m_server;                  ///< there on X11, where Qt makes up a screen if there is no monitor
    std::vector<QRect> m_monitors; ///< as the server knows them, among the pixels of the whole desktop
};

} // namespace tessel
