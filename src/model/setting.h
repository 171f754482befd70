// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/look.h"
#include "model/settings_saver.h"

#include <QDateTime>
#include <QStringList>
#include <QVariant>

#include <optional>
#include <utility>
#include <vector>

namespace tessel {

class Store;

/// A value as the settings file holds it.
/// \throws JsonError for what JSON cannot hold
[[nodiscard]] SettingValue toSetting(bool value);
[[nodiscard]] SettingValue toSetting(qint64 value);
[[nodiscard]] SettingValue toSetting(double value);
[[nodiscard]] SettingValue toSetting(Edge value);
[[nodiscard]] SettingValue toSetting(const QDateTime& value);
[[nodiscard]] SettingValue toSetting(const QStringList& value);
[[nodiscard]] SettingValue toSetting(const Look& value);
[[nodiscard]] SettingValue toSetting(const std::optional<Look>& value); ///< no text for none
[[nodiscard]] SettingValue toSetting(const std::vector<Look>& value);
[[nodiscard]] SettingValue toSetting(const std::vector<std::vector<Color>>& value);
[[nodiscard]] SettingValue toSetting(const std::vector<Preset>& value);

/// The reverse.
/// \throws std::runtime_error that says what the file holds and what would be right; the value stays as it
/// was
void fromSetting(const QVariant& stored, bool& value);
void fromSetting(const QVariant& stored, qint64& value);
void fromSetting(const QVariant& stored, double& value);
void fromSetting(const QVariant& stored, Edge& value);
void fromSetting(const QVariant& stored, QDateTime& value);
void fromSetting(const QVariant& stored, QStringList& value);
void fromSetting(const QVariant& stored, Look& value);
void fromSetting(const QVariant& stored, std::optional<Look>& value);
void fromSetting(const QVariant& stored, std::vector<Look>& value);
void fromSetting(const QVariant& stored, std::vector<std::vector<Color>>& value);
void fromSetting(const QVariant& stored, std::vector<Preset>& value);

/// A value that is kept in the settings file, whatever its type.
struct AnySetting
{
    /// \param all gets this one as its last
    AnySetting(std::vector<AnySetting*>& all, const char* ownKey) : key(ownKey) { all.push_back(this); }
    virtual ~AnySetting() = default;
    AnySetting(const AnySetting&) = delete;
    AnySetting& operator=(const AnySetting&) = delete;

    /// Takes what the file holds.
    /// \throws std::runtime_error as fromSetting()
    virtual void read(const QVariant& stored) = 0;

    const char* const key;
};

/// One of the settings of a store: its key in the file, its value, when it is saved, and what tells that it
/// has changed.
template<typename Value>
struct Setting final : AnySetting
{
    using Signal = void (Store::*)();

    Setting(std::vector<AnySetting*>& all, const char* ownKey, Value initial, SaveWhen saveWhen,
            Signal changed = nullptr)
        : AnySetting(all, ownKey)
        , value(std::move(initial))
        , when(saveWhen)
        , signal(changed)
    {
    }

    void read(const QVariant& stored) override { fromSetting(stored, value); }

    Value value;
    const SaveWhen when;
    const Signal signal; ///< nullptr where nobody needs to hear of it
};

} // namespace tessel
