// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/drawing_test.h"

#include <array>
#include <memory>

namespace tessel {

namespace {

struct Shared
{
    QGuiApplication application;
    Graphics graphics;
};

Shared& shared()
{
    static int count = 1;
    static std::array<char, 6> name{"tests"};
    static std::array<char*, 2> arguments{name.data(), nullptr};
    // Never destroyed: the driver may be unloaded before static destructors run.
    static auto* instance =
        new Shared{{count, arguments.data()}, Graphics([] { return std::make_unique<HeadlessContext>(); })};
    return *instance;
}

} // namespace

DrawingTest::DrawingTest() : graphics(shared().graphics), encoder(graphics.encoder()) {}

Picture DrawingTest::draw(const Look& look, int width, int height, double time)
{
    auto picture = renderStill(
        encoder, {.previous = look, .current = look, .width = width, .height = height, .time = time});
    if (!picture)
        throw std::runtime_error("the picture could not be drawn");
    return std::move(*picture);
}

Look DrawingTest::photoLook(const QImage& photo)
{
    static int number = 0;
    const QString path = m_folder.filePath(QStringLiteral("photo%1.png").arg(++number));
    if (!photo.save(path))
        throw std::runtime_error("the photo could not be saved");
    Look look;
    look.pattern = Pattern::image;
    look.imagePath = path.toStdString();
    look.warp = 0.0F;
    look.contrast = 1.0F;
    look.grain = 0.0F;
    look.vignette = 0.0F;
    return look;
}

Look DrawingTest::greyLook(uint grey)
{
    QImage photo(8, 8, QImage::Format_Grayscale8);
    photo.fill(grey);
    return photoLook(photo);
}

Look DrawingTest::rampLook()
{
    QImage ramp(512, 288, QImage::Format_Grayscale8);
    for (int y = 0; y < ramp.height(); ++y)
        for (int x = 0; x < ramp.width(); ++x)
            ramp.scanLine(y)[x] = static_cast<uchar>(x / 2);
    return photoLook(ramp);
}

} // namespace tessel
