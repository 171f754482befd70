// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/look.h"

#include <QAbstractListModel>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace tessel {

class Store;

/// The user's presets. A preset is named by its id, which stays its own while a question is open and the list
/// changes.
class PresetList : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The editor model has the one there is")
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    /// What stands under the tiles.
    Q_PROPERTY(QString hint READ hint NOTIFY countChanged)

public:
    enum Role
    {
        NameRole = Qt::DisplayRole,
        PictureRole = Qt::UserRole,
        SelectedRole, ///< whether its look is the edited one
        AnimatedRole,
        PresetIdRole
    };

    /// \param store must outlive this
    explicit PresetList(Store& store, QObject* parent = nullptr);

    [[nodiscard]] int count() const { return static_cast<int>(m_presets.size()); }
    [[nodiscard]] QString hint() const;

    /// The name to propose for the edited look.
    Q_INVOKABLE [[nodiscard]] QString suggestedName() const;

    /// Adds the edited look and motion as a preset; a name of nothing but white space adds none.
    Q_INVOKABLE void save(const QString& name);

    /// Cross-fades the edited look to a preset's and takes its motion.
    Q_INVOKABLE void choose(int row);

    /// The name of a preset, empty if there is no such one.
    Q_INVOKABLE [[nodiscard]] QString nameOf(const QString& presetId) const;
    Q_INVOKABLE void rename(const QString& presetId, const QString& name);
    Q_INVOKABLE void remove(const QString& presetId);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void countChanged();

private:
    void readPresets();
    void readLook();
    [[nodiscard]] std::vector<bool> selected() const;

    Store& m_store;
    std::vector<Preset> m_presets; ///< as they were last told of
    std::vector<bool> m_selected;
};

/// Adds a preset at the end of the store's, under a fresh id.
void addPreset(Store& store, const QString& name, const Look& look, bool motion);

} // namespace tessel
