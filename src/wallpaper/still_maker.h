// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/worker.h"
#include "platform/desktop_pictures.h"
#include "render/graphics.h"
#include "render/still.h"

#include <QObject>

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tessel {

/// What a still shows.
struct StillRecipe
{
    Look look;
    double time = 0; ///< animation phase
    Edge edge = Edge::left;
};

/// A picture as it was drawn.
struct DrawnStill
{
    std::optional<Picture> picture; ///< none where it is larger than what can be drawn, or was given up
    QString photoProblem;           ///< why it shows its look without the photo; empty if it does not
};

/// Makes pictures of looks as files, one after the other. They are drawn on a thread of their own, in a
/// context that is there only for that, and encoded and written on another.
class StillMaker : public QObject
{
    Q_OBJECT

public:
    /// \param graphics says how large photos are read; must outlive this
    /// \param folder where the stills of screens go
    explicit StillMaker(const Graphics& graphics, QString folder = {});

    /// Finishes what is drawn already.
    ~StillMaker() override;

    /// Makes a still for every screen, each a file of its own in the folder. A request that is still under
    /// way is given up: its files are left, but not told of.
    void request(const StillRecipe& recipe, const std::vector<Screen>& screens);

    /// Gives up the request that is under way.
    void cancel();

    /// Whether a request is under way.
    [[nodiscard]] bool isBusy() const { return m_latest != nullptr; }

    /// Draws a picture of any size and writes it, after those that were asked for before.
    /// \param done called on this thread, with the reason if it did not work; not at all if it is given up
    /// \param progress called on this thread from time to time, with 0 to 1
    /// \return what to call it for giveUp(); never 0
    int save(
        const StillRecipe& recipe, QSize size, const QString& file,
        std::function<void(std::optional<QString> failure)> done,
        std::function<void(double)> progress = [](double) {});

    /// Gives up a picture that is being saved. A file that it was to replace stays as it was, unless the new
    /// one is just being put in its place.
    void giveUp(int saving);

    /// The writing thread, for other work on the same files.
    [[nodiscard]] Worker& writer() { return m_writer; }

Q_SIGNALS:
    /// All files of the latest request are written.
    /// \param photoProblem why they show the look without its photo; empty if they do not
    void written(const std::vector<tessel::DesktopPicture>& pictures, const QString& photoProblem);
    /// The latest request could not be carried out: its pictures cannot be drawn, or not be written, which
    /// may be otherwise later.
    void failed(const QString& message);
    void notWritten(const QString& message);

private:
    struct Order;
    struct Request;
    struct Saving;

    void draw(const StillRecipe& recipe, QSize size, const std::shared_ptr<const Order>& order,
              std::function<void(Outcome<DrawnStill>)> done, std::function<void(double)> progress = {});
    void noteWritten(const std::shared_ptr<Request>& request, const QString& failure);
    void write(const std::shared_ptr<Saving>& saving, Picture picture);
    void finish(const std::shared_ptr<Saving>& saving, const std::optional<QString>& failure);

    const Graphics& m_graphics;
    const QString m_folder;
    std::shared_ptr<Request> m_latest;
    std::vector<std::shared_ptr<Saving>> m_savings; ///< all that are under way
    int m_lastSaving = 0;
    std::atomic<bool> m_isEnding = false;
    Inbox m_told; ///< of what is drawn so far
    Worker m_writer;
    Worker m_drawer;
};

} // namespace tessel
