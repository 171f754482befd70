// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// How long it takes from asking for a smooth still of 3840x2160 until its file is written, for every pattern,
// and how long the main thread is held up meanwhile. The driver has seen the shaders before, as when the look
// was played.

#include "render/headless_context.h"
#include "render/stopwatch.h"
#include "wallpaper/still_maker.h"

#include <QDir>
#include <QEventLoop>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <vector>

using namespace tessel;

namespace {

struct Row
{
    Pattern pattern;
    double whole;     ///< milliseconds until it is written
    double processor; ///< of all threads
    double heldUp;    ///< the longest that the main thread did nothing else
};

Row measure(StillMaker& maker, Pattern pattern)
{
    Look look;
    look.pattern = pattern;
    look.dither = Dither::smooth;
    QEventLoop loop;
    const auto connection = QObject::connect(&maker, &StillMaker::written, &loop, &QEventLoop::quit);
    QObject::connect(&maker, &StillMaker::failed, &loop, &QEventLoop::quit);
    Row row{.pattern = pattern, .whole = 0, .processor = 0, .heldUp = 0};
    Stopwatch turn;
    QTimer heart;
    QObject::connect(&heart, &QTimer::timeout, &loop, [&] { row.heldUp = std::max(row.heldUp, turn.lap()); });
    heart.start(1);
    Stopwatch watch;
    const double begin = processorMilliseconds();
    maker.request({look, 100.0}, {{QStringLiteral("SCREEN"), QRect(0, 0, 3840, 2160), 1.0}});
    loop.exec();
    row.whole = watch.lap();
    row.processor = processorMilliseconds() - begin;
    return row;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QTemporaryDir folder;
    Graphics graphics([] { return std::make_unique<HeadlessContext>(); });
    StillMaker maker(graphics, folder.path());
    std::vector<Row> table;
    for (const Pattern pattern : allPatterns()) {
        if (pattern == Pattern::image)
            continue;
        measure(maker, pattern);
        table.push_back(measure(maker, pattern));
        for (const QString& file : QDir(folder.path()).entryList(QDir::Files))
            QFile::remove(folder.filePath(file));
    }
    std::ranges::sort(table, std::greater(), &Row::whole);
    std::printf("smooth stills of 3840x2160, milliseconds\n");
    for (const Row& row : table)
        std::printf("  %-10s %6.0f until written   %6.0f of processors   %5.1f main thread held up\n",
                    title(row.pattern).data(), row.whole, row.processor, row.heldUp);
    std::printf("  median %.0f, worst %.0f\n", table[table.size() / 2].whole, table.front().whole);
    return 0;
}
