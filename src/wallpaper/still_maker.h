// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/desktop_pictures.h"
#include "render/still.h"

#include <QObject>
#include <QThread>
#include <QTimer>

#include <deque>
#include <functional>
#include <memory>
#include <type_traits>

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
    /// \param encoder must outlive this
    /// \param makeCurrent makes an OpenGL context current
    StillMaker(FrameEncoder& encoder, std::function<void()> makeCurrent, QString folder);

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

    /// Runs a job on the writing thread, and then `done` with its result, if it has one, on this one.
    template<typename Job, typename Done>
    void run(Job job, Done done);

Q_SIGNALS:
    /// All files of the latest request are written.
    void written(const std::vector<tessel::DesktopPicture>& pictures);
    /// The latest request could not be carried out.
    void failed(const QString& message);

private:
    struct Drawing;
    struct Request;

    void draw(const StillRecipe& recipe, QSize size, const std::shared_ptr<Request>& request,
              std::function<void(std::optional<Picture>)> done);
    void advance();
    void finish(const std::shared_ptr<Request>& request, const std::optional<QString>& failure);

    FrameEncoder& m_encoder;
    std::function<void()> m_makeCurrent;
    const QString m_folder;
    std::deque<std::unique_ptr<Drawing>> m_drawings;
    QTimer m_slices; ///< runs while there is something to draw
    QThread m_thread;
    QObject m_writer; ///< lives on m_thread
    std::shared_ptr<Request> m_latest;
};

template<typename Job, typename Done>
void StillMaker::run(Job job, Done done)
{
    QMetaObject::invokeMethod(&m_writer, [this, job = std::move(job), done = std::move(done)] {
        if constexpr (std::is_void_v<std::invoke_result_t<const Job&>>) {
            job();
            QMetaObject::invokeMethod(this, done);
        } else {
            QMetaObject::invokeMethod(this, [done, result = job()] { done(result); });
        }
    });
}

} // namespace tessel
