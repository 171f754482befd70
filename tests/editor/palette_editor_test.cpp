// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/worker.h"
#include "editor/palette_editor.h"
#include "model/palette.h"
#include "support/drawing_test.h"
#include "support/model_log.h"
#include "support/surroundings.h"
#include "support/test_store.h"

#include <QColor>
#include <QImage>
#include <gmock/gmock.h>

namespace tessel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Stops = std::vector<Color>;

class PaletteEditorTest : public DrawingTest // for its application
{
protected:
    PaletteEditorTest()
    {
        QObject::connect(&m_editor, &PaletteEditor::told, &m_editor,
                         [this](const QString& title, const QString& text) { m_told << title << text; });
    }

    [[nodiscard]] ColorField& field(int place)
    {
        auto fields = m_editor.fields();
        return *fields.at(&fields, place);
    }

    [[nodiscard]] int fieldCount()
    {
        auto fields = m_editor.fields();
        return static_cast<int>(fields.count(&fields));
    }

    void savePalette(const Stops& stops)
    {
        auto palettes = m_store->customPalettes();
        palettes.push_back(stops);
        m_store->setCustomPalettes(palettes);
    }

    [[nodiscard]] QString fileOf(const QImage& image)
    {
        QString file = m_store.folder() + QStringLiteral("/photo.png");
        EXPECT_TRUE(image.save(file));
        return file;
    }

    TestStore m_store;
    Worker m_worker{QStringLiteral("photos")};
    std::function<void(const QString&)> m_choose; ///< what the open file dialog would call
    EditorServices m_services{.chooseImage = [this](const auto& chosen) { m_choose = chosen; }};
    PaletteEditor m_editor{*m_store, m_worker, m_services};
    QStringList m_told;
};

TEST_F(PaletteEditorTest, MakesANewPaletteOfTheLooksColours)
{
    const Look before = m_store->look();
    m_editor.choose(PaletteGrid::Add, 0);
    EXPECT_TRUE(m_editor.isEditing());
    EXPECT_EQ(fieldCount(), 5);
    EXPECT_EQ(field(1).name(), QStringLiteral("Colour 2"));
    EXPECT_EQ(m_store->look(), before) << "which has these colours already";
    EXPECT_TRUE(field(4).enterHex(QStringLiteral("#123456")));
    EXPECT_EQ(m_store->look().custom->back(), 0x123456U) << "the preview shows the draft";
    m_editor.save();
    EXPECT_FALSE(m_editor.isEditing());
    EXPECT_EQ(fieldCount(), 0);
    ASSERT_THAT(m_store->customPalettes(), SizeIs(1));
    EXPECT_EQ(m_store->look().custom, m_store->customPalettes()[0]);
    EXPECT_EQ(m_editor.nameOf(0), QStringLiteral("Mine 1"));
}

TEST_F(PaletteEditorTest, HasTwoToFiveColours)
{
    savePalette({0x101010, 0x405060});
    int fieldChanges = 0;
    QObject::connect(&m_editor, &PaletteEditor::fieldsChanged, &m_editor, [&] { ++fieldChanges; });
    m_editor.edit(0);
    EXPECT_FALSE(m_editor.canRemove());
    m_editor.removeLastColor();
    for (int count = 3; count <= 5; ++count) {
        EXPECT_TRUE(m_editor.canAdd());
        m_editor.addColor();
        EXPECT_EQ(fieldCount(), count);
        EXPECT_EQ(m_editor.openIndex(), count - 1);
        EXPECT_NE(field(count - 1).value(), field(count - 2).value());
    }
    EXPECT_FALSE(m_editor.canAdd());
    m_editor.addColor();
    EXPECT_EQ(fieldChanges, 4);
    field(0).setBrightness(0.5);
    EXPECT_EQ(fieldChanges, 4) << "a colour that changes is no other field";

    m_editor.setOpenIndex(9);
    EXPECT_EQ(m_editor.openIndex(), 4);
    m_editor.removeLastColor();
    EXPECT_EQ(m_editor.openIndex(), 3);
    m_editor.save();
    EXPECT_THAT(m_store->customPalettes(), ElementsAre(SizeIs(4)));
}

TEST_F(PaletteEditorTest, OffersAnotherColourThanTheLastEvenAfterWhite)
{
    savePalette({0x000000, 0xFFFFFF});
    m_editor.edit(0);
    m_editor.addColor();
    EXPECT_NE(field(2).value(), 0xFFFFFFU);
    EXPECT_NE(field(2).value(), 0x000000U);
}

