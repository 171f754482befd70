// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/store.h"

#include "model/json_reader.h"
#include "model/look_json.h"

#include <utility>

namespace tessel {

namespace {

/// Reads settings into fields. What is missing leaves its field alone, and so does what is wrong, which is
/// noted as a problem.
class SettingsReader
{
public:
    SettingsReader(StoredSettings settings, std::vector<SettingProblem>& notes)
        : m_values(std::move(settings.values))
        , m_problems(notes)
    {
        if (settings.problem)
            m_problems.push_back({{}, *settings.problem});
    }

    template<typename Field, typename Value>
    void readJson(const char* key, Field& field, Value (*decode)(std::string_view))
    {
        const QVariant* value = find(key);
        if (value == nullptr)
            return;
        if (value->typeId() != QMetaType::QByteArray && value->typeId() != QMetaType::QString) {
            note(key, *value, QStringLiteral("JSON text in quotes is expected"));
            return;
        }
        try {
            field = decode(value->toByteArray().toStdString());
        } catch (const JsonError& error) {
            m_problems.push_back({QString::fromLatin1(key), QString::fromStdString(error.what())});
        }
    }

    void read(const char* key, bool& field)
    {
        const QVariant* value = find(key);
        if (value == nullptr)
            return;
        const QString text = value->toString().toLower();
        if (text != QStringLiteral("true") && text != QStringLiteral("false")) {
            note(key, *value, QStringLiteral("true or false is expected"));
            return;
        }
        field = text == QStringLiteral("true");
    }

    void read(const char* key, qint64& field)
    {
        const QVariant* value = find(key);
        if (value == nullptr)
            return;
        bool isNumber = false;
        const qint64 number = value->toString().toLongLong(&isNumber);
        if (!isNumber) {
            note(key, *value, QStringLiteral("a whole number is expected"));
            return;
        }
        field = number;
    }

private:
    [[nodiscard]] const QVariant* find(const char* key) const
    {
        const auto entry = m_values.find(key);
        return entry == m_values.end() ? nullptr : &entry->second;
    }

    void note(const char* key, const QVariant& value, const QString& expected)
    {
        const QString held = value.toStringList().join(QStringLiteral(", "));
        m_problems.push_back(
            {QString::fromLatin1(key), QStringLiteral("holds \"%1\"; %2").arg(held, expected)});
    }

