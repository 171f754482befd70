// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "edge/quick_actions.h"

namespace tessel {

namespace {

enum QuickRow
{
    newWallpaper,
    previousWallpaper,
    motion,
    presets,
    editor
};

} // namespace

QuickActions::QuickActions(Store& store, EdgeController& controller)
    : m_store(store)
    , m_controller(controller)
{
    const auto tell = [this](int row) {
        const QModelIndex place = index(row, 0);
        Q_EMIT dataChanged(place, place);
    };
    connect(&m_store, &Store::desktopHistoryChanged, this, [tell] { tell(previousWallpaper); });
    for (const auto signal : {&Store::desktopChanged, &Store::appliedMotionChanged, &Store::motionChanged})
        connect(&m_store, signal, this, [tell] { tell(motion); });
}

int QuickActions::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : quickActionCount;
}

QuickActions::Row QuickActions::rowAt(int row) const
{
    switch (row) {
    case newWallpaper:
        return {tr("New wallpaper"), QStringLiteral("arrows-shuffle")};
    case previousWallpaper: {
        const bool isThere = !m_store.desktopHistory().empty();
        return {isThere ? tr("Previous wallpaper") : tr("No previous wallpaper"),
                QStringLiteral("arrow-back-up"), isThere};
    }
    case motion:
        if (m_store.desktopMotion())
            //: the state, and what a click does
            return {tr("Animated · click to freeze"), QStringLiteral("live-photo"), true, true};
        //: the state, and what a click does
        return {tr("Still · click to animate"), QStringLiteral("live-photo-off")};
    case presets:
        return {tr("Presets"), QStringLiteral("stack-2")};
    default:
        return {tr("Open editor"), QStringLiteral("adjustments-horizontal")};
    }
}

QVariant QuickActions::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Row row = rowAt(index.row());
    switch (role) {
    case labelRole:
        return row.label;
    case symbolRole:
        return row.symbol;
    case enabledRole:
        return row.isEnabled;
    case litRole:
        return row.isLit;
    default:
        return {};
    }
}

QHash<int, QByteArray> QuickActions::roleNames() const
{
    return {{labelRole, "label"}, {symbolRole, "symbol"}, {enabledRole, "isEnabled"}, {litRole, "isLit"}};
}

void QuickActions::run(int row)
{
    switch (row) {
    case newWallpaper:
        m_store.shuffle();
        break;
    case previousWallpaper:
        m_store.previousWallpaper();
        break;
    case motion:
        m_store.setDesktopMotion(!m_store.desktopMotion());
        break;
    case presets:
        Q_EMIT presetsRequested();
        break;
    case editor:
        m_controller.setMode(Mode::open);
        break;
    default:
        break;
    }
}

} // namespace tessel
