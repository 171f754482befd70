// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/worker.h"
#include "model/store.h"
#include "platform/desktop_pictures.h"

#include <functional>
#include <vector>

namespace tessel {

/// The stills made last and the screens they are for, known from one start of the program to the next, and
/// the folder that they are in.
class LatestStills
{
public:
    /// \param writer the thread that writes to the folder; both must outlive this
    LatestStills(Store& store, Worker& writer, QString folder);

    /// None before some are set or looked up.
    [[nodiscard]] const std::vector<DesktopPicture>& pictures() const { return m_pictures; }

    /// New ones have been made.
    void set(const std::vector<DesktopPicture>& pictures);

    /// Takes the files known from before for these screens.
    /// \param done told on this thread whether they are there and show this look
    void find(const Look& look, const std::vector<Screen>& screens, std::function<void(bool found)> done);

    /// Whether they are for these screens, no more and no fewer.
    [[nodiscard]] bool areFor(const std::vector<Screen>& screens) const;

    /// Whether there is one for all of these screens, if only of another size.
    [[nodiscard]] bool cover(const std::vector<Screen>& screens) const;

    /// Removes files of before from the folder. To be called only once the desktop shows the latest: what it
    /// shows instead may be the oldest of all.
    void prune();

private:
    Store& m_store;
    Worker& m_writer;
    const QString m_folder;
    std::vector<DesktopPicture> m_pictures;
};

} // namespace tessel
