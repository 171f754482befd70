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

/// Has Plasma take our wallpaper for a screen, in which frames are shown, instead of the one that it has
/// there. Does not wait for that. Plasma knows our wallpaper where hasPlasmaWallpaper() says so.
void playOnPlasma(const QDBusConnection& bus, const Screen& screen);

/// Puts the wallpaper back that was there before, or that with the picture that Plasma has been given since.
/// One that the user has chosen meanwhile stays. Does not wait for that.
void restOnPlasma(const QDBusConnection& bus, const Screen& screen);

} // namespace tessel