TEST_F(PaletteEditorTest, GivesUpWithoutATrace)
{
    savePalette({1, 2});
    const Look before = m_store->look();
    m_editor.edit(0);
    EXPECT_EQ(m_store->look().custom, (Stops{1, 2}));
    m_editor.addColor();
    m_editor.cancel();
    EXPECT_FALSE(m_editor.isEditing());
    EXPECT_EQ(m_store->look(), before);
    EXPECT_THAT(m_store->customPalettes(), ElementsAre(Stops{1, 2}));
    EXPECT_THAT(m_store->history(), IsEmpty());
}

TEST_F(PaletteEditorTest, EndsWhenALookComesInBetween)
{
    m_editor.create();
    field(0).setBrightness(1);
    m_store->shuffle();
    EXPECT_FALSE(m_editor.isEditing());
    EXPECT_EQ(m_store->look().custom, std::nullopt);
    // What was edited is not lost.
    m_store->undo();
    m_editor.create();
    EXPECT_EQ(field(0).brightness(), 1.0);
}

TEST_F(PaletteEditorTest, AFreshEditKeepsNothingOfTheLast)
{
    savePalette({0x2266CC, 0xFFFFFF});
    savePalette({0x000000, 0xFFFFFF});
    m_editor.edit(0);
    m_editor.edit(1);
    EXPECT_EQ(field(0).hue(), 0.0);
    EXPECT_EQ(field(0).saturation(), 0.0);
    m_editor.cancel();
    m_editor.edit(7);
    EXPECT_FALSE(m_editor.isEditing());
    // A file may hold palettes that could not be made here.
    savePalette({5});
    savePalette({1, 2, 3, 4, 5, 6, 7});
    m_editor.edit(2);
    EXPECT_EQ(fieldCount(), 2);
    m_editor.edit(3);
    EXPECT_EQ(fieldCount(), 5);
}

TEST_F(PaletteEditorTest, AsksBeforeItDeletes)
{
    for (Color stop = 1; stop <= 3; ++stop)
        savePalette({stop, stop});
    EXPECT_EQ(m_editor.deleteQuestion(1), QStringLiteral("Delete \"Mine 2\"?"));
    EXPECT_EQ(m_editor.deleteInformation(),
              QStringLiteral("Wallpapers already using these colours keep them."));
    m_editor.choose(PaletteGrid::Mine, 0);
    m_editor.remove(0);
    EXPECT_THAT(m_store->customPalettes(), ElementsAre(Stops{2, 2}, Stops{3, 3}));
    EXPECT_EQ(m_store->look().custom, (Stops{1, 1}));
}

TEST_F(PaletteEditorTest, TakesTheColoursOfAPhoto)
{
    QImage image(40, 40, QImage::Format_RGB32);
    image.fill(QColor(0xC0, 0x20, 0x20));
    for (int y = 20; y < 40; ++y)
        for (int x = 0; x < 40; ++x)
            image.setPixel(x, y, 0xFFF0E0C0);
    m_editor.create();
    m_editor.fromPhoto();
    m_choose(fileOf(image));
    EXPECT_TRUE(m_editor.isReadingPhoto());
    ASSERT_TRUE(waitUntil([&] { return !m_editor.isReadingPhoto(); }));
    EXPECT_EQ(m_store->draftStops(), (Stops{0xC02020, 0xF0E0C0}));
    EXPECT_EQ(fieldCount(), 2);

    // One that comes too late has nothing to give its colours to.
    m_editor.fromPhoto();
    m_choose(fileOf(image));
    m_editor.cancel();
    m_editor.create();
    ASSERT_TRUE(waitUntil([&] { return !m_editor.isReadingPhoto(); }));
    EXPECT_EQ(fieldCount(), 5);
    EXPECT_THAT(m_told, IsEmpty());
}

