// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/linux/wayland/wayland_backdrop.h"

#include <QObject>

#include <map>
#include <memory>

namespace tessel {

/// The backdrops of all outputs that need one; an output that comes back finds its own.
class WaylandBackdrops : public QObject
{
    Q_OBJECT

public:
    /// \param connection must outlive this
    explicit WaylandBackdrops(WaylandConnection& connection);

    /// Of the output of that name, which may be gone or come later.
    [[nodiscard]] std::shared_ptr<WaylandBackdrop> of(const QString& name);

private:
    void followOutputs();

    WaylandConnection& m_connection;
    std::map<QString, std::shared_ptr<WaylandBackdrop>> m_backdrops; ///< by the outputs' names
};

} // namespace tessel
