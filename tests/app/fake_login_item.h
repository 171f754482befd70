// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/login_item.h"

namespace tessel {

/// A desktop's list of what starts at login that does what a test says.
class FakeLoginItem : public LoginItem
{
public:
    [[nodiscard]] Status status() const override { return now; }

    void registerItem(const Done& done) override
    {
        now = afterwards;
        done(failure);
    }

    void unregisterItem(const Done& done) override { registerItem(done); }

    void openSettings(QObject* /*context*/, const Done& done) override
    {
        ++settingsOpened;
        done(failure);
    }

    Status now = Status::off;
    Status afterwards = Status::enabled;
    std::optional<QString> failure;
    int settingsOpened = 0;
};

} // namespace tessel
