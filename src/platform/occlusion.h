// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QRect>

#include <memory>

namespace tessel {

/// Knows where other programs' windows hide the desktop.
class Occlusion : public QObject
{
    Q_OBJECT

public:
    /// Whether nothing of the desktop can be seen within a rectangle of its pixels, a monitor's as a rule.
    [[nodiscard]] virtual bool isCovered(const QRect& pixels) const = 0;

Q_SIGNALS:
    /// Windows have moved; isCovered() may answer differently.
    void changed();
};

[[nodiscard]] std::unique_ptr<Occlusion> makeOcclusion();

} // namespace tessel
