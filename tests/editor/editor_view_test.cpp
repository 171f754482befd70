// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/controls.h"
#include "controls/live_picture.h"
#include "controls/look_pictures.h"
#include "editor/editor_model.h"
#include "support/fake_desktop.h"
#include "support/test_store.h"

#include <QAccessible>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QTest>
#include <gmock/gmock.h>

void qml_register_types_TesselBroth_Editor();

namespace tessel {
namespace {

using testing::ElementsAre;
using testing::IsSupersetOf;

/// The editor in a window of its own, with two palettes and a preset.
class EditorViewTest : public DrawingTest
{
protected:
    EditorViewTest()
    {
        m_store->setCustomPalettes({{0x10131F, 0x274B5E, 0xD9583B}, {0x1E0214, 0xF0668F}});
        m_store->setPresets({{"a0000000-0000-0000-0000-000000000001", "Late shift", lookWithSeed(3), true}});
        m_store->setLook({});
        m_preview.setFrozen(true);
        installControls(*m_view.engine(), m_pictures);
        qml_register_types_TesselBroth_Editor();
        m_view.setInitialProperties({{QStringLiteral("model"), QVariant::fromValue(&m_model)},
                                     {QStringLiteral("preview"), QVariant::fromValue(&m_preview)}});
        m_view.setResizeMode(QQuickView::SizeRootObjectToView);
        m_view.resize(312, 720);
        m_view.setSource(QUrl(QStringLiteral("qrc:/qt-project.org/imports/TesselBroth/Editor/Editor.qml")));
        m_view.show();
        m_view.requestActivate();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_view, 60000));
    }

