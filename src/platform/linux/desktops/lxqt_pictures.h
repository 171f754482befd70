// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/linux/desktops/desktop_calls.h"
#include "platform/linux/desktops/picture_backend.h"

namespace tessel {

/// LXQt's desktop keeps one picture for all monitors.
class LxqtPictures final : public PictureBackend
{
public:
    explicit LxqtPictures(const QDBusConnection& bus) : m_calls(bus) {}

    [[nodiscard]] QString desktop() const override { return QStringLiteral("LXQt"); }
    [[nodiscard]] QStringList apply(const std::vector<DesktopPicture>& pictures, Which which) override;
    [[nodiscard]] bool shows(const std::vector<DesktopPicture>& pictures) override;

private:
    [[nodiscard]] QString settingsFile();

    DesktopCalls m_calls;
};

} // namespace tessel
