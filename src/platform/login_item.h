// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <cstdint>
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

    /// Asks the desktop to start this program at login, or no longer to do so.
    /// \return why it did not work, nothing on success
    [[nodiscard]] virtual std::optional<QString> registerItem() = 0;
    [[nodiscard]] virtual std::optional<QString> unregisterItem() = 0;

    /// Opens the place where the user can allow it.
    virtual void openSettings() = 0;
};

[[nodiscard]] std::unique_ptr<LoginItem> makeLoginItem();

} // namespace tessel