    /// What Qt deletes later waits for its pictures until then, which it must not beyond its engine.
    ~EditorViewTest() override
    {
        m_view.setSource({});
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    static QString nameOf(const QQuickItem* item)
    {
        QAccessibleInterface* const heard =
            QAccessible::queryAccessibleInterface(const_cast<QQuickItem*>(item));
        return heard != nullptr ? heard->text(QAccessible::Name) : QString();
    }

    /// Everything that can be seen, parents first.
    [[nodiscard]] std::vector<QQuickItem*> items() const
    {
        std::vector<QQuickItem*> found{m_view.contentItem()};
        for (std::size_t i = 0; i < found.size(); ++i)
            for (QQuickItem* child : found[i]->childItems())
                if (child->isVisible())
                    found.push_back(child);
        return found;
    }

    /// The one that has a name for screen readers; null if there is none to be seen.
    [[nodiscard]] QQuickItem* item(const char* name) const
    {
        for (QQuickItem* candidate : items())
            if (nameOf(candidate) == QString::fromUtf8(name))
                return candidate;
        return nullptr;
    }

    [[nodiscard]] QPoint place(const char* name) const
    {
        return item(name)->mapToScene(QPointF(0, 0)).toPoint();
    }

    void press(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(&m_view, static_cast<Qt::Key>(key), modifiers);
    }
    void type(const char* text)
    {
        for (const char* letter = text; *letter != '\0'; ++letter)
            QTest::keyClick(&m_view, *letter);
    }
    void focus(const char* name)
    {
        ASSERT_NE(item(name), nullptr) << name;
        item(name)->forceActiveFocus(Qt::TabFocusReason);
    }
    [[nodiscard]] std::string focused() const { return nameOf(m_view.activeFocusItem()).toStdString(); }

    /// The names along a whole round of Tab.
    std::vector<std::string> walk()
    {
        std::vector<std::string> names;
        do {
            press(Qt::Key_Tab);
            names.push_back(focused());
        } while (names.size() < 40 && (names.size() < 2 || names.back() != names.front()));
        names.pop_back();
        return names;
    }

    void resize(int height)
    {
        m_view.resize(312, height);
        ASSERT_TRUE(QTest::qWaitFor([&] { return qRound(m_view.rootObject()->height()) == height; }, 60000));
    }

    TestStore m_store;
    FakeScreens m_screens;
    FakeSession m_session;
    AnimationClocks m_clocks;
    LookPreparer m_preparer;
    const SceneServices m_services{*m_store, m_session, graphics, m_clocks, m_preparer};
    LivePicture m_preview{Source::editor, m_services, m_screens};
    EditorModel m_model{
        {*m_store, m_screens, m_clocks, graphics, EditorServices{.photoFolder = m_store.folder()}}};
    LookPictures m_pictures;
    QQuickView m_view;
};

TEST_F(EditorViewTest, TabGoesThroughEverythingOnce)
{
    m_store->changeLook(lookWithSeed(2));
    EXPECT_THAT(walk(),
                ElementsAre("Undo", "Shuffle draft", "Export PNG", "Close", "Preview: Flow Ember", "Shape",
                            "Flow", "Scale", "Warp", "Speed", "Seed", "Animated", "Apply to desktop"));
    m_model.setTab(EditorModel::Color);
    EXPECT_THAT(walk(), IsSupersetOf({"Color", "Ember", "Shift", "Contrast", "Grain", "Vignette", "Invert"}));
    m_model.palette()->edit(0);
    EXPECT_THAT(walk(),
                IsSupersetOf({"Colour 1", "Hue", "Saturation", "Brightness", "Hex", "Remove the last colour",
                              "Add a colour", "From photo", "Cancel", "Save"}));
    m_model.setTab(EditorModel::Dither);
    EXPECT_THAT(walk(), IsSupersetOf({"Dither", "Bayer 8", "Pixel", "Levels"}));
    m_model.setTab(EditorModel::Presets);
    EXPECT_THAT(walk(), IsSupersetOf({"Presets", "Save as preset", "Late shift"}));
}

TEST_F(EditorViewTest, ScreenReadersHearOfEverythingThatCanBeFocused)
{
    for (const auto tab :
         {EditorModel::Shape, EditorModel::Color, EditorModel::Dither, EditorModel::Presets}) {
        m_model.setTab(tab);
        int count = 0;
        for (QQuickItem* candidate : items()) {
            if (!candidate->activeFocusOnTab())
                continue;
            QAccessibleInterface* const heard = QAccessible::queryAccessibleInterface(candidate);
            ASSERT_NE(heard, nullptr);
            EXPECT_FALSE(heard->text(QAccessible::Name).isEmpty()) << candidate->metaObject()->className();
            EXPECT_NE(heard->role(), QAccessible::NoRole) << nameOf(candidate).toStdString();
            ++count;
        }
        EXPECT_GE(count, 9);
    }
    EXPECT_NE(item("Draft"), nullptr);
    EXPECT_NE(item("Plays behind your desktop icons. Speed sets the pace."), nullptr);
}

// Not a number of the layout is left to chance on any screen that a person may have.
TEST_F(EditorViewTest, EverythingIsInItsPlaceAtEveryHeight)
{
    for (const int height : {720, 700, 640, 600, 560, 544, 530, 512}) {
        resize(height);
        const int preview = std::clamp(height - 544, 112, 176);
        m_model.setTab(EditorModel::Shape);
        EXPECT_EQ(qRound(item("Preview: Flow Ember")->height()), preview);
        EXPECT_EQ(place("Shape").y(), 56 + preview);
        EXPECT_EQ(place("Flow"), QPoint(12, 96 + preview)) << height;
        EXPECT_EQ(place("Scale"), QPoint(12, height - 196));
        EXPECT_EQ(place("Seed"), QPoint(162, height - 152));
        EXPECT_EQ(place("Apply to desktop"), QPoint(12, height - 38));
        m_model.setTab(EditorModel::Color);
        EXPECT_EQ(place("Vignette"), QPoint(162, height - 186));
        EXPECT_EQ(place("Invert").y(), height - 146);
        m_model.setTab(EditorModel::Dither);
        EXPECT_EQ(place("Pixel"), QPoint(12, height - 152));
    }
}

TEST_F(EditorViewTest, OnAShortScreenTheKnobsScrollIntoSight)
{
    resize(440);
    focus("Flow");
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), "Scale");
    for (const char* knob : {"Scale", "Warp", "Speed", "Seed"}) {
        EXPECT_EQ(focused(), knob);
        const int top = place(knob).y();
        EXPECT_GE(top, 204) << knob;
        EXPECT_LE(top + 32, 440 - 108) << knob;
        press(Qt::Key_Tab);
    }
    press(Qt::Key_Backtab);
    for (int i = 0; i < 4; ++i)
        press(Qt::Key_Backtab);
    EXPECT_EQ(focused(), "Flow");
    EXPECT_GE(place("Flow").y(), 204);
}

