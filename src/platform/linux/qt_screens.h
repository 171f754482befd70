// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/screens.h"

#include <QTimer>

class QScreen;

namespace tessel {

/// The monitors that Qt sees.
class QtScreens : public Screens
{
    Q_OBJECT

public:
    explicit QtScreens(Layout layout);
    [[nodiscard]] std::vector<Screen> list() const override;

protected:
    /// For adapters that hear of more than Qt: as one change of a burst.
    void noteChange() { m_burst.start(); }
    /// What is to be done at the end of a burst, before it is told.
    virtual void update() {}

private:
    void watch(const QScreen* screen);

    const Layout m_layout;
    QTimer m_burst; ///< runs through a burst of changes
};

} // namespace tessel
