// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "wallpaper/still_maker.h"

#include "model/look_json.h"
#include "platform/process.h"
#include "render/background_drawing.h"
#include "render/headless_context.h"
#include "render/png_file.h"
#include "render/stopwatch.h"
#include "wallpaper/wallpaper_folder.h"

#include <QDir>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace tessel {

namespace {

constexpr int firstSliceRows = 64;
constexpr double sliceMilliseconds = 12; ///< leaves a frame of an animation its time on a GPU

/// The rows of the next slice, after one that took so long: as many, unless that was far from what it should
/// be, since others need another texture.
int nextSliceRows(int rows, double milliseconds)
{
    const double fitting = rows * sliceMilliseconds / std::max(milliseconds, 0.01);
    const bool isFar = fitting > 2.0 * rows || fitting < rows / 2.0;
    return isFar ? static_cast<int>(std::clamp(fitting, rows / 4.0, rows * 4.0)) : rows;
}

/// The part of a saving's progress that the drawing makes up; the rest is the encoding and writing.
constexpr double drawingShare = 0.7;

/// \throws FileError
void requireFolder(const QString& folder)
{
    std::error_code error;
    std::filesystem::create_directories(folder.toStdString(), error);
    if (error)
        throw FileError(FileError::Code::noPermission,
                        StillMaker::tr("%1: the folder cannot be made: %2")
                            .arg(folder, QString::fromStdString(error.message()))
                            .toStdString());
}

/// \throws FileError
void writePicture(
    const Picture& picture, const std::string& json, const QString& file,
    const std::function<bool()>& isWanted = [] { return true; })
{
    try {
        writePng(picture, json, file.toStdString(), isWanted);
    } catch (const std::bad_alloc&) {
        throw FileError(FileError::Code::unknown,
                        StillMaker::tr("There is not enough memory to write %1").arg(file).toStdString());
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

/// Draws a picture in slices, with a context of its own for this thread.
/// \param tell called after each slice with how much is drawn, 0 to 1; returns whether to go on
/// \throws ContextError, DrawingError
DrawnStill drawStill(const StillRecipe& recipe, QSize size, int longestScreen,
                     const std::function<bool(double)>& tell)
{
    BackgroundDrawing background;
    Graphics graphics([] { return std::make_unique<HeadlessContext>(); });
    graphics.setLongestScreen(longestScreen);
    int rows = firstSliceRows;
    std::optional<StillDrawing> drawing;
    QObject::connect(&graphics, &Graphics::renewed, [&drawing] { drawing.reset(); });
    for (bool goesOn = true; goesOn;) {
        graphics.makeCurrent();
        if (!drawing)
            drawing.emplace(frameOf(recipe, size), rows);
        Stopwatch watch;
        goesOn = drawing->advance(graphics.encoder()) && tell(drawing->drawn());
        background.guardExit();
        rows = nextSliceRows(rows, watch.lap());
        drawing->setSliceRows(rows);
    }
    const std::string path = recipe.look.imagePath.value_or("");
    const std::string problem =
        recipe.look.pattern == Pattern::image ? graphics.encoder().photos().problem(path) : "";
    return {drawing->take(), problem.empty() ? QString() : QString::fromStdString(path + ": " + problem)};
}

} // namespace

/// Pictures that are asked for together. The threads that draw and write look at whether they still are.
struct StillMaker::Order
{
    std::atomic<bool> isGivenUp = false;
};

/// What becomes of the pictures of one request.
struct StillMaker::Request : Order
{
    std::vector<DesktopPicture> pictures;
    std::size_t written = 0;
    QString photoProblem;
};

/// A picture of any size for a file of the user's.
struct StillMaker::Saving : Order
{
    Saving(int its, QString path, std::string look,
           std::function<void(std::optional<QString> failure)> whenDone, std::function<void(double)> tell)
        : number(its)
        , file(std::move(path))
        , json(std::move(look))
        , done(std::move(whenDone))
        , progress(std::move(tell))
    {
    }

    const int number;
    const QString file;
    const std::string json; ///< of its look
    const std::function<void(std::optional<QString> failure)> done;
    const std::function<void(double)> progress;
};

StillMaker::StillMaker(const Graphics& graphics, QString folder)
    : m_graphics(graphics)
    , m_folder(std::move(folder))
    // They must not compete with what the user does.
    , m_writer(QStringLiteral("tesselbroth.wallpaper-write"), lowerThreadPriority)
    , m_drawer(QStringLiteral("tesselbroth.wallpaper-draw"), lowerThreadPriority)
{
}

StillMaker::~StillMaker()
{
    m_isEnding = true;
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
        const auto drawn = [this, request, file, name = screen.name,
                            json = encodeLook(recipe.look)](Outcome<DrawnStill> outcome) {
            if (request != m_latest)
                return;
            if (!outcome.value || !outcome.value->picture) {
                cancel();
                Q_EMIT failed(tr("There is no picture for %1: %2")
                                  .arg(name, outcome.failure.isEmpty()
                                                 ? tr("it is larger than what can be drawn here.")
                                                 : outcome.failure));
                return;
            }
            request->photoProblem = outcome.value->photoProblem;
            const auto picture = std::make_shared<const Picture>(std::move(*outcome.value->picture));
            m_writer.run(
                [picture, json, file, folder = m_folder] {
                    requireFolder(folder);
                    writePicture(*picture, json, file);
                },
                [this, request](const auto& written) { noteWritten(request, written.failure); });
        };
        draw(recipe, screen.pixels().size(), request, drawn);
    }
}

void StillMaker::cancel()
{
    if (m_latest != nullptr)
        m_latest->isGivenUp = true;
    m_latest.reset();
}

int StillMaker::save(const StillRecipe& recipe, QSize size, const QString& file,
                     std::function<void(std::optional<QString> failure)> done,
                     std::function<void(double)> progress)
{
    const auto saving = std::make_shared<Saving>(++m_lastSaving, file, encodeLook(recipe.look),
                                                 std::move(done), std::move(progress));
    m_savings.push_back(saving);
    const auto drawn = [this, saving, size](Outcome<DrawnStill> outcome) {
        if (!outcome.value)
            finish(saving, outcome.failure);
        else if (outcome.value->picture)
            write(saving, std::move(*outcome.value->picture));
        else
            finish(saving, tr("The %1x%2 image could not be rendered. Try a smaller size.")
                               .arg(size.width())
                               .arg(size.height()));
    };
    draw(recipe, size, saving, drawn, [this, saving](double share) {
        if (std::ranges::find(m_savings, saving) != m_savings.end())
            saving->progress(drawingShare * share);
    });
    return saving->number;
}

void StillMaker::giveUp(int saving)
{
    const auto found = std::ranges::find(m_savings, saving, &Saving::number);
    if (found == m_savings.end())
        return;
    (*found)->isGivenUp = true;
    m_savings.erase(found);
}

/// \param done called on this thread, also for what is given up; without picture and failure where it is too
/// large
/// \param progress called on this thread with 0 to 1
void StillMaker::draw(const StillRecipe& recipe, QSize size, const std::shared_ptr<const Order>& order,
                      std::function<void(Outcome<DrawnStill>)> done, std::function<void(double)> progress)
{
    const auto tell = [this, order, progress = std::move(progress)](double share) {
        if (progress)
            m_told.post([progress, share] { progress(share); });
        return !order->isGivenUp && !m_isEnding;
    };
    m_drawer.run(
        [recipe, size, tell, longest = m_graphics.longestScreen()] {
            if (!tell(0))
                return DrawnStill();
            DrawnStill drawn = drawStill(recipe, size, longest, tell);
            // Compilers leave much memory behind that nobody will need soon.
            releaseUnusedMemory();
            return drawn;
        },
        std::move(done));
}

void StillMaker::write(const std::shared_ptr<Saving>& saving, Picture picture)
{
    const auto shared = std::make_shared<const Picture>(std::move(picture));
    m_writer.run(
        [saving, shared] {
            const auto isWanted = [&] { return !saving->isGivenUp; };
            if (isWanted())
                writePicture(*shared, saving->json, saving->file, isWanted);
        },
        [this, saving](const auto& outcome) {
            finish(saving, outcome.value ? std::nullopt : std::optional(outcome.failure));
        });
}

void StillMaker::finish(const std::shared_ptr<Saving>& saving, const std::optional<QString>& failure)
{
    if (std::erase(m_savings, saving) > 0)
        saving->done(failure);
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
    Q_EMIT written(request->pictures, request->photoProblem);
}

} // namespace tessel
