// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/worker.h"
#include "platform/linux/desktops/picture_backend.h"
#include "platform/linux/x11/x11_desktop_owner.h"

#include <QDBusServiceWatcher>
#include <QTimer>

#include <chrono>
#include <functional>
#include <optional>

namespace tessel {

/// Tells a desktop its pictures from a thread of its own, one request after the other. Of the requests that
/// come while one is under way only the newest is done.
class QueuedPictures final : public DesktopPictures
{
    Q_OBJECT

public:
    /// How a request ended.
    struct Answer
    {
        QString desktop; ///< the kind that runs
        QStringList failures;
        bool wasTold = false;    ///< the desktop some pictures
        bool isReplaced = false; ///< it shows others than those that it took
    };

    /// Looks which desktop runs now; nullptr if it is an unknown one. Called on the thread.
    using Find = std::function<std::unique_ptr<PictureBackend>()>;

    /// \param desktop the kind of desktop that runs as this is made; empty for an unknown one
    /// \param patience with one that does not run yet, or no longer: so long requests wait for it
    QueuedPictures(QString desktop, Find find, std::chrono::milliseconds patience);

    void set(const std::vector<DesktopPicture>& pictures) override;
    void restore(const std::vector<DesktopPicture>& pictures) override;
    [[nodiscard]] bool canSet() const override { return !m_desktop.isEmpty(); }

    /// At login the desktop may come after us: does what has waited for it, or tells the newest pictures to
    /// one of another kind than before. The same desktop may have got another picture by now.
    void lookAgain();

    /// Calls lookAgain() some time after a desktop has come or gone, or its settings have changed.
    void watch(const QDBusConnection& bus, const QStringList& services);

private Q_SLOTS:
    void settingsChanged();
    void dconfChanged(const QString& prefix, const QStringList& keys);

private: // NOLINT(readability-redundant-access-specifiers): those above are slots
    struct Request
    {
        std::vector<DesktopPicture> pictures;
        PictureBackend::Which which = PictureBackend::Which::all;
        int callers = 1;       ///< who wait for an answer; none if it is looked again only
        QString before = {};   ///< the kind that ran when it was last looked at
        bool wasTaken = false; ///< these pictures, when it was last told some
    };

    void ask(Request request);
    void start();
    void putBack(const Request& request);
    void answer(const Answer& answer);
    [[nodiscard]] Answer carryOut(const Request& request) const;

    const Find m_find;
    QString m_desktop; ///< the kind that ran when it was last looked at
    std::vector<DesktopPicture> m_newest;
    bool m_wasTaken = false; ///< what the desktop was last told
    std::optional<Request> m_running;
    std::optional<Request> m_waiting; ///< for the running one, or for a desktop
    QDBusServiceWatcher m_services;
    std::unique_ptr<X11DesktopOwnerWatch> m_owner;
    QTimer m_absence; ///< runs while one without a desktop is not told so yet
    QTimer m_drawing; ///< runs while a new desktop draws for the first time
    Worker m_worker{QStringLiteral("desktop")};
};

} // namespace tessel
