// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/page.h"
#include "controls/shape_images.h"
#include "controls/surroundings.h"
#include "controls/symbol_images.h"

#include <QDirIterator>
#include <QFontMetricsF>
#include <QRawFont>
#include <gtest/gtest.h>

namespace tessel {
namespace {

TEST(Images, EverySymbolIsDrawnInItsColourAndSize)
{
    SymbolImages symbols;
    QDirIterator files(QStringLiteral(":/symbols"));
    int count = 0;
    while (files.hasNext()) {
        files.next();
        QSize size;
        const QImage image = symbols.requestImage(
            files.fileInfo().completeBaseName() + QStringLiteral("/1.75/80ff0000"), &size, QSize(40, 40));
        ASSERT_EQ(image.size(), QSize(40, 40)) << files.fileName().toStdString();
        int inked = 0;
        for (int y = 0; y < 40; ++y) {
            for (int x = 0; x < 40; ++x) {
                const QRgb pixel = image.pixel(x, y);
                EXPECT_LE(qAlpha(pixel), 0x80);
                EXPECT_EQ(qGreen(pixel), 0);
                inked += qAlpha(pixel) == 0x80 ? 1 : 0;
            }
        }
        EXPECT_GT(inked, 20) << files.fileName().toStdString();
        ++count;
    }
    EXPECT_GE(count, 17);
}

// What comes from QML is text; none of it may bring the program down.
TEST(Images, NonsenseIsNoPicture)
{
    ShapeImages shapes;
    SymbolImages symbols;
    QSize size;
    for (const char* id :
         {"", "even", "even//4x4/1", "even/ff0000/0x4/1", "even/ff0000/4x/1", "even/ff0000/4x4/0",
          "even/ff0000/4x4/nan", "even/ff0000/99999x4/1", "none/ff0000/4x4/1", "even/-/4x4/1"})
        EXPECT_TRUE(shapes.requestImage(QString::fromLatin1(id), &size, {}).isNull()) << id;
    EXPECT_TRUE(symbols.requestImage(QStringLiteral("nothing/2/ffffff"), &size, QSize(4, 4)).isNull());
}

TEST(Images, TypefacesHaveTheirWeights)
{
    const Surroundings& surroundings = Surroundings::instance();
    EXPECT_EQ(surroundings.textFamily(), QStringLiteral("Inter"));
    EXPECT_EQ(surroundings.displayFamily(), QStringLiteral("Modak"));
    double before = 0;
    for (const QFont::Weight weight : {QFont::Normal, QFont::Medium, QFont::DemiBold}) {
        QFont font(surroundings.textFamily());
        font.setPixelSize(100);
        font.setWeight(weight);
        const QRawFont raw = QRawFont::fromFont(font);
        EXPECT_EQ(raw.weight(), static_cast<int>(weight));
        // A made-up weight would have the widths of the regular one.
        const double width = QFontMetricsF(font).horizontalAdvance(QStringLiteral("Shuffle draft"));
        EXPECT_GT(width, before);
        before = width;
    }
}

// At 125 %, which the tests run at, and at an odd place shapes still lie on whole pixels: no pixel is a
// mixture.
TEST(Images, ShapesAreNotBlurred)
{
    Page page(R"(
        Rectangle { anchors.fill: parent; color: "blue" }
        Item {
            Stepped { x: 9; y: 7; width: 61; height: 43; radius: 6; color: "red"; hairline: "white" }
            Stepped { x: 81; y: 7; width: 61; height: 43; radius: 6; part: Stepped.Hairline; hairline: "white" }
            Stepped { x: 151; y: 7; width: 61; height: 43; radius: 6; part: Stepped.Frame; color: "red" }
        })");
    const QImage picture = page.window().grabWindow().convertToFormat(QImage::Format_RGB32);
    const QList<QRgb> known = {qRgb(255, 0, 0), qRgb(0, 0, 255), qRgb(255, 255, 255)};
    int strange = 0;
    for (int y = 0; y < 100; ++y)
        for (int x = 0; x < 300; ++x)
            strange += known.contains(picture.pixel(x, y)) ? 0 : 1;
    EXPECT_EQ(strange, 0);
    EXPECT_EQ(picture.pixel(50, 35), qRgb(255, 0, 0));
    EXPECT_EQ(picture.pixel(140, 35), qRgb(0, 0, 255));
    EXPECT_EQ(picture.pixel(190, 10), qRgb(255, 0, 0));
}

} // namespace
} // namespace tessel
