// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/linux/settling_screens.h"

namespace tessel {

class WaylandConnection;

/// The monitors as the compositor tells them: their pixels too, whatever their scale is. Only their work
/// areas are in Qt's points, which windows of the interface are placed in.
class WaylandScreens final : public SettlingScreens
{
    Q_OBJECT

public:
    /// \param connection must outlive this
    explicit WaylandScreens(WaylandConnection& connection);

    /// The first one counts as the primary one, as no compositor says which it is.
    [[nodiscard]] std::vector<Screen> list() const override;

private:
    WaylandConnection& m_connection;
};

} // namespace tessel
