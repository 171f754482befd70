// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/linux/desktops/picture_backend.h"

#include <QDBusServiceWatcher>
#include <QThread>
#include <QTimer>

#include <functional>
#include <optional>

namespace tessel {

/// Tells a desktop its pictures from a thread of its own, one request after the other. Of the requests that
/// come while one is under way only the newest is done.
class QueuedPictures final : public DesktopPictures
{
    Q_OBJECT

public:
    /// Looks which desktop runs now; nullptr if it is an unknown one. Called on the thread.
    using Find = std::function<std::unique_ptr<PictureBackend>()>;

    /// \param desktop the kind of desktop that ran when this was made
    QueuedPictures(QString desktop, Find find);
    /// Drops what is not done yet, without a signal.
    ~QueuedPictures() override;

    void set(const std::vector<DesktopPicture>& pictures) override;
    void restore(const std::vector<DesktopPicture>& pictures) override;

    /// At login the desktop may come after us: tells the newest pictures to one of another kind than before.
    void desktopStarted();

    /// Calls desktopStarted() whenever one of the services has come and had time to draw.
    void watch(const QDBusConnection& bus, const QStringList& services);

Q_SIGNALS:
    /// To the thread: there is a running request, which stays as it is until it is done.
    void started();
    /// By the thread: it is done.
    void carriedOut(const QStringList& failures);

private:
    struct Request
    {
        std::vector<DesktopPicture> pictures;
        PictureBackend::Which which = PictureBackend::Which::all;
        int callers = 1; ///< who wait for an answer; none if it is for another kind of desktop only
    };

    void ask(Request request);
    void start(Request request);
    void answer(const QStringList& failures);
    QStringList carryOut(const Request& request);

    const Find m_find;
    QString m_desktop; ///< that got pictures last; for the thread
    QThread m_thread;
    QObject m_worker; ///< lives in the thread
    std::vector<DesktopPicture> m_newest;
    std::optional<Request> m_running;
    std::optional<Request> m_waiting;
    QDBusServiceWatcher m_services;
    QTimer m_drawing; ///< runs while a new desktop draws for the first time
};

} // namespace tessel
