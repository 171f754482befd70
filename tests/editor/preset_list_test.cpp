// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/preset_list.h"
#include "support/model_log.h"
#include "support/test_store.h"

#include <gmock/gmock.h>

namespace tessel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PresetListTest : public testing::Test
{
protected:
    [[nodiscard]] QVariant data(int row, PresetList::Role role) const
    {
        return m_list.data(m_list.index(row), role);
    }

    [[nodiscard]] QString idOf(int row) const { return data(row, PresetList::PresetIdRole).toString(); }

    [[nodiscard]] std::vector<std::string> names()
    {
        std::vector<std::string> names;
        for (int row = 0; row < m_list.rowCount(); ++row)
            names.push_back(data(row, PresetList::NameRole).toString().toStdString());
        return names;
    }

    TestStore m_store;
    PresetList m_list{*m_store};
};

TEST_F(PresetListTest, SavesTheLookAndItsMotion)
{
    EXPECT_EQ(m_list.hint(), QStringLiteral("Keeps the shape, colours, dither and every slider, ready to "
                                            "switch to from the menu bar."));
    m_list.save(QStringLiteral("  "));
    EXPECT_THAT(m_store->presets(), IsEmpty());

    Look own = lookWithSeed(4);
    own.custom = {{1, 2}};
    m_store->setLook(own);
    m_store->setMotion(false);
    EXPECT_EQ(m_list.suggestedName(), QStringLiteral("Flow Custom"));
    m_list.save(QStringLiteral(" Sunday borscht "));
    EXPECT_EQ(m_list.hint(), QStringLiteral("Right-click a preset to rename or delete it."));
    m_store.reopen();
    ASSERT_EQ(m_store->presets().size(), 1U);
    EXPECT_EQ(m_store->presets()[0].name, "Sunday borscht");
    EXPECT_EQ(m_store->presets()[0].look, own);
    EXPECT_FALSE(m_store->presets()[0].motion);
}

TEST_F(PresetListTest, ChoosingFadesToTheLookAndTakesItsMotion)
{
    m_list.save(QStringLiteral("one"));
    m_store->setMotion(false);
    m_list.choose(0);
    EXPECT_TRUE(m_store->motion()) << "of a preset whose look is there already, too";
    EXPECT_THAT(m_store->history(), IsEmpty());
    m_store->setLook(lookWithSeed(4));
    m_list.choose(0);
    EXPECT_EQ(m_store->look(), Look());
    EXPECT_THAT(m_store->history(), ElementsAre(lookWithSeed(4)));
    EXPECT_FALSE(m_store->desktop());
    m_list.choose(1);
    m_list.choose(-1);
    EXPECT_EQ(m_store->look(), Look());
}

TEST_F(PresetListTest, SelectsAllThatShowTheLook)
{
    m_list.save(QStringLiteral("one"));
    m_list.save(QStringLiteral("two"));
    ModelLog log(m_list);
    m_store->setLook(lookWithSeed(4));
    EXPECT_THAT(log.take(), ElementsAre("0-0 selected", "1-1 selected"));
    m_store->setLook(lookWithSeed(5));
    EXPECT_THAT(log.take(), IsEmpty());
    m_store->setLook(Look());
    EXPECT_TRUE(data(0, PresetList::SelectedRole).toBool());
    EXPECT_TRUE(data(1, PresetList::SelectedRole).toBool());
}

TEST_F(PresetListTest, FollowsEveryChangeWithoutStartingAnew)
{
    for (const char* name : {"one", "two", "three", "four"})
        m_list.save(QLatin1String(name));
    ModelLog log(m_list);
    const QString second = idOf(1);
    m_list.rename(second, QStringLiteral("zwei"));
    EXPECT_THAT(names(), ElementsAre("one", "zwei", "three", "four"));
    EXPECT_THAT(log.take(), ElementsAre("1-1"));
    m_list.rename(second, QString());
    EXPECT_EQ(m_list.nameOf(second), QStringLiteral("zwei"));

    m_list.remove(second);
    EXPECT_THAT(log.take(), ElementsAre("-1-1"));
    m_list.rename(second, QStringLiteral("gone"));
    m_list.remove(second);
    EXPECT_THAT(log.take(), IsEmpty());
    EXPECT_EQ(m_list.nameOf(second), QString());

    std::vector<Preset> turned = m_store->presets();
    std::swap(turned[0], turned[1]);
    m_store->setPresets(turned);
    EXPECT_THAT(names(), ElementsAre("three", "one", "four"));
    m_store->setPresets({});
    EXPECT_EQ(m_list.count(), 0);
    EXPECT_THAT(log.take(), testing::Not(testing::Contains("reset")));
}

TEST_F(PresetListTest, KeepsWhoIsSelectedWhenTheListChanges)
{
    for (int seed = 0; seed < 3; ++seed) {
        m_store->setLook(lookWithSeed(static_cast<float>(seed)));
        m_list.save(QString::number(seed));
    }
    m_list.remove(idOf(0));
    EXPECT_FALSE(data(0, PresetList::SelectedRole).toBool());
    EXPECT_TRUE(data(1, PresetList::SelectedRole).toBool());
}

} // namespace
} // namespace tessel
