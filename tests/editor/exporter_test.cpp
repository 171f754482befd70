// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/exporter.h"
#include "model/look_json.h"
#include "render/png_file.h"
#include "scene/animation_clocks.h"
#include "support/fake_desktop.h"
#include "support/file_size_limit.h"
#include "support/test_store.h"

#include <QFile>
#include <QFileInfo>
#include <gmock/gmock.h>

namespace tessel {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class ExporterTest : public DrawingTest
{
protected:
    ExporterTest()
    {
        QObject::connect(&m_exporter, &Exporter::told, &m_exporter,
                         [this](const QString& title, const QString& text) {
                             EXPECT_EQ(title, QStringLiteral("Could not save that PNG"));
                             m_told.push_back(text.toStdString());
                         });
        QObject::connect(&m_exporter, &Exporter::progressChanged, &m_exporter,
                         [this] { m_progress.push_back(m_exporter.progress()); });
    }

    [[nodiscard]] QString path(const char* name) const
    {
        return m_store.folder() + QLatin1Char('/') + QLatin1String(name);
    }

    void save(int item, const QString& file)
    {
        m_exporter.exportItem(item);
        m_choose(file);
    }

    [[nodiscard]] bool waitForAll()
    {
        return waitUntil([this] { return !m_exporter.isBusy(); });
    }

