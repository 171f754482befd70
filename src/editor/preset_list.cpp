// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/preset_list.h"

#include "controls/look_pictures.h"
#include "model/palette.h"
#include "model/store.h"

#include <QUuid>

#include <algorithm>
#include <utility>

namespace tessel {

namespace {

/// Changes the presets of a store, if there is one of this id.
template<typename Change>
void changePreset(Store& store, const QString& presetId, Change change)
{
    std::vector<Preset> presets = store.presets();
    const auto found = std::ranges::find(presets, presetId.toStdString(), &Preset::id);
    if (found == presets.end())
        return;
    change(presets, found);
    store.setPresets(std::move(presets));
}

} // namespace

void addPreset(Store& store, const QString& name, const Look& look, bool motion)
{
    std::vector<Preset> presets = store.presets();
    presets.push_back({QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper().toStdString(),
                       name.toStdString(), look, motion});
    store.setPresets(std::move(presets));
}

PresetList::PresetList(Store& store, QObject* parent)
    : QAbstractListModel(parent)
    , m_store(store)
    , m_presets(store.presets())
    , m_selected(selected())
{
    connect(&store, &Store::presetsChanged, this, &PresetList::readPresets);
    connect(&store, &Store::lookChanged, this, &PresetList::readLook);
}

QString PresetList::hint() const
{
    return m_presets.empty() ? tr("Keeps the shape, colours, dither and every slider, ready to switch to "
                                  "from the menu bar.")
                             : tr("Right-click a preset to rename or delete it.");
}

QString PresetList::suggestedName() const
{
    return QString::fromStdString(displayTitle(m_store.look()));
}

void PresetList::save(const QString& name)
{
    if (const QString trimmed = name.trimmed(); !trimmed.isEmpty())
        addPreset(m_store, trimmed, m_store.look(), m_store.motion());
}

void PresetList::choose(int row)
{
    if (row < 0 || row >= count())
        return;
    const Preset preset = m_presets[static_cast<std::size_t>(row)];
    m_store.changeLook(preset.look);
    m_store.setMotion(preset.motion);
}

QString PresetList::nameOf(const QString& presetId) const
{
    const auto found = std::ranges::find(m_presets, presetId.toStdString(), &Preset::id);
    return found != m_presets.end() ? QString::fromStdString(found->name) : QString();
}

void PresetList::rename(const QString& presetId, const QString& name)
{
    const QString trimmed = name.trimmed();
    if (trimmed.isEmpty())
        return;
    changePreset(m_store, presetId,
                 [&](auto& /*presets*/, auto preset) { preset->name = trimmed.toStdString(); });
}

void PresetList::remove(const QString& presetId)
{
    changePreset(m_store, presetId, [](auto& presets, auto preset) { presets.erase(preset); });
}

int PresetList::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant PresetList::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const auto place = static_cast<std::size_t>(index.row());
    const Preset& preset = m_presets[place];
    switch (role) {
    case NameRole:
        return QString::fromStdString(preset.name);
    case PictureRole:
        return pictureOfLook(preset.look);
    case SelectedRole:
        return static_cast<bool>(m_selected[place]);
    case AnimatedRole:
        return preset.motion;
    case PresetIdRole:
        return QString::fromStdString(preset.id);
    default:
        return {};
    }
}

QHash<int, QByteArray> PresetList::roleNames() const
{
    return {{NameRole, "name"},
            {PictureRole, "picture"},
            {SelectedRole, "selected"},
            {AnimatedRole, "animated"},
            {PresetIdRole, "presetId"}};
}

/// Tells what has changed: what is the same at both ends of the list stays, what lies between is exchanged.
void PresetList::readPresets()
{
    const std::vector<Preset>& now = m_store.presets();
    const auto isSame = [](const Preset& one, const Preset& other) { return one.id == other.id; };
    const auto [oldHead, newHead] =
        std::mismatch(m_presets.begin(), m_presets.end(), now.begin(), now.end(), isSame);
    const auto head = static_cast<int>(oldHead - m_presets.begin());
    const auto [oldTail, newTail] = std::mismatch(m_presets.rbegin(), std::reverse_iterator(oldHead),
                                                  now.rbegin(), std::reverse_iterator(newHead), isSame);
    const auto tail = static_cast<int>(oldTail - m_presets.rbegin());
    const int before = count();
    if (before > head + tail) {
        beginRemoveRows({}, head, before - tail - 1);
        m_presets.erase(oldHead, oldTail.base());
        m_selected.erase(m_selected.begin() + head, m_selected.begin() + before - tail);
        endRemoveRows();
    }
    if (const auto added = static_cast<int>(now.size()) - head - tail; added > 0) {
        beginInsertRows({}, head, head + added - 1);
        m_presets.insert(m_presets.begin() + head, newHead, newTail.base());
        m_selected.insert(m_selected.begin() + head, static_cast<std::size_t>(added), false);
        endInsertRows();
    }
    for (std::size_t place = 0; place < now.size(); ++place)
        if (m_presets[place] != now[place]) {
            m_presets[place] = now[place];
            const QModelIndex changed = index(static_cast<int>(place));
            Q_EMIT dataChanged(changed, changed);
        }
    readLook();
    if (count() != before)
        Q_EMIT countChanged();
}

void PresetList::readLook()
{
    const std::vector<bool> before = std::exchange(m_selected, selected());
    for (int row = 0; row < count(); ++row) {
        const auto place = static_cast<std::size_t>(row);
        if (before[place] != m_selected[place])
            Q_EMIT dataChanged(index(row), index(row), {SelectedRole});
    }
}

/// Of each preset, whether its look is the edited one.
std::vector<bool> PresetList::selected() const
{
    std::vector<bool> selected(m_presets.size());
    std::transform(m_presets.begin(), m_presets.end(), selected.begin(),
                   [&](const Preset& preset) { return preset.look == m_store.look(); });
    return selected;
}

} // namespace tessel
