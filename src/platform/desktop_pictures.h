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

/// The desktop's own pictures: what lies behind the icons while no program draws there. One for each kind of
/// desktop.
class DesktopPictures : public QObject
{
    Q_OBJECT

public:
    /// Sets the picture of every given monitor; how the desktop scales pictures stays as it is. An error on
    /// one monitor does not stop the others. Returns at once, and `finished` follows exactly once.
    virtual void set(const std::vector<DesktopPicture>& pictures) = 0;

    /// The same, but only for the monitors that show something else.
    virtual void restore(const std::vector<DesktopPicture>& pictures) = 0;

Q_SIGNALS:
    /// What was asked for is done.
    /// \param failures why monitors kept what they had, each naming its monitor; empty if none did
    void finished(const QStringList& failures);
};

/// The pictures of the desktop that runs; nullptr for one that nobody knows how to tell.
[[nodiscard]] std::unique_ptr<DesktopPictures> makeDesktopPictures();

} // namespace tessel
