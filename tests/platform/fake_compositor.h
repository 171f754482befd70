// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "support/surroundings.h"

#include <QImage>
#include <QSize>
#include <QString>
#include <QTemporaryDir>

#include <atomic>
#include <list>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

struct wl_client;
struct wl_display;
struct wl_global;

namespace tessel {

/// A Wayland compositor on a thread of its own, with layers and one output. It shows of each surface what it
/// was told has changed, and nothing else.
class FakeCompositor
{
public:
    /// What it does with a buffer once that is shown.
    enum class Keeps : std::uint8_t
    {
        nothing, ///< it copies, and gives back at once
        latest   ///< until another is shown
    };
    /// On which layers a surface is told that it may draw again, as if something covered the others.
    enum class Answers : std::uint8_t
    {
        none,
        bottomOnly,
        all
    };

    /// Tells programs of this process about itself, by the environment.
    FakeCompositor(Keeps keeps, QSize output);
    FakeCompositor(const FakeCompositor&) = delete;
    FakeCompositor& operator=(const FakeCompositor&) = delete;
    ~FakeCompositor();

    static const QString& outputName();
    void plugOutput();
    void unplugOutput();
    void setAnswers(Answers answers);

    [[nodiscard]] std::size_t surfaceCount() const;
    /// Of the only surface; null while there is none, or nothing on it.
    [[nodiscard]] QImage shown() const;
    /// On which the only surface was, one after the other, as the protocol numbers them.
    [[nodiscard]] std::vector<std::uint32_t> layers() const;
    /// How often a surface was committed.
    [[nodiscard]] int commitCount() const;
    /// What its clients have made and not yet destroyed.
    [[nodiscard]] int objectCount() const;

private:
    struct Surface;
    struct Requests;

    void serve();
    void answer(Surface& surface) const;

    const Keeps m_keeps;
    const QSize m_output;
    const QTemporaryDir m_folder;
    const QString m_socket;
    const Variable m_variable;
    mutable std::mutex m_mutex; ///< of all that follows
    wl_display* m_display;
    wl_global* m_outputGlobal = nullptr;
    std::list<std::unique_ptr<Surface>> m_surfaces;
    Answers m_answers = Answers::all;
    int m_commits = 0;
    std::atomic<bool> m_isEnding = false;
    std::thread m_thread;
};

} // namespace tessel
