// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/look.h"
#include "model/settings_file.h"
#include "model/shuffle.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QTimer>

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
/// Every operation first changes all it has to, then saves, and only then emits: the signals of the
/// properties that really changed, once each; `changed`; and, from an operation that puts a look on the
/// desktop, `applied`. While saving fails, operations do not wait for it: it is tried again on the side.
///
/// What JSON cannot hold (encodeLook() says what that is) could not be loaded again. An operation that is
/// given such a value changes nothing and emits `refused`.
///
/// Destroying a store saves nothing: saveNow() does.
class Store : public QObject
{
    Q_OBJECT
    Q_PROPERTY(tessel::Look look READ look WRITE setLook NOTIFY lookChanged)
    Q_PROPERTY(tessel::Look previous READ previous NOTIFY previousChanged)
    Q_PROPERTY(double transitionStart READ transitionStart NOTIFY transitionStartChanged)
    Q_PROPERTY(std::vector<tessel::Look> history READ history NOTIFY historyChanged)
    Q_PROPERTY(std::optional<tessel::Look> desktop READ desktop NOTIFY desktopChanged)
    Q_PROPERTY(std::vector<tessel::Look> desktopHistory READ desktopHistory NOTIFY desktopHistoryChanged)
    Q_PROPERTY(std::optional<tessel::Look> desktopPrevious READ desktopPrevious NOTIFY desktopPreviousChanged)
    Q_PROPERTY(double desktopTransitionStart READ desktopTransitionStart NOTIFY desktopTransitionStartChanged)
    Q_PROPERTY(bool motion READ motion WRITE setMotion NOTIFY motionChanged)
    Q_PROPERTY(bool appliedMotion READ appliedMotion NOTIFY appliedMotionChanged)
    Q_PROPERTY(std::vector<std::vector<tessel::Color>> customPalettes READ customPalettes WRITE
                   setCustomPalettes NOTIFY customPalettesChanged)
    Q_PROPERTY(std::vector<tessel::Preset> presets READ presets WRITE setPresets NOTIFY presetsChanged)
    Q_PROPERTY(qint64 shuffleMinutes READ shuffleMinutes WRITE setShuffleMinutes NOTIFY shuffleMinutesChanged)
    Q_PROPERTY(tessel::Edge edge READ edge WRITE setEdge NOTIFY edgeChanged)
    Q_PROPERTY(bool handleHidden READ handleHidden WRITE setHandleHidden NOTIFY handleHiddenChanged)
    Q_PROPERTY(std::optional<std::vector<tessel::Color>> draftStops READ draftStops WRITE setDraftStops NOTIFY
                   draftStopsChanged)
    Q_PROPERTY(std::optional<int> draftStopsIndex READ draftStopsIndex WRITE setDraftStopsIndex NOTIFY
                   draftStopsIndexChanged)
    Q_PROPERTY(std::optional<std::vector<tessel::Color>> stopsBeforeEdit READ stopsBeforeEdit WRITE
                   setStopsBeforeEdit NOTIFY stopsBeforeEditChanged)
    Q_PROPERTY(bool onDesktop READ isOnDesktop NOTIFY changed)

public:
    explicit Store(StoreEnvironment environment = {}, QObject* parent = nullptr);

    /// The look being edited, the one it is cross-faded from, and since when in media time.
    [[nodiscard]] const Look& look() const { return m_state.look; }
    [[nodiscard]] const Look& previous() const { return m_state.previous; }
    [[nodiscard]] double transitionStart() const { return m_state.transitionStart; }
    /// The looks edited before, newest last; not saved.
    [[nodiscard]] const std::vector<Look>& history() const { return m_state.history; }

    /// The same for the desktop. There is no look on it until one has been applied.
    [[nodiscard]] const std::optional<Look>& desktop() const { return m_state.desktop; }
    [[nodiscard]] const std::optional<Look>& desktopPrevious() const { return m_state.desktopPrevious; }
    [[nodiscard]] double desktopTransitionStart() const { return m_state.desktopTransitionStart; }
    [[nodiscard]] const std::vector<Look>& desktopHistory() const { return m_state.desktopHistory; }

