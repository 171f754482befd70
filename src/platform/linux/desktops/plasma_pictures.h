// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/linux/desktops/desktop_calls.h"
#include "platform/linux/desktops/picture_backend.h"

namespace tessel {

/// Plasma runs scripts that see its desktops: one for each monitor in each activity.
class PlasmaPictures final : public PictureBackend
{
public:
    explicit PlasmaPictures(const QDBusConnection& bus) : m_calls(bus) {}

    [[nodiscard]] QString desktop() const override { return QStringLiteral("Plasma"); }
    [[nodiscard]] QStringList apply(const std::vector<DesktopPicture>& pictures, Which which) override;
    [[nodiscard]] bool shows(const std::vector<DesktopPicture>& pictures) override;

private:
    /// \return what the script prints
    /// \param change which pictures are set: all, different or none
    QString run(const std::vector<DesktopPicture>& pictures, const char* change);

    DesktopCalls m_calls;
};

} // namespace tessel
