// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/linux/settling_screens.h"

class QScreen;

namespace tessel {

/// The monitors that Qt sees.
class QtScreens : public SettlingScreens
{
    Q_OBJECT

public:
    explicit QtScreens(Layout layout);
    [[nodiscard]] std::vector<Screen> list() const override;

private:
    void watch(const QScreen* screen);

    const Layout m_layout;
};

} // namespace tessel
