// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/menu_row.h"

#include <QObject>
#include <QVariant>

#include <functional>
#include <vector>

namespace tessel {

/// The menu of presets that opens beside the strip, for QML. Its rows are those of the moment that it opened.
class PresetsMenu : public QObject
{
    Q_OBJECT
    /// Each has `text`, `checked` if it may be, `disabled` and `separated`.
    Q_PROPERTY(QVariantList rows READ rows NOTIFY opened)

public:
    /// \param makeRows called whenever it opens
    explicit PresetsMenu(std::function<std::vector<MenuRow>()> makeRows);

    [[nodiscard]] const QVariantList& rows() const { return m_shown; }

    void open();
    Q_INVOKABLE void run(int row);
    /// To be called once it is not to be seen any more.
    Q_INVOKABLE void close() { Q_EMIT closed(); }

Q_SIGNALS:
    void opened();
    void closed();

private:
    const std::function<std::vector<MenuRow>()> m_makeRows;
    std::vector<MenuRow> m_rows; ///< without separators
    QVariantList m_shown;        ///< the same for QML
};

} // namespace tessel
