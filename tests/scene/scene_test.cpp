// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "scene/scene.h"
#include "support/fake_desktop.h"

#include <QTemporaryDir>

namespace tessel {
namespace {

using namespace std::chrono_literals;

const std::vector<ViewSize> views{{QSize(96, 64)}};

class SceneTest : public DrawingTest
{
protected:
    static Look lookWithSeed(float seed)
    {
        Look look;
        look.seed = seed;
        return look;
    }

    void apply(const Look& look)
    {
        m_store.applyToDesktop(look, RecordHistory::no, true, ContinueFromEditor::no);
    }

    /// Shows what the store has, and waits until it can be drawn.
    void show(Scene& scene, LookChange change = LookChange::crossFade)
    {
        bool isShown = false;
        const auto connection = QObject::connect(&scene, &Scene::changed, [&isShown] { isShown = true; });
        scene.show(views, change);
        ASSERT_TRUE(waitUntil([&] { return isShown; }));
        QObject::disconnect(connection);
    }

    QTemporaryDir m_folder;
    Store m_store{StoreEnvironment{.settingsFile = m_folder.filePath(QStringLiteral("a.conf"))}};
    FakeSession m_session;
    AnimationClocks m_clocks;
    LookPreparer m_preparer;
    const SceneServices m_services{m_store, m_session, graphics, m_clocks, m_preparer};
};

TEST_F(SceneTest, FadesFromWhatWasShownToWhatIsWanted)
{
    Scene scene(Source::desktop, m_services);
    apply(lookWithSeed(1));
    show(scene);
    EXPECT_EQ(scene.frame(views[0], mediaTime()).mix, 1.0F) << "there was nothing to fade from";
    apply(lookWithSeed(2));
    show(scene);
    const double start = mediaTime();
    const Frame frame = scene.frame(views[0], start);
    EXPECT_EQ(frame.previous.seed, 1);
    EXPECT_EQ(frame.current.seed, 2);
    EXPECT_LT(frame.mix, 0.5F);
    EXPECT_EQ(scene.frame(views[0], start + transitionDuration).mix, 1.0F);
    m_session.become({.reducedMotion = true});
    EXPECT_EQ(scene.frame(views[0], start).mix, 1.0F);
    m_session.become({});

    show(scene);
    EXPECT_EQ(scene.frame(views[0], mediaTime()).previous.seed, 1)
        << "the same once more fades to nothing new";
}

TEST_F(SceneTest, WhatIsPreparedForOneSourceIsNotDroppedForAnother)
{
    Scene desktop(Source::desktop, m_services);
    Scene editor(Source::editor, m_services);
    Look fresh = lookWithSeed(3);
    fresh.pattern = Pattern::weave;
    apply(fresh);
    fresh.pattern = Pattern::gem;
    m_store.setLook(fresh);
    int shown = 0;
    for (Scene* scene : {&desktop, &editor}) {
        QObject::connect(scene, &Scene::changed, [&shown] { ++shown; });
        scene->show(views);
    }
    EXPECT_TRUE(waitUntil([&] { return shown == 2; }));
    EXPECT_EQ(desktop.current().pattern, Pattern::weave);
    EXPECT_EQ(editor.current().pattern, Pattern::gem);
}

TEST_F(SceneTest, ASliderChangesTheEditedLookWithoutAFade)
{
    Scene editor(Source::editor, m_services);
    show(editor);
    Look look = m_store.look();
    look.scale = 2;
    m_store.setLook(look);
    show(editor, LookChange::inPlace);
    const Frame frame = editor.frame(views[0], mediaTime());
    EXPECT_EQ(frame.current.scale, 2);
    EXPECT_EQ(frame.mix, 1.0F);
    EXPECT_EQ(editor.framesPerSecond(30, mediaTime()), 60);
    editor.setFrozen(true);
    EXPECT_EQ(editor.framesPerSecond(30, mediaTime() + 2), 6);
    editor.advance(mediaTime());
    const double phase = m_clocks.phase(Source::editor);
    editor.advance(mediaTime() + 1);
    EXPECT_EQ(m_clocks.phase(Source::editor), phase) << "frozen";
}

TEST_F(SceneTest, TheHandlesSideCountsFromTheNextLookOn)
{
    Scene scene(Source::desktop, m_services);
    apply(lookWithSeed(1));
    show(scene);
    m_store.setEdge(Edge::right);
    EXPECT_EQ(scene.frame(views[0], mediaTime()).edge, Edge::left);
    apply(lookWithSeed(2));
    show(scene);
    const Frame frame = scene.frame(views[0], mediaTime());
    EXPECT_EQ(frame.previousEdge, Edge::left);
    EXPECT_EQ(frame.edge, Edge::right);
}

TEST_F(SceneTest, ARestingHandleFadesToTheNextLookBeforeItStands)
{
    Scene thumb(Source::thumb, m_services);
    thumb.setThumbState(ThumbState::resting);
    const auto applyStill = [this](const Look& look) {
        m_store.applyToDesktop(look, RecordHistory::no, false, ContinueFromEditor::no);
    };
    applyStill(lookWithSeed(1));
    show(thumb);
    EXPECT_EQ(thumb.framesPerSecond(30, mediaTime()), 0);
    applyStill(lookWithSeed(2));
    show(thumb);
    EXPECT_GT(thumb.framesPerSecond(30, mediaTime()), 1);
    EXPECT_EQ(thumb.framesPerSecond(30, mediaTime() + transitionDuration), 0);
    thumb.setThumbState(ThumbState::hidden);
    EXPECT_EQ(thumb.framesPerSecond(30, mediaTime()), 0);
}

TEST_F(SceneTest, AViewThatCannotDrawIsToldOfOnce)
{
    Scene scene(Source::desktop, m_services);
    apply(lookWithSeed(1));
    show(scene);
    QStringList problems;
    QObject::connect(&scene, &Scene::failed, [&](const QString& problem) { problems << problem; });
    scene.giveUp(QStringLiteral("no paint left"));
    scene.giveUp(QStringLiteral("no paint left"));
    EXPECT_EQ(problems.size(), 1);
    EXPECT_EQ(scene.framesPerSecond(30, mediaTime()), 0);
    apply(lookWithSeed(2));
    show(scene);
    EXPECT_GT(scene.framesPerSecond(30, mediaTime()), 0) << "the next look is another matter";
}

} // namespace
} // namespace tessel
