// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/palette_grid.h"

#include "model/palette.h"
#include "model/store.h"

#include <QColor>
#include <QVariantList>
#include <QVariantMap>

#include <algorithm>
#include <span>
#include <utility>

namespace tessel {

namespace {

QVariantList colorsOf(std::span<const Color> stops)
{
    QVariantList colors;
    for (const Color stop : stops.first(std::min(stops.size(), maxStops)))
        colors << QColor::fromRgb(stop);
    return colors;
}

} // namespace

PaletteGrid::PaletteGrid(Store& store, QObject* parent) : QAbstractListModel(parent), m_store(store)
{
    std::vector<Row> mine = rowsOfMine(store.customPalettes().size());
    m_mineRows = static_cast<int>(mine.size());
    //: the user's own palettes
    m_rows.push_back({Yours, tr("Yours"), {}});
    m_rows.insert(m_rows.end(), mine.begin(), mine.end());
    std::vector<Swatch> core(static_cast<std::size_t>(corePaletteCount));
    for (int index = 0; index < corePaletteCount; ++index)
        core[static_cast<std::size_t>(index)] = {BuiltIn, index};
    appendRows(m_rows, core);
    m_rows[m_rows.size() - core.size() / columns].kind = FirstCoreSwatches;
    m_rows.push_back({More, tr("More palettes"), {}});
    m_selected = placeOf(store.look());
    connect(&store, &Store::customPalettesChanged, this, &PaletteGrid::readPalettes);
    connect(&store, &Store::lookChanged, this, &PaletteGrid::readLook);
}

void PaletteGrid::setShowsMore(bool shows)
{
    if (shows == m_showsMore)
        return;
    const auto first = static_cast<int>(m_rows.size());
    if (shows) {
        const std::vector<Row> families = rowsOfFamilies();
        beginInsertRows({}, first, first + static_cast<int>(families.size()) - 1);
        m_rows.insert(m_rows.end(), families.begin(), families.end());
        endInsertRows();
    } else {
        const auto more = std::ranges::find(m_rows, More, &Row::kind) + 1;
        beginRemoveRows({}, static_cast<int>(more - m_rows.begin()), first - 1);
        m_rows.erase(more, m_rows.end());
        endRemoveRows();
    }
    m_showsMore = shows;
    Q_EMIT showsMoreChanged();
    readLook();
}

int PaletteGrid::columnsIn(int row) const
{
    if (row < 0 || row >= rowCount())
        return 0;
    const Row& found = m_rows[static_cast<std::size_t>(row)];
    return found.kind == More ? 1 : static_cast<int>(found.swatches.size());
}

int PaletteGrid::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant PaletteGrid::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Row& row = m_rows[static_cast<std::size_t>(index.row())];
    switch (role) {
    case KindRole:
        return row.kind;
    case HeaderRole:
        return row.header;
    case SwatchesRole: {
        QVariantList swatches;
        for (const Swatch& swatch : row.swatches)
            swatches << describe(swatch);
        return swatches;
    }
    case SelectedColumnRole:
        return index.row() == m_selected.row ? m_selected.column : -1;
    default:
        return {};
    }
}

QHash<int, QByteArray> PaletteGrid::roleNames() const
{
    return {{KindRole, "kind"},
            {HeaderRole, "header"},
            {SwatchesRole, "swatches"},
            {SelectedColumnRole, "selectedColumn"}};
}

QString PaletteGrid::nameOfMine(int index)
{
    //: a name for a palette of the user's own, with its number
    return tr("Mine %1").arg(index + 1);
}

/// Adds rows of swatches.
void PaletteGrid::appendRows(std::vector<Row>& rows, const std::vector<Swatch>& swatches)
{
    for (auto left = swatches.begin(); left != swatches.end();) {
        const auto end = left + std::min<std::ptrdiff_t>(columns, swatches.end() - left);
        rows.push_back({Swatches, {}, {left, end}});
        left = end;
    }
}

