// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/linux/wayland/wayland_buffer.h"
#include "platform/linux/wayland/wayland_objects.h"
#include "platform/screens.h"

#include <QImage>
#include <QObject>
#include <QTimer>

#include <cstdint>
#include <memory>

namespace tessel {

class WaylandConnection;
class WaylandOutput;

/// The lowest surface of one output. While nothing plays on it it shows a picture, for which nobody has to
/// do anything any more; without a picture it is not there at all.
class WaylandBackdrop : public QObject
{
    Q_OBJECT

public:
    /// \param connection must outlive this
    explicit WaylandBackdrop(WaylandConnection& connection);
    ~WaylandBackdrop() override;

    /// \param output on which it is from now on; nullptr while that is gone
    void setOutput(std::shared_ptr<WaylandOutput> output);

    /// \param picture Format_RGB32
    /// \param file in which it is
    void setPicture(const QImage& picture, const QString& file);

    /// From now on whoever plays attaches what is shown.
    void startPlaying();
    /// Shows the picture again.
    void stopPlaying();

    /// Whether something can be attached to it.
    [[nodiscard]] bool isReady() const { return m_isConfigured; }
    [[nodiscard]] wl_surface* surface() const { return m_surface.get(); }

    /// Between two pictures of the output; 0 while that is gone.
    [[nodiscard]] double refreshSeconds() const;

    /// Has the compositor tell, after the next commit, when it is a good time for another frame. Where nobody
    /// would see one it does not tell.
    void askForFrame();
    [[nodiscard]] bool isWaitingForFrame() const { return m_frame != nullptr; }

    /// Shows what was attached, or only asks for a frame.
    void commit();

Q_SIGNALS:
    /// It can be attached to from now on, while it plays.
    void ready();
    void frameDone();
    /// The surface is about to end, with its output as a rule.
    void aboutToEnd();

private:
    struct Listener;
    struct FrameListener;
    enum class Layer : std::uint8_t
    {
        background,
        tryingBottom, ///< to see whether another wallpaper was what covered it
        bottom
    };

    void appear();
    void disappear();
    void configure(std::uint32_t serial, QSize size);
    void showPicture();
    void setLayer(Layer layer);
    void tryLayers();
    [[nodiscard]] bool canTryLayers() const;
    void finishFrame();
    void updateSway();

    WaylandConnection& m_connection;
    std::shared_ptr<WaylandOutput> m_output;
    WaylandPointer<wl_surface> m_surface;
    WaylandPointer<wp_viewport> m_viewport;
    WaylandPointer<zwlr_layer_surface_v1> m_role;
    WaylandPointer<wl_callback> m_frame; ///< there while one is asked for
    std::unique_ptr<WaylandBuffer> m_picture;
    QString m_pictureFile;
    QTimer m_stalled; ///< runs while a frame is waited for
    Layer m_layer = Layer::background;
    bool m_isConfigured = false;
    bool m_wasShown = false; ///< since it appeared
    bool m_isPlaying = false;
};

} // namespace tessel
