// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/look.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace tessel {

class Store;

/// The rows of the palette grid, for one list view: the user's own palettes and the tile for a new one, the
/// core palettes, and the families after "More palettes".
class PaletteGrid : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The palette editor has the one there is")
    Q_PROPERTY(bool showsMore READ showsMore WRITE setShowsMore NOTIFY showsMoreChanged)
    /// The row and column of the selected swatch, -1 where it is not in the list.
    Q_PROPERTY(int selectedRow READ selectedRow NOTIFY selectedRowChanged)

public:
    enum Role
    {
        KindRole = Qt::UserRole, ///< RowKind
        HeaderRole,              ///< text of a header: "Yours", "More palettes", a family; else empty
        SwatchesRole,      ///< up to three maps: title, stops (list of colours), kind (SwatchKind), index
        SelectedColumnRole ///< of the selected swatch in this row, -1 for none
    };

    enum RowKind
    {
        Yours,             ///< the header of the user's own palettes, with a plus
        Swatches,          ///< up to three palettes
        FirstCoreSwatches, ///< the same, set off from the rows above
        More,              ///< opens and closes the families
        Family             ///< the header of one
    };
    Q_ENUM(RowKind)

    enum SwatchKind
    {
        BuiltIn,
        Mine,
        Add
    };
    Q_ENUM(SwatchKind)

    static constexpr int columns = 3;

    /// \param store must outlive this
    explicit PaletteGrid(Store& store, QObject* parent = nullptr);

    [[nodiscard]] bool showsMore() const { return m_showsMore; }
    [[nodiscard]] int selectedRow() const { return m_selected.row; }

    void setShowsMore(bool shows);

    /// How many things a row has to choose from, 0 for a header.
    Q_INVOKABLE [[nodiscard]] int columnsIn(int row) const;

    /// "Mine 1" for the first of the user's own palettes.
    [[nodiscard]] static QString nameOfMine(int index);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void showsMoreChanged();
    void selectedRowChanged();

private:
    /// A swatch by what it stands for.
    struct Swatch
    {
        SwatchKind kind = BuiltIn;
        int index = 0;
        bool operator==(const Swatch&) const = default;
    };
    struct Row
    {
        RowKind kind = Swatches;
        QString header;
        std::vector<Swatch> swatches;
    };
    struct Place
    {
        int row = -1;
        int column = -1;
        bool operator==(const Place&) const = default;
    };

    static void appendRows(std::vector<Row>& rows, const std::vector<Swatch>& swatches);
    [[nodiscard]] static std::vector<Row> rowsOfMine(std::size_t count);
    [[nodiscard]] static std::vector<Row> rowsOfFamilies();
    void readPalettes();
    void readLook();
    [[nodiscard]] Place placeOf(const Look& look) const;
    [[nodiscard]] QVariantMap describe(const Swatch& swatch) const;

    Store& m_store;
    std::vector<Row> m_rows;
    int m_mineRows = 0; ///< those of the user's own palettes, below their header
    bool m_showsMore = false;
    Place m_selected;
};

} // namespace tessel
