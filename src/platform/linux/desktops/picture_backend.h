// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/desktop_pictures.h"

#include <functional>

class QDBusConnection;

namespace tessel {

/// How one kind of desktop is told its pictures. It waits for the desktop's answers: not for the main thread.
class PictureBackend
{
public:
    enum class Which : std::uint8_t
    {
        all,
        different, ///< only those of monitors that show something else
    };

    PictureBackend() = default;
    PictureBackend(const PictureBackend&) = delete;
    PictureBackend& operator=(const PictureBackend&) = delete;
    virtual ~PictureBackend() = default;

    /// Which kind of desktop it is for.
    [[nodiscard]] virtual QString desktop() const = 0;

    /// \param pictures whose files all exist
    /// \return a message for every monitor that did not get its picture
    /// \throws DesktopError where none of them did, for one reason
    [[nodiscard]] virtual QStringList apply(const std::vector<DesktopPicture>& pictures, Which which) = 0;

    /// Whether the desktop shows these pictures.
    /// \throws DesktopError if it does not say
    [[nodiscard]] virtual bool shows(const std::vector<DesktopPicture>& pictures) = 0;
};

/// Says that a monitor keeps what it shows, and why.
[[nodiscard]] inline QString refusal(const DesktopPicture& picture, const QString& reason)
{
    return DesktopPictures::tr("The desktop did not take the picture for %1: %2")
        .arg(picture.screen.name, reason);
}

/// The same of all monitors.
[[nodiscard]] inline QStringList refusals(const std::vector<DesktopPicture>& pictures, const QString& reason)
{
    QStringList messages;
    for (const DesktopPicture& picture : pictures)
        messages << refusal(picture, reason);
    return messages;
}

/// For the desktop that runs now; nullptr for one that nobody knows how to tell.
/// \param bus of the session
[[nodiscard]] std::unique_ptr<PictureBackend> findPictureBackend(const QDBusConnection& bus);

/// Whether the session calls itself after a desktop that draws its own background, which may not run yet.
[[nodiscard]] bool isSessionOfDesktop();

/// Makes one for where no known desktop runs.
using MakePictureBackend = std::function<std::unique_ptr<PictureBackend>()>;

/// Looks which desktop runs.
/// \param bus of the session
/// \param makeOther called on another thread; none if nothing can be done there
[[nodiscard]] std::unique_ptr<DesktopPictures> makeDesktopPictures(const QDBusConnection& bus,
                                                                   const MakePictureBackend& makeOther = {});

} // namespace tessel