    /// Whether the user wants the desktop animated, and whether what is on it was applied so.
    [[nodiscard]] bool motion() const { return m_state.motion; }
    [[nodiscard]] bool appliedMotion() const { return m_state.appliedMotion; }

    [[nodiscard]] const std::vector<std::vector<Color>>& customPalettes() const
    {
        return m_state.customPalettes;
    }
    [[nodiscard]] const std::vector<Preset>& presets() const { return m_state.presets; }

    /// Minutes from one fresh wallpaper to the next; 0 for never.
    [[nodiscard]] qint64 shuffleMinutes() const { return m_state.shuffleMinutes; }
    [[nodiscard]] Edge edge() const { return m_state.edge; }
    [[nodiscard]] bool handleHidden() const { return m_state.handleHidden; }

    /// The colours of the palette being edited and its place among the custom palettes, none for a new one.
    [[nodiscard]] const std::optional<std::vector<Color>>& draftStops() const { return m_state.draftStops; }
    [[nodiscard]] std::optional<int> draftStopsIndex() const { return m_state.draftStopsIndex; }
    /// The look's own stops when editing began, empty if it had none; absent while no palette is edited.
    [[nodiscard]] const std::optional<std::vector<Color>>& stopsBeforeEdit() const
    {
        return m_state.stopsBeforeEdit;
    }

    /// Whether the desktop shows the edited look, with the motion that the user wants.
    [[nodiscard]] bool isOnDesktop() const;

    /// What could not be read when the store was made, in the order of reading.
    [[nodiscard]] const std::vector<SettingProblem>& problems() const { return m_problems; }

    /// Changes the edited look in place, as a slider does. It is saved once it has been left alone for
    /// `lookDelay`, all other settings at once.
    void setLook(Look next);
    void setMotion(bool motion);
    void setCustomPalettes(std::vector<std::vector<Color>> palettes);
    void setPresets(std::vector<Preset> presets);
    void setShuffleMinutes(qint64 minutes);
    void setEdge(Edge edge);
    void setHandleHidden(bool hidden);
    void setDraftStops(std::optional<std::vector<Color>> stops);
    void setDraftStopsIndex(std::optional<int> index);
    void setStopsBeforeEdit(std::optional<std::vector<Color>> stops);

    /// Cross-fades the edited look to another one; the old one goes to the history. A look that is equal
    /// already changes nothing.
    void changeLook(Look next);

    /// Cross-fades the edited look to the newest one of the history, which leaves it.
    Q_INVOKABLE void undo();

    /// Puts a look on the desktop. Applied again, it is still shown anew but not recorded.
    /// \param motion whether it is animated; the user's choice when absent
    void applyToDesktop(Look next, RecordHistory record, std::optional<bool> motion,
                        ContinueFromEditor continuing);

    /// Brings the newest look of the desktop's history back, to the desktop and to the editor.
    Q_INVOKABLE void previousWallpaper();

    /// The look that the next shuffle() will bring, but for its photo: for those who want to be ready for it.
    [[nodiscard]] const Look& upcoming();

    /// Makes a random look that keeps the photo, and puts it on the desktop and in the editor. The desktop
    /// stays still or animated as it is.
    Q_INVOKABLE void shuffle();

    /// Abandons the palette being edited, if there is one: the look has its colours of before again.
    Q_INVOKABLE void endEditing();

    [[nodiscard]] double desktopPhase() const { return kept("desktopPhase").toDouble(); }
    void setDesktopPhase(double phase) { keep("desktopPhase", phase); }
    [[nodiscard]] QStringList latestPictures() const;
    void setLatestPictures(const QStringList& files);

