// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/presets_menu.h"

namespace tessel {

namespace {

/// \param isSeparated from the row before it
QVariantMap shown(const MenuRow& row, bool isSeparated)
{
    QVariantMap values{{QStringLiteral("text"), row.title},
                       {QStringLiteral("disabled"), !row.enabled},
                       {QStringLiteral("separated"), isSeparated}};
    if (row.checked)
        values.insert(QStringLiteral("checked"), *row.checked);
    return values;
}

} // namespace

PresetsMenu::PresetsMenu(std::function<std::vector<MenuRow>()> makeRows) : m_makeRows(std::move(makeRows)) {}

void PresetsMenu::open()
{
    m_rows.clear();
    m_shown.clear();
    bool isSeparated = false;
    for (const MenuRow& row : m_makeRows()) {
        if (!row.isSeparator()) {
            m_rows.push_back(row);
            m_shown.push_back(shown(row, isSeparated));
        }
        isSeparated = row.isSeparator();
    }
    Q_EMIT opened();
}

void PresetsMenu::run(int row)
{
    // A copy: what runs may open the menu anew.
    if (const auto run = m_rows.at(static_cast<std::size_t>(row)).run)
        run();
}

} // namespace tessel