    std::map<std::string, QVariant> m_values;
    std::vector<SettingProblem>& m_problems;
};

QByteArray bytes(const std::string& text)
{
    return QByteArray::fromStdString(text);
}

/// Another program's writing takes milliseconds, as a rule.
constexpr std::chrono::milliseconds lockRetryInterval{100};
constexpr std::chrono::seconds lockPatience{1};
/// saveNow() is called twice when the program ends.
constexpr std::chrono::milliseconds endPatience{500};

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
    , m_laterTimer(this)
    , m_retryTimer(this)
{
    m_laterTimer.setSingleShot(true);
    m_laterTimer.setTimerType(Qt::PreciseTimer);
    m_laterTimer.setInterval(m_environment.lookDelay);
    connect(&m_laterTimer, &QTimer::timeout, this, [this] {
        addLook();
        save();
        finish();
    });
    m_retryTimer.setSingleShot(true);
    connect(&m_retryTimer, &QTimer::timeout, this, [this] {
        save();
        finish();
    });
    load();
}

void Store::load()
{
    StoredSettings stored = readSettings(m_environment.settingsFile);
    m_kept = stored.values;
    SettingsReader settings(std::move(stored), m_problems);
    settings.readJson("look", m_state.look, decodeLook);
    settings.readJson("desktop", m_state.desktop, decodeLook);
    settings.read("motion", m_state.motion);
    settings.read("appliedMotion", m_state.appliedMotion);
    settings.readJson("customPalettes", m_state.customPalettes, decodeColorLists);
    settings.readJson("desktopHistory", m_state.desktopHistory, decodeLooks);
    settings.readJson("presets", m_state.presets, decodePresets);
    settings.read("shuffleMinutes", m_state.shuffleMinutes);
    qint64 edge = 0;
    settings.read("edge", edge);
    m_state.edge = edge == 1 ? Edge::right : Edge::left;
    settings.read("handleHidden", m_state.handleHidden);

    m_state.previous = m_state.look;
    m_state.desktopPrevious = m_state.desktop;
    for (const SettingProblem& problem : m_problems)
        m_unreadable.insert(problem.key.toStdString());
}

bool Store::isOnDesktop() const
{
    return m_state.desktop == m_state.look && m_state.motion == m_state.appliedMotion;
}

void Store::setLook(Look next)
{
    if (encoded(next, encodeLook))
        edit(std::move(next));
    finish();
}

void Store::setMotion(bool motion)
{
    updateSetting(m_state.motion, motion, &Store::motionChanged, "motion", motion);
    finish();
}

void Store::setCustomPalettes(std::vector<std::vector<Color>> palettes)
{
    updateText(m_state.customPalettes, std::move(palettes), &Store::customPalettesChanged, "customPalettes",
               encodeColorLists);
    finish();
}

void Store::setPresets(std::vector<Preset> presets)
{
    updateText(m_state.presets, std::move(presets), &Store::presetsChanged, "presets", encodePresets);
    finish();
}

void Store::setShuffleMinutes(qint64 minutes)
{
    updateSetting(m_state.shuffleMinutes, minutes, &Store::shuffleMinutesChanged, "shuffleMinutes", minutes);
    finish();
}

void Store::setEdge(Edge edge)
{
    const qint64 stored = edge == Edge::right ? 1 : 0;
    updateSetting(m_state.edge, edge, &Store::edgeChanged, "edge", stored);
    finish();
}

void Store::setHandleHidden(bool hidden)
{
    updateSetting(m_state.handleHidden, hidden, &Store::handleHiddenChanged, "handleHidden", hidden);
    finish();
}

void Store::setDraftStops(std::optional<std::vector<Color>> stops)
{
    update(m_state.draftStops, std::move(stops), &Store::draftStopsChanged);
    finish();
}

void Store::setDraftStopsIndex(std::optional<int> index)
{
    update(m_state.draftStopsIndex, index, &Store::draftStopsIndexChanged);
    finish();
}

void Store::setStopsBeforeEdit(std::optional<std::vector<Color>> stops)
{
    update(m_state.stopsBeforeEdit, std::move(stops), &Store::stopsBeforeEditChanged);
    finish();
}

void Store::changeLook(Look next)
{
    if (encoded(next, encodeLook))
        fadeToNew(std::move(next));
    finish();
}

void Store::undo()
{
    if (m_state.history.empty())
        return;
    Look last = m_state.history.back();
    update(m_state.history, withoutNewest(m_state.history), &Store::historyChanged);
    fadeTo(std::move(last));
    finish();
}

void Store::applyToDesktop(Look next, RecordHistory record, std::optional<bool> motion,
                           ContinueFromEditor continuing)
{
    if (!encoded(next, encodeLook)) {
        finish();
        return;
    }
    putOnDesktop(std::move(next), record, motion.value_or(m_state.motion));
    finish(continuing);
}

void Store::previousWallpaper()
{
    if (m_state.desktopHistory.empty())
        return;
    const Look last = m_state.desktopHistory.back();
    updateDesktopHistory(withoutNewest(m_state.desktopHistory));
    fadeTo(last);
    putOnDesktop(last, RecordHistory::no, m_state.appliedMotion);
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
    const bool hasDesktopPhoto = m_state.desktop && m_state.desktop->imagePath;
    const Look& keeper = hasDesktopPhoto ? *m_state.desktop : m_state.look;
    Look fresh = upcoming();
    fresh.imagePath = keeper.imagePath;
    m_upcoming.reset();
    fadeToNew(fresh);
    putOnDesktop(fresh, RecordHistory::yes, m_state.desktop ? m_state.appliedMotion : m_state.motion);
    finish(ContinueFromEditor::no);
}

void Store::endEditing()
{
    if (!m_state.stopsBeforeEdit)
        return;
    // An empty list and none mean the same colours: then the look stays exactly as it is.
    Look restored = m_state.look;
    if (restored.custom.value_or(std::vector<Color>()) != *m_state.stopsBeforeEdit)
        restored.custom = m_state.stopsBeforeEdit->empty() ? std::nullopt : m_state.stopsBeforeEdit;
    if (encoded(restored, encodeLook))
        edit(std::move(restored));
    update(m_state.draftStops, {}, &Store::draftStopsChanged);
    update(m_state.draftStopsIndex, {}, &Store::draftStopsIndexChanged);
    update(m_state.stopsBeforeEdit, {}, &Store::stopsBeforeEditChanged);
    finish();
}

QVariant Store::kept(const std::string& key) const
{
    const auto entry = m_kept.find(key);
    return entry == m_kept.end() ? QVariant() : entry->second;
}

void Store::keep(const std::string& key, SettingValue value)
{
    m_kept[key] = std::visit([](const auto& held) { return QVariant::fromValue(held); }, value);
    m_unsaved[key] = std::move(value);
    saveLater();
}

bool Store::saveNow()
{
    addLook();
    save(endPatience);
    finish();
    return m_unsaved.empty();
}

/// Marks a setting as to be saved when the operation ends.
void Store::setUnsaved(const char* key, SettingValue value)
{
    m_unsaved[key] = std::move(value);
    m_isDue = true;
}

/// Marks the edited look, if it has changed, as to be saved with the next save().
void Store::addLook()
{
    if (std::exchange(m_isLookUnsaved, false))
        m_unsaved["look"] = bytes(encodeLook(m_state.look));
}

/// Saves what is marked as unsaved. Where that fails, it stays marked and is tried again later.
void Store::save(std::chrono::milliseconds patience)
{
    if (m_unsaved.empty())
        return;
    const auto failure = writeSettings(m_environment.settingsFile, m_unsaved, m_unreadable, patience);
    if (failure) {
        retry(*failure);
        return;
    }
    // The copy holds the other unreadable values too.
    if (std::erase_if(m_unreadable, [this](const std::string& key) { return m_unsaved.contains(key); }) > 0)
        m_unreadable.clear();
    m_unsaved.clear();
    if (!m_isLookUnsaved)
        m_laterTimer.stop();
    m_retryTimer.stop();
    m_lockDeadline.reset();
    m_resumed = std::exchange(m_failing, false);
}

/// Has what is unsaved saved a little later, if nothing has seen to that already.
void Store::saveLater()
{
    if (!m_laterTimer.isActive())
        m_laterTimer.start();
}

/// Has it tried again, and notes the failure if it is news.
void Store::retry(const WritingFailure& failure)
{
    if (failure.isLocked && !m_failing) {
        if (!m_lockDeadline)
            m_lockDeadline.emplace(lockPatience);
        if (!m_lockDeadline->hasExpired()) {
            m_retryTimer.start(lockRetryInterval);
            return;
        }
    }
    m_lockDeadline.reset();
    m_retryTimer.start(m_environment.retryInterval);
    if (!std::exchange(m_failing, true))
        m_failure = failure.message;
}

/// Ends every operation: saves, then tells what has happened.
/// \param applying given when a look was put on the desktop
void Store::finish(std::optional<ContinueFromEditor> applying)
{
    if (std::exchange(m_isDue, false)) {
        if (m_retryTimer.isActive())
            saveLater();
        else
            save();
    }
    // Taken out first: whoever hears of a change may start the next operation.
    const auto changes = std::exchange(m_changes, {});
    const auto refusal = std::exchange(m_refusal, {});
    const auto failure = std::exchange(m_failure, {});
    const bool resumed = std::exchange(m_resumed, false);
    for (const Signal signal : changes)
        Q_EMIT(this->*signal)();
    if (!changes.empty())
        Q_EMIT changed();
    if (applying)
        Q_EMIT applied(*applying);
    if (refusal)
        Q_EMIT refused(*refusal);
    if (failure)
        Q_EMIT savingFailed(*failure);
    if (resumed)
        Q_EMIT savingResumed();
}

/// Assigns; an equal value is stored too, since equal floats can differ in the sign of zero.
template<typename Value>
void Store::update(Value& field, Value value, Signal signal)
{
    if (field != value)
        m_changes.push_back(signal);
    field = std::move(value);
}

template<typename Value>
void Store::updateSetting(Value& field, Value value, Signal signal, const char* key, SettingValue stored)
{
    if (field == value)
        return;
    update(field, std::move(value), signal);
    setUnsaved(key, std::move(stored));
}

/// The same for what is stored as JSON.
template<typename Value>
void Store::updateText(Value& field, Value value, Signal signal, const char* key,
                       std::string (*encode)(const Value&))
{
    const std::optional<std::string> text = encoded(value, encode);
    if (!text || *text == encode(field))
        return;
    update(field, std::move(value), signal);
    setUnsaved(key, bytes(*text));
}

/// A value as JSON; none, and a refusal noted, where JSON cannot hold it.
template<typename Value>
std::optional<std::string> Store::encoded(const Value& value, std::string (*encode)(const Value&))
{
    try {
        return encode(value);
    } catch (const JsonError& error) {
        m_refusal = QString::fromStdString(error.what());
        return std::nullopt;
    }
}

/// Sets the edited look and has it saved later.
void Store::edit(Look next)
{
    if (encodeLook(next) == encodeLook(m_state.look))
        return;
    update(m_state.look, std::move(next), &Store::lookChanged);
    m_isLookUnsaved = true;
    m_laterTimer.start();
}

void Store::fadeTo(Look next)
{
    update(m_state.previous, m_state.look, &Store::previousChanged);
    update(m_state.transitionStart, m_environment.mediaTime(), &Store::transitionStartChanged);
    edit(std::move(next));
}

/// Fades to a look that differs and records the one it replaces.
void Store::fadeToNew(Look next)
{
    if (next == m_state.look)
        return;
    update(m_state.history, withNewest(m_state.history, m_state.look), &Store::historyChanged);
    fadeTo(std::move(next));
}

void Store::putOnDesktop(Look next, RecordHistory record, bool motion)
{
    if (record == RecordHistory::yes && m_state.desktop && *m_state.desktop != next)
        updateDesktopHistory(withNewest(m_state.desktopHistory, *m_state.desktop));
    update(m_state.desktopPrevious, m_state.desktop, &Store::desktopPreviousChanged);
    update(m_state.desktopTransitionStart, m_environment.mediaTime(), &Store::desktopTransitionStartChanged);
    setUnsaved("desktop", bytes(encodeLook(next)));
    setUnsaved("appliedMotion", motion);
    update(m_state.desktop, std::optional(std::move(next)), &Store::desktopChanged);
    update(m_state.appliedMotion, motion, &Store::appliedMotionChanged);
}

void Store::updateDesktopHistory(std::vector<Look> looks)
{
    setUnsaved("desktopHistory", bytes(encodeLooks(looks)));
    update(m_state.desktopHistory, std::move(looks), &Store::desktopHistoryChanged);
}

} // namespace tessel
