// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/worker.h"
#include "platform/desktop_pictures.h"
#include "render/graphics.h"
#include "render/still.h"

#include <QObject>
#include <QTimer>

#include <deque>
#include <functional>
#include <memory>
#include <optional>

namespace tessel {

/// What a still shows.
struct StillRecipe
{
    Look look;
    double time = 0; ///< animation phase
    Edge edge = Edge::left;
};

/// Makes pictures of looks as files. They are drawn on the main thread, in slices so short that nobody
/// notices, and encoded and written on a thread of their own, one after the other.
class StillMaker : public QObject
{
    Q_OBJECT

public:
    /// \param graphics must outlive this
    StillMaker(Graphics& graphics, QString folder);

    /// Finishes what is drawn already.
    ~StillMaker() override;

    /// Makes a still for every screen, each a file of its own in the folder. A request that is still under
    /// way is given up: its files are left, but not told of.
    void request(const StillRecipe& recipe, const std::vector<Screen>& screens);

    /// Gives up the request that is under way.
    void cancel();

    /// Whether a request is under way.
    [[nodiscard]] bool isBusy() const { return m_latest != nullptr; }

    /// Draws a picture of any size and writes it.
    /// \param done called on this thread, with the reason if it did not work
    void save(const StillRecipe& recipe, QSize size, const QString& file,
              std::function<void(std::optional<QString> failure)> done);

    /// The writing thread, for other work on the same files.
    [[nodiscard]] Worker& writer() { return m_writer; }

Q_SIGNALS:
    /// All files of the latest request are written.
    void written(const std::vector<tessel::DesktopPicture>& pictures);
    /// The latest request could not be carried out: its pictures cannot be drawn, or not be written, which
    /// may be otherwise later.
    void failed(const QString& message);
    void notWritten(const QString& message);

private:
    struct Drawing;
    struct Request;

    void draw(const StillRecipe& recipe, QSize size, const std::shared_ptr<Request>& request,
              std::function<void(Outcome<Picture>)> done);
    void advance();
    void drawSlice(Drawing& drawing);
    void noteWritten(const std::shared_ptr<Request>& request, const QString& failure);

    Graphics& m_graphics;
    const QString m_folder;
    std::deque<std::unique_ptr<Drawing>> m_drawings;
    QTimer m_slices; ///< runs while there is something to draw
    std::shared_ptr<Request> m_latest;
    Worker m_writer;
};

} // namespace tessel
