// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/linux/qt_screens.h"

#include <QAbstractNativeEventFilter>

#include <cstdint>
#include <optional>

namespace tessel {

class X11Connection;

/// The monitors as Qt sees them on X11, with what it does not tell: that the last one went, and the pixels
/// of one at a fractional scale.
class X11Screens : public QtScreens, private QAbstractNativeEventFilter
{
    Q_OBJECT

public:
    /// \param connection must outlive this
    explicit X11Screens(X11Connection& connection);
    [[nodiscard]] std::vector<Screen> list() const override;

private:
    void update() override;
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

    X11Connection& m_connection;
    std::optional<std::uint8_t> m_firstEvent; ///< of those about monitors, where the server tells of them
    std::vector<QRect> m_monitors; ///< as the server knows them, among the pixels of the whole desktop
};

} // namespace tessel
