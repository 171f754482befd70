// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "wallpaper/wallpaper.h"

#include "base/identity.h"
#include "model/look_json.h"
#include "render/png_file.h"
#include "wallpaper/wallpaper_folder.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QImage>
#include <QImageReader>
#include <QStandardPaths>

#include <algorithm>

namespace tessel {

namespace {

FrameEncoder makeEncoder(const WallpaperEnvironment& environment)
{
    environment.makeCurrent();
    int longest = 0;
    for (const Screen& screen : environment.screens.list()) {
        const QSize size = screen.pixels().size();
        longest = std::max({longest, size.width(), size.height()});
    }
    return FrameEncoder(longest);
}

QStringList filesOf(const std::vector<DesktopPicture>& pictures)
{
    QStringList files;
    for (const DesktopPicture& picture : pictures)
        files.append(picture.file);
    return files;
}

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

} // namespace

QString defaultWallpaperFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QLatin1Char('/') +
           identity::folder + QStringLiteral("/Wallpapers");
}

Wallpaper::Wallpaper(WallpaperEnvironment environment)
    : m_environment(std::move(environment))
    , m_encoder(makeEncoder(m_environment))
    , m_scene(m_environment.store, m_environment.session, m_encoder, m_environment.makeCurrent)
    , m_stills(m_encoder, m_environment.makeCurrent, m_environment.folder)
{
    m_hideWork.setSingleShot(true);
    m_settling.setSingleShot(true);
    m_settling.setInterval(m_environment.delays.settling);
    connect(&m_hideWork, &QTimer::timeout, this, [this] {
        // It would take the windows away before the look has been seen in them.
        if (m_scene.isFollowing())
            m_hideWork.start();
        else
            makeStill();
    });
    connect(&m_settling, &QTimer::timeout, this, &Wallpaper::takeDown);
    connect(&m_scene, &DesktopScene::changed, this, &Wallpaper::play);
    connect(&m_stills, &StillMaker::written, this, &Wallpaper::stillWritten);
    connect(&m_stills, &StillMaker::failed, this, &Wallpaper::stillFailed);
    connect(&m_stills, &StillMaker::failed, this, [this] { m_pictured.clear(); });
    connect(&m_environment.screens, &Screens::changed, this, &Wallpaper::screensChanged);
    connect(&m_environment.occlusion, &Occlusion::changed, this, &Wallpaper::refreshPauses);
    connect(&m_environment.session, &Session::changed, this, &Wallpaper::refreshPauses);
    connect(&m_environment.session, &Session::aboutToSleep, this, &Wallpaper::keepPhase);
    connect(&m_environment.session, &Session::woke, this, &Wallpaper::wake);
    // Some patterns are drawn mirrored for a handle on the right.
    connect(&m_environment.store, &Store::edgeChanged, this, [this] {
        if (m_environment.store.desktop())
            apply(ContinueFromEditor::no);
    });
    if (m_environment.pictures != nullptr)
        connect(m_environment.pictures, &DesktopPictures::finished, this, &Wallpaper::picturesSet);
}

Wallpaper::~Wallpaper()
{
    m_environment.makeCurrent();
}

void Wallpaper::start()
{
    restorePhase();
    if (!m_environment.store.desktop())
        return;
    m_scene.settle();
    if (m_environment.store.appliedMotion())
        startAnimation();
    showLatest();
}

void Wallpaper::apply(ContinueFromEditor continuing)
{
    restorePhase();
    if (continuing == ContinueFromEditor::yes && m_environment.store.desktop())
        clocks().setPhase(Source::desktop, clocks().phase(Source::editor));
    keepPhase();
    m_stills.cancel();
    startAnimation();
    // The first picture comes early even behind an animation: only in front of one that is known can icons be
    // left free.
    const bool isFirst = m_environment.store.latestPictures().isEmpty();
    m_hideWork.start(m_environment.store.appliedMotion() && !isFirst ? m_environment.delays.animated
                                                                     : m_environment.delays.still);
}

void Wallpaper::stop()
{
    finishStill();
    m_hideWork.stop();
    m_stills.cancel();
    keepPhase();
    takeDown();
}

