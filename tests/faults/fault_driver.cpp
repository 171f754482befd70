// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Stores what the program stores, one thing at a time, for tests that break it off or let the disk fail.

#include "model/look_json.h"
#include "model/store.h"
#include "platform/process.h"
#include "render/png_file.h"
#include "wallpaper/photos.h"
#include "wallpaper/wallpaper_folder.h"

#include <QCoreApplication>
#include <QDir>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace tessel {
namespace {

Look lookWithSeed(int seed)
{
    Look look;
    look.seed = static_cast<float>(seed);
    return look;
}

/// Prints what is in a settings file, in a line, and what is wrong with it, in others.
void show(const Store& store)
{
    const std::string desktop = store.desktop() ? encodeLook(*store.desktop()) : "null";
    std::printf("{\"desktop\":%s,\"history\":%zu,\"minutes\":%lld}\n", desktop.c_str(),
                store.desktopHistory().size(), static_cast<long long>(store.shuffleMinutes()));
    for (const SettingProblem& problem : store.problems())
        std::printf("problem: %s\n", qUtf8Printable(problem.message));
}

/// Puts a look on the desktop, which changes several settings at once, and ends as the program does.
int applyLook(const QString& file, int seed)
{
    Store store({.settingsFile = file});
    store.applyToDesktop(lookWithSeed(seed), RecordHistory::yes, seed % 2 == 0, ContinueFromEditor::no);
    endWithin(std::chrono::seconds(3));
    return store.saveNow() ? EXIT_SUCCESS : EXIT_FAILURE;
}

/// The same on this thread.
int writeLook(const QString& file, int seed)
{
    const auto failure =
        writeSettings(file, {{"desktop", QByteArray::fromStdString(encodeLook(lookWithSeed(seed)))},
                             {"shuffleMinutes", qint64{60}},
                             {"appliedMotion", seed % 2 == 0}});
    if (failure)
        std::fprintf(stderr, "%s\n", qUtf8Printable(failure->message));
    return failure ? EXIT_FAILURE : EXIT_SUCCESS;
}

/// Puts one look after the other on the desktop, until somebody ends it.
[[noreturn]] void applyForever(const QString& file)
{
    Store store({.settingsFile = file});
    for (int seed = 0;; seed = (seed + 1) % 100) {
        store.applyToDesktop(lookWithSeed(seed), RecordHistory::yes, true, ContinueFromEditor::no);
        store.saveNow();
    }
}

/// Writes a still of one colour and removes what is no longer needed, as after one was made.
void makeStill(const QString& folder, int number)
{
    const QString file = QDir(folder).filePath(stillFileName(number, 0));
    Picture picture(64, 64);
    std::fill_n(picture.pixels.get(), picture.pixelCount(), static_cast<std::uint32_t>(number));
    writePng(picture, encodeLook(lookWithSeed(number)), file.toStdString());
    pruneStills(folder, 1, {file});
}

int run(const QStringList& arguments)
{
    const QString command = arguments.value(1);
    const QString path = arguments.value(2);
    if (command == QLatin1String("show")) {
        const Store store({.settingsFile = path});
        show(store);
    } else if (command == QLatin1String("apply")) {
        return applyLook(path, arguments.value(3).toInt());
    } else if (command == QLatin1String("write")) {
        return writeLook(path, arguments.value(3).toInt());
    } else if (command == QLatin1String("apply-forever")) {
        applyForever(path);
    } else if (command == QLatin1String("still")) {
        makeStill(path, arguments.value(3).toInt());
    } else if (command == QLatin1String("photo")) {
        std::puts(qUtf8Printable(copyPhoto(path, arguments.value(3))));
    } else {
        std::fputs("usage: fault_driver show|apply|write|apply-forever|still|photo PATH [ARGUMENT]\n",
                   stderr);
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}

} // namespace
} // namespace tessel

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    try {
        return tessel::run(QCoreApplication::arguments());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return EXIT_FAILURE;
    }
}
