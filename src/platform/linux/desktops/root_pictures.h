// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/linux/desktops/picture_backend.h"

namespace tessel {

/// An X11 desktop that nobody draws: the pictures are the background of the root window.
class RootPictures final : public PictureBackend
{
public:
    [[nodiscard]] QString desktop() const override { return QStringLiteral("X11"); }
    [[nodiscard]] QStringList apply(const std::vector<DesktopPicture>& pictures, Which which) override;
    [[nodiscard]] bool shows(const std::vector<DesktopPicture>& pictures) override;
};

} // namespace tessel