TEST_F(PaletteEditorTest, SaysWhichPhotoHasNoColours)
{
    QImage image(8, 8, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    m_editor.create();
    m_editor.fromPhoto();
    m_choose(fileOf(image));
    ASSERT_TRUE(waitUntil([&] { return m_told.size() == 2; }));
    m_editor.fromPhoto();
    m_choose(QStringLiteral("/nowhere/photo.png"));
    ASSERT_TRUE(waitUntil([&] { return m_told.size() == 4; }));
    EXPECT_EQ(m_told[0], QStringLiteral("Could not use that photo"));
    EXPECT_EQ(m_told[2], QStringLiteral("Could not use that photo"));
    EXPECT_EQ(fieldCount(), 5);
}

class PaletteGridTest : public testing::Test
{
protected:
    [[nodiscard]] QVariant data(int row, PaletteGrid::Role role) const
    {
        return m_grid.data(m_grid.index(row), role);
    }

    [[nodiscard]] std::vector<std::string> titles(int row) const
    {
        std::vector<std::string> titles;
        for (const QVariant& swatch : data(row, PaletteGrid::SwatchesRole).toList())
            titles.push_back(swatch.toMap()[QStringLiteral("title")].toString().toStdString());
        return titles;
    }

    [[nodiscard]] int selectedColumn(int row) const
    {
        return data(row, PaletteGrid::SelectedColumnRole).toInt();
    }

    TestStore m_store;
    PaletteGrid m_grid{*m_store};
};

TEST_F(PaletteGridTest, ListsYoursTheCoreAndTheFamilies)
{
    EXPECT_EQ(data(0, PaletteGrid::HeaderRole), QStringLiteral("Yours"));
    EXPECT_THAT(titles(1), ElementsAre("New palette"));
    EXPECT_EQ(data(2, PaletteGrid::KindRole), PaletteGrid::FirstCoreSwatches);
    EXPECT_THAT(titles(2), ElementsAre("Ember", "Tide", "Dusk"));
    EXPECT_EQ(data(6, PaletteGrid::HeaderRole), QStringLiteral("More palettes"));
    EXPECT_EQ(m_grid.rowCount(), 7);

    ModelLog log(m_grid);
    m_grid.setShowsMore(true);
    EXPECT_EQ(data(7, PaletteGrid::HeaderRole), QStringLiteral("Metal"));
    EXPECT_THAT(titles(8), ElementsAre("Gold", "Copper", "Gunmetal"));
    std::size_t swatches = 0;
    int families = 0;
    for (int row = 7; row < m_grid.rowCount(); ++row) {
        swatches += titles(row).size();
        families += data(row, PaletteGrid::KindRole) == PaletteGrid::Family ? 1 : 0;
    }
    EXPECT_EQ(swatches, builtInPalettes().size() - 12);
    EXPECT_EQ(families, 13);
    const int all = m_grid.rowCount();
    m_grid.setShowsMore(false);
    EXPECT_THAT(log.take(), ElementsAre("+7-" + std::to_string(all - 1), "-7-" + std::to_string(all - 1)));
}

TEST_F(PaletteGridTest, GrowsAndShrinksByTheRow)
{
    m_store->setCustomPalettes({{1, 2}, {3, 4}});
    EXPECT_THAT(titles(1), ElementsAre("Mine 1", "Mine 2", "New palette"));
    ModelLog log(m_grid);
    m_store->setCustomPalettes({{1, 2}, {3, 4}, {5, 6}});
    EXPECT_THAT(titles(1), ElementsAre("Mine 1", "Mine 2", "Mine 3"));
    EXPECT_THAT(titles(2), ElementsAre("New palette"));
    EXPECT_THAT(log.take(), ElementsAre("+2-2", "1-1 swatches"));
    m_store->setCustomPalettes({});
    EXPECT_THAT(log.take(), ElementsAre("-2-2", "1-1 swatches"));
    EXPECT_EQ(data(2, PaletteGrid::KindRole), PaletteGrid::FirstCoreSwatches);
}

TEST_F(PaletteGridTest, SelectsOneSwatchByItsColours)
{
    EXPECT_EQ(m_grid.selectedRow(), 2);
    EXPECT_EQ(selectedColumn(2), 0);
    m_store->setCustomPalettes({{1, 2}, {3, 4}, {3, 4}});
    EXPECT_EQ(m_grid.selectedRow(), 3);
    Look look;
    look.custom = {{3, 4}};
    ModelLog log(m_grid);
    m_store->setLook(look);
    EXPECT_THAT(log.take(), ElementsAre("3-3 selectedColumn", "1-1 selectedColumn"));
    EXPECT_EQ(selectedColumn(1), 1);
    EXPECT_EQ(selectedColumn(3), -1);
    look.contrast = 2;
    m_store->setLook(look);
    EXPECT_THAT(log.take(), IsEmpty());

    // One of a family shows once the families do; what wraps around the table is its beginning.
    look = {};
    look.palette = 13;
    m_store->setLook(look);
    EXPECT_EQ(m_grid.selectedRow(), -1);
    m_grid.setShowsMore(true);
    EXPECT_EQ(selectedColumn(m_grid.selectedRow()), 1);
    look.palette = 222;
    m_store->setLook(look);
    EXPECT_EQ(m_grid.selectedRow(), 3);
}

} // namespace
} // namespace tessel