TEST_F(EditorViewTest, OnAShortScreenNothingIsDrawnWhereItDoesNotScroll)
{
    resize(440);
    const auto explanation = [this] {
        QCoreApplication::processEvents();
        return m_view.grabWindow().copy(0, 440 - 70, 312, 30);
    };
    m_model.setTab(EditorModel::Presets);
    const QImage alone = explanation();
    m_model.setTab(EditorModel::Color);
    m_model.palette()->edit(0);
    focus("Save");
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), "Shift") << "there is another row of knobs below";
    EXPECT_TRUE(explanation() == alone);
}

TEST_F(EditorViewTest, IsMirroredForPeopleWhoReadFromTheRight)
{
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    EXPECT_LT(place("Close").x(), place("Undo").x());
    EXPECT_GT(place("Shape").x(), place("Presets").x());
    EXPECT_GT(place("Flow").x(), place("Mesh").x());
    EXPECT_GT(place("Scale").x(), place("Warp").x());
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    EXPECT_GT(place("Close").x(), place("Undo").x());
}

TEST_F(EditorViewTest, KeysReachOnlyWhatCanBeSeen)
{
    focus("Seed");
    m_model.setTab(EditorModel::Color);
    type("7");
    press(Qt::Key_Return);
    EXPECT_NE(m_store->look().seed, 7);
    m_model.palette()->edit(0);
    EXPECT_EQ(focused(), "Colour 1");
    press(Qt::Key_Right);
    EXPECT_EQ(focused(), "Colour 2");
    press(Qt::Key_Escape); // ends the edit, not the editor
    EXPECT_FALSE(m_model.palette()->isEditing());
    EXPECT_EQ(focused(), "Ember") << "the palette that the look has";
}

TEST_F(EditorViewTest, ArrowsGoThroughTilesAndSpaceChooses)
{
    focus("Flow");
    press(Qt::Key_Left); // there is nothing before the first
    press(Qt::Key_Right);
    press(Qt::Key_Down);
    EXPECT_EQ(focused(), "Cells");
    EXPECT_EQ(m_store->look().pattern, Pattern::flow);
    press(Qt::Key_Space);
    EXPECT_EQ(m_store->look().pattern, Pattern::cells);
    press(Qt::Key_End);
    const std::string last = focused();
    EXPECT_NE(last, "Cells");
    EXPECT_LE(place(last.c_str()).y() + 44, 512) << "it scrolls with the keyboard";
    press(Qt::Key_Home);
    EXPECT_EQ(focused(), "Flow");
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(m_store->look().pattern, Pattern::flow);
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(m_store->look().pattern, Pattern::cells);
}

