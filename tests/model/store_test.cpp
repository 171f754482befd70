// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/look_json.h"
#include "model/palette.h"
#include "model/store.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QTemporaryDir>
#include <QThread>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <csignal>
#include <fcntl.h>
#include <limits>
#include <memory>
#include <thread>

namespace tessel {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();

Look lookWithSeed(int seed)
{
    Look look;
    look.seed = static_cast<float>(seed);
    return look;
}

Preset presetNamed(const std::string& name)
{
    return {"6F9619FF-8B86-D011-B42D-00C04FC964FF", name, lookWithSeed(3), true};
}

/// The names of a store's signals, in the order in which they come.
class SignalLog
{
public:
    explicit SignalLog(Store& store)
    {
        note(store, &Store::lookChanged, "look");
        note(store, &Store::lookReplaced, "replaced");
        note(store, &Store::historyChanged, "history");
        note(store, &Store::undoneChanged, "undone");
        note(store, &Store::desktopChanged, "desktop");
        note(store, &Store::desktopHistoryChanged, "desktopHistory");
        note(store, &Store::motionChanged, "motion");
        note(store, &Store::appliedMotionChanged, "appliedMotion");
        note(store, &Store::customPalettesChanged, "customPalettes");
        note(store, &Store::presetsChanged, "presets");
        note(store, &Store::shuffleMinutesChanged, "shuffleMinutes");
        note(store, &Store::edgeChanged, "edge");
        note(store, &Store::handleHiddenChanged, "handleHidden");
        note(store, &Store::draftStopsChanged, "draftStops");
        note(store, &Store::draftStopsIndexChanged, "draftStopsIndex");
        note(store, &Store::stopsBeforeEditChanged, "stopsBeforeEdit");
        note(store, &Store::onboardedChanged, "onboarded");
        note(store, &Store::changed, "changed");
        note(store, &Store::savingResumed, "savingResumed");
        QObject::connect(&store, &Store::applied, &m_receiver, [this](ContinueFromEditor continuing) {
            m_names.emplace_back(continuing == ContinueFromEditor::yes ? "applied, continuing" : "applied");
        });
        QObject::connect(&store, &Store::refused, &m_receiver, [this](const QString& message) {
            m_names.push_back("refused: " + message.toStdString());
        });
        QObject::connect(&store, &Store::savingFailed, &m_receiver, [this](const QString& message) {
            m_names.push_back("savingFailed: " + message.toStdString());
        });
    }

    /// What came since the last time.
    std::vector<std::string> take() { return std::exchange(m_names, {}); }

private:
    void note(Store& store, void (Store::*signal)(), const char* name)
    {
        QObject::connect(&store, signal, &m_receiver, [this, name] { m_names.emplace_back(name); });
    }

    QObject m_receiver;
    std::vector<std::string> m_names;
};

class StoreTest : public testing::Test
{
protected:
    std::unique_ptr<Store> makeStore() { return std::make_unique<Store>(environment); }

    [[nodiscard]] QString path() const { return environment.settingsFile; }

    [[nodiscard]] QByteArray fileText() const
    {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    void putFile(const QByteArray& text) const
    {
        ASSERT_TRUE(QDir().mkpath(QFileInfo(path()).path()));
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(text), text.size());
    }

    /// The names of the copies that were kept of the file.
    [[nodiscard]] QStringList copies() const
    {
        return QFileInfo(path()).dir().entryList({QStringLiteral("*.unreadable-*")});
    }

    [[nodiscard]] std::optional<Look> savedLook(const char* key) const
    {
        const StoredSettings stored = readSettings(path());
        const auto value = stored.values.find(key);
        return value == stored.values.end()
                   ? std::nullopt
                   : std::optional(decodeLook(value->second.toByteArray().toStdString()));
    }

    static void wait(std::chrono::milliseconds duration)
    {
        const auto start = Clock::now();
        while (Clock::now() - start < duration) {
            QCoreApplication::processEvents();
            QThread::msleep(1);
        }
    }

    template<typename Condition>
    static bool waitUntil(Condition condition)
    {
        const auto start = Clock::now();
        while (!condition() && Clock::now() - start < 10s) {
            QCoreApplication::processEvents();
            QThread::msleep(1);
        }
        return condition();
    }

    static bool isIdle(const Store& store)
    {
        const auto timers = store.findChildren<QTimer*>();
        EXPECT_FALSE(timers.isEmpty());
        return std::ranges::none_of(timers, &QTimer::isActive);
    }