    TestStore m_store;
    FakeScreens m_screens;
    AnimationClocks m_clocks;
    QString m_proposed;
    std::function<void(const QString&)> m_choose; ///< what the open file dialog would call
    EditorServices m_services{.choosePngFile = [this](const QString& name, const auto& chosen) {
        m_proposed = name;
        m_choose = chosen;
    }};
    Exporter m_exporter{*m_store, m_screens, m_clocks, graphics, m_services};
    std::vector<std::string> m_told;
    std::vector<double> m_progress;
};

TEST_F(ExporterTest, OffersTheDisplayAndFixedSizes)
{
    m_screens.set({{QStringLiteral("ONE"), QRect(0, 0, 320, 200), 1.5}});
    EXPECT_EQ(
        m_exporter.items(),
        QStringList({QStringLiteral("This display  ·  480 × 300"), QStringLiteral("6K  ·  6016 × 3384"),
                     QStringLiteral("iPhone  ·  1320 × 2868"), QStringLiteral("Square  ·  2048 × 2048")}));
    m_screens.set({});
    EXPECT_EQ(m_exporter.items()[0], QStringLiteral("This display  ·  3024 × 1964"));
}

TEST_F(ExporterTest, SavesTheLookOfTheMomentItWasAskedFor)
{
    m_screens.set({{QStringLiteral("ONE"), QRect(0, 0, 320, 200), 1.0}});
    m_clocks.setPhase(Source::editor, 3.0);
    const Look look = m_store->look();
    m_exporter.exportItem(0);
    EXPECT_EQ(m_proposed, QStringLiteral("Tessel Broth Flow 320x200.png"));
    m_store->setLook(lookWithSeed(99));
    m_choose(path("bowl"));
    EXPECT_EQ(m_exporter.title(), QStringLiteral("Saving This display"));
    ASSERT_TRUE(waitForAll());
    EXPECT_EQ(m_exporter.title(), QString());
    EXPECT_EQ(readLookText(path("bowl.png").toStdString()), encodeLook(look));
    EXPECT_EQ(countSame(QImage(path("bowl.png")), draw(look, 320, 200, 3.0)), 320 * 200);
    m_exporter.exportItem(4);
    m_exporter.exportItem(-1);
    EXPECT_THAT(m_told, IsEmpty());
}

TEST_F(ExporterTest, TellsTheProgressOfTwoAtOnce)
{
    save(3, path("one.PNG"));
    save(3, path("two.png"));
    EXPECT_EQ(m_exporter.title(), QStringLiteral("Saving 2 pictures"));
    ASSERT_TRUE(waitForAll());
    EXPECT_EQ(QImage(path("one.PNG")).size(), QSize(2048, 2048));
    EXPECT_EQ(QImage(path("two.png")).size(), QSize(2048, 2048));
    ASSERT_GT(m_progress.size(), 4U);
    m_progress.pop_back(); // nothing is under way then
    EXPECT_TRUE(std::ranges::is_sorted(m_progress));
    EXPECT_GT(m_progress.back(), 0.5);
    EXPECT_LT(m_progress.back(), 1.0);
    EXPECT_THAT(m_told, IsEmpty());
}

TEST_F(ExporterTest, GivesUpWithoutTouchingOldFiles)
{
    QFile old(path("one.png"));
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("old");
    old.close();
    save(1, path("one.png"));
    save(1, path("two.png"));
    ASSERT_TRUE(waitUntil([&] { return m_exporter.progress() > 0; }));
    m_exporter.cancel();
    EXPECT_FALSE(m_exporter.isBusy());
    // What is saved after it shows that nothing is left to be done for those.
    save(3, path("three.png"));
    ASSERT_TRUE(waitForAll());
    EXPECT_TRUE(QFileInfo::exists(path("three.png")));
    EXPECT_EQ(QFileInfo(path("one.png")).size(), 3);
    EXPECT_FALSE(QFileInfo::exists(path("two.png")));
    EXPECT_THAT(m_told, IsEmpty());
}

TEST_F(ExporterTest, SaysWhyAPictureCannotBeSaved)
{
    m_screens.set({{QStringLiteral("WALL"), QRect(0, 0, 1000000, 100), 1.0}});
    save(0, path("large.png"));
    ASSERT_TRUE(waitForAll());
    ASSERT_THAT(m_told, SizeIs(1));
    EXPECT_EQ(m_told[0], "The 1000000x100 image could not be rendered. Try a smaller size.");
    m_screens.set({{QStringLiteral("ONE"), QRect(0, 0, 320, 200), 1.0}});
    {
        const FileSizeLimit full(100);
        save(0, path("full.png"));
        ASSERT_TRUE(waitForAll());
    }
    save(0, path("nowhere/bowl.png"));
    ASSERT_TRUE(waitForAll());
    ASSERT_THAT(m_told, SizeIs(3));
    EXPECT_THAT(m_told[1], HasSubstr("full.png"));
    EXPECT_THAT(m_told[2], HasSubstr("nowhere/bowl.png"));
    EXPECT_FALSE(QFileInfo::exists(path("full.png")));
}

TEST_F(ExporterTest, ReplacesNothingUnasked)
{
    QFile file(path("bowl.jpg.png"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    save(0, path("bowl.jpg"));
    EXPECT_FALSE(m_exporter.isBusy());
    ASSERT_THAT(m_told, SizeIs(1));
    EXPECT_THAT(m_told[0], HasSubstr("bowl.jpg.png"));
}

TEST_F(ExporterTest, HasAPictureToDrag)
{
    m_screens.set({{QStringLiteral("ONE"), QRect(0, 0, 320, 200), 1.0}});
    m_exporter.prepareDrag();
    EXPECT_TRUE(m_exporter.dragUrl().isEmpty());
    ASSERT_TRUE(waitUntil([&] { return !m_exporter.dragUrl().isEmpty(); }));
    const QString first = m_exporter.dragUrl().toLocalFile();
    EXPECT_EQ(QFileInfo(first).fileName(), QStringLiteral("Tessel Broth Flow 320x200.png"));
    EXPECT_EQ(readLookText(first.toStdString()), encodeLook(Look()));
    m_exporter.prepareDrag();
    EXPECT_FALSE(m_exporter.dragUrl().isEmpty()) << "it is there already";
    m_store->setLook(lookWithSeed(3));
    m_exporter.prepareDrag();
    ASSERT_TRUE(waitUntil([&] { return !m_exporter.dragUrl().isEmpty(); }));
    EXPECT_EQ(readLookText(m_exporter.dragUrl().toLocalFile().toStdString()), encodeLook(lookWithSeed(3)));
    EXPECT_FALSE(m_exporter.isBusy());
}

} // namespace
} // namespace tessel
