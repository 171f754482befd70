// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/look.h"
#include "model/setting.h"
#include "model/settings_file.h"
#include "model/settings_saver.h"
#include "model/shuffle.h"

#include <QDateTime>
#include <QObject>
#include <QStringList>

#include <chrono>
#include <functional>
#include <optional>
#include <vector>

namespace tessel {

/// How many looks each history keeps.
inline constexpr std::size_t maxHistory = 40;

/// Seconds on a clock that only goes forward: the time in which cross-fades are measured.
[[nodiscard]] double mediaTime();

/// What the store takes from the world around it.
struct StoreEnvironment
{
    QString settingsFile = defaultSettingsFile();
    std::function<double()> mediaTime = tessel::mediaTime; ///< seconds
    RandomSource random = systemSource();
    std::chrono::milliseconds lookDelay{400};       ///< to the saving of what is not saved at once
    std::chrono::milliseconds retryInterval{30000}; ///< between attempts to save while saving fails
    std::chrono::milliseconds lockPatience{1000};   ///< with another program that is writing the settings
};

/// A setting that could not be read. What the file holds for it stays there until that setting is changed;
/// then a copy of the file is kept.
struct SettingProblem
{
    QString key;     ///< empty where the file as a whole is meant
    QString message; ///< what it holds and what would be right
};

/// Whether the look that leaves the desktop can be gone back to.
enum class RecordHistory : std::uint8_t
{
    no,
    yes
};

/// Whether the desktop's animation goes on from the frame that the editor shows.
enum class ContinueFromEditor : std::uint8_t
{
    no,
    yes
};

/// All state of the application: there is one, everything observes it, and all changes go through it. It
/// loads itself from the settings file and keeps that up to date. For the main thread only.
///
/// Every operation first changes all it has to, then has it saved on another thread, for which nobody waits,
/// and only then emits: the signals of the values that really changed, once each; `changed`; and, from an
/// operation that puts a look on the desktop, `applied`.
///
/// What JSON cannot hold (encodeLook() says what that is) could not be loaded again. An operation that is
/// given such a value changes nothing and emits `refused`.
///
/// Destroying a store waits for what is being saved, but saves nothing more: saveNow() does.
class Store : public QObject
{
    Q_OBJECT

public:
    explicit Store(StoreEnvironment environment = {}, QObject* parent = nullptr);

    /// The look being edited.
    [[nodiscard]] const Look& look() const { return m_look.value; }
    /// The looks edited before, newest last; not saved.
    [[nodiscard]] const std::vector<Look>& history() const { return m_history; }
    /// The looks that undo() has replaced since the last new one, newest last; not saved.
    [[nodiscard]] const std::vector<Look>& undone() const { return m_undone; }

    /// The look on the desktop; there is none until one has been applied.
    [[nodiscard]] const std::optional<Look>& desktop() const { return m_desktop.value; }
    [[nodiscard]] const std::vector<Look>& desktopHistory() const { return m_desktopHistory.value; }

    /// Whether the user wants the desktop animated, and whether what is on it was applied so.
    [[nodiscard]] bool motion() const { return m_motion.value; }
    [[nodiscard]] bool appliedMotion() const { return m_appliedMotion.value; }

    [[nodiscard]] const std::vector<std::vector<Color>>& customPalettes() const
    {
        return m_customPalettes.value;
    }
    [[nodiscard]] const std::vector<Preset>& presets() const { return m_presets.value; }

    /// Minutes from one fresh wallpaper to the next; 0 for never.
    [[nodiscard]] qint64 shuffleMinutes() const { return m_shuffleMinutes.value; }
    [[nodiscard]] Edge edge() const { return m_edge.value; }
    [[nodiscard]] bool handleHidden() const { return m_handleHidden.value; }

    /// The colours of the palette being edited and its place among the custom palettes, none for a new one.
    [[nodiscard]] const std::optional<std::vector<Color>>& draftStops() const { return m_draftStops; }
    [[nodiscard]] std::optional<int> draftStopsIndex() const { return m_draftStopsIndex; }
    /// The look's own stops when editing began, empty if it had none; absent while no palette is edited, as
    /// the other two.
    [[nodiscard]] const std::optional<std::vector<Color>>& stopsBeforeEdit() const
    {
        return m_stopsBeforeEdit;
    }

