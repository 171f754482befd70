// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/store.h"
#include "platform/desktop_pictures.h"
#include "wallpaper/still_maker.h"

#include <QObject>
#include <QString>

#include <vector>

namespace tessel {

/// The pictures that the desktop shows by itself: makes them as files, hands them to the desktop, and keeps
/// those made last known from one start of the program to the next.
class DesktopStills : public QObject
{
    Q_OBJECT

public:
    /// All must outlive this.
    DesktopStills(Store& store, Graphics& graphics, DesktopPictures& desktop, const QString& folder);

    /// Makes a picture for every screen and hands them to the desktop. What was under way is given up.
    void make(const StillRecipe& recipe, const std::vector<Screen>& screens);

    /// Gives up what is being made.
    void cancel() { m_maker.cancel(); }

    /// Whether pictures are being made, and whether the desktop still has to say that it shows some.
    [[nodiscard]] bool isMaking() const { return m_maker.isBusy(); }
    [[nodiscard]] bool isHandingOver() const { return m_calls > 0; }

    /// The pictures made last, and whether they are for these screens.
    [[nodiscard]] const std::vector<DesktopPicture>& latest() const { return m_latest; }
    [[nodiscard]] bool areFor(const std::vector<Screen>& screens) const;

    /// Whether the desktop shows, as far as we know, pictures of ours on all of these screens, if only of
    /// another size.
    [[nodiscard]] bool areShownOn(const std::vector<Screen>& screens) const;

    /// Takes the files known from before for these screens, and tells by `found` or `missing` whether they
    /// are there and show this look.
    void find(const Look& look, const std::vector<Screen>& screens);

    /// Has the desktop show the latest pictures where it shows something else.
    void restore();

    /// Draws a look at a size in pixels and writes it as a PNG file.
    /// \param done called on this thread, with the reason for people if it did not work
    void savePng(const StillRecipe& recipe, QSize size, const QString& file,
                 std::function<void(std::optional<QString> failure)> done);

Q_SIGNALS:
    /// There are new pictures, which the desktop is being given.
    void made();
    /// They could not be made; the old ones stay.
    /// \param message why, for people
    void failed(const QString& message);
    /// The desktop has taken the latest pictures, or refused some.
    /// \param failures why screens kept what they had; empty if none did
    void handedOver(const QStringList& failures);

    void found();
    void missing();

private:
    void keep(const std::vector<DesktopPicture>& pictures);
    void answer(const QStringList& failures);
    void prune();

    Store& m_store;
    DesktopPictures& m_desktop;
    const QString m_folder;
    StillMaker m_maker;
    std::vector<DesktopPicture> m_latest;
    int m_calls = 0; ///< of the desktop, that it has not answered
};

} // namespace tessel
