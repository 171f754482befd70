// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/linux/desktops/desktop_calls.h"
#include "platform/linux/desktops/picture_backend.h"

namespace tessel {

/// LXDE's file manager keeps a picture for each monitor, and lets other programs set the first one's only.
class PcmanfmPictures final : public PictureBackend
{
public:
    explicit PcmanfmPictures(const QDBusConnection& bus) : m_calls(bus) {}

    [[nodiscard]] QString desktop() const override { return QStringLiteral("LXDE"); }
    [[nodiscard]] QStringList apply(const std::vector<DesktopPicture>& pictures, Which which) override;
    [[nodiscard]] bool shows(const std::vector<DesktopPicture>& pictures) override;

private:
    void change(const DesktopPicture& picture, const QString& settings, Which which);

    DesktopCalls m_calls;
};

} // namespace tessel
