// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/session.h"

namespace tessel {

void Session::setState(const SessionState& state)
{
    if (state == m_state)
        return;
    m_state = state;
    Q_EMIT changed();
}

} // namespace tessel
