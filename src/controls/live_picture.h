// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/screens.h"
#include "scene/scene.h"

#include <QImage>
#include <QObject>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace tessel {

class PassthroughView;
class PictureSurface;

/// What a source shows, drawn live into a picture at its own pace, for the interface: Qt Quick has no context
/// of ours. It follows the store. While nobody sees it, nothing is drawn and nothing kept.
class LivePicture : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("the application has one for each source")
    Q_PROPERTY(bool frozen READ frozen WRITE setFrozen NOTIFY frozenChanged)
    Q_PROPERTY(bool inUse WRITE setInUse)

public:
    /// All must outlive this.
    LivePicture(Source source, const SceneServices& services, const Screens& screens);
    ~LivePicture() override;

    /// What it looks like now; null while it is not drawn.
    [[nodiscard]] const QImage& image() const;

    /// Draws it at a size in pixels from now on; an empty one ends that.
    void setSize(QSize pixels);

    /// Whether the animation is stopped.
    [[nodiscard]] bool frozen() const { return m_frozen; }
    void setFrozen(bool frozen);

    /// Whether the user is at the handle, which then moves faster; for its source only.
    void setInUse(bool inUse);

Q_SIGNALS:
    /// image() is another one.
    void drawn();
    void frozenChanged();
    /// The look cannot be drawn: what was shown before stays.
    void failed(const QString& problem);

private:
    void follow();
    void show(LookChange change);
    void refreshPause();
    [[nodiscard]] float reference() const;

    const Source m_source;
    const SceneServices m_services;
    const Screens& m_screens;
    Scene m_scene;
    QSize m_size;
    std::unique_ptr<PictureSurface> m_surface;
    std::unique_ptr<PassthroughView> m_view;
    bool m_frozen = false;
    bool m_isReplaced = false; ///< the look is to be faded to
    bool m_isReady = false;    ///< what is shown can be drawn
};

} // namespace tessel
