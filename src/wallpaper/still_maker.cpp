// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "wallpaper/still_maker.h"

#include "model/look_json.h"
#include "platform/process.h"
#include "render/png_file.h"
#include "render/stopwatch.h"
#include "wallpaper/wallpaper_folder.h"

#include <QDir>

#include <algorithm>
#include <exception>
#include <filesystem>
#include <system_error>

namespace tessel {

namespace {

constexpr int firstSliceRows = 64;
constexpr double sliceMilliseconds = 12; ///< leaves a frame of an animation its time

/// The rows of the next slice, after one that took so long.
int nextSliceRows(int rows, double milliseconds)
{
    const double fitting = rows * sliceMilliseconds / std::max(milliseconds, 0.01);
    return static_cast<int>(std::clamp(fitting, rows / 4.0, rows * 2.0));
}

/// \throws FileError
void requireFolder(const QString& folder)
{
    std::error_code error;
    std::filesystem::create_directories(folder.toStdString(), error);
    if (error)
        throw FileError(FileError::Code::noPermission,
                        folder.toStdString() + ": the folder cannot be made: " + error.message());
}

/// \throws FileError
void write(const Picture& picture, const std::string& json, const QString& file)
{
    try {
        writePng(picture, json, file.toStdString());
    } catch (const std::bad_alloc&) {
        throw FileError(FileError::Code::unknown,
                        "There is not enough memory to write " + file.toStdString());
    }
}

Frame frameOf(const StillRecipe& recipe, QSize size)
{
    return {.previous = recipe.look,
            .current = recipe.look,
            .width = size.width(),
            .height = size.height(),
            .time = recipe.time,
            .edge = recipe.edge};
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
    const StillRecipe recipe;
    const QSize size;
    const std::shared_ptr<Request> request;           ///< nullptr for a picture that nothing supersedes
    const std::function<void(Outcome<Picture>)> done; ///< without picture and failure where it is too large
    std::optional<StillDrawing> slices{};             ///< there once it has begun
    int sliceRows = firstSliceRows;
    bool isDrawn = false;
};

StillMaker::StillMaker(Graphics& graphics, QString folder)
    : m_graphics(graphics)
    , m_folder(std::move(folder))
    // Writing must not compete with what the user does.
    , m_writer(QStringLiteral("tesselbroth.wallpaper-write"), lowerThreadPriority)
{
    connect(&m_slices, &QTimer::timeout, this, &StillMaker::advance);
    connect(&m_graphics, &Graphics::renewed, this, [this] {
        for (const auto& drawing : m_drawings)
            drawing->slices.reset();
    });
}

StillMaker::~StillMaker()
{
    static_cast<void>(m_graphics.context().makeCurrent());
}

void StillMaker::request(const StillRecipe& recipe, const std::vector<Screen>& screens)
{
    cancel();
    const qint64 stamp = QDateTime::currentMSecsSinceEpoch();
    const auto request = std::make_shared<Request>();
    m_latest = request;
    for (const Screen& screen : screens) {
        const int index = static_cast<int>(request->pictures.size());
        const QString file = QDir(m_folder).filePath(stillFileName(stamp, index));
        request->pictures.push_back({screen, file});
        draw(recipe, screen.pixels().size(), request,
             [this, request, file, name = screen.name,
              json = encodeLook(recipe.look)](Outcome<Picture> drawn) {
                 if (!drawn.value) {
                     if (request != m_latest)
                         return;
                     cancel();
                     Q_EMIT failed(tr("There is no picture for %1: %2")
                                       .arg(name, drawn.failure.isEmpty()
                                                      ? tr("it is larger than what can be drawn here.")
                                                      : drawn.failure));
                     return;
                 }
                 const auto picture = std::make_shared<const Picture>(std::move(*drawn.value));
                 m_writer.run(
                     [picture, json, file, folder = m_folder] {
                         requireFolder(folder);
                         write(*picture, json, file);
                     },
                     [this, request](const auto& outcome) { noteWritten(request, outcome.failure); });
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
         [this, size, file, done = std::move(done), json = encodeLook(recipe.look)](Outcome<Picture> drawn) {
             if (!drawn.value) {
                 done(drawn.failure.isEmpty()
                          ? tr("The %1x%2 image could not be rendered. Try a smaller size.")
                                .arg(size.width())
                                .arg(size.height())
                          : drawn.failure);
                 return;
             }
             const auto picture = std::make_shared<const Picture>(std::move(*drawn.value));
             m_writer.run([picture, json, file] { write(*picture, json, file); },
                          [done](const auto& outcome) {
                              done(outcome.value ? std::nullopt : std::optional(outcome.failure));
                          });
         });
}

void StillMaker::draw(const StillRecipe& recipe, QSize size, const std::shared_ptr<Request>& request,
                      std::function<void(Outcome<Picture>)> done)
{
    m_drawings.push_back(std::make_unique<Drawing>(Drawing{recipe, size, request, std::move(done)}));
    m_slices.start(0);
}

void StillMaker::advance()
{
    if (m_drawings.empty()) {
        m_slices.stop();
        return;
    }
    Outcome<Picture> outcome;
    try {
        m_graphics.makeCurrent();
        drawSlice(*m_drawings.front());
        if (!m_drawings.front()->isDrawn)
            return;
        outcome.value = m_drawings.front()->slices->take();
    } catch (const std::exception& error) {
        outcome.failure = QString::fromUtf8(error.what());
    }
    const std::unique_ptr<Drawing> finished = std::move(m_drawings.front());
    m_drawings.pop_front();
    finished->done(std::move(outcome));
}

void StillMaker::drawSlice(Drawing& drawing)
{
    if (!drawing.slices)
        drawing.slices.emplace(frameOf(drawing.recipe, drawing.size), drawing.sliceRows);
    Stopwatch watch;
    drawing.isDrawn = !drawing.slices->advance(m_graphics.encoder());
    drawing.sliceRows = nextSliceRows(drawing.sliceRows, watch.lap());
    drawing.slices->setSliceRows(drawing.sliceRows);
}

/// \param failure empty on success
void StillMaker::noteWritten(const std::shared_ptr<Request>& request, const QString& failure)
{
    if (request != m_latest)
        return;
    if (!failure.isEmpty()) {
        cancel();
        Q_EMIT notWritten(failure);
        return;
    }
    if (++request->written < request->pictures.size())
        return;
    m_latest.reset();
    Q_EMIT written(request->pictures);
}

} // namespace tessel
