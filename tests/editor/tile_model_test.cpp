// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/look_tiles.h"
#include "support/model_log.h"
#include "support/test_store.h"

#include <gmock/gmock.h>

#include <set>

namespace tessel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TileModelTest : public testing::Test
{
protected:
    TestStore m_store;
    TileModel m_patterns{patternTiles(), patternChoice(), *m_store};
    TileModel m_dithers{ditherTiles(), ditherChoice(), *m_store};
};

TEST_F(TileModelTest, HasATileForEverything)
{
    EXPECT_EQ(m_patterns.rowCount(), 36);
    EXPECT_EQ(m_dithers.rowCount(), 10);
    EXPECT_EQ(m_patterns.data(m_patterns.index(35), TileModel::TitleRole), QStringLiteral("Neuro"));
    EXPECT_EQ(m_dithers.data(m_dithers.index(1), TileModel::TitleRole), QStringLiteral("Poster"));
    for (const TileModel* model : {&m_patterns, &m_dithers}) {
        std::set<QString> pictures;
        int selected = 0;
        for (int row = 0; row < model->rowCount(); ++row) {
            pictures.insert(model->data(model->index(row), TileModel::PictureRole).toString());
            selected += model->data(model->index(row), TileModel::SelectedRole).toInt();
        }
        EXPECT_EQ(static_cast<int>(pictures.size()), model->rowCount());
        EXPECT_EQ(selected, 1);
    }
}

TEST_F(TileModelTest, ChoosesWithHistory)
{
    ModelLog log(m_dithers);
    m_dithers.choose(8);
    EXPECT_EQ(m_store->look().dither, Dither::ascii);
    EXPECT_THAT(m_store->history(), ElementsAre(Look()));
    EXPECT_EQ(m_dithers.currentRow(), 8);
    EXPECT_THAT(log.take(), ElementsAre("3-3 selected", "8-8 selected"));
    m_dithers.choose(8);
    m_dithers.choose(10);
    m_dithers.choose(-1);
    EXPECT_THAT(log.take(), IsEmpty());
    EXPECT_EQ(m_store->history().size(), 1U);
}

TEST_F(TileModelTest, OnlyColoursMakeLivePicturesAnew)
{
    ModelLog patterns(m_patterns);
    ModelLog dithers(m_dithers);
    Look look = m_store->look();
    look.contrast = 2.0F;
    look.pixel = 4.0F;
    m_store->setLook(look);
    EXPECT_THAT(patterns.take(), IsEmpty());
    EXPECT_THAT(dithers.take(), IsEmpty());

    const QVariant before = m_patterns.data(m_patterns.index(0), TileModel::LivePictureRole);
    look.custom = {{1, 2, 3}};
    m_store->setLook(look);
    EXPECT_THAT(patterns.take(), ElementsAre("0-35 livePicture"));
    EXPECT_THAT(dithers.take(), ElementsAre("0-9 livePicture"));
    EXPECT_NE(m_patterns.data(m_patterns.index(0), TileModel::LivePictureRole), before);
    // Patterns are shown in the look's dither too.
    look.dither = Dither::noise;
    m_store->setLook(look);
    EXPECT_THAT(patterns.take(), ElementsAre("0-35 livePicture"));
    EXPECT_THAT(dithers.take(), ElementsAre("3-3 selected", "4-4 selected"));
}

} // namespace
} // namespace tessel