    /// Whether the first steps with the program have been taken.
    [[nodiscard]] bool onboarded() const { return m_onboarded.value; }
    /// Whether the desktop is asked for key combinations at each start, as the user once wished.
    [[nodiscard]] bool shortcutsWanted() const { return m_shortcutsWanted.value; }
    /// When the last fresh wallpaper came by itself; invalid before the first.
    [[nodiscard]] const QDateTime& lastServed() const { return m_lastServed.value; }
    /// Where the desktop's animation was when it was last asked for.
    [[nodiscard]] double desktopPhase() const { return m_desktopPhase.value; }
    /// The files of the stills made last, in the order of the screens.
    [[nodiscard]] const QStringList& latestPictures() const { return m_latestPictures.value; }

    /// Now on the clock of the cross-fades.
    [[nodiscard]] double mediaTime() const { return m_environment.mediaTime(); }

    /// Whether the desktop shows the edited look, with the motion that the user wants.
    [[nodiscard]] bool isOnDesktop() const;

    /// Whether the desktop is animated; while there is no look on it, whether the first one will be.
    [[nodiscard]] bool desktopMotion() const { return desktop() ? appliedMotion() : motion(); }

    /// What could not be read when the store was made, in the order of reading.
    [[nodiscard]] const std::vector<SettingProblem>& problems() const { return m_problems; }

    /// Changes the edited look in place, as a slider does. It is saved once it has been left alone for
    /// `lookDelay`.
    ///
    /// While a palette is edited, the look wears its draft. Whatever gives the look other colours, here or
    /// below, ends the edit, and the look keeps those.
    void setLook(Look next);
    /// These are saved at once.
    void setMotion(bool motion);
    void setCustomPalettes(std::vector<std::vector<Color>> palettes);
    void setPresets(std::vector<Preset> presets);
    void setShuffleMinutes(qint64 minutes);
    void setEdge(Edge edge);
    void setHandleHidden(bool hidden);
    void setOnboarded(bool onboarded);
    void setShortcutsWanted(bool wanted);
    /// These are saved with whatever is saved next, or after `lookDelay`, and nobody is told of them.
    void setLastServed(const QDateTime& served);
    void setDesktopPhase(double phase);
    void setLatestPictures(const QStringList& files);

    /// Cross-fades the edited look to another one; the old one goes to the history. A look that is equal
    /// already changes nothing.
    void changeLook(Look next);

    /// Cross-fades the edited look to the newest one of the history, which leaves it.
    void undo();

    /// Takes the last undo() back. The next new look ends that; what a slider does since goes to the history.
    void redo();

    /// Puts a look on the desktop. Applied again, it is still shown anew but not recorded.
    /// \param motion whether it is animated; the user's choice when absent
    void applyToDesktop(Look next, RecordHistory record, std::optional<bool> motion,
                        ContinueFromEditor continuing);

    /// Shows the desktop's look still or animated from now on; while there is none, the first one.
    void setDesktopMotion(bool motion);

    /// Leaves the desktop to a picture of another program. The look goes to the history.
    void leaveDesktop();

    /// Brings the newest look of the desktop's history back, to the desktop and to the editor.
    void previousWallpaper();

    /// The look that the next shuffle() will bring, but for its photo: for those who want to be ready for it.
    [[nodiscard]] const Look& upcoming();

    /// Makes a random look that keeps the photo, and puts it on the desktop and in the editor. The desktop
    /// stays still or animated as it is.
    void shuffle();

    /// Makes a random look that keeps the photo, in the editor only.
    void shuffleDraft();

    /// Begins to edit a palette: the look wears its colours, which are saved nowhere yet. A palette that is
    /// being edited is abandoned first.
    /// \param index its place among the custom palettes; none for a new one
    /// \param stops two to `maxStops` colours without a top byte; with others nothing happens
    void beginEditing(std::optional<int> index, std::vector<Color> stops);

    /// Changes the palette being edited, if there is one, and the look with it.
    /// \param stops as above
    void setDraftStops(std::vector<Color> stops);

    /// Keeps the palette being edited, in its place or as the last one. The look has its colours, and goes to
    /// the history as it was before.
    void savePalette();

    /// Abandons the palette being edited, if there is one: the look has its colours of before again.
    void endEditing();

    /// Deletes a custom palette, and ends an edit without touching the look.
    void deletePalette(int index);

