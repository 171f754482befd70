// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "edge/edge_layout.h"

#include <algorithm>

namespace tessel {

namespace {

constexpr int panelWidth = 372;
constexpr int panelMargin = 20; ///< above and below the editor
constexpr int tallestEditor = 720;

constexpr QSize handleSize{36, 36};
constexpr QSize stripSize{48, 240};
constexpr int editorWidth = 312;

/// From the screen's edge.
constexpr int handleMargin = 12;
constexpr int stripMargin = 6;
constexpr int editorMargin = 12;

/// How far around what is drawn the pointer is still on it.
constexpr int reach = 4;

constexpr int rowHeight = 36;
constexpr int gapBelowHandle = 10;

} // namespace

int EdgeLayout::panelHeight() const
{
    return std::clamp(workArea.height() - 2 * panelMargin, 0, tallestEditor);
}

QRect EdgeLayout::panelFrame() const
{
    const int height = panelHeight() + 2 * panelMargin;
    const int x = edge == Edge::right ? workArea.left() + workArea.width() - panelWidth : workArea.left();
    return {x, workArea.top() + (workArea.height() - height) / 2, panelWidth, height};
}

QRect EdgeLayout::contentFrame(Mode mode) const
{
    const auto placed = [this](QSize size, int margin, int y) {
        const int x = edge == Edge::right ? panelWidth - margin - size.width() : margin;
        return QRect(QPoint(x, y), size);
    };
    const int middle = panelFrame().height() / 2;
    switch (mode) {
    case Mode::handle:
        return placed(handleSize, handleMargin, middle - handleSize.height() / 2);
    case Mode::quick:
        return placed(stripSize, stripMargin, middle - handleSize.height() / 2 - stripMargin);
    case Mode::open:
        break;
    }
    return placed({editorWidth, panelHeight()}, editorMargin, panelMargin);
}

QRect EdgeLayout::activeFrame(Mode mode) const
{
    return contentFrame(mode).adjusted(-reach, -reach, reach, reach);
}

std::optional<int> EdgeLayout::quickRow(int y) const
{
    const QRect handle = contentFrame(Mode::handle);
    const int down = y - (handle.top() + handle.height() + gapBelowHandle);
    const int row = down / rowHeight;
    return down >= 0 && row < quickActionCount ? std::optional(row) : std::nullopt;
}

} // namespace tessel