std::vector<PaletteGrid::Row> PaletteGrid::rowsOfMine(std::size_t count)
{
    std::vector<Swatch> swatches;
    for (std::size_t index = 0; index < count; ++index)
        swatches.push_back({Mine, static_cast<int>(index)});
    swatches.push_back({Add, 0});
    std::vector<Row> rows;
    appendRows(rows, swatches);
    return rows;
}

std::vector<PaletteGrid::Row> PaletteGrid::rowsOfFamilies()
{
    std::vector<Row> rows;
    for (const PaletteGroup& group : paletteGroups()) {
        rows.push_back({Family, QString::fromUtf8(group.name), {}});
        std::vector<Swatch> swatches;
        for (const int index : group.indices)
            swatches.push_back({BuiltIn, index});
        appendRows(rows, swatches);
    }
    return rows;
}

/// Brings the rows of the user's own palettes up to date.
void PaletteGrid::readPalettes()
{
    const std::vector<Row> mine = rowsOfMine(m_store.customPalettes().size());
    const auto count = static_cast<int>(mine.size());
    const int kept = std::min(count, m_mineRows);
    const int moved = count - m_mineRows;
    // Below the header.
    const auto place = [this](int row) { return m_rows.begin() + 1 + row; };
    std::copy_n(mine.begin(), kept, place(0));
    if (count > m_mineRows) {
        beginInsertRows({}, 1 + kept, count);
        m_rows.insert(place(kept), mine.begin() + kept, mine.end());
        m_mineRows = count;
        endInsertRows();
    } else if (count < m_mineRows) {
        beginRemoveRows({}, 1 + kept, m_mineRows);
        m_rows.erase(place(kept), place(m_mineRows));
        m_mineRows = count;
        endRemoveRows();
    }
    if (moved != 0 && m_selected.row > kept) {
        m_selected.row += moved;
        Q_EMIT selectedRowChanged();
    }
    Q_EMIT dataChanged(index(1), index(kept), {SwatchesRole});
    readLook();
}

void PaletteGrid::readLook()
{
    const Place before = std::exchange(m_selected, placeOf(m_store.look()));
    if (m_selected == before)
        return;
    for (const int row : {before.row, m_selected.row})
        if (row >= 0 && row < rowCount())
            Q_EMIT dataChanged(index(row), index(row), {SelectedColumnRole});
    if (m_selected.row != before.row)
        Q_EMIT selectedRowChanged();
}

/// Where the swatch is that has the colours of a look.
PaletteGrid::Place PaletteGrid::placeOf(const Look& look) const
{
    std::optional<Swatch> swatch;
    if (look.custom && !look.custom->empty()) {
        const auto& mine = m_store.customPalettes();
        const auto found = std::ranges::find(mine, *look.custom);
        if (found == mine.end())
            return {};
        swatch = {Mine, static_cast<int>(found - mine.begin())};
    } else {
        swatch = {BuiltIn, builtInIndex(look)};
    }
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        const auto found = std::ranges::find(m_rows[row].swatches, *swatch);
        if (found != m_rows[row].swatches.end())
            return {static_cast<int>(row), static_cast<int>(found - m_rows[row].swatches.begin())};
    }
    return {};
}

QVariantMap PaletteGrid::describe(const Swatch& swatch) const
{
    QVariantMap map{{QStringLiteral("kind"), swatch.kind}, {QStringLiteral("index"), swatch.index}};
    const auto place = static_cast<std::size_t>(swatch.index);
    switch (swatch.kind) {
    case BuiltIn:
        map[QStringLiteral("title")] = QString::fromUtf8(builtInPalettes()[place].name);
        map[QStringLiteral("stops")] = colorsOf(builtInPalettes()[place].hex);
        break;
    case Mine:
        map[QStringLiteral("title")] = nameOfMine(swatch.index);
        map[QStringLiteral("stops")] = colorsOf(m_store.customPalettes()[place]);
        break;
    case Add:
        map[QStringLiteral("title")] = tr("New palette");
        map[QStringLiteral("stops")] = QVariantList();
        break;
    }
    return map;
}

} // namespace tessel
