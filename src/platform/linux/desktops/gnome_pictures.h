// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/linux/desktops/desktop_calls.h"
#include "platform/linux/desktops/picture_backend.h"

#include <map>

namespace tessel {

/// GNOME and its relatives keep one picture for all monitors among their settings.
class GnomePictures final : public PictureBackend
{
public:
    /// \param schema of the settings, such as org.gnome.desktop.background
    GnomePictures(const QDBusConnection& bus, QString schema) : m_calls(bus), m_schema(std::move(schema)) {}

    [[nodiscard]] QString desktop() const override { return m_schema; }
    [[nodiscard]] QStringList apply(const std::vector<DesktopPicture>& pictures, Which which) override;
    [[nodiscard]] bool shows(const std::vector<DesktopPicture>& pictures) override;

private:
    /// The settings of these pictures, in the form that they are read and written in, by their keys.
    [[nodiscard]] std::map<QString, QString> wanted(const std::vector<DesktopPicture>& pictures);
    /// Those of them that are otherwise now.
    [[nodiscard]] std::map<QString, QString> differing(const std::vector<DesktopPicture>& pictures);
    void changeScaling(bool severalMonitors);
    [[nodiscard]] QString setting(const QString& key);
    void changeSetting(const QString& key, const QString& value);

    DesktopCalls m_calls;
    const QString m_schema;
};

} // namespace tessel
