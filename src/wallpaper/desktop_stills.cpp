// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "wallpaper/desktop_stills.h"

#include "base/file_error.h"
#include "model/look_json.h"
#include "render/png_file.h"
#include "wallpaper/wallpaper_folder.h"

#include <QImageReader>

#include <algorithm>

namespace tessel {

namespace {

/// Whether a file is a still of this look for this screen.
bool shows(const DesktopPicture& picture, const std::string& json)
{
    if (picture.file.isEmpty() || QImageReader(picture.file).size() != picture.screen.pixels().size())
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

DesktopStills::DesktopStills(Store& store, Graphics& graphics, DesktopPictures& desktop,
                             const QString& folder)
    : m_store(store)
    , m_desktop(desktop)
    , m_folder(folder)
    , m_maker(graphics, folder)
{
    connect(&m_maker, &StillMaker::failed, this, &DesktopStills::failed);
    connect(&m_maker, &StillMaker::written, this, [this](const std::vector<DesktopPicture>& pictures) {
        keep(pictures);
        ++m_calls;
        m_desktop.set(m_latest);
        Q_EMIT made();
    });
    connect(&m_desktop, &DesktopPictures::finished, this, &DesktopStills::answer);
}

void DesktopStills::make(const StillRecipe& recipe, const std::vector<Screen>& screens)
{
    m_maker.request(recipe, screens);
}

bool DesktopStills::areFor(const std::vector<Screen>& screens) const
{
    return std::ranges::equal(m_latest, screens, &Screen::isSamePlace, &DesktopPicture::screen);
}

bool DesktopStills::areShownOn(const std::vector<Screen>& screens) const
{
    return std::ranges::all_of(screens, [this](const Screen& screen) {
        return std::ranges::any_of(
            m_latest, [&](const DesktopPicture& picture) { return picture.screen.name == screen.name; });
    });
}

void DesktopStills::find(const Look& look, const std::vector<Screen>& screens)
{
    const QStringList files = m_store.latestPictures();
    m_latest.clear();
    for (const Screen& screen :
         screens.size() == static_cast<std::size_t>(files.size()) ? screens : std::vector<Screen>())
        m_latest.push_back({screen, files.at(static_cast<qsizetype>(m_latest.size()))});
    m_maker.writer().run(
        [pictures = m_latest, json = encodeLook(look)] {
            return !pictures.empty() &&
                   std::ranges::all_of(pictures, [&](const auto& picture) { return shows(picture, json); });
        },
        [this](const Outcome<bool>& outcome) {
            if (outcome.value.value_or(false))
                Q_EMIT found();
            else
                Q_EMIT missing();
        });
}

void DesktopStills::restore()
{
    ++m_calls;
    m_desktop.restore(m_latest);
}

void DesktopStills::savePng(const StillRecipe& recipe, QSize size, const QString& file,
                            std::function<void(std::optional<QString> failure)> done)
{
    m_maker.save(recipe, size, file, std::move(done));
}

void DesktopStills::keep(const std::vector<DesktopPicture>& pictures)
{
    m_latest = pictures;
    m_store.setLatestPictures(filesOf(pictures));
}

void DesktopStills::answer(const QStringList& failures)
{
    // A later call has still to be answered: then its answer counts.
    if (--m_calls > 0)
        return;
    if (failures.isEmpty())
        prune();
    Q_EMIT handedOver(failures);
}

/// Only once the desktop shows the latest: what it shows instead may be the oldest of all.
void DesktopStills::prune()
{
    m_maker.writer().run([folder = m_folder, screens = static_cast<int>(m_latest.size()),
                          inUse = filesOf(m_latest)] { pruneStills(folder, screens, inUse); });
}

} // namespace tessel