    /// Waits until everything is saved, as before the program ends, and half a second at most for another
    /// program that is writing the settings.
    /// \return whether everything is saved
    bool saveNow();

Q_SIGNALS:
    void lookChanged();
    /// It was replaced by another one, which is to be cross-faded to, and not just changed by a slider.
    /// Before lookChanged().
    void lookReplaced();
    void historyChanged();
    void undoneChanged();
    void desktopChanged();
    void desktopHistoryChanged();
    void motionChanged();
    void appliedMotionChanged();
    void customPalettesChanged();
    void presetsChanged();
    void shuffleMinutesChanged();
    void edgeChanged();
    void handleHiddenChanged();
    void draftStopsChanged();
    void draftStopsIndexChanged();
    void stopsBeforeEditChanged();
    void onboardedChanged();

    /// Any of the above has changed.
    void changed();

    /// A look was put on the desktop, for the second time perhaps: the screens are to show it.
    void applied(tessel::ContinueFromEditor continuing);

    /// A value was not taken; the message says what it held and what would be right.
    void refused(const QString& message);

    /// Saving has begun to fail, or works again with nothing lost: SettingsSaver says when.
    void savingFailed(const QString& message);
    void savingResumed();

private:
    using Signal = void (Store::*)();

    void load();
    void finish(std::optional<ContinueFromEditor> applying = {});

    template<typename Value>
    void update(Value& field, Value value, Signal signal);
    template<typename Value>
    std::optional<SettingValue> encoded(const Value& value);
    template<typename Value>
    void change(Setting<Value>& setting, Value value);

    void changeEdited(Look next);
    void fadeTo(Look next);
    void fadeToNew(Look next);
    void record(const Look& replaced);
    [[nodiscard]] Look lookBeforeEdit() const;
    void forgetEdit();
    void putOnDesktop(Look next, RecordHistory record, bool motion);

    StoreEnvironment m_environment;

    // The settings in the order of loading. Whoever adds one gives it a line here and its accessors above.
    std::vector<AnySetting*> m_settings;
    Setting<Look> m_look{m_settings, "look", {}, SaveWhen::whenLeftAlone, &Store::lookChanged};
    Setting<std::optional<Look>> m_desktop{
        m_settings, "desktop", {}, SaveWhen::atOnce, &Store::desktopChanged};
    Setting<bool> m_motion{m_settings, "motion", true, SaveWhen::atOnce, &Store::motionChanged};
    Setting<bool> m_appliedMotion{m_settings, "appliedMotion", false, SaveWhen::atOnce,
                                  &Store::appliedMotionChanged};
    Setting<std::vector<std::vector<Color>>> m_customPalettes{
        m_settings, "customPalettes", {}, SaveWhen::atOnce, &Store::customPalettesChanged};
    Setting<std::vector<Look>> m_desktopHistory{
        m_settings, "desktopHistory", {}, SaveWhen::atOnce, &Store::desktopHistoryChanged};
    Setting<std::vector<Preset>> m_presets{
        m_settings, "presets", {}, SaveWhen::atOnce, &Store::presetsChanged};
    Setting<qint64> m_shuffleMinutes{m_settings, "shuffleMinutes", 0, SaveWhen::atOnce,
                                     &Store::shuffleMinutesChanged};
    Setting<Edge> m_edge{m_settings, "edge", Edge::left, SaveWhen::atOnce, &Store::edgeChanged};
    Setting<bool> m_handleHidden{m_settings, "handleHidden", false, SaveWhen::atOnce,
                                 &Store::handleHiddenChanged};
    Setting<bool> m_onboarded{m_settings, "onboarded", false, SaveWhen::atOnce, &Store::onboardedChanged};
    Setting<bool> m_shortcutsWanted{m_settings, "shortcutsWanted", false, SaveWhen::atOnce};
    Setting<QDateTime> m_lastServed{m_settings, "lastServed", {}, SaveWhen::withNext};
    Setting<double> m_desktopPhase{m_settings, "desktopPhase", 0.0, SaveWhen::withNext};
    Setting<QStringList> m_latestPictures{m_settings, "latestPictures", {}, SaveWhen::withNext};

    std::vector<Look> m_history;
    std::vector<Look> m_undone;
    std::optional<std::vector<Color>> m_draftStops;
    std::optional<int> m_draftStopsIndex;
    std::optional<std::vector<Color>> m_stopsBeforeEdit;
    std::optional<Look> m_upcoming; ///< once somebody has asked

    std::vector<SettingProblem> m_problems;
    SettingsSaver* m_saver = nullptr;

    // What finish() has to tell.
    std::vector<Signal> m_changes;
    std::optional<QString> m_refusal;
};

} // namespace tessel
