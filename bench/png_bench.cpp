// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// How long it takes to write a 6K picture as a PNG file, and how large the file is, next to QImage::save()
// and to plain 24-bit libpng with the same picture. The three take turns, and the medians of the rounds are
// compared.

#include "render/png_file.h"
#include "render/stopwatch.h"

#include <QImage>
#include <QTemporaryDir>
#include <png.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

using namespace tessel;

namespace {

constexpr int width = 6016;
constexpr int height = 3384;
constexpr std::array<std::uint32_t, 5> ember{0x0B0503, 0x5A0E02, 0xE0440E, 0xFFB347, 0xFFF1C9};
constexpr float lastStop = ember.size() - 1;

std::uint32_t hash(int x, int y, std::uint32_t salt)
{
    std::uint32_t value = static_cast<std::uint32_t>(x) * 0x9E3779B1U ^
                          static_cast<std::uint32_t>(y) * 0x85EBCA77U ^ salt * 0xC2B2AE3DU;
    value = (value ^ value >> 16) * 0x7FEB352DU;
    value = (value ^ value >> 15) * 0x846CA68BU;
    return value ^ value >> 16;
}

/// Uniform in 0 to before 1.
float random(int x, int y, std::uint32_t salt)
{
    return static_cast<float>(hash(x, y, salt) >> 8) / 16777216.0F;
}

float valueNoise(float x, float y, std::uint32_t salt)
{
    const float left = std::floor(x);
    const float top = std::floor(y);
    const auto ease = [](float t) { return t * t * t * (t * (t * 6 - 15) + 10); };
    const float across = ease(x - left);
    const auto corner = [&](int dx, int dy) {
        return random(static_cast<int>(left) + dx, static_cast<int>(top) + dy, salt);
    };
    return std::lerp(std::lerp(corner(0, 0), corner(1, 0), across),
                     std::lerp(corner(0, 1), corner(1, 1), across), ease(y - top));
}

/// A smooth, warped fractal in 0 to lastStop, about as busy as a typical wallpaper.
float tone(float x, float y)
{
    x *= 2.0F / height;
    y *= 2.0F / height;
    float u = x * 1.1F + 1.6F * valueNoise(x * 1.3F + 3, y * 1.3F, 7);
    float v = y * 1.1F + 1.6F * valueNoise(x * 1.3F, y * 1.3F + 9, 8);
    float sum = 0;
    float amplitude = 0.57F;
    for (std::uint32_t octave = 0; octave < 4; ++octave, amplitude *= 0.45F, u *= 2.03F, v *= 2.03F)
        sum += amplitude * valueNoise(u, v, octave);
    return std::clamp((sum - 0.5F) * 1.9F + 0.5F, 0.0F, 1.0F) * lastStop;
}

/// A threshold of the 8 x 8 ordered matrix, between 0 and 1.
float bayer(int x, int y)
{
    // The place's lowest bit decides the most, and so goes to the top.
    int rank = 0;
    for (int bit = 0; bit < 3; ++bit) {
        const int right = x >> bit & 1;
        const int low = y >> bit & 1;
        rank = rank << 2 | (right ^ low) << 1 | low;
    }
    return (static_cast<float>(rank) + 0.5F) / 64.0F;
}

Picture paint(const std::function<std::uint32_t(int x, int y)>& color)
{
    Picture picture(width, height);
    for (int y = 0; y < height; ++y) {
        int x = 0;
        for (std::uint32_t& pixel : picture.row(y))
            pixel = 0xFF000000 | color(x++, y);
    }
    return picture;
}

Picture ordered(int cell)
{
    return paint([cell](int x, int y) {
        const int column = x / cell;
        const int row = y / cell;
        const auto center = [cell](int index) {
            return (static_cast<float>(index) + 0.5F) * static_cast<float>(cell);
        };
        const float level = tone(center(column), center(row)) + bayer(column, row);
        return ember[std::min(ember.size() - 1, static_cast<std::size_t>(level))];
    });
}

/// Hard-edged round dots on a turned screen.
Picture halftone(float pitch)
{
    constexpr float cosine = 0.9F;
    constexpr float sine = 0.43589F;
    return paint([pitch](int column, int row) {
        const auto x = static_cast<float>(column);
        const auto y = static_cast<float>(row);
        const float u = (x * cosine + y * sine) / pitch;
        const float v = (y * cosine - x * sine) / pitch;
        const float centerU = std::floor(u) + 0.5F;
        const float centerV = std::floor(v) + 0.5F;
        const float level = std::min(lastStop - 0.001F, tone((centerU * cosine - centerV * sine) * pitch,
                                                             (centerU * sine + centerV * cosine) * pitch));
        const float radius = 0.72F * std::sqrt(level - std::floor(level));
        const bool inside = std::hypot(u - centerU, v - centerV) < radius;
        return ember[static_cast<std::size_t>(level) + (inside ? 1 : 0)];
    });
}

/// A continuous gradient, rounded after noise of half a step to either side, or without.
Picture smooth(bool noise)
{
    return paint([noise](int x, int y) {
        const float level = std::min(lastStop - 0.001F, tone(static_cast<float>(x), static_cast<float>(y)));
        const auto stop = static_cast<std::size_t>(level);
        const float rounding = noise ? random(x, y, 99) : 0.5F;
        std::uint32_t color = 0;
        for (const int shift : {16, 8, 0}) {
            const auto from = static_cast<float>(ember[stop] >> shift & 0xFF);
            const auto to = static_cast<float>(ember[stop + 1] >> shift & 0xFF);
            const float channel = std::lerp(from, to, level - std::floor(level)) + rounding;
            color = color << 8 | static_cast<std::uint32_t>(std::clamp(channel, 0.0F, 255.0F));
        }
        return color;
    });
}

void saveWithQt(const Picture& picture, const std::string& file)
{
    const QImage image(reinterpret_cast<const uchar*>(picture.pixels.get()), picture.width, picture.height,
                       qsizetype{picture.width} * 4, QImage::Format_RGB32);
    if (!image.save(QString::fromStdString(file), "PNG"))
        std::fprintf(stderr, "QImage::save() failed\n");
}

void saveWithLibpng(const Picture& picture, const std::string& file)
{
    std::FILE* out = std::fopen(file.c_str(), "wb");
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_init_io(png, out);
    png_set_IHDR(png, info, width, height, 8, PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, info);
    png_set_bgr(png);
    png_set_filler(png, 0, PNG_FILLER_AFTER);
    for (int y = 0; y < picture.height; ++y)
        png_write_row(png, reinterpret_cast<png_const_bytep>(picture.row(y).data()));
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    std::fclose(out);
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// One way to write a picture, timed.
struct Contender
{
    std::string file;
    std::function<void(const Picture&, const std::string&)> save;
    std::vector<double> times;

    void run(const Picture& picture)
    {
        Stopwatch watch;
        save(picture, file);
        times.push_back(watch.lap());
    }

    [[nodiscard]] double bytes() const { return static_cast<double>(std::filesystem::file_size(file)); }
};

void compare(const char* name, const Picture& picture, const std::string& folder, int rounds)
{
    Contender ours{
        folder + "/ours.png", [](const Picture& p, const std::string& f) { writePng(p, "{}", f); }, {}};
    Contender qt{folder + "/qt.png", saveWithQt, {}};
    Contender libpng{folder + "/libpng.png", saveWithLibpng, {}};
    for (int i = 0; i < rounds; ++i)
        for (Contender* contender : {&ours, &qt, &libpng})
            contender->run(picture);
    const double time = median(ours.times);
    std::printf("%-22s %8.0f %8.0f %8.0f %10.0f %10.0f %10.0f %8.1f %8.3f %8.1f\n", name, time,
                median(qt.times), median(libpng.times), ours.bytes(), qt.bytes(), libpng.bytes(),
                median(qt.times) / time, ours.bytes() / qt.bytes(), median(libpng.times) / time);
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv)
{
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 5;
    const QTemporaryDir folder;
    const std::string path = folder.path().toStdString();
    std::printf("%d x %d, median of %d rounds\n", width, height, rounds);
    std::printf("%-22s %26s %32s %8s %8s %8s\n", "", "ms: ours, Qt, libpng", "bytes: ours, Qt, libpng",
                "x faster", "x size", "x faster");
    std::printf("%-22s %59s %8s %8s %8s\n", "", "", "than Qt", "of Qt", "libpng");
    compare("Bayer 8, 32 px cells", ordered(32), path, rounds);
    compare("Bayer 8, 8 px cells", ordered(8), path, rounds);
    compare("Halftone, 32 px dots", halftone(32), path, rounds);
    compare("Halftone, 12 px dots", halftone(12), path, rounds);
    compare("Smooth, with noise", smooth(true), path, rounds);
    compare("Smooth, no noise", smooth(false), path, rounds);
    return 0;
}
