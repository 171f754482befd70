// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/interface.h"

#include "app/commands.h"
#include "app/status_menu.h"
#include "controls/controls.h"
#include "controls/surroundings.h"
#include "edge/edge_panel.h"

#include <QApplication>
#include <QQuickWindow>

void qml_register_types_TesselBroth_Edge();
void qml_register_types_TesselBroth_Editor();

namespace tessel {

namespace {

/// For menus and dialogs, of which all points are larger already where the desktop's font is.
void useUsualFontSize()
{
    constexpr double usual = 10;
    QFont font = QApplication::font();
    font.setPointSizeF(usual);
    QApplication::setFont(font);
}

} // namespace

Interface::Interface(const InterfaceParts& parts)
    : m_parts(parts)
    , m_edge(parts.store, parts.windows, [this](EdgeState&) { return makePanel(); })
    , m_quickActions(parts.store, m_edge)
    , m_editor({.store = parts.store,
                .screens = parts.windows.screens(),
                .clocks = parts.scene.clocks,
                .graphics = parts.scene.graphics,
                .services = editorServices(parts.dialogs, parts.windows.hasWallpaperWindows(),
                                           [this](bool isOpen) { m_edge.setHeld(isOpen); })})
    , m_thumb(Source::thumb, parts.scene, parts.windows.screens())
    , m_preview(Source::editor, parts.scene, parts.windows.screens())
    , m_presetsMenu([this] {
        return presetRows(m_parts.store, [this] { saveAsPreset(m_parts.store, m_parts.dialogs); });
    })
{
    // A sixth of the processor time and a third of the memory of OpenGL without a GPU, and no context needed.
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    installControls(m_engine, m_pictures);
    qml_register_types_TesselBroth_Edge();
    qml_register_types_TesselBroth_Editor();
    connect(&m_edge, &EdgeController::modeChanged, this, [this] {
        if (!m_edge.state().isOpen())
            m_pictures.release();
    });
    connect(&m_editor, &EditorModel::told, this, [this](const QString& title, const QString& text) {
        if (!m_edge.state().isOpen())
            Q_EMIT told(title, text);
    });
    connect(&m_quickActions, &QuickActions::presetsRequested, &m_presetsMenu, &PresetsMenu::open);
    connect(&m_presetsMenu, &PresetsMenu::opened, this, [this] { m_edge.setMenuOpen(true); });
    connect(&m_presetsMenu, &PresetsMenu::closed, this, [this] { m_edge.setMenuOpen(false); });
    const Session& session = parts.scene.session;
    const auto followSession = [this, &session] {
        Surroundings::instance().setReducedMotion(session.state().reducedMotion);
        Surroundings::instance().setHighContrast(session.state().highContrast);
        m_parts.windows.setTextScale(session.state().textScale, session.state().fontScale);
        if (session.state().fontScale != 1)
            useUsualFontSize();
    };
    connect(&session, &Session::changed, this, followSession);
    followSession();
}

Interface::~Interface()
{
    m_edge.uninstall();
}

std::unique_ptr<EdgePanel> Interface::makePanel()
{
    return EdgePanel::make(m_parts.windows, m_engine,
                           {{QStringLiteral("edge"), QVariant::fromValue(&m_edge.state())},
                            {QStringLiteral("actions"), QVariant::fromValue(&m_quickActions)},
                            {QStringLiteral("presets"), QVariant::fromValue(&m_presetsMenu)},
                            {QStringLiteral("thumb"), QVariant::fromValue(&m_thumb)},
                            {QStringLiteral("preview"), QVariant::fromValue(&m_preview)},
                            {QStringLiteral("editor"), QVariant::fromValue(&m_editor)}});
}

std::unique_ptr<OnboardingWindow> Interface::makeOnboardingWindow(Onboarding& onboarding)
{
    auto window = std::make_unique<OnboardingWindow>(onboarding, m_pictures, m_parts.windows.focus());
    connect(&m_parts.windows.screens(), &Screens::changed, window.get(), &OnboardingWindow::fitScreen);
    return window;
}

} // namespace tessel
