// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/store.h"

#include "model/json_reader.h"

#include <set>
#include <stdexcept>
#include <utility>

namespace tessel {

namespace {

std::vector<Look> withNewest(std::vector<Look> looks, const Look& newest)
{
    looks.push_back(newest);
    if (looks.size() > maxHistory)
        looks.erase(looks.begin(), looks.end() - static_cast<std::ptrdiff_t>(maxHistory));
    return looks;
}

/// A history without its newest look.
std::vector<Look> withoutNewest(std::vector<Look> looks)
{
    looks.pop_back();
    return looks;
}

} // namespace

double mediaTime()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

Store::Store(StoreEnvironment environment, QObject* parent)
    : QObject(parent)
    , m_environment(std::move(environment))
{
    load();
    connect(m_saver, &SettingsSaver::failed, this, &Store::savingFailed);
    connect(m_saver, &SettingsSaver::resumed, this, &Store::savingResumed);
}

void Store::load()
{
    const StoredSettings stored = readSettings(m_environment.settingsFile);
    if (stored.problem)
        m_problems.push_back({{}, *stored.problem});
    std::set<std::string> unreadable;
    for (AnySetting* setting : m_settings) {
        const auto found = stored.values.find(setting->key);
        if (found == stored.values.end())
            continue;
        try {
            setting->read(found->second);
        } catch (const std::runtime_error& error) {
            m_problems.push_back({QString::fromLatin1(setting->key), QString::fromUtf8(error.what())});
            unreadable.insert(setting->key);
        }
    }
    m_saver = new SettingsSaver(m_environment.settingsFile, stored.text, std::move(unreadable),
                                SettingsSaver::Timing{m_environment.lookDelay, m_environment.retryInterval,
                                                      m_environment.lockPatience},
                                this);
}

bool Store::isOnDesktop() const
{
    return desktop() == look() && motion() == appliedMotion();
}

void Store::setLook(Look next)
{
    change(m_look, std::move(next));
    finish();
}

void Store::setMotion(bool motion)
{
    change(m_motion, motion);
    finish();
}

void Store::setCustomPalettes(std::vector<std::vector<Color>> palettes)
{
    change(m_customPalettes, std::move(palettes));
    finish();
}

void Store::setPresets(std::vector<Preset> presets)
{
    change(m_presets, std::move(presets));
    finish();
}

void Store::setShuffleMinutes(qint64 minutes)
{
    change(m_shuffleMinutes, minutes);
    finish();
}

void Store::setEdge(Edge edge)
{
    change(m_edge, edge);
    finish();
}

void Store::setHandleHidden(bool hidden)
{
    change(m_handleHidden, hidden);
    finish();
}

void Store::setOnboarded(bool onboarded)
{
    change(m_onboarded, onboarded);
    finish();
}

void Store::setLastServed(const QDateTime& served)
{
    change(m_lastServed, served);
    finish();
}

void Store::setDesktopPhase(double phase)
{
    change(m_desktopPhase, phase);
    finish();
}

void Store::setLatestPictures(const QStringList& files)
{
    change(m_latestPictures, files);
    finish();
}

void Store::setDraftStops(std::optional<std::vector<Color>> stops)
{
    update(m_draftStops, std::move(stops), &Store::draftStopsChanged);
    finish();
}

void Store::setDraftStopsIndex(std::optional<int> index)
{
    update(m_draftStopsIndex, index, &Store::draftStopsIndexChanged);
    finish();
}

void Store::setStopsBeforeEdit(std::optional<std::vector<Color>> stops)
{
    update(m_stopsBeforeEdit, std::move(stops), &Store::stopsBeforeEditChanged);
    finish();
}

void Store::changeLook(Look next)
{
    if (encoded(next))
        fadeToNew(std::move(next));
    finish();
}

void Store::undo()
{
    if (m_history.empty())
        return;
    Look last = m_history.back();
    update(m_history, withoutNewest(m_history), &Store::historyChanged);
    fadeTo(std::move(last));
    finish();
}

void Store::applyToDesktop(Look next, RecordHistory record, std::optional<bool> motion,
                           ContinueFromEditor continuing)
{
    if (!encoded(next)) {
        finish();
        return;
    }
    putOnDesktop(std::move(next), record, motion.value_or(m_motion.value));
    finish(continuing);
}

void Store::setDesktopMotion(bool motion)
{
    if (desktop())
        applyToDesktop(*desktop(), RecordHistory::no, motion, ContinueFromEditor::no);
    else
        setMotion(motion);
}

void Store::leaveDesktop()
{
    if (!desktop())
        return;
    change(m_desktopHistory, withNewest(desktopHistory(), *desktop()));
    change(m_desktop, std::optional<Look>());
    finish();
}

void Store::previousWallpaper()
{
    if (desktopHistory().empty())
        return;
    const Look last = desktopHistory().back();
    change(m_desktopHistory, withoutNewest(desktopHistory()));
    fadeTo(last);
    putOnDesktop(last, RecordHistory::no, appliedMotion());
    finish(ContinueFromEditor::no);
}

const Look& Store::upcoming()
{
    if (!m_upcoming)
        m_upcoming = randomLook(m_environment.random, std::nullopt);
    return *m_upcoming;
}

void Store::shuffle()
{
    const bool hasDesktopPhoto = desktop() && desktop()->imagePath;
    const Look& keeper = hasDesktopPhoto ? *desktop() : look();
    Look fresh = upcoming();
    fresh.imagePath = keeper.imagePath;
    m_upcoming.reset();
    fadeToNew(fresh);
    putOnDesktop(fresh, RecordHistory::yes, desktop() ? appliedMotion() : motion());
    finish(ContinueFromEditor::no);
}

void Store::endEditing()
{
    if (!m_stopsBeforeEdit)
        return;
    // An empty list and none mean the same colours: then the look stays exactly as it is.
    Look restored = look();
    if (restored.custom.value_or(std::vector<Color>()) != *m_stopsBeforeEdit)
        restored.custom = m_stopsBeforeEdit->empty() ? std::nullopt : m_stopsBeforeEdit;
    change(m_look, std::move(restored));
    update(m_draftStops, {}, &Store::draftStopsChanged);
    update(m_draftStopsIndex, {}, &Store::draftStopsIndexChanged);
    update(m_stopsBeforeEdit, {}, &Store::stopsBeforeEditChanged);
    finish();
}

bool Store::saveNow()
{
    return m_saver->saveNow();
}

/// Ends every operation: has it saved, then tells what has happened.
/// \param applying given when a look was put on the desktop
void Store::finish(std::optional<ContinueFromEditor> applying)
{
    m_saver->commit();
    // Taken out first: whoever hears of a change may start the next operation.
    const auto changes = std::exchange(m_changes, {});
    const auto refusal = std::exchange(m_refusal, {});
    for (const Signal signal : changes)
        Q_EMIT(this->*signal)();
    if (!changes.empty())
        Q_EMIT changed();
    if (applying)
        Q_EMIT applied(*applying);
    if (refusal)
        Q_EMIT refused(*refusal);
}

/// Assigns; an equal value is stored too, since equal floats can differ in the sign of zero.
template<typename Value>
void Store::update(Value& field, Value value, Signal signal)
{
    if (field != value && signal != nullptr)
        m_changes.push_back(signal);
    field = std::move(value);
}

/// A value as it is stored; none, and a refusal noted, where JSON cannot hold it.
template<typename Value>
std::optional<SettingValue> Store::encoded(const Value& value)
{
    try {
        return toSetting(value);
    } catch (const JsonError& error) {
        m_refusal = QString::fromStdString(error.what());
        return std::nullopt;
    }
}

/// Changes a setting, if it is stored differently from before, and has it saved.
template<typename Value>
void Store::change(Setting<Value>& setting, Value value)
{
    std::optional<SettingValue> stored = encoded(value);
    if (!stored || *stored == toSetting(setting.value))
        return;
    m_saver->set(setting.key, *std::move(stored), setting.when);
    update(setting.value, std::move(value), setting.signal);
}

void Store::fadeTo(Look next)
{
    if (next != look())
        m_changes.push_back(&Store::lookReplaced);
    change(m_look, std::move(next));
}

/// Fades to a look that differs and records the one it replaces.
void Store::fadeToNew(Look next)
{
    if (next == look())
        return;
    update(m_history, withNewest(m_history, look()), &Store::historyChanged);
    fadeTo(std::move(next));
}

void Store::putOnDesktop(Look next, RecordHistory record, bool motion)
{
    if (record == RecordHistory::yes && desktop() && *desktop() != next)
        change(m_desktopHistory, withNewest(desktopHistory(), *desktop()));
    change(m_desktop, std::optional(std::move(next)));
    change(m_appliedMotion, motion);
}

} // namespace tessel
