// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/drawing_test.h"

#include <array>
#include <memory>

namespace tessel {

namespace {

/// Qt's application where the program has none of its own. Never destroyed, nor is what draws: the driver may
/// be unloaded before static destructors run.
void makeApplication()
{
    static int count = 1;
    static std::array<char, 6> name{"tests"};
    static std::array<char*, 2> arguments{name.data(), nullptr};
    if (QCoreApplication::instance() == nullptr)
        static_cast<void>(new QGuiApplication(count, arguments.data()));
}

Graphics& sharedGraphics()
{
    static auto* graphics = [] {
        makeApplication();
        return new Graphics([] { return std::make_unique<HeadlessContext>(); });
    }();
    return *graphics;
}

} // namespace

DrawingTest::DrawingTest() : graphics(sharedGraphics()), encoder(graphics.encoder()) {}

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
