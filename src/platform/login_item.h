// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace tessel {

/// Whether the desktop starts this program at login.
class LoginItem
{
public:
    enum class Status : std::uint8_t
    {
        off,
        enabled,
        requiresApproval ///< asked for, but the user has forbidden it elsewhere
    };

    virtual ~LoginItem() = default;

    [[nodiscard]] virtual Status status() const = 0;

    /// Told why something did not work, nothing on success: at once, or when the desktop has answered.
    using Done = std::function<void(std::optional<QString> failure)>;

    /// Asks the desktop to start this program at login, or no longer to do so.
    virtual void registerItem(const Done& done) = 0;
    virtual void unregisterItem(const Done& done) = 0;

    /// Opens the place where the user can allow it; a failure says where that place is.
    /// \param context nothing is told once it is gone
    virtual void openSettings(QObject* context, const Done& done) = 0;
};

[[nodiscard]] std::unique_ptr<LoginItem> makeLoginItem();

/// How the user can allow it, in the words of this system.
[[nodiscard]] QString approvalText();

} // namespace tessel
