// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/linux/desktops/picture_backend.h"

namespace tessel {

class WaylandBackdrops;

/// A Wayland desktop that nobody draws: the pictures are on backdrops of our own, and there as long as we
/// are.
class WaylandPictures final : public PictureBackend
{
public:
    /// \param backdrops of the main thread; must outlive this
    explicit WaylandPictures(WaylandBackdrops& backdrops) : m_backdrops(backdrops) {}

    [[nodiscard]] QString desktop() const override { return QStringLiteral("Wayland"); }
    [[nodiscard]] QStringList apply(const std::vector<DesktopPicture>& pictures, Which which) override;
    /// Nobody else can set others.
    [[nodiscard]] bool shows(const std::vector<DesktopPicture>& /*pictures*/) override { return true; }

private:
    WaylandBackdrops& m_backdrops;
};

} // namespace tessel
