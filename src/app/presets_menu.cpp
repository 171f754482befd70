// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/presets_menu.h"

namespace tessel {

PresetsMenu::PresetsMenu(std::function<std::vector<MenuRow>()> makeRows) : m_makeRows(std::move(makeRows)) {}

QVariantList PresetsMenu::rows() const
{
    QVariantList rows;
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        QVariantMap row{{QStringLiteral("text"), m_rows[i].title},
                        {QStringLiteral("disabled"), !m_rows[i].enabled},
                        {QStringLiteral("separated"), bool{m_isSeparated[i]}}};
        if (m_rows[i].checked)
            row.insert(QStringLiteral("checked"), *m_rows[i].checked);
        rows.push_back(row);
    }
    return rows;
}

void PresetsMenu::open()
{
    m_rows.clear();
    m_isSeparated.clear();
    bool isSeparated = false;
    for (const MenuRow& row : m_makeRows()) {
        if (!row.isSeparator()) {
            m_rows.push_back(row);
            m_isSeparated.push_back(isSeparated);
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
