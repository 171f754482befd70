// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/screens.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace tessel {

/// A picture file of a monitor's full pixel size, and the monitor.
struct DesktopPicture
{
    Screen screen;
    QString file;
};

/// The desktop's own pictures: what lies behind the icons while no program draws there. Which kind of desktop
/// runs may change at any time.
class DesktopPictures : public QObject
{
    Q_OBJECT

public:
    /// Sets the picture of every given monitor; how the desktop scales pictures stays as it is. An error on
    /// one monitor does not stop the others. Returns at once, and `finished` follows exactly once.
    virtual void set(const std::vector<DesktopPicture>& pictures) = 0;

    /// The same, but only for the monitors that show something else.
    virtual void restore(const std::vector<DesktopPicture>& pictures) = 0;

    /// Whether the desktop takes pictures, by what was seen last. Where it does not, it may draw icons in a
    /// window that any of ours would hide, so none is to be shown.
    [[nodiscard]] virtual bool canSet() const = 0;

Q_SIGNALS:
    /// What was asked for is done.
    /// \param failures why monitors kept what they had, each naming its monitor; empty if none did
    void finished(const QStringList& failures);
    /// A desktop of another kind runs, or none any more: canSet() may differ. Where it takes pictures it has
    /// got the newest.
    void desktopChanged();
    /// The desktop shows another picture than it was given, since somebody else has set one. It gets none
    /// from us any more until it is told one.
    void replaced();
};

} // namespace tessel
