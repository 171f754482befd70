// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "edge/edge_state.h"

namespace tessel {

void EdgeState::setLayout(const EdgeLayout& layout)
{
    if (layout.workArea == m_layout.workArea && layout.edge == m_layout.edge)
        return;
    m_layout = layout;
    Q_EMIT layoutChanged();
}

} // namespace tessel
