// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "wallpaper/still_maker.h"

#include "model/look_json.h"
#include "render/png_file.h"
#include "render/stopwatch.h"
#include "wallpaper/wallpaper_folder.h"

#include <QDir>

#include <algorithm>
#include <sys/resource.h>
#include <unistd.h>

namespace tessel {

namespace {

constexpr int firstSliceRows = 64;
constexpr double sliceMilliseconds = 12; ///< leaves a frame of an animation its time
constexpr int writerNiceness = 10;

/// The rows of the next slice, after one that took so long.
int nextSliceRows(int rows, double milliseconds)
{
    const double fitting = rows * sliceMilliseconds / std::max(milliseconds, 0.01);
    return static_cast<int>(std::clamp(fitting, rows / 4.0, rows * 2.0));
}

/// \return why it did not work
std::optional<QString> write(const Picture& picture, const std::string& json, const QString& file)
{
    try {
        writePng(picture, json, file.toStdString());
        return std::nullopt;
    } catch (const FileError& error) {
        return QString::fromStdString(error.what());
    } catch (const std::bad_alloc&) {
        return QStringLiteral("There is not enough memory to write %1").arg(file);
    }
}

QString cannotDraw(QSize size)
{
    return QStringLiteral("The %1x%2 image could not be rendered. Try a smaller size.")
        .arg(size.width())
        .arg(size.height());
}

} // namespace

/// What becomes of the pictures of one request.
struct StillMaker::Request
{
    std::vector<DesktopPicture> pictures;
    std::size_t written = 0;
};

/// A picture that is being drawn or waits for it.
struct StillMaker::Drawing
{
    Drawing(StillRecipe recipeToDraw, QSize size, std::shared_ptr<Request> requestOrNone,
            std::function<void(std::optional<Picture>)> whenDone)
        : recipe(std::move(recipeToDraw))
        , drawing({.previous = recipe.look,
                   .current = recipe.look,
                   .width = size.width(),
                   .height = size.height(),
                   .time = recipe.time,
                   .edge = recipe.edge},
                  firstSliceRows)
        , request(std::move(requestOrNone))
        , done(std::move(whenDone))
    {
    }

    const StillRecipe recipe;
    StillDrawing drawing;
    int sliceRows = firstSliceRows;
    const std::shared_ptr<Request> request; ///< nullptr for a picture that nothing supersedes
    const std::function<void(std::optional<Picture>)> done;
};

StillMaker::StillMaker(FrameEncoder& encoder, std::function<void()> makeCurrent, QString folder)
    : m_encoder(encoder)
    , m_makeCurrent(std::move(makeCurrent))
    , m_folder(std::move(folder))
{
    m_thread.setObjectName(QStringLiteral("tesselbroth.wallpaper-write"));
    m_writer.moveToThread(&m_thread);
    m_thread.start();
    // Writing must not compete with what the user does.
    QMetaObject::invokeMethod(&m_writer,
                              [] { setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), writerNiceness); });
    connect(&m_slices, &QTimer::timeout, this, &StillMaker::advance);
}

StillMaker::~StillMaker()
{
    // As a job, so that those before it are done.
    QMetaObject::invokeMethod(&m_writer, [this] { m_thread.quit(); });
    m_thread.wait();
    m_makeCurrent();
}

void StillMaker::request(const StillRecipe& recipe, const std::vector<Screen>& screens)
{
    cancel();
    // What is wrong with the folder shows when the files are written.
    QDir().mkpath(m_folder);
    const qint64 stamp = QDateTime::currentMSecsSinceEpoch();
    const auto request = std::make_shared<Request>();
    m_latest = request;
    for (const Screen& screen : screens) {
        const int index = static_cast<int>(request->pictures.size());
        const QString file = QDir(m_folder).filePath(stillFileName(stamp, index));
        const QSize size = screen.pixels().size();
        request->pictures.push_back({screen, file});
        draw(recipe, size, request,
             [this, request, file, size, json = encodeLook(recipe.look)](std::optional<Picture> picture) {
                 if (!picture) {
                     finish(request, cannotDraw(size));
                     return;
                 }
                 const auto held = std::make_shared<Picture>(std::move(*picture));
                 run([held, json, file] { return write(*held, json, file); },
                     [this, request](const std::optional<QString>& failure) { finish(request, failure); });
             });
    }
}

void StillMaker::cancel()
{
    m_latest.reset();
    std::erase_if(m_drawings, [](const auto& drawing) { return drawing->request != nullptr; });
}

void StillMaker::save(const StillRecipe& recipe, QSize size, const QString& file,
                      std::function<void(std::optional<QString> failure)> done)
{
    draw(recipe, size, nullptr,
         [this, size, file, done = std::move(done),
          json = encodeLook(recipe.look)](std::optional<Picture> picture) {
             if (!picture) {
                 done(cannotDraw(size));
                 return;
             }
             const auto held = std::make_shared<Picture>(std::move(*picture));
             run([held, json, file] { return write(*held, json, file); }, done);
         });
}

void StillMaker::draw(const StillRecipe& recipe, QSize size, const std::shared_ptr<Request>& request,
                      std::function<void(std::optional<Picture>)> done)
{
    m_drawings.push_back(std::make_unique<Drawing>(recipe, size, request, std::move(done)));
    m_slices.start(0);
}

void StillMaker::advance()
{
    if (m_drawings.empty()) {
        m_slices.stop();
        return;
    }
    m_makeCurrent();
    Drawing& front = *m_drawings.front();
    Stopwatch watch;
    if (front.drawing.advance(m_encoder)) {
        front.sliceRows = nextSliceRows(front.sliceRows, watch.lap());
        front.drawing.setSliceRows(front.sliceRows);
        return;
    }
    const std::unique_ptr<Drawing> finished = std::move(m_drawings.front());
    m_drawings.pop_front();
    finished->done(finished->drawing.take());
}

void StillMaker::finish(const std::shared_ptr<Request>& request, const std::optional<QString>& failure)
{
    if (request != m_latest)
        return;
    if (failure) {
        cancel();
        Q_EMIT failed(*failure);
        return;
    }
    if (++request->written < request->pictures.size())
        return;
    m_latest.reset();
    Q_EMIT written(request->pictures);
}

} // namespace tessel
