// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/photo_palette.h"
#include "model/oklab.h"
#include "render/photo.h"

#include <QImage>
#include <QPainter>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <gmock/gmock.h>

#include <algorithm>

namespace tessel {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::Ge;
using testing::IsEmpty;
using testing::Le;
using testing::SizeIs;

constexpr QRect frame{0, 0, 320, 240};

/// A picture that is painted, with the grain of a camera over it.
template<typename Paint>
QImage photo(Paint paint)
{
    QImage image(frame.size(), QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setPen(Qt::NoPen);
    paint(painter);
    painter.end();
    QRandomGenerator random(7);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            const auto noisy = [&](int channel) {
                return std::clamp(channel + random.bounded(-6, 7), 0, 255);
            };
            image.setPixelColor(x, y, {noisy(color.red()), noisy(color.green()), noisy(color.blue())});
        }
    return image;
}

void fill(QPainter& painter, const QRect& rect, const QColor& color)
{
    painter.fillRect(rect, color);
}

/// How far the nearest colour is from what a person would name.
double missing(const std::vector<Color>& colors, Color named)
{
    double nearest = 1;
    for (const Color color : colors)
        nearest = std::min(nearest, distance(toOklab(color), toOklab(named)));
    return nearest;
}

void expectPalette(const QImage& image, const std::vector<Color>& named)
{
    const std::vector<Color> colors = paletteOf(image);
    std::string text;
    for (const Color color : colors)
        text += QString::asprintf("%06X ", color).toStdString();
    EXPECT_THAT(colors, SizeIs(AllOf(Ge(2), Le(5))));
    EXPECT_TRUE(std::ranges::is_sorted(colors, {}, [](Color color) { return toOklab(color).lightness; }))
        << text;
    for (const Color each : named)
        EXPECT_LT(missing(colors, each), 0.08)
            << QString::asprintf("%06X", each).toStdString() << " in " << text;
}

TEST(PhotoPaletteTest, NamesTheColoursOfVeryDifferentPhotos)
{
    // A red poppy, small in a green meadow under a pale sky.
    expectPalette(photo([](QPainter& painter) {
                      fill(painter, frame, QColor(0x3E, 0x7A, 0x32));
                      fill(painter, {0, 0, 320, 90}, QColor(0xBF, 0xDD, 0xF2));
                      painter.setBrush(QColor(0xD8, 0x1E, 0x1E));
                      painter.drawEllipse(150, 140, 40, 36);
                  }),
                  {0x3E7A32, 0xBFDDF2, 0xD81E1E});
    // A sunset, orange into violet, above black hills.
    expectPalette(photo([](QPainter& painter) {
                      QLinearGradient sky(0, 0, 0, 180);
                      sky.setColorAt(0, QColor(0x3A, 0x1C, 0x5A));
                      sky.setColorAt(0.6, QColor(0xD8, 0x4B, 0x3A));
                      sky.setColorAt(1, QColor(0xFF, 0xC0, 0x60));
                      fill(painter, frame, Qt::black);
                      painter.fillRect(QRect(0, 0, 320, 180), sky);
                  }),
                  {0x050505, 0xD84B3A});
    // The sea and a beach.
    expectPalette(photo([](QPainter& painter) {
                      fill(painter, {0, 0, 320, 100}, QColor(0x6E, 0xB5, 0xE8));
                      fill(painter, {0, 100, 320, 60}, QColor(0x0E, 0x4F, 0x7A));
                      fill(painter, {0, 160, 320, 80}, QColor(0xE6, 0xCF, 0xA0));
                  }),
                  {0x0E4F7A, 0x6EB5E8, 0xE6CFA0});
    // An old print in black and white.
    expectPalette(photo([](QPainter& painter) {
                      QLinearGradient light(0, 0, 320, 0);
                      light.setColorAt(0, Qt::black);
                      light.setColorAt(1, Qt::white);
                      painter.fillRect(frame, light);
                  }),
                  {0x808080});
    // Signs at night, six colours for five places.
    expectPalette(photo([](QPainter& painter) {
                      fill(painter, frame, QColor(0x06, 0x06, 0x12));
                      fill(painter, {20, 40, 90, 30}, QColor(0xFF, 0x2D, 0x95));
                      fill(painter, {150, 30, 60, 60}, QColor(0x00, 0xE5, 0xFF));
                      fill(painter, {240, 60, 60, 90}, QColor(0xFF, 0xE6, 0x00));
                  }),
                  {0x060612, 0xFF2D95, 0x00E5FF, 0xFFE600});
}

TEST(PhotoPaletteTest, OneColourGetsAShadeOfIt)
{
    QImage flat(64, 64, QImage::Format_RGB32);
    flat.fill(QColor(0xE0, 0x60, 0x30));
    const std::vector<Color> warm = paletteOf(flat);
    ASSERT_THAT(warm, SizeIs(2));
    EXPECT_EQ(warm[1], 0xE06030U);
    flat.fill(Qt::black);
    const std::vector<Color> black = paletteOf(flat);
    ASSERT_THAT(black, SizeIs(2));
    EXPECT_EQ(black[0], 0x000000U);
    EXPECT_GT(distance(toOklab(black[0]), toOklab(black[1])), 0.3);
}

TEST(PhotoPaletteTest, WhatIsNotSeenHasNoColour)
{
    QImage image(64, 64, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    EXPECT_THAT(paletteOf(image), IsEmpty());
    EXPECT_THAT(paletteOf(QImage()), IsEmpty());
    // Behind transparency there may be any colour.
    image.fill(QColor(0, 255, 0, 0));
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(8, 8, 20, 20, QColor(0x20, 0x30, 0xA0));
    painter.fillRect(40, 8, 20, 20, QColor(0xF0, 0xF0, 0xF0));
    painter.end();
    EXPECT_THAT(paletteOf(image), ElementsAre(0x2030A0, 0xF0F0F0));
}

TEST(PhotoPaletteTest, ReadsFilesAndSaysWhatIsNone)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("large.jpg"));
    QImage image(3000, 2000, QImage::Format_RGB32);
    image.fill(QColor(0x20, 0x30, 0xA0));
    ASSERT_TRUE(image.save(file, "JPG", 95));
    const std::vector<Color> colors = paletteOfFile(file);
    ASSERT_THAT(colors, SizeIs(2));
    EXPECT_LT(missing(colors, 0x2030A0), 0.02);
    EXPECT_THROW(static_cast<void>(paletteOfFile(folder.path())), PhotoError);
}

} // namespace
} // namespace tessel
