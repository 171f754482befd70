// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/dialogs.h"
#include "app/presets_menu.h"
#include "controls/live_picture.h"
#include "controls/look_pictures.h"
#include "edge/edge_controller.h"
#include "edge/quick_actions.h"
#include "editor/editor_model.h"
#include "onboarding/onboarding_window.h"
#include "scene/scene.h"

#include <QQmlEngine>

namespace tessel {

/// What the interface works with; all of it must outlive it.
struct InterfaceParts
{
    const SceneServices& scene;
    Store& store;
    WindowSystem& windows;
    Dialogs& dialogs;
};

/// Everything drawn with Qt Quick: the handle, the strip, the editor and the introduction.
class Interface : public QObject
{
    Q_OBJECT

public:
    explicit Interface(const InterfaceParts& parts);
    ~Interface() override;

    [[nodiscard]] EdgeController& edge() { return m_edge; }

    /// Shows the introduction.
    /// \param onboarding must outlive what is returned, as must this
    [[nodiscard]] std::unique_ptr<OnboardingWindow> makeOnboardingWindow(Onboarding& onboarding);

Q_SIGNALS:
    /// The editor has something to tell and is not open: a picture that could not be saved, for example.
    void told(const QString& title, const QString& text);

private:
    std::unique_ptr<EdgePanel> makePanel();

    const InterfaceParts m_parts;
    LookPictures m_pictures;
    QQmlEngine m_engine;
    EdgeController m_edge;
    QuickActions m_quickActions;
    EditorModel m_editor;
    LivePicture m_thumb;
    LivePicture m_preview;
    PresetsMenu m_presetsMenu;
};

} // namespace tessel