/// Without our windows the desktop would show the picture of an earlier look.
void Wallpaper::finishStill()
{
    if (m_environment.pictures == nullptr)
        return;
    if (m_hideWork.isActive()) {
        m_hideWork.stop();
        makeStill();
    }
    const QDeadlineTimer limit(m_environment.delays.leaving);
    QTimer::singleShot(m_environment.delays.leaving, this, [] {});
    QEventLoop loop;
    while ((m_stills.isBusy() || m_settingCalls > 0) && !limit.hasExpired())
        loop.processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
}

void Wallpaper::savePng(const Look& look, QSize size, const QString& file,
                        std::function<void(std::optional<QString> failure)> done)
{
    m_stills.save({look, clocks().phase(Source::desktop), m_environment.store.edge()}, size, file,
                  std::move(done));
}

/// Once: later the clock itself knows better.
void Wallpaper::restorePhase()
{
    if (std::exchange(m_phaseRestored, true))
        return;
    clocks().setPhase(Source::desktop, m_environment.store.desktopPhase());
}

void Wallpaper::keepPhase()
{
    m_environment.store.setDesktopPhase(clocks().phase(Source::desktop));
}

std::vector<QSize> Wallpaper::sizes() const
{
    std::vector<QSize> result;
    for (const Screen& screen : m_environment.screens.list())
        result.push_back(screen.pixels().size());
    return result;
}

bool Wallpaper::hasWindowsFor(const std::vector<Screen>& screens) const
{
    return std::ranges::equal(m_views, screens, {}, [](const auto& view) { return view->screen(); });
}

/// One window for each screen; none is touched as long as the screens are the same.
void Wallpaper::followScreens()
{
    const std::vector<Screen> screens = m_environment.screens.list();
    if (hasWindowsFor(screens))
        return;
    m_environment.makeCurrent();
    m_views.clear();
    for (const Screen& screen : screens) {
        if (std::unique_ptr<DesktopWindow> window = m_environment.makeWindow(screen))
            m_views.push_back(std::make_unique<PassthroughView>(screen, std::move(window), m_scene, m_encoder,
                                                                m_environment.rasterizer));
    }
}

void Wallpaper::startAnimation()
{
    followScreens();
    m_settling.stop();
    m_windows = Windows::playing;
    m_scene.follow(sizes());
}

/// The windows come up only now: until a new look can be drawn, the desktop's own picture is better.
void Wallpaper::play()
{
    if (m_windows != Windows::playing)
        return;
    tellPictureBehind();
    for (const auto& view : m_views) {
        view->setHolding(false);
        view->window().show();
    }
    refreshPauses();
    // The cross-fade begins only now, and what is to come after it waits for its end.
    if (m_hideWork.isActive())
        m_hideWork.start();
}

void Wallpaper::tellPictureBehind()
{
    for (const DesktopPicture& picture : latestPictures()) {
        const auto view =
            std::ranges::find(m_views, picture.screen, [](const auto& each) { return each->screen(); });
        if (view != m_views.end())
            (*view)->window().setPictureBehind(picture.file);
    }
}

void Wallpaper::takeDown()
{
    m_settling.stop();
    m_windows = Windows::down;
    refreshPauses();
    for (const auto& view : m_views)
        view->window().hide();
}

void Wallpaper::screensChanged()
{
    if (!m_environment.store.desktop())
        return;
    const std::vector<Screen> screens = m_environment.screens.list();
    // Where they are the same, windows that are about to be taken down still are.
    if (m_windows != Windows::down && !hasWindowsFor(screens))
        startAnimation();
    if (!m_pendingStatic && screens == m_pictured)
        return;
    m_stills.cancel();
    m_hideWork.start(m_environment.delays.still);
}

void Wallpaper::wake()
{
    for (const auto& view : m_views)
        view->restart();
    if (m_environment.store.desktop())
        showLatest();
}

void Wallpaper::refreshPauses()
{
    const bool seen = m_windows == Windows::playing && !m_environment.session.state().unseen();
    for (const auto& view : m_views)
        view->setPaused(!seen || m_environment.occlusion.isCovered(view->screen().pixels()));
    m_environment.session.setWatchingScreens(m_windows == Windows::playing);
}

/// Whether a picture is to be made, or is being made, that the desktop or our windows will be given.
bool Wallpaper::isStillComing() const
{
    return m_hideWork.isActive() || m_stills.isBusy();
}