TEST_F(EditorViewTest, PalettesAreChosenEditedAndDeletedByKeyboard)
{
    m_model.setTab(EditorModel::Color);
    focus("Ember");
    press(Qt::Key_Right);
    press(Qt::Key_Space);
    EXPECT_EQ(m_store->look().palette, 1);
    press(Qt::Key_Up);
    EXPECT_EQ(focused(), "Mine 2");

    press(Qt::Key_E);
    EXPECT_TRUE(m_model.palette()->isEditing());
    focus("Hex");
    type("#274b5e");
    focus("Save");
    press(Qt::Key_Return);
    EXPECT_EQ(m_store->customPalettes().at(1), (std::vector<Color>{0x274B5E, 0xF0668F}));

    focus("Mine 1");
    press(Qt::Key_Delete);
    EXPECT_NE(item("Delete \"Mine 1\"?"), nullptr);
    EXPECT_EQ(focused(), "Delete");
    press(Qt::Key_Escape);
    EXPECT_EQ(m_store->customPalettes().size(), 2U);
    EXPECT_EQ(focused(), "Mine 1");
    press(Qt::Key_Delete);
    press(Qt::Key_Return);
    EXPECT_EQ(m_store->customPalettes().size(), 1U);

    focus("Ember");
    for (int row = 0; row < 12 && focused() != "More palettes"; ++row)
        press(Qt::Key_Down);
    EXPECT_EQ(focused(), "More palettes");
    press(Qt::Key_Space);
    press(Qt::Key_Down);
    EXPECT_TRUE(m_model.palette()->grid()->showsMore());
    EXPECT_NE(focused(), "More palettes");
    press(Qt::Key_Space);
    EXPECT_GE(m_store->look().palette, 12);
}

TEST_F(EditorViewTest, PresetsAreSavedRenamedAndDeletedByKeyboard)
{
    m_model.setTab(EditorModel::Presets);
    focus("Save as preset");
    press(Qt::Key_Space);
    type("Soup");
    press(Qt::Key_Return);
    ASSERT_EQ(m_store->presets().size(), 2U);
    EXPECT_EQ(m_store->presets().at(1).name, "Soup");

    focus("Late shift");
    press(Qt::Key_Menu);
    press(Qt::Key_Return); // its first row
    type("Early");
    press(Qt::Key_Return);
    EXPECT_EQ(m_store->presets().at(0).name, "Early");
    focus("Soup");
    press(Qt::Key_Delete);
    EXPECT_EQ(m_store->presets().size(), 1U);
    focus("Early");
    press(Qt::Key_Space);
    EXPECT_EQ(m_store->look(), lookWithSeed(3));
}

TEST_F(EditorViewTest, SpaceHoldsThePreviewAndFailuresAreTold)
{
    focus("Preview: Flow Ember");
    press(Qt::Key_Space);
    EXPECT_FALSE(m_preview.frozen());
    press(Qt::Key_Space);
    EXPECT_TRUE(m_preview.frozen());

    Q_EMIT m_model.told(QStringLiteral("Could not save that PNG"), QStringLiteral("The disk is full."));
    EXPECT_NE(item("Could not save that PNG"), nullptr);
    EXPECT_EQ(focused(), "OK");
    press(Qt::Key_Return);
    EXPECT_EQ(item("Could not save that PNG"), nullptr);
    EXPECT_EQ(focused(), "Preview: Flow Ember");
}

TEST_F(EditorViewTest, KeysAreHeardWhereNothingHasTheFocus)
{
    const auto undoes = [this] {
        m_store->changeLook(lookWithSeed(9));
        press(Qt::Key_Z, Qt::ControlModifier);
        return m_store->look() == Look();
    };
    EXPECT_TRUE(undoes());
    Q_EMIT m_model.told(QStringLiteral("Could not paste that"), QStringLiteral("It holds no look."));
    press(Qt::Key_Return);
    EXPECT_TRUE(undoes()) << "after a sheet";
    QTest::mouseClick(&m_view, Qt::LeftButton, {}, place("Export PNG") + QPoint(4, 4));
    ASSERT_NE(item("Square  ·  2048 × 2048"), nullptr);
    press(Qt::Key_Escape);
    EXPECT_TRUE(undoes()) << "after a menu";
    focus("Scale");
    QTest::mouseClick(&m_view, Qt::LeftButton, {}, place("Scale") + QPoint(-6, 0));
    EXPECT_NE(focused(), "Scale") << "a press beside it takes the focus from it";
    EXPECT_TRUE(undoes());
}

} // namespace
} // namespace tessel
