// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "edge/edge_controller.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

namespace tessel {

/// The rows of the strip, with what they say and do at the moment.
class QuickActions : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("the application has one")

public:
    /// Both must outlive this.
    QuickActions(Store& store, EdgeController& controller);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// Does what a row says; nothing while it is disabled.
    Q_INVOKABLE void run(int row);

Q_SIGNALS:
    /// The menu of presets is to open beside the strip.
    void presetsRequested();

private:
    enum Role
    {
        labelRole = Qt::UserRole,
        symbolRole,
        enabledRole,
        litRole
    };

    /// What stands in a row.
    struct Row
    {
        QString label;
        QString symbol;
        bool isEnabled = true;
        bool isLit = false; ///< its symbol shows that something is on
    };

    [[nodiscard]] Row rowAt(int row) const;

    Store& m_store;
    EdgeController& m_controller;
};

} // namespace tessel
