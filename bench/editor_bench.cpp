// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// What the editor does when it opens and while a knob is dragged: the making of its models with few and with
// many presets and palettes, one step of a drag, pictures of tiles, and the colours of large photos.

#include "base/worker.h"
#include "controls/look_pictures.h"
#include "editor/look_editor.h"
#include "editor/look_tiles.h"
#include "editor/palette_grid.h"
#include "editor/photo_palette.h"
#include "editor/preset_list.h"
#include "model/shuffle.h"
#include "model/store.h"
#include "render/stopwatch.h"

#include <QEventLoop>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QQuickTextureFactory>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <cstdio>
#include <memory>

using namespace tessel;

namespace {

constexpr int visibleTiles = 24; ///< more than a screen shows of any grid

void fillStore(Store& store, int presets, int palettes)
{
    const RandomSource random = seededSource(1);
    std::vector<Preset> all;
    all.reserve(static_cast<std::size_t>(presets));
    for (int number = 0; number < presets; ++number)
        all.push_back(
            {QStringLiteral("6F9619FF-8B86-D011-B42D-%1").arg(number, 12, 16, QLatin1Char('0')).toStdString(),
             "Preset " + std::to_string(number), randomLook(random, std::nullopt), true});
    store.setPresets(std::move(all));
    std::vector<std::vector<Color>> own;
    own.reserve(static_cast<std::size_t>(palettes));
    for (int number = 0; number < palettes; ++number)
        own.push_back({static_cast<Color>(number), 0x808080, 0xFFFFFF});
    store.setCustomPalettes(std::move(own));
}

/// Asks for all roles of the rows that a view shows first.
void readRows(const QAbstractItemModel& model)
{
    for (int row = 0; row < std::min(model.rowCount(), visibleTiles); ++row)
        for (const int role : model.roleNames().keys())
            static_cast<void>(model.data(model.index(row, 0), role));
}

void measureModels(const QString& folder, int presets, int palettes)
{
    StoreEnvironment environment;
    environment.settingsFile = folder + QStringLiteral("/settings.conf");
    Store store(environment);
    fillStore(store, presets, palettes);
    Worker worker(QStringLiteral("bench"));
    const EditorServices services;
    Stopwatch watch;
    LookEditor look(store, worker, services);
    PresetList list(store);
    PaletteGrid grid(store);
    readRows(list);
    readRows(grid);
    readRows(*look.patterns());
    const double opening = watch.lap();
    grid.setShowsMore(true);
    const double more = watch.lap();
    auto knobs = look.colorKnobs();
    Knob* knob = knobs.at(&knobs, 1);
    constexpr int steps = 1000;
    knob->startDrag();
    watch.lap();
    for (int step = 0; step < steps; ++step)
        knob->dragBy(step / 2000.0);
    const double drag = watch.lap() / steps;
    std::printf(
        "%4d presets %4d palettes: opening %6.2f ms, more palettes %5.2f ms, a step of a drag %.3f ms\n",
        presets, palettes, opening, more, drag);
}

void measurePictures(const char* name, const std::vector<Tile>& tiles, QSize size)
{
    LookPictures pictures;
    QEventLoop loop;
    std::vector<std::unique_ptr<QQuickImageResponse>> responses;
    std::size_t finished = 0;
    for (const char* time : {"first", "again"}) {
        finished = 0;
        responses.clear();
        Stopwatch watch;
        for (const Tile& tile : tiles) {
            responses.emplace_back(
                pictures.request(pictureOfLook(tile.atRest).section(QLatin1Char('/'), 3), size));
            QObject::connect(responses.back().get(), &QQuickImageResponse::finished, &loop, [&] {
                if (++finished == tiles.size())
                    loop.quit();
            });
        }
        const double asking = watch.lap();
        loop.exec();
        std::printf("%2zu tiles of %s, %s: asked for in %.2f ms, drawn in %.0f ms\n", tiles.size(), name,
                    time, asking, asking + watch.lap());
    }
}

void measurePhoto(const QString& folder, const char* format)
{
    QImage photo(9000, 6667, QImage::Format_RGB32);
    QRandomGenerator random(1);
    for (int y = 0; y < photo.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(photo.scanLine(y));
        for (int x = 0; x < photo.width(); ++x)
            row[x] = qRgb(x * 255 / photo.width() ^ random.bounded(32), (x + y) * 255 / (9000 + 6667),
                          y * 255 / photo.height() ^ random.bounded(32));
    }
    const QString file = folder + QStringLiteral("/photo.") + QLatin1String(format);
    photo.save(file, format, 90);
    photo = QImage();
    Stopwatch watch;
    const double start = processorMilliseconds();
    const std::size_t count = paletteOfFile(file).size();
    const double processor = processorMilliseconds() - start;
    std::printf("%zu colours of a photo of 60 megapixels, %s of %.0f MB: %.0f ms, %.0f ms of a processor\n",
                count, format, static_cast<double>(QFileInfo(file).size()) / 1e6, watch.lap(), processor);
}

} // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    const QTemporaryDir folder;
    measureModels(folder.path(), 3, 3);
    measureModels(folder.path(), 300, 200);
    measurePictures("patterns", patternTiles(), {132, 88});
    measurePictures("dithers", ditherTiles(), {280, 64});
    measurePhoto(folder.path(), "jpg");
    measurePhoto(folder.path(), "png");
}
