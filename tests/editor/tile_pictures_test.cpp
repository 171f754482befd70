// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/look_pictures.h"
#include "editor/look_tiles.h"
#include "render/geometry.h"
#include "support/drawing_test.h"
#include "support/surroundings.h"
#include "support/test_store.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickTextureFactory>

#include <algorithm>
#include <atomic>
#include <memory>

namespace tessel {
namespace {

/// A picture that was asked for as QML asks.
class Asked
{
public:
    Asked(LookPictures& pictures, const QString& address, QSize size)
        : m_response(pictures.request(address.section(QLatin1Char('/'), 3), size))
    {
        QObject::connect(m_response.get(), &QQuickImageResponse::finished, m_response.get(),
                         [this] { m_isFinished = true; });
    }

    [[nodiscard]] bool isFinished() const { return m_isFinished; }
    /// It deletes itself then.
    void cancel() { m_response.release()->cancel(); }

    [[nodiscard]] QImage image() const
    {
        const std::unique_ptr<QQuickTextureFactory> factory(m_response->textureFactory());
        return factory ? factory->image() : QImage();
    }
    [[nodiscard]] QString failure() const { return m_response->errorString(); }

private:
    std::unique_ptr<QQuickImageResponse> m_response;
    bool m_isFinished = false;
};

class TilePicturesTest : public DrawingTest
{
protected:
    /// What is drawn for an address.
    [[nodiscard]] QImage imageOf(const QString& address, QSize size)
    {
        const Asked asked(m_pictures, address, size);
        EXPECT_TRUE(waitUntil([&] { return asked.isFinished(); }));
        EXPECT_EQ(asked.failure(), QString());
        return asked.image();
    }

    LookPictures m_pictures;
};

/// Whether a picture consists of squares with this side, but for the last in a row or column.
bool hasCells(const QImage& image, int side)
{
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) != image.pixel(x / side * side, y / side * side))
                return false;
    return true;
}

TEST_F(TilePicturesTest, CellsAreAsLargeAsTheTileNeedsAtEveryScale)
{
    const std::vector<Tile> patterns = patternTiles();
    const std::vector<Tile> dithers = ditherTiles();
    for (const int scale : {1, 2}) {
        const QImage flow = imageOf(pictureOfLook(patterns[0].atRest), QSize(66, 44) * scale);
        EXPECT_EQ(flow.size(), QSize(66, 44) * scale);
        EXPECT_TRUE(hasCells(flow, scale));
        EXPECT_FALSE(hasCells(flow, scale * 2));
        const QImage bayer4 = imageOf(pictureOfLook(dithers[2].atRest), QSize(140, 32) * scale);
        const QImage bayer8 = imageOf(pictureOfLook(dithers[3].atRest), QSize(140, 32) * scale);
        EXPECT_TRUE(hasCells(bayer4, scale * 3));
        EXPECT_TRUE(hasCells(bayer8, scale * 2));
        EXPECT_FALSE(hasCells(bayer8, scale * 3)) << "or the two could not be told apart";
    }
}

TEST_F(TilePicturesTest, DrawsWhatTheEncoderDraws)
{
    Look look = lookWithSeed(7);
    look.pattern = Pattern::swell;
    const QImage image = imageOf(pictureOfLook(look), {141, 80});
    const auto expected = graphics.draw(
        {.previous = look, .current = look, .width = 141, .height = 80, .reference = thumbReference});
    for (int y = 0; y < 80; ++y)
        for (int x = 0; x < 141; ++x)
            ASSERT_EQ(image.pixel(x, y) & RGB_MASK, colorOf(expected->row(y)[static_cast<std::size_t>(x)]));
}

TEST_F(TilePicturesTest, ShowsSomethingForAPhotoThatIsGone)
{
    Look look;
    look.pattern = Pattern::image;
    look.imagePath = "/nowhere/photo.jpg";
    EXPECT_FALSE(hasCells(imageOf(pictureOfLook(look), {66, 44}), 66));
}

TEST_F(TilePicturesTest, RefusesWhatIsNoLook)
{
    for (const char* address : {"image://looks/", "image://looks/e30", "image://looks/%%%"}) {
        const Asked asked(m_pictures, QLatin1String(address), {66, 44});
        ASSERT_TRUE(waitUntil([&] { return asked.isFinished(); }));
        // "e30" is the look that has every default.
        EXPECT_EQ(asked.image().isNull(), !asked.failure().isEmpty());
        EXPECT_EQ(asked.failure().isEmpty(), QByteArray(address).endsWith("e30"));
    }
}

TEST_F(TilePicturesTest, EndsInPeaceWithPicturesUnderWay)
{
    auto pictures = std::make_unique<LookPictures>();
    std::vector<std::unique_ptr<Asked>> asked;
    for (const Tile& tile : patternTiles())
        asked.push_back(std::make_unique<Asked>(*pictures, pictureOfLook(tile.atRest), QSize(66, 44)));
    for (std::size_t place = 0; place + 1 < asked.size(); ++place)
        asked[place]->cancel();
    EXPECT_TRUE(waitUntil([&] {
        return std::ranges::all_of(asked, [](const auto& each) { return each->isFinished(); });
    })) << "those that are cancelled too";
    EXPECT_FALSE(asked.back()->image().isNull());
    pictures->release();
    const Asked again(*pictures, pictureOfLook({}), {66, 44});
    ASSERT_TRUE(waitUntil([&] { return again.isFinished(); }));
    EXPECT_FALSE(again.image().isNull());
    for (const Tile& tile : patternTiles())
        asked.push_back(std::make_unique<Asked>(*pictures, pictureOfLook(tile.atRest), QSize(66, 44)));
    asked.resize(asked.size() - 10); // QML has lost interest
    pictures.reset();
    QCoreApplication::processEvents();
}

/// Counts the responses that an engine is given and has not deleted.
class CountingProvider : public QQuickAsyncImageProvider
{
public:
    CountingProvider(LookPictures& pictures, std::atomic<int>& given, std::atomic<int>& left)
        : m_pictures(pictures)
        , m_given(given)
        , m_left(left)
    {
    }

    QQuickImageResponse* requestImageResponse(const QString& id, const QSize& requestedSize) override
    {
        QQuickImageResponse* response = m_pictures.request(id, requestedSize);
        ++m_left;
        QObject::connect(response, &QObject::destroyed, [&left = m_left] { --left; });
        ++m_given;
        return response;
    }

private:
    LookPictures& m_pictures;
    std::atomic<int>& m_given;
    std::atomic<int>& m_left;
};

TEST_F(TilePicturesTest, AnEngineThatEndsLeavesNoneBehind)
{
    std::atomic<int> given = 0;
    std::atomic<int> left = 0;
    {
        QQmlEngine engine;
        engine.addImageProvider(QStringLiteral("looks"), new CountingProvider(m_pictures, given, left));
        QQmlComponent component(&engine);
        component.setData("import QtQuick\nItem { property var all: []\n"
                          "Repeater { model: all; Image { source: modelData; sourceSize: \"2000x2000\" } } }",
                          QUrl());
        const std::unique_ptr<QObject> item(component.create());
        ASSERT_NE(item, nullptr) << component.errorString().toStdString();
        QStringList addresses;
        for (const Tile& tile : patternTiles())
            addresses << pictureOfLook(tile.atRest);
        item->setProperty("all", addresses);
        EXPECT_TRUE(waitUntil([&] { return given > 5; }));
    }
    EXPECT_EQ(left, 0);
}

} // namespace
} // namespace tessel