void Wallpaper::makeStill()
{
    const std::vector<Screen> screens = m_environment.screens.list();
    m_pendingStatic = screens.empty();
    if (m_pendingStatic || !m_environment.store.desktop())
        return;
    m_pictured = screens;
    m_stills.request(
        {*m_environment.store.desktop(), clocks().phase(Source::desktop), m_environment.store.edge()},
        screens);
}

void Wallpaper::tellMissingPhoto()
{
    const Look& look = *m_environment.store.desktop();
    const std::string path = look.pattern == Pattern::image ? look.imagePath.value_or("") : "";
    const std::string problem = m_encoder.photos().problem(path);
    if (!problem.empty())
        Q_EMIT photoMissing(
            QStringLiteral("%1: %2").arg(QString::fromStdString(path), QString::fromStdString(problem)));
}

void Wallpaper::stillWritten(const std::vector<DesktopPicture>& pictures)
{
    tellMissingPhoto();
    m_written = pictures;
    const QStringList files = filesOf(pictures);
    m_environment.store.setLatestPictures(files);
    tellPictureBehind();
    if (m_environment.pictures != nullptr) {
        ++m_settingCalls;
        m_environment.pictures->set(pictures);
    } else if (!m_environment.store.appliedMotion()) {
        hold(pictures);
    }
    m_scene.anticipate(m_environment.store.upcoming(), sizes());
    m_stills.run([folder = m_environment.folder, screens = static_cast<int>(pictures.size()),
                  files] { pruneStills(folder, screens, files); },
                 [] {});
}

void Wallpaper::picturesSet(const QStringList& failures)
{
    // A later call has still to be answered: then its answer counts.
    if (--m_settingCalls > 0)
        return;
    if (isStillComing())
        return;
    if (!failures.isEmpty())
        Q_EMIT stillFailed(failures.join(QLatin1Char('\n')));
    if (m_environment.store.appliedMotion() || m_windows == Windows::down)
        return;
    if (failures.isEmpty())
        m_settling.start();
    else
        hold(m_written);
}

/// Lets our own windows show the still, once they have been given it.
void Wallpaper::hold(const std::vector<DesktopPicture>& pictures)
{
    std::vector<std::pair<QString, std::function<void(const QImage&)>>> backdrops;
    for (const auto& view : m_views) {
        const auto found = std::ranges::find(pictures, view->screen(), &DesktopPicture::screen);
        if (found != pictures.end())
            backdrops.emplace_back(found->file, view->window().backdropSetter());
    }
    m_stills.run(
        [backdrops = std::move(backdrops)] {
            for (const auto& [file, setBackdrop] : backdrops)
                setBackdrop(QImage(file).convertToFormat(QImage::Format_RGB32));
        },
        [this] { holdNow(); });
}

void Wallpaper::holdNow()
{
    if (isStillComing() || m_environment.store.appliedMotion())
        return;
    m_windows = Windows::holding;
    refreshPauses();
    for (const auto& view : m_views) {
        view->setHolding(true);
        view->window().show();
    }
}

/// The pictures that were set last, as far as there are screens and files for them.
std::vector<DesktopPicture> Wallpaper::latestPictures() const
{
    const QStringList& files = m_environment.store.latestPictures();
    std::vector<DesktopPicture> pictures;
    for (const Screen& screen : m_environment.screens.list()) {
        const auto index = static_cast<qsizetype>(pictures.size());
        pictures.push_back({screen, files.value(index)});
    }
    return pictures;
}

/// Sees to it that the desktop shows the pictures made last; where they are missing, or of another look
/// because the program was ended too early, they are made anew.
void Wallpaper::showLatest()
{
    const std::vector<DesktopPicture> pictures = latestPictures();
    m_stills.run(
        [pictures, json = encodeLook(*m_environment.store.desktop())] {
            return std::ranges::all_of(pictures,
                                       [&](const DesktopPicture& picture) { return shows(picture, json); });
        },
        [this, pictures](bool complete) {
            if (isStillComing() || !m_environment.store.desktop())
                return;
            if (!complete) {
                startAnimation();
                m_hideWork.start(m_environment.delays.still);
                return;
            }
            m_pictured = m_environment.screens.list();
            m_scene.anticipate(m_environment.store.upcoming(), sizes());
            if (m_environment.pictures != nullptr) {
                ++m_settingCalls;
                m_environment.pictures->restore(pictures);
            } else if (!m_environment.store.appliedMotion()) {
                followScreens();
                hold(pictures);
            }
        });
}

} // namespace tessel
