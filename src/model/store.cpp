// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/store.h"

#include "model/json_reader.h"
#include "model/palette.h"

#include <algorithm>
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

/// Whether these can be the colours of a palette.
bool isPalette(const std::vector<Color>& stops)
{
    return stops.size() >= 2 && stops.size() <= maxStops &&
           std::ranges::all_of(stops, [](Color stop) { return stop <= 0xFFFFFF; });
}

/// Whether a look is drawn in exactly these colours.
bool wears(const Look& look, const std::vector<Color>& stops)
{
    const Stops drawn = resolveStops(look);
    return std::equal(stops.begin(), stops.end(), drawn.slot.begin(), drawn.slot.begin() + drawn.count);
}

/// A look in these colours; if it has them already, as those of its palette too, it stays as it is.
Look wearing(Look look, const std::vector<Color>& stops)
{
    if (!wears(look, stops))
        look.custom = stops;
    return look;
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
    changeEdited(std::move(next));
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

void Store::setShortcutsWanted(bool wanted)
{
    change(m_shortcutsWanted, wanted);
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
    update(m_undone, withNewest(m_undone, look()), &Store::undoneChanged);
    fadeTo(std::move(last));
    finish();
}

void Store::redo()
{
    if (m_undone.empty())
        return;
    Look last = m_undone.back();
    update(m_undone, withoutNewest(m_undone), &Store::undoneChanged);
    update(m_history, withNewest(m_history, look()), &Store::historyChanged);
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
    update(m_undone, {}, &Store::undoneChanged);
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

void Store::shuffleDraft()
{
    const bool hasPhoto = look().imagePath || !desktop();
    fadeToNew(randomLook(m_environment.random, hasPhoto ? look().imagePath : desktop()->imagePath));
    finish();
}

void Store::beginEditing(std::optional<int> index, std::vector<Color> stops)
{
    if (!isPalette(stops))
        return;
    const Look before = m_stopsBeforeEdit ? lookBeforeEdit() : look();
    change(m_look, wearing(before, stops));
    update(m_draftStops, std::optional(std::move(stops)), &Store::draftStopsChanged);
    update(m_draftStopsIndex, index, &Store::draftStopsIndexChanged);
    update(m_stopsBeforeEdit, std::optional(before.custom.value_or(std::vector<Color>())),
           &Store::stopsBeforeEditChanged);
    finish();
}

void Store::setDraftStops(std::vector<Color> stops)
{
    if (!m_stopsBeforeEdit || !isPalette(stops))
        return;
    change(m_look, wearing(look(), stops));
    update(m_draftStops, std::optional(std::move(stops)), &Store::draftStopsChanged);
    finish();
}

void Store::savePalette()
{
    if (!m_stopsBeforeEdit)
        return;
    std::vector<std::vector<Color>> palettes = customPalettes();
    const auto index = static_cast<std::size_t>(m_draftStopsIndex.value_or(-1));
    if (index < palettes.size())
        palettes[index] = *m_draftStops;
    else
        palettes.push_back(*m_draftStops);
    Look saved = look();
    saved.custom = m_draftStops;
    if (const Look before = lookBeforeEdit(); before != saved)
        record(before);
    change(m_customPalettes, std::move(palettes));
    change(m_look, std::move(saved));
    forgetEdit();
    finish();
}

void Store::endEditing()
{
    if (!m_stopsBeforeEdit)
        return;
    change(m_look, lookBeforeEdit());
    forgetEdit();
    finish();
}

void Store::deletePalette(int index)
{
    std::vector<std::vector<Color>> palettes = customPalettes();
    if (index < 0 || static_cast<std::size_t>(index) >= palettes.size())
        return;
    palettes.erase(palettes.begin() + index);
    change(m_customPalettes, std::move(palettes));
    forgetEdit();
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

/// Changes the edited look and ends the edit of a palette whose colours it does not have any more.
void Store::changeEdited(Look next)
{
    change(m_look, std::move(next));
    if (m_draftStops && !wears(look(), *m_draftStops))
        forgetEdit();
}

void Store::fadeTo(Look next)
{
    if (next != look())
        m_changes.push_back(&Store::lookReplaced);
    changeEdited(std::move(next));
}

/// Fades to a look that differs and records the one it replaces.
void Store::fadeToNew(Look next)
{
    if (next == look())
        return;
    record(look());
    fadeTo(std::move(next));
}

/// Keeps a look that gives way to a new one.
void Store::record(const Look& replaced)
{
    update(m_history, withNewest(m_history, replaced), &Store::historyChanged);
    update(m_undone, {}, &Store::undoneChanged);
}

/// The look as it is but for its colours, which are those of before the edit.
Look Store::lookBeforeEdit() const
{
    // An empty list and none mean the same colours: then the look stays exactly as it is.
    Look restored = look();
    if (restored.custom.value_or(std::vector<Color>()) != *m_stopsBeforeEdit)
        restored.custom = m_stopsBeforeEdit->empty() ? std::nullopt : m_stopsBeforeEdit;
    return restored;
}

void Store::forgetEdit()
{
    update(m_draftStops, {}, &Store::draftStopsChanged);
    update(m_draftStopsIndex, {}, &Store::draftStopsIndexChanged);
    update(m_stopsBeforeEdit, {}, &Store::stopsBeforeEditChanged);
}

void Store::putOnDesktop(Look next, RecordHistory record, bool motion)
{
    if (record == RecordHistory::yes && desktop() && *desktop() != next)
        change(m_desktopHistory, withNewest(desktopHistory(), *desktop()));
    change(m_desktop, std::optional(std::move(next)));
    change(m_appliedMotion, motion);
}

} // namespace tessel