    QTemporaryDir folder;
    double now = 100.0;
    StoreEnvironment environment{
        .settingsFile = folder.filePath(QStringLiteral("config/broth.conf")),
        .mediaTime = [this] { return now; },
        .random = seededSource(1),
        .lookDelay = 400ms,
        .retryInterval = 30s,
    };

private:
    int m_argumentCount = 1;
    char m_name[6] = "tests";
    char* m_arguments[2] = {m_name, nullptr};
    QCoreApplication m_application{m_argumentCount, m_arguments};
};

TEST_F(StoreTest, StartsWithDefaultsAndWritesNothing)
{
    const auto store = makeStore();
    EXPECT_EQ(store->look(), Look());
    EXPECT_THAT(store->history(), IsEmpty());
    EXPECT_EQ(store->desktop(), std::nullopt);
    EXPECT_THAT(store->desktopHistory(), IsEmpty());
    EXPECT_TRUE(store->motion());
    EXPECT_FALSE(store->appliedMotion());
    EXPECT_THAT(store->customPalettes(), IsEmpty());
    EXPECT_THAT(store->presets(), IsEmpty());
    EXPECT_EQ(store->shuffleMinutes(), 0);
    EXPECT_EQ(store->edge(), Edge::left);
    EXPECT_FALSE(store->handleHidden());
    EXPECT_FALSE(store->draftStops() || store->draftStopsIndex() || store->stopsBeforeEdit());
    EXPECT_FALSE(store->isOnDesktop());
    EXPECT_THAT(store->problems(), IsEmpty());
    EXPECT_FALSE(store->onboarded());
    EXPECT_FALSE(store->lastServed().isValid());
    EXPECT_EQ(store->desktopPhase(), 0.0);
    EXPECT_THAT(store->latestPictures(), IsEmpty());
    // What equals the initial value is no change.
    store->setDesktopPhase(0.0);
    store->setLatestPictures({});
    store->setLook(Look());
    EXPECT_TRUE(isIdle(*store));
    EXPECT_TRUE(store->saveNow());
    EXPECT_FALSE(QFile::exists(path()));
}

TEST_F(StoreTest, LoadsWhatAnotherSaved)
{
    Look photo = lookWithSeed(7);
    photo.imagePath = "/photos/ünïcode \"quoted\" \\ 湯.jpg";
    photo.custom = {{0x000000, 0xFFFFFF}};
    const std::vector<Preset> presets{presetNamed("Tea, \n strong; = 100%"), presetNamed("日本")};
    const QDateTime served =
        QDateTime::fromString(QStringLiteral("2026-03-01T14:30:00.125+03:00"), Qt::ISODateWithMs);
    const QStringList pictures{QStringLiteral("/home/a b/wall-1.png"), QStringLiteral("/tmp/\"ü,;.png")};
    {
        const auto store = makeStore();
        store->setMotion(false);
        store->applyToDesktop(lookWithSeed(5), RecordHistory::yes, true, ContinueFromEditor::no);
        store->applyToDesktop(photo, RecordHistory::yes, true, ContinueFromEditor::no);
        store->setCustomPalettes({{1, 2}, {}, {0xFFFFFF}});
        store->setPresets(presets);
        store->setShuffleMinutes(1440);
        store->setEdge(Edge::right);
        store->setHandleHidden(true);
        store->setOnboarded(true);
        store->setShortcutsWanted(true);
        store->setLastServed(served);
        store->setDesktopPhase(4711.0625e-3);
        store->setLatestPictures(pictures);
        store->setLook(lookWithSeed(9));
        EXPECT_TRUE(store->saveNow());
        EXPECT_TRUE(isIdle(*store));
    }
    const auto store = makeStore();
    EXPECT_EQ(store->look(), lookWithSeed(9));
    EXPECT_EQ(store->desktop(), photo);
    EXPECT_THAT(store->desktopHistory(), ElementsAre(lookWithSeed(5)));
    EXPECT_FALSE(store->motion());
    EXPECT_TRUE(store->appliedMotion());
    EXPECT_THAT(store->customPalettes(),
                ElementsAre(std::vector<Color>{1, 2}, IsEmpty(), std::vector<Color>{0xFFFFFF}));
    EXPECT_EQ(store->presets(), presets);
    EXPECT_EQ(store->shuffleMinutes(), 1440);
    EXPECT_EQ(store->edge(), Edge::right);
    EXPECT_TRUE(store->handleHidden());
    EXPECT_TRUE(store->onboarded());
    EXPECT_TRUE(store->shortcutsWanted());
    EXPECT_EQ(store->lastServed(), served);
    EXPECT_EQ(store->desktopPhase(), 4711.0625e-3);
    EXPECT_EQ(store->latestPictures(), pictures);
    EXPECT_THAT(store->problems(), IsEmpty());
}

TEST_F(StoreTest, WrongValuesAreReportedAndStayUntilChanged)
{
    const QByteArray damaged =
        "[General]\n"
        "appliedMotion=yes\n"
        "customPalettes=[[1, 2], [3]]\n"
        "desktop=@ByteArray({\\\"pattern\\\":99})\n"
        "desktopHistory=@Variant(\\0\\0zz)\n"
        "desktopPhase=nan\n"
        "edge=2\n"
        "handleHidden=\n"
        "lastServed=yesterday\n"
        "latestPictures=\"[\\\"a.png\\\",7]\"\n"
        "line of nothing\n"
        "look=\"@ByteArray({\\\"seed\\\":\\xff})\"\n"
        "motion=0\n"
        "presets=\"[{\\\"id\\\":\\\"6F9619FF-8B86-D011-B42D-00C04FC964FF\\\",\\\"name\\\":\\\"Tea\\\","
        "\\\"look\\\":{},\\\"motion\\\":true},{\\\"name\\\":7}]\"\n"
        "shuffleMinutes=6e1\n"
        "unknown=kept\n";
    putFile(damaged);
    const auto store = makeStore();
    std::vector<std::string> keys;
    for (const SettingProblem& problem : store->problems()) {
        keys.push_back(problem.key.toStdString());
        EXPECT_FALSE(problem.message.isEmpty());
    }
    EXPECT_THAT(keys, ElementsAre("", "look", "desktop", "motion", "appliedMotion", "customPalettes",
                                  "desktopHistory", "presets", "shuffleMinutes", "handleHidden", "lastServed",
                                  "desktopPhase", "latestPictures"));
    EXPECT_THAT(store->problems().at(2).message.toStdString(), HasSubstr("\"pattern\" holds 99"));
    EXPECT_EQ(store->problems().at(3).message, QStringLiteral("holds \"0\"; true or false is expected"));
    EXPECT_EQ(store->problems().at(5).message,
              QStringLiteral("holds \"[[1, 2], [3]]\"; JSON text in quotes is expected"));
    EXPECT_EQ(store->look(), Look());
    EXPECT_EQ(store->desktop(), std::nullopt);
    EXPECT_TRUE(store->motion());
    EXPECT_FALSE(store->appliedMotion());
    EXPECT_EQ(store->edge(), Edge::left);
    EXPECT_THAT(store->presets(), IsEmpty()) << "one of them does not decode";

    // What equals the initial value changes nothing either.
    store->setPresets({});
    store->setMotion(true);
    store->setLook(Look());
    store->setEdge(Edge::right);
    EXPECT_TRUE(store->saveNow());
    QByteArray expected = damaged;
    expected.replace("edge=2", "edge=1");
    EXPECT_EQ(fileText(), expected);
    EXPECT_THAT(copies(), IsEmpty());

    store->setMotion(false);
    EXPECT_TRUE(store->saveNow());
    ASSERT_EQ(copies().size(), 1);
    QFile copy(folder.filePath(QStringLiteral("config/") + copies().front()));
    ASSERT_TRUE(copy.open(QIODevice::ReadOnly));
    EXPECT_EQ(copy.readAll(), expected);
    expected.replace("motion=0", "motion=false");
    EXPECT_EQ(fileText(), expected);
    store->setPresets({presetNamed("Tea")});
    EXPECT_TRUE(store->saveNow());
    EXPECT_EQ(copies().size(), 1) << "which holds the presets too";
    EXPECT_TRUE(fileText().startsWith(expected.first(expected.indexOf("presets="))));
    EXPECT_TRUE(fileText().endsWith("\nshuffleMinutes=6e1\nunknown=kept\n"));
    EXPECT_THAT(makeStore()->presets(), ElementsAre(presetNamed("Tea")));
}

TEST_F(StoreTest, ChangingTheLookFadesFromTheOldOne)
{
    const auto store = makeStore();
    SignalLog log(*store);
    store->changeLook(Look());
    EXPECT_THAT(log.take(), IsEmpty());

    store->changeLook(lookWithSeed(1));
    EXPECT_THAT(log.take(), ElementsAre("history", "replaced", "look", "changed"));
    EXPECT_EQ(store->look(), lookWithSeed(1));
    EXPECT_THAT(store->history(), ElementsAre(Look()));

    now = 101.0;
    // An argument from within the store itself.
    store->changeLook(store->history().front());
    EXPECT_THAT(log.take(), ElementsAre("history", "replaced", "look", "changed"));
    EXPECT_THAT(store->history(), ElementsAre(Look(), lookWithSeed(1)));

    for (int seed = 100; seed < 145; ++seed)
        store->changeLook(lookWithSeed(seed));
    EXPECT_EQ(store->history().size(), 40);
    EXPECT_EQ(store->history().front(), lookWithSeed(104));
    EXPECT_EQ(store->history().back(), lookWithSeed(143));
}

TEST_F(StoreTest, UndoWalksBackWithoutRecording)
{
    const auto store = makeStore();
    store->changeLook(lookWithSeed(1));
    store->changeLook(lookWithSeed(2));
    SignalLog log(*store);
    now = 102.0;
    store->undo();
    EXPECT_THAT(log.take(), ElementsAre("history", "undone", "replaced", "look", "changed"));
    EXPECT_EQ(store->look(), lookWithSeed(1));
    store->undo();
    EXPECT_EQ(store->look(), Look());
    log.take();
    store->undo();
    EXPECT_THAT(log.take(), IsEmpty());
}

TEST_F(StoreTest, RedoWalksForwardUntilThereIsANewLook)
{
    const auto store = makeStore();
    store->redo();
    for (int seed = 1; seed <= 3; ++seed)
        store->changeLook(lookWithSeed(seed));
    store->undo();
    store->undo();
    SignalLog log(*store);
    store->redo();
    EXPECT_THAT(log.take(), ElementsAre("undone", "history", "replaced", "look", "changed"));
    EXPECT_EQ(store->look(), lookWithSeed(2));

    // What a slider has changed meanwhile can be gone back to.
    store->setLook(lookWithSeed(20));
    store->redo();
    EXPECT_EQ(store->look(), lookWithSeed(3));
    EXPECT_THAT(store->history(), ElementsAre(Look(), lookWithSeed(1), lookWithSeed(20)));

    store->undo();
    EXPECT_FALSE(store->undone().empty());
    store->changeLook(lookWithSeed(4));
    EXPECT_THAT(store->undone(), IsEmpty());
    store->redo();
    EXPECT_EQ(store->look(), lookWithSeed(4));
}

TEST_F(StoreTest, AnEqualLookIsStoredSilently)
{
    const auto store = makeStore();
    SignalLog log(*store);
    Look negativeZero;
    negativeZero.offset = -0.0F;
    store->setLook(negativeZero);
    EXPECT_THAT(log.take(), IsEmpty());
    EXPECT_TRUE(store->saveNow());
    EXPECT_TRUE(std::signbit(makeStore()->look().offset));
    EXPECT_TRUE(isIdle(*store));
    store->setLook(negativeZero);
    EXPECT_TRUE(isIdle(*store));
}

TEST_F(StoreTest, ABurstOfChangesIsSavedAfterTheLast)
{
    environment.lookDelay = 1h;
    const auto store = makeStore();
    SignalLog log(*store);
    for (int seed = 1; seed <= 20; ++seed)
        store->setLook(lookWithSeed(seed));
    // Another setting is saved at once and does not take the look along.
    store->setMotion(false);
    ASSERT_TRUE(waitUntil([this] { return fileText().contains("motion=false"); }));
    EXPECT_FALSE(savedLook("look"));
    EXPECT_TRUE(store->saveNow());
    EXPECT_EQ(savedLook("look"), lookWithSeed(20));
    EXPECT_TRUE(isIdle(*store));

    environment.lookDelay = 50ms;
    const auto second = makeStore();
    auto lastChange = Clock::now();
    for (int seed = 21; seed <= 40; ++seed) {
        lastChange = Clock::now();
        second->setLook(lookWithSeed(seed));
        wait(5ms);
    }
    ASSERT_TRUE(waitUntil([this] { return savedLook("look") == lookWithSeed(40); }));
    EXPECT_GE(Clock::now() - lastChange, 50ms);
    EXPECT_TRUE(isIdle(*second));
}

TEST_F(StoreTest, SettingsAreSavedAtOnceAndToldOnce)
{
    environment.lookDelay = 1h;
    const auto store = makeStore();
    SignalLog log(*store);
    for (int time = 0; time < 2; ++time) {
        store->setMotion(false);
        store->setEdge(Edge::right);
        store->setHandleHidden(true);
        store->setShuffleMinutes(60);
        store->setOnboarded(true);
        store->setCustomPalettes({{1}});
        store->setPresets({presetNamed("Tea")});
    }
    EXPECT_THAT(log.take(), ElementsAre("motion", "changed", "edge", "changed", "handleHidden", "changed",
                                        "shuffleMinutes", "changed", "onboarded", "changed", "customPalettes",
                                        "changed", "presets", "changed"));
    for (const char* text : {"motion=false\n", "edge=1\n", "handleHidden=true\n", "shuffleMinutes=60\n",
                             "onboarded=true\n", "customPalettes=", "presets="})
        EXPECT_TRUE(waitUntil([&] { return fileText().contains(text); })) << text;
}

TEST_F(StoreTest, WhatCanWaitIsSavedWithTheNext)
{
    environment.lookDelay = 1h;
    const auto store = makeStore();
    SignalLog log(*store);
    store->setDesktopPhase(2.5);
    EXPECT_FALSE(isIdle(*store)) << "not for ever";
    EXPECT_THAT(log.take(), IsEmpty());
    store->setMotion(false);
    ASSERT_TRUE(waitUntil([this] { return fileText().contains("motion=false"); }));
    EXPECT_TRUE(fileText().contains("desktopPhase=2.5"));
    ASSERT_TRUE(waitUntil([&] { return isIdle(*store); }));

    environment.lookDelay = 1ms;
    const auto second = makeStore();
    second->setDesktopPhase(3.5);
    EXPECT_TRUE(waitUntil([this] { return fileText().contains("desktopPhase=3.5"); }));
}

TEST_F(StoreTest, NobodyWaitsForASlowDisk)
{
    const auto store = makeStore();
    store->setEdge(Edge::right);
    ASSERT_TRUE(store->saveNow());
    // Whoever opens the file waits until the lease is given back, as long as the test likes.
    std::signal(SIGIO, SIG_IGN);
    QFile leased(path());
    ASSERT_TRUE(leased.open(QIODevice::ReadWrite));
    if (fcntl(leased.handle(), F_SETLEASE, F_WRLCK) != 0)
        GTEST_SKIP() << "the file system knows no leases";
    SignalLog log(*store);
    store->setMotion(false);
    for (int minutes = 1; minutes <= 200; ++minutes)
        store->setShuffleMinutes(minutes);
    store->setMotion(true);
    store->applyToDesktop(lookWithSeed(1), RecordHistory::yes, true, ContinueFromEditor::no);
    wait(20ms);
    EXPECT_THAT(log.take(), Not(Contains(HasSubstr("saving"))));
    EXPECT_FALSE(leased.seek(0) && leased.readAll().contains("shuffleMinutes"));

    std::jthread disk([&leased] { fcntl(leased.handle(), F_SETLEASE, F_UNLCK); });
    EXPECT_TRUE(store->saveNow());
    disk.join();
    const auto second = makeStore();
    EXPECT_TRUE(second->motion());
    EXPECT_EQ(second->shuffleMinutes(), 200);
    EXPECT_EQ(second->desktop(), lookWithSeed(1));
}

TEST_F(StoreTest, RefusesWhatCouldNotBeLoadedAgain)
{
    const auto store = makeStore();
    SignalLog log(*store);
    Look broken = lookWithSeed(1);
    broken.scale = notANumber;
    Preset nameless = presetNamed("Tea");
    nameless.id = "1";

    store->setLook(broken);
    store->changeLook(broken);
    store->applyToDesktop(broken, RecordHistory::yes, std::nullopt, ContinueFromEditor::yes);
    store->setPresets({presetNamed("Tea"), nameless});
    const auto heard = log.take();
    ASSERT_EQ(heard.size(), 4);
    EXPECT_THAT(heard.at(0), HasSubstr("refused: \"scale\" holds"));
    EXPECT_EQ(heard.at(1), heard.at(0));
    EXPECT_EQ(heard.at(2), heard.at(0));
    EXPECT_THAT(heard.at(3), HasSubstr("refused: entry 2: \"id\" holds \"1\""));
    EXPECT_EQ(store->look(), Look());
    EXPECT_EQ(store->desktop(), std::nullopt);
    EXPECT_THAT(store->presets(), IsEmpty());
    EXPECT_TRUE(isIdle(*store));
    EXPECT_FALSE(QFile::exists(path()));
}

TEST_F(StoreTest, ApplyingPutsTheLookOnTheDesktop)
{
    const auto store = makeStore();
    store->changeLook(lookWithSeed(1));
    SignalLog log(*store);
    now = 200.0;
    store->applyToDesktop(store->look(), RecordHistory::yes, std::nullopt, ContinueFromEditor::yes);
    EXPECT_THAT(log.take(), ElementsAre("desktop", "appliedMotion", "changed", "applied, continuing"));
    EXPECT_TRUE(waitUntil([this] { return savedLook("desktop") == lookWithSeed(1); }));
    EXPECT_TRUE(fileText().contains("appliedMotion=true")) << "both or neither";
    EXPECT_TRUE(store->isOnDesktop());
    EXPECT_THAT(store->desktopHistory(), IsEmpty());

    // The same again, but still: shown anew, not recorded.
    now = 201.0;
    store->applyToDesktop(store->look(), RecordHistory::yes, false, ContinueFromEditor::no);
    EXPECT_THAT(log.take(), ElementsAre("appliedMotion", "changed", "applied"));
    EXPECT_THAT(store->desktopHistory(), IsEmpty());
    EXPECT_FALSE(store->isOnDesktop());
    store->setMotion(false);
    EXPECT_TRUE(store->isOnDesktop());
    store->setLook(lookWithSeed(2));
    EXPECT_FALSE(store->isOnDesktop());

    store->applyToDesktop(lookWithSeed(3), RecordHistory::no, std::nullopt, ContinueFromEditor::no);
    EXPECT_THAT(store->desktopHistory(), IsEmpty());
    EXPECT_FALSE(store->appliedMotion());
}

TEST_F(StoreTest, RemembersTheLastFortyDesktops)
{
    const auto store = makeStore();
    for (int seed = 0; seed < 45; ++seed) {
        store->applyToDesktop(lookWithSeed(seed), RecordHistory::yes, true, ContinueFromEditor::no);
        store->applyToDesktop(lookWithSeed(seed), RecordHistory::yes, true, ContinueFromEditor::no);
        EXPECT_EQ(store->desktopHistory().size(), std::min(seed, 40));
    }
    EXPECT_EQ(store->desktopHistory().front(), lookWithSeed(4));
    EXPECT_EQ(store->desktopHistory().back(), lookWithSeed(43));
    EXPECT_TRUE(store->saveNow());
    EXPECT_EQ(makeStore()->desktopHistory(), store->desktopHistory());

    // A longer one, from elsewhere, is cut at the next chance.
    ASSERT_EQ(writeSettings(path(), {{"desktopHistory", QByteArray::fromStdString(encodeLooks(
                                                            std::vector<Look>(60, lookWithSeed(1))))}}),
              std::nullopt);
    const auto second = makeStore();
    EXPECT_EQ(second->desktopHistory().size(), 60);
    second->applyToDesktop(lookWithSeed(99), RecordHistory::yes, true, ContinueFromEditor::no);
    EXPECT_EQ(second->desktopHistory().size(), 40);
    EXPECT_EQ(second->desktopHistory().back(), lookWithSeed(44));
}

TEST_F(StoreTest, GoesBackToThePreviousWallpaper)
{
    const auto store = makeStore();
    store->applyToDesktop(lookWithSeed(1), RecordHistory::yes, false, ContinueFromEditor::no);
    SignalLog log(*store);
    store->previousWallpaper();
    EXPECT_THAT(log.take(), IsEmpty());

    store->applyToDesktop(lookWithSeed(2), RecordHistory::yes, false, ContinueFromEditor::yes);
    log.take();
    now = 300.0;
    store->previousWallpaper();
    EXPECT_THAT(log.take(),
                ElementsAre("desktopHistory", "replaced", "look", "desktop", "changed", "applied"));
    EXPECT_EQ(store->look(), lookWithSeed(1));
    EXPECT_EQ(store->desktop(), lookWithSeed(1));
    EXPECT_FALSE(store->appliedMotion()); // although the user wants motion by now
    EXPECT_THAT(store->history(), IsEmpty());
    EXPECT_TRUE(store->saveNow());
    EXPECT_THAT(makeStore()->desktopHistory(), IsEmpty());
    EXPECT_EQ(makeStore()->desktop(), lookWithSeed(1));
}

TEST_F(StoreTest, ShufflesEditorAndDesktop)
{
    const auto store = makeStore();
    const RandomSource same = seededSource(1);
    Look edited = lookWithSeed(1);
    edited.imagePath = "/editor.jpg";
    edited.custom = {{1, 2}};
    store->setLook(edited);
    SignalLog log(*store);
    Look announced = store->upcoming();
    EXPECT_EQ(store->upcoming(), announced);
    announced.imagePath = "/editor.jpg";
    store->shuffle();
    const Look first = randomLook(same, "/editor.jpg");
    EXPECT_EQ(first, announced);
    EXPECT_EQ(store->look(), first);
    EXPECT_THAT(store->history(), ElementsAre(edited));
    EXPECT_EQ(store->desktop(), first);
    EXPECT_TRUE(store->appliedMotion()); // there was no desktop: the user's choice
    EXPECT_THAT(log.take(),
                ElementsAre("history", "replaced", "look", "desktop", "appliedMotion", "changed", "applied"));

    // The desktop's photo comes first, and the desktop stays still.
    Look desktop = lookWithSeed(2);
    desktop.imagePath = "/desktop.jpg";
    store->applyToDesktop(desktop, RecordHistory::no, false, ContinueFromEditor::no);
    store->shuffle();
    const Look second = randomLook(same, "/desktop.jpg");
    EXPECT_EQ(store->desktop(), second);
    EXPECT_FALSE(store->appliedMotion());
    EXPECT_THAT(store->desktopHistory(), ElementsAre(desktop));

    // A desktop without a photo leaves it to the editor.
    store->applyToDesktop(lookWithSeed(3), RecordHistory::no, true, ContinueFromEditor::no);
    store->setLook(edited);
    store->shuffle();
    EXPECT_EQ(store->desktop(), randomLook(same, "/editor.jpg"));
    EXPECT_TRUE(store->appliedMotion());
}

TEST_F(StoreTest, TheLookWearsThePaletteThatIsEdited)
{
    const auto store = makeStore();
    store->setCustomPalettes({{1, 2}});
    Look own;
    own.custom = {{1, 2}};
    store->setLook(own);
    SignalLog log(*store);
    store->endEditing();
    store->savePalette();
    store->setDraftStops({3, 4, 5});
    store->beginEditing(0, {1});
    store->beginEditing(0, {1, 2, 3, 4, 5, 6});
    EXPECT_THAT(log.take(), IsEmpty());

    store->beginEditing(0, {1, 2});
    EXPECT_THAT(log.take(), ElementsAre("draftStops", "draftStopsIndex", "stopsBeforeEdit", "changed"));
    store->setDraftStops({3, 4, 5});
    EXPECT_THAT(log.take(), ElementsAre("look", "draftStops", "changed"));
    EXPECT_EQ(store->look().custom, (std::vector<Color>{3, 4, 5}));

    Look scaled = store->look();
    scaled.scale = 2.0F; // another tab's change, which stays
    store->setLook(scaled);
    scaled.pattern = Pattern::silk;
    store->changeLook(scaled);
    log.take();
    store->endEditing();
    EXPECT_THAT(log.take(),
                ElementsAre("look", "draftStops", "draftStopsIndex", "stopsBeforeEdit", "changed"));
    EXPECT_EQ(store->look().custom, own.custom);
    EXPECT_EQ(store->look().scale, 2.0F);
    EXPECT_FALSE(store->draftStops() || store->draftStopsIndex() || store->stopsBeforeEdit());
    EXPECT_THAT(store->customPalettes(), ElementsAre(std::vector<Color>{1, 2}));
}

TEST_F(StoreTest, ALookWithItsPalettesColoursKeepsThePalette)
{
    const auto store = makeStore();
    const Palette& ember = builtInPalettes()[0];
    store->applyToDesktop(store->look(), RecordHistory::no, std::nullopt, ContinueFromEditor::no);
    store->beginEditing(std::nullopt, {ember.hex.begin(), ember.hex.end()});
    EXPECT_TRUE(store->isOnDesktop());
    store->setDraftStops({3, 4});
    EXPECT_FALSE(store->isOnDesktop());
    // One edit gives way to the next.
    store->beginEditing(std::nullopt, {5, 6});
    store->endEditing();
    EXPECT_EQ(store->look(), Look());
}

TEST_F(StoreTest, SavesPalettesInPlaceOrAtTheEnd)
{
    const auto store = makeStore();
    store->setCustomPalettes({{1, 2}, {3, 4}});
    store->beginEditing(1, {3, 4});
    store->setDraftStops({5, 6});
    store->savePalette();
    store->beginEditing(std::nullopt, {5, 6});
    store->savePalette();
    EXPECT_THAT(store->history(), ElementsAre(Look())) << "nothing has changed the second time";
    store->beginEditing(9, {7, 8});
    store->savePalette();
    using Stops = std::vector<Color>;
    EXPECT_THAT(store->customPalettes(), ElementsAre(Stops{1, 2}, Stops{5, 6}, Stops{5, 6}, Stops{7, 8}));
    EXPECT_EQ(store->look().custom, (Stops{7, 8}));
    EXPECT_FALSE(store->stopsBeforeEdit());
    store->undo();
    EXPECT_EQ(store->look().custom, (Stops{5, 6}));

    store->deletePalette(4);
    store->beginEditing(0, {1, 9});
    store->deletePalette(1);
    EXPECT_THAT(store->customPalettes(), ElementsAre(Stops{1, 2}, Stops{5, 6}, Stops{7, 8}));
    EXPECT_FALSE(store->stopsBeforeEdit());
    EXPECT_EQ(store->look().custom, (Stops{1, 9})) << "only giving up brings the colours of before back";
}

TEST_F(StoreTest, ALookThatComesInBetweenEndsTheEdit)
{
    const auto store = makeStore();
    Look other = lookWithSeed(3);
    other.custom = {{7, 8}};
    const std::vector<std::function<void()>> replacements{
        [&] { store->shuffle(); },     [&] { store->shuffle(); }, [&] { store->changeLook(other); },
        [&] { store->undo(); },        [&] { store->redo(); },    [&] { store->previousWallpaper(); },
        [&] { store->setLook(other); }};
    Color color = 1;
    for (const auto& replace : replacements) {
        store->beginEditing(std::nullopt, {0, color++});
        const Look draft = store->look();
        replace();
        const Look replaced = store->look();
        EXPECT_NE(replaced.custom, draft.custom);
        EXPECT_FALSE(store->draftStops() || store->draftStopsIndex() || store->stopsBeforeEdit());
        store->endEditing();
        EXPECT_EQ(store->look(), replaced);
    }
    EXPECT_THAT(store->customPalettes(), IsEmpty());
}

TEST_F(StoreTest, SurvivesADiskThatCannotBeWritten)
{
    environment.retryInterval = 50ms;
    // A file stands where the folder should be.
    const QString blocker = folder.filePath(QStringLiteral("config"));
    QFile file(blocker);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();

    const auto store = makeStore();
    SignalLog log(*store);
    store->setMotion(false);
    EXPECT_THAT(log.take(), ElementsAre("motion", "changed"));
    std::vector<std::string> heard;
    ASSERT_TRUE(waitUntil([&] { return !heard.empty() || !(heard = log.take()).empty(); }));
    EXPECT_THAT(heard, ElementsAre(AllOf(HasSubstr("savingFailed: "), HasSubstr(blocker.toStdString()))));

    // Told once, although it fails again with each try.
    store->setEdge(Edge::right);
    store->setLook(lookWithSeed(1));
    EXPECT_FALSE(store->saveNow());
    store->applyToDesktop(lookWithSeed(2), RecordHistory::yes, true, ContinueFromEditor::no);
    wait(200ms);
    EXPECT_THAT(log.take(), Not(Contains(HasSubstr("saving"))));
    EXPECT_FALSE(store->motion());
    EXPECT_FALSE(isIdle(*store));

    ASSERT_TRUE(QFile::remove(blocker));
    ASSERT_TRUE(waitUntil([&] { return isIdle(*store); }));
    EXPECT_THAT(log.take(), ElementsAre("savingResumed"));
    const auto second = makeStore();
    EXPECT_FALSE(second->motion());
    EXPECT_EQ(second->edge(), Edge::right);
    EXPECT_EQ(second->look(), lookWithSeed(1));
    EXPECT_EQ(second->desktop(), lookWithSeed(2));

    // The next failure is news again, and the next change is soon tried.
    environment.retryInterval = 1h;
    environment.lookDelay = 1ms;
    const auto third = makeStore();
    SignalLog thirdLog(*third);
    ASSERT_TRUE(QDir(blocker).removeRecursively());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    third->setHandleHidden(true);
    EXPECT_THAT(thirdLog.take(), ElementsAre("handleHidden", "changed"));
    heard.clear();
    ASSERT_TRUE(waitUntil([&] { return !heard.empty() || !(heard = thirdLog.take()).empty(); }));
    EXPECT_THAT(heard, ElementsAre(HasSubstr("savingFailed: ")));
    third->setHandleHidden(false);
    wait(20ms);
    EXPECT_THAT(thirdLog.take(), ElementsAre("handleHidden", "changed"));
    ASSERT_TRUE(QFile::remove(blocker));
    third->setEdge(Edge::left);
    ASSERT_TRUE(waitUntil([&] { return isIdle(*third); }));
    EXPECT_THAT(thirdLog.take(), ElementsAre("edge", "changed", "savingResumed"));
    EXPECT_EQ(makeStore()->edge(), Edge::left);
}

TEST_F(StoreTest, AnotherProgramMayWriteForAWhile)
{
    environment.lockPatience = 1h;
    const auto store = makeStore();
    SignalLog log(*store);
    store->setEdge(Edge::right);
    EXPECT_TRUE(store->saveNow());
    QLockFile other(path() + QStringLiteral(".lock"));
    ASSERT_TRUE(other.lock());
    store->setMotion(false);
    ASSERT_TRUE(waitUntil([&] { return !isIdle(*store); })) << "it is to be tried again";
    other.unlock();
    ASSERT_TRUE(waitUntil([this] { return fileText().contains("motion=false"); }));
    ASSERT_TRUE(waitUntil([&] { return isIdle(*store); }));
    EXPECT_THAT(log.take(), Not(Contains(HasSubstr("saving"))));

    environment.lockPatience = 0ms;
    const auto second = makeStore();
    SignalLog secondLog(*second);
    ASSERT_TRUE(other.lock());
    second->setMotion(true);
    EXPECT_THAT(secondLog.take(), ElementsAre("motion", "changed"));
    std::vector<std::string> heard;
    ASSERT_TRUE(waitUntil([&] { return !heard.empty() || !(heard = secondLog.take()).empty(); }));
    EXPECT_THAT(heard, ElementsAre(HasSubstr("savingFailed: another program"))) << "this one does not end";
    EXPECT_FALSE(second->saveNow()) << "nor at the end";
    // Before the program ends a moment is left to the other one.
    const std::jthread ending([&other] {
        std::this_thread::sleep_for(20ms);
        other.unlock();
    });
    EXPECT_TRUE(second->saveNow());
    EXPECT_THAT(secondLog.take(), ElementsAre("savingResumed"));
    EXPECT_TRUE(makeStore()->motion());
}

TEST_F(StoreTest, AnotherProgramsPictureTakesTheLookFromTheDesktop)
{
    const auto store = makeStore();
    store->applyToDesktop(lookWithSeed(2), RecordHistory::yes, true, ContinueFromEditor::no);
    SignalLog log(*store);
    store->leaveDesktop();
    EXPECT_THAT(log.take(), ElementsAre("desktopHistory", "desktop", "changed")) << "nothing is to be shown";
    EXPECT_EQ(store->desktop(), std::nullopt);
    EXPECT_FALSE(store->isOnDesktop());
    EXPECT_TRUE(store->saveNow());
    const auto restarted = makeStore();
    EXPECT_EQ(restarted->desktop(), std::nullopt);
    EXPECT_THAT(restarted->problems(), IsEmpty());
    restarted->previousWallpaper();
    EXPECT_EQ(restarted->desktop(), lookWithSeed(2)) << "it can be had back";
}

TEST_F(StoreTest, ObserversMayStartTheNextOperation)
{
    const auto store = makeStore();
    QObject::connect(store.get(), &Store::lookChanged, [&] {
        if (store->look() == lookWithSeed(1))
            store->changeLook(lookWithSeed(2));
    });
    SignalLog log(*store);
    store->changeLook(lookWithSeed(1));
    EXPECT_EQ(store->look(), lookWithSeed(2));
    EXPECT_THAT(store->history(), ElementsAre(Look(), lookWithSeed(1)));
    EXPECT_THAT(log.take(), Contains("look").Times(2));
}

} // namespace
} // namespace tessel
