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
#include <atomic>
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

} // namespace

/// What becomes of the pictures of one request.
struct StillMaker::Request
{
    std::vector<DesktopPicture> pictures;
    std::size_t written = 0;
};

/// A picture of any size for a file of the user's.
struct StillMaker::Saving
{
    const int number;
    const QString file;
    const std::string json; ///< of its look
    const std::function<void(std::optional<QString> failure)> done;
    const std::function<void(double)> progress;
    std::atomic<bool> isGivenUp = false; ///< the writing thread looks at it too
};

/// A picture that is being drawn or waits for it.
struct StillMaker::Drawing
{
    const StillRecipe recipe;
    const QSize size;
    const std::function<void(Outcome<Picture>)> done; ///< without picture and failure where it is too large
    const std::shared_ptr<Request> request;           ///< nullptr for a saving
    const std::shared_ptr<Saving> saving;             ///< nullptr for a request
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
        const auto drawn = [this, request, file, name = screen.name,
                            json = encodeLook(recipe.look)](Outcome<Picture> outcome) {
            if (!outcome.value) {
                if (request != m_latest)
                    return;
                cancel();
                Q_EMIT failed(tr("There is no picture for %1: %2")
                                  .arg(name, outcome.failure.isEmpty()
                                                 ? tr("it is larger than what can be drawn here.")
                                                 : outcome.failure));
                return;
            }
            const auto picture = std::make_shared<const Picture>(std::move(*outcome.value));
            m_writer.run(
                [picture, json, file, folder = m_folder] {
                    requireFolder(folder);
                    writePicture(*picture, json, file);
                },
                [this, request](const auto& written) { noteWritten(request, written.failure); });
        };
        draw(std::make_unique<Drawing>(Drawing{recipe, screen.pixels().size(), drawn, request, nullptr}));
    }
}

void StillMaker::cancel()
{
    m_latest.reset();
    std::erase_if(m_drawings, [](const auto& drawing) { return drawing->request != nullptr; });
}

int StillMaker::save(const StillRecipe& recipe, QSize size, const QString& file,
                     std::function<void(std::optional<QString> failure)> done,
                     std::function<void(double)> progress)
{
    // NOLINTNEXTLINE(modernize-make-shared): clang 14 would need a constructor for that
    const auto saving = std::shared_ptr<Saving>(
        new Saving{++m_lastSaving, file, encodeLook(recipe.look), std::move(done), std::move(progress)});
    m_savings.push_back(saving);
    const auto drawn = [this, saving, size](Outcome<Picture> outcome) {
        if (outcome.value)
            write(saving, std::move(*outcome.value));
        else if (!outcome.failure.isEmpty())
            finish(saving, outcome.failure);
        else
            finish(saving, tr("The %1x%2 image could not be rendered. Try a smaller size.")
                               .arg(size.width())
                               .arg(size.height()));
    };
    draw(std::make_unique<Drawing>(Drawing{recipe, size, drawn, nullptr, saving}));
    return saving->number;
}

void StillMaker::giveUp(int saving)
{
    const auto found = std::ranges::find(m_savings, saving, &Saving::number);
    if (found == m_savings.end())
        return;
    (*found)->isGivenUp = true;
    std::erase_if(m_drawings, [&](const auto& drawing) { return drawing->saving == *found; });
    m_savings.erase(found);
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

void StillMaker::draw(std::unique_ptr<Drawing> drawing)
{
    m_drawings.push_back(std::move(drawing));
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
        if (!m_drawings.front()->isDrawn) {
            tellProgress(*m_drawings.front());
            return;
        }
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

void StillMaker::tellProgress(const Drawing& drawing)
{
    // Whoever hears of it may give it up.
    if (const std::shared_ptr<Saving> saving = drawing.saving)
        saving->progress(drawingShare * drawing.slices->drawn());
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
