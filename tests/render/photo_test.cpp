// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "render/photo.h"
#include "render/photo_cache.h"
#include "support/drawing_test.h"

#include <QBuffer>
#include <QFile>
#include <libdeflate.h>

#include <algorithm>
#include <array>

namespace tessel {
namespace {

class PhotoFile : public DrawingTest
{
protected:
    QTemporaryDir folder;

    std::string write(const QString& name, const QByteArray& content)
    {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(content), content.size());
        return file.fileName().toStdString();
    }

    std::string save(const QString& name, const QImage& image)
    {
        EXPECT_TRUE(image.save(folder.filePath(name)));
        return folder.filePath(name).toStdString();
    }

    static std::string problemWith(const std::string& path)
    {
        try {
            (void)readPhoto(path, 2048);
        } catch (const PhotoError& error) {
            return error.what();
        }
        return {};
    }
};

QByteArray encoded(const QImage& image, const char* format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

/// A PNG whose header promises this size; the pixels never come.
QByteArray pngPromising(std::uint32_t width, std::uint32_t height)
{
    QByteArray bytes = encoded(QImage(1, 1, QImage::Format_RGB32), "PNG");
    for (int i = 0; i < 4; ++i) {
        bytes[16 + i] = static_cast<char>(width >> (24 - 8 * i));
        bytes[20 + i] = static_cast<char>(height >> (24 - 8 * i));
    }
    const std::uint32_t crc = libdeflate_crc32(0, bytes.constData() + 12, 17);
    for (int i = 0; i < 4; ++i)
        bytes[29 + i] = static_cast<char>(crc >> (24 - 8 * i));
    return bytes;
}

TEST_F(PhotoFile, IsScaledDownWhileItIsRead)
{
    QImage large(3000, 1000, QImage::Format_RGB32);
    large.fill(Qt::white);
    EXPECT_EQ(readPhoto(save(QStringLiteral("a.jpg"), large), 2048).size(), QSize(2048, 682));
    EXPECT_EQ(readPhoto(save(QStringLiteral("b.png"), large), 3024).size(), QSize(3000, 1000));
}

/// A JPEG whose EXIF data say that it has to be turned by 90 degrees to stand upright.
QByteArray turnedJpeg(const QImage& image)
{
    static constexpr unsigned char exif[] = {0xFF, 0xE1, 0x00, 0x22, 'E',  'x',  'i',  'f',  0x00,
                                             0x00, 'M',  'M',  0x00, 0x2A, 0x00, 0x00, 0x00, 0x08,
                                             0x00, 0x01, 0x01, 0x12, 0x00, 0x03, 0x00, 0x00, 0x00,
                                             0x01, 0x00, 0x06, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00};
    return encoded(image, "JPG").insert(2, QByteArray(reinterpret_cast<const char*>(exif), sizeof exif));
}

TEST_F(PhotoFile, IsTurnedUprightByItsOrientation)
{
    QImage wide(64, 32, QImage::Format_RGB32);
    wide.fill(Qt::black);
    for (int y = 0; y < 32; ++y)
        std::fill_n(reinterpret_cast<QRgb*>(wide.scanLine(y)), 16, 0xFFFFFFFF);
    const QImage upright = readPhoto(write(QStringLiteral("turned.jpg"), turnedJpeg(wide)), 2048);
    EXPECT_EQ(upright.size(), QSize(32, 64));
    EXPECT_GT(qGray(upright.pixel(16, 4)), 200) << "the left of the stored picture is its top";
    EXPECT_LT(qGray(upright.pixel(16, 60)), 50);
}

/// A ramp of greys from `low` to `high`, from left to right.
QImage ramp(int low, int high)
{
    QImage image(256, 16, QImage::Format_Grayscale8);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.scanLine(y)[x] = static_cast<uchar>(low + (high - low) * x / 255);
    return image;
}

TEST_F(PhotoFile, IsSpreadOverTheRangeWhereItIsFlat)
{
    const auto ends = [this](int low, int high) {
        const QImage photo = readPhoto(save(QStringLiteral("ramp.png"), ramp(low, high)), 2048);
        return std::pair(qGray(photo.pixel(2, 8)), qGray(photo.pixel(253, 8)));
    };
    EXPECT_EQ(ends(0, 255), std::pair(2, 253)) << "a photo that has the whole range is left alone";
    const auto [dark, light] = ends(90, 170);
    EXPECT_LT(dark, 15);
    EXPECT_GT(light, 240);
    // Next to nothing is not blown up to noise, and stays where it was.
    EXPECT_EQ(ends(100, 100), std::pair(100, 100));
    const auto [low, high] = ends(240, 244);
    EXPECT_LE(high - low, 16);
    EXPECT_GT(low, 225);
}

TEST_F(PhotoFile, SaysWhatIsWrongWithIt)
{
    const QByteArray png = encoded(QImage(300, 200, QImage::Format_RGB32), "PNG");
    EXPECT_EQ(problemWith("/nonexistent/photo.jpg"), "there is no such file");
    EXPECT_EQ(problemWith(folder.path().toStdString()), "it is a folder, not a picture");
    EXPECT_EQ(problemWith("/dev/zero"), "it is not an ordinary file");
    EXPECT_FALSE(problemWith(write(QStringLiteral("text.jpg"), "not a picture")).empty());
    EXPECT_FALSE(problemWith(write(QStringLiteral("empty.png"), {})).empty());
    EXPECT_FALSE(problemWith(write(QStringLiteral("cut.png"), png.left(60))).empty());
    EXPECT_TRUE(problemWith(write(QStringLiteral("whole.png"), png)).empty());
}

TEST_F(PhotoFile, ThatUnpacksToGigabytesIsRefused)
{
    EXPECT_FALSE(problemWith(write(QStringLiteral("bomb.png"), pngPromising(60'000, 60'000))).empty());
}

TEST_F(PhotoFile, ThatCannotBeReadIsNotTriedAgain)
{
    PhotoCache cache;
    const std::string path = folder.filePath(QStringLiteral("late.png")).toStdString();
    EXPECT_EQ(cache.find(path), nullptr);
    EXPECT_EQ(cache.problem(path), "there is no such file");
    save(QStringLiteral("late.png"), QImage(8, 8, QImage::Format_RGB32));
    EXPECT_EQ(cache.find(path), nullptr);
    EXPECT_EQ(cache.find(std::nullopt), nullptr);
}

TEST_F(PhotoFile, StaysLoadedUntilThreeOthersWereShown)
{
    PhotoCache cache;
    std::array<std::string, 4> paths;
    for (std::size_t i = 0; i < paths.size(); ++i)
        paths[i] = save(QStringLiteral("%1.png").arg(i), QImage(8, 8, QImage::Format_RGB32));
    const Photo* first = cache.find(paths[0]).get();
    EXPECT_NE(cache.find(paths[1]), nullptr);
    EXPECT_NE(cache.find(paths[2]), nullptr);
    EXPECT_EQ(cache.find(paths[0]).get(), first);
    const std::weak_ptr<const Photo> oldest = cache.find(paths[0]);
    EXPECT_NE(cache.find(paths[3]), nullptr);
    EXPECT_TRUE(oldest.expired());
}

TEST_F(PhotoFile, CoversThePictureFromItsMiddle)
{
    // Three bands; a square picture of a wide photo shows the middle one only.
    QImage bands(300, 100, QImage::Format_Grayscale8);
    for (int y = 0; y < 100; ++y)
        for (int x = 0; x < 300; ++x)
            bands.scanLine(y)[x] = x >= 100 && x < 200 ? 255 : 0;
    Look look = photoLook(bands);
    look.dither = Dither::posterize;
    look.custom = {0x000000, 0xFFFFFF};
    const Picture square = draw(look, 90, 90);
    EXPECT_EQ(square.row(45)[3] & 0xFFU, 255U);
    EXPECT_EQ(square.row(45)[86] & 0xFFU, 255U);
    const Picture wide = draw(look, 300, 100);
    EXPECT_EQ(wide.row(50)[90] & 0xFFU, 0U);
    EXPECT_EQ(wide.row(50)[110] & 0xFFU, 255U);
    look.scale = 3.0F;
    const Picture zoomed = draw(look, 300, 100);
    EXPECT_EQ(zoomed.row(50)[10] & 0xFFU, 255U);
}

} // namespace
} // namespace tessel