    /// A value that another part of the application keeps among the settings; invalid if there is none.
    [[nodiscard]] QVariant kept(const std::string& key) const;
    /// Keeps such a value. It is saved with whatever is saved next, or after `lookDelay`. Its key is none of
    /// the properties'.
    void keep(const std::string& key, SettingValue value);

    /// Saves what is not saved yet, as before the program ends. It may wait half a second for another program
    /// that is writing the settings.
    /// \return whether everything is saved
    bool saveNow();

Q_SIGNALS:
    void lookChanged();
    void previousChanged();
    void transitionStartChanged();
    void historyChanged();
    void desktopChanged();
    void desktopHistoryChanged();
    void desktopPreviousChanged();
    void desktopTransitionStartChanged();
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

    /// Any of the properties has changed.
    void changed();

    /// A look was put on the desktop, for the second time perhaps: the screens are to show it.
    void applied(tessel::ContinueFromEditor continuing);

    /// A value was not taken; the message says what it held and what would be right.
    void refused(const QString& message);

    /// Saving has begun to fail, or works again with nothing lost. In between it is tried again `lookDelay`
    /// after a change and every `retryInterval`. That another program was writing the settings for less than
    /// a second is no failure.
    void savingFailed(const QString& message);
    void savingResumed();

private:
    /// Before the first cross-fade: so long ago that none is in progress.
    static constexpr double longAgo = -10.0;

    struct State
    {
        Look look;
        Look previous;
        double transitionStart = longAgo;
        std::vector<Look> history;
        std::optional<Look> desktop;
        std::vector<Look> desktopHistory;
        std::optional<Look> desktopPrevious;
        double desktopTransitionStart = longAgo;
        bool motion = true;
        bool appliedMotion = false;
        std::optional<std::vector<Color>> draftStops;
        std::optional<int> draftStopsIndex;
        std::optional<std::vector<Color>> stopsBeforeEdit;
        std::vector<std::vector<Color>> customPalettes;
        std::vector<Preset> presets;
        qint64 shuffleMinutes = 0;
        Edge edge = Edge::left;
        bool handleHidden = false;
    };

    using Signal = void (Store::*)();

    void load();
    void setUnsaved(const char* key, SettingValue value);
    void addLook();
    void save(std::chrono::milliseconds patience = {});
    void saveLater();
    void retry(const WritingFailure& failure);
    void finish(std::optional<ContinueFromEditor> applying = {});

    template<typename Value>
    void update(Value& field, Value value, Signal signal);
    template<typename Value>
    void updateSetting(Value& field, Value value, Signal signal, const char* key, SettingValue stored);
    template<typename Value>
    void updateText(Value& field, Value value, Signal signal, const char* key,
                    std::string (*encode)(const Value&));
    template<typename Value>
    std::optional<std::string> encoded(const Value& value, std::string (*encode)(const Value&));

    void edit(Look next);
    void fadeTo(Look next);
    void fadeToNew(Look next);
    void putOnDesktop(Look next, RecordHistory record, bool motion);
    void updateDesktopHistory(std::vector<Look> looks);

    StoreEnvironment m_environment;
    State m_state;
    std::optional<Look> m_upcoming; ///< once somebody has asked
    std::vector<SettingProblem> m_problems;
    std::map<std::string, QVariant> m_kept;
    std::set<std::string> m_unreadable; ///< keys in the file, as long as there is no copy of it
    SettingValues m_unsaved;
    bool m_isLookUnsaved = false; ///< it joins the others when it has been left alone
    bool m_isDue = false;         ///< whether the operation changed what is saved at once
    bool m_failing = false;
    std::optional<QDeadlineTimer> m_lockDeadline; ///< when another program's writing becomes a failure
    QTimer m_laterTimer;                          ///< runs while something waits for being saved
    QTimer m_retryTimer;                          ///< runs while saving fails

    // What finish() has to tell.
    std::vector<Signal> m_changes;
    std::optional<QString> m_refusal;
    std::optional<QString> m_failure;
    bool m_resumed = false;
};

} // namespace tessel
