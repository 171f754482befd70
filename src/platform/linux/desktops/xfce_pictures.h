// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/linux/desktops/desktop_calls.h"
#include "platform/linux/desktops/picture_backend.h"

namespace tessel {

/// XFCE keeps one picture for each monitor and workspace among its settings.
class XfcePictures final : public PictureBackend
{
public:
    /// \param workspaces how many there are
    XfcePictures(const QDBusConnection& bus, int workspaces) : m_calls(bus), m_workspaces(workspaces) {}

    [[nodiscard]] QString desktop() const override { return QStringLiteral("XFCE"); }
    [[nodiscard]] QStringList apply(const std::vector<DesktopPicture>& pictures, Which which) override;
    [[nodiscard]] bool shows(const std::vector<DesktopPicture>& pictures) override;

private:
    void apply(const DesktopPicture& picture, Which which);
    [[nodiscard]] bool shows(const DesktopPicture& picture);
    [[nodiscard]] QVariantMap settings(const QString& folder);
    void change(const QString& setting, const QVariant& value);

    DesktopCalls m_calls;
    const int m_workspaces;
};

} // namespace tessel
