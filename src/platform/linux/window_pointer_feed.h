// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/pointer_feed.h"

class QWindow;

namespace tessel {

/// What Qt tells of the pointer over a window; nothing of presses elsewhere.
class WindowPointerFeed : public PointerFeed
{
    Q_OBJECT

public:
    /// \param window must outlive this
    explicit WindowPointerFeed(QWindow& window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace tessel
