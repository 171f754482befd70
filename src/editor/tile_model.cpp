// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/tile_model.h"

#include "controls/look_pictures.h"
#include "model/store.h"

#include <utility>

namespace tessel {

TileModel::TileModel(std::vector<Tile> tiles, TileChoice choice, Store& store, QObject* parent)
    : QAbstractListModel(parent)
    , m_tiles(std::move(tiles))
    , m_choice(std::move(choice))
    , m_store(store)
    , m_live(liveLook(0))
    , m_currentRow(m_choice.rowOf(store.look()))
{
    for (const Tile& tile : m_tiles)
        m_pictures.push_back(pictureOfLook(tile.atRest));
    connect(&store, &Store::lookChanged, this, &TileModel::readLook);
}

void TileModel::choose(int row)
{
    if (row >= 0 && row < count())
        m_store.changeLook(m_choice.choose(m_store.look(), row));
}

int TileModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant TileModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const auto place = static_cast<std::size_t>(index.row());
    switch (role) {
    case TitleRole:
        return m_tiles[place].title;
    case PictureRole:
        return m_pictures[place];
    case LivePictureRole:
        return pictureOfLook(liveLook(index.row()));
    case SelectedRole:
        return index.row() == m_currentRow;
    default:
        return {};
    }
}

QHash<int, QByteArray> TileModel::roleNames() const
{
    return {{TitleRole, "title"},
            {PictureRole, "picture"},
            {LivePictureRole, "livePicture"},
            {SelectedRole, "selected"}};
}

void TileModel::readLook()
{
    const int before = std::exchange(m_currentRow, m_choice.rowOf(m_store.look()));
    if (before != m_currentRow) {
        for (const int row : {before, m_currentRow})
            Q_EMIT dataChanged(index(row), index(row), {SelectedRole});
        Q_EMIT currentRowChanged();
    }
    Look live = liveLook(0);
    if (live == m_live)
        return;
    m_live = std::move(live);
    Q_EMIT dataChanged(index(0), index(count() - 1), {LivePictureRole});
}

Look TileModel::liveLook(int row) const
{
    return m_choice.live(m_tiles[static_cast<std::size_t>(row)].atRest, m_store.look());
}

} // namespace tessel
