// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "wallpaper/latest_stills.h"

#include "base/file_error.h"
#include "model/look_json.h"
#include "render/png_file.h"
#include "wallpaper/wallpaper_folder.h"

#include <QFileInfo>
#include <QImageReader>

#include <algorithm>

namespace tessel {

namespace {

/// Whether a file is a still of this look for this screen.
bool shows(const DesktopPicture& picture, const std::string& json)
{
    // Only ordinary files are opened: others may never begin.
    if (!QFileInfo(picture.file).isFile() ||
        QImageReader(picture.file).size() != picture.screen.pixels().size())
        return false;
    try {
        return readLookText(picture.file.toStdString()) == json;
    } catch (const FileError&) {
        return false;
    }
}

QStringList filesOf(const std::vector<DesktopPicture>& pictures)
{
    QStringList files;
    for (const DesktopPicture& picture : pictures)
        files.append(picture.file);
    return files;
}

} // namespace

LatestStills::LatestStills(Store& store, Worker& writer, QString folder)
    : m_store(store)
    , m_writer(writer)
    , m_folder(std::move(folder))
{
}

void LatestStills::set(const std::vector<DesktopPicture>& pictures)
{
    m_pictures = pictures;
    m_store.setLatestPictures(filesOf(pictures));
}

void LatestStills::find(const Look& look, const std::vector<Screen>& screens,
                        std::function<void(bool found)> done)
{
    const QStringList files = m_store.latestPictures();
    m_pictures.clear();
    for (const Screen& screen :
         screens.size() == static_cast<std::size_t>(files.size()) ? screens : std::vector<Screen>())
        m_pictures.push_back({screen, files.at(static_cast<qsizetype>(m_pictures.size()))});
    m_writer.run(
        [pictures = m_pictures, json = encodeLook(look)] {
            return !pictures.empty() &&
                   std::ranges::all_of(pictures, [&](const auto& picture) { return shows(picture, json); });
        },
        [done = std::move(done)](const Outcome<bool>& outcome) { done(outcome.value.value_or(false)); });
}

bool LatestStills::areFor(const std::vector<Screen>& screens) const
{
    return std::ranges::equal(m_pictures, screens, &Screen::isSamePlace, &DesktopPicture::screen);
}

bool LatestStills::cover(const std::vector<Screen>& screens) const
{
    return std::ranges::all_of(screens, [this](const Screen& screen) {
        return std::ranges::any_of(
            m_pictures, [&](const DesktopPicture& picture) { return picture.screen.name == screen.name; });
    });
}

void LatestStills::prune()
{
    m_writer.run([folder = m_folder, screens = static_cast<int>(m_pictures.size()),
                  inUse = filesOf(m_pictures)] { pruneStills(folder, screens, inUse); });
}

} // namespace tessel
