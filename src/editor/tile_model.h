// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/look.h"

#include <QAbstractListModel>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <vector>

namespace tessel {

class Store;

/// A picture to choose one value of the look by.
struct Tile
{
    QString title;
    Look atRest; ///< in clay
};

/// What the tiles of a grid choose.
struct TileChoice
{
    std::function<int(const Look&)> rowOf;                     ///< the row that a look has chosen
    std::function<Look(Look, int row)> choose;                 ///< the look with another row chosen
    std::function<Look(const Look& atRest, const Look&)> live; ///< a tile in the colours of a look
};

/// A grid of tiles, one of them chosen. Pictures are addresses of `image://looks`, to be asked for with a
/// sourceSize in device pixels.
class TileModel : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The editor makes its tiles")
    Q_PROPERTY(int count READ count CONSTANT)
    Q_PROPERTY(int currentRow READ currentRow NOTIFY currentRowChanged)

public:
    enum Role
    {
        TitleRole = Qt::DisplayRole,
        PictureRole = Qt::UserRole, ///< in clay
        LivePictureRole,            ///< in the colours of the look
        SelectedRole
    };

    /// \param store must outlive this
    TileModel(std::vector<Tile> tiles, TileChoice choice, Store& store, QObject* parent = nullptr);

    [[nodiscard]] int count() const { return static_cast<int>(m_tiles.size()); }
    [[nodiscard]] int currentRow() const { return m_currentRow; }

    /// Gives the look what the tile stands for, with history.
    Q_INVOKABLE void choose(int row);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void currentRowChanged();

private:
    void readLook();
    [[nodiscard]] Look liveLook(int row) const;

    const std::vector<Tile> m_tiles;
    std::vector<QString> m_pictures; ///< at rest, in the order of the tiles
    const TileChoice m_choice;
    Store& m_store;
    Look m_live; ///< the first tile as it was last told of, to see whether the colours have changed
    int m_currentRow;
};

} // namespace tessel
