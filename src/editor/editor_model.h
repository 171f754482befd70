// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/worker.h"
#include "editor/exporter.h"
#include "editor/look_editor.h"
#include "editor/palette_editor.h"
#include "editor/preset_list.h"

#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

namespace tessel {

/// What the editor works with; all but the services must outlive it.
struct EditorParts
{
    Store& store;
    const Screens& screens;
    const AnimationClocks& clocks;
    Graphics& graphics;
    EditorServices services;
};

/// All that the editor shows and does. It lives as long as the application, so that what was open stays so.
class EditorModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application has the one there is")
    Q_PROPERTY(tessel::LookEditor* look READ look CONSTANT)
    Q_PROPERTY(tessel::PaletteEditor* palette READ palette CONSTANT)
    Q_PROPERTY(tessel::PresetList* presets READ presets CONSTANT)
    Q_PROPERTY(tessel::Exporter* exporter READ exporter CONSTANT)
    Q_PROPERTY(Tab tab READ tab WRITE setTab NOTIFY tabChanged)
    /// In the order of Tab.
    Q_PROPERTY(QStringList tabTitles READ tabTitles CONSTANT)

public:
    enum Tab
    {
        Shape,
        Color,
        Dither,
        Presets
    };
    Q_ENUM(Tab)

    explicit EditorModel(const EditorParts& parts, QObject* parent = nullptr);

    [[nodiscard]] LookEditor* look() { return &m_look; }
    [[nodiscard]] PaletteEditor* palette() { return &m_palette; }
    [[nodiscard]] PresetList* presets() { return &m_presets; }
    [[nodiscard]] Exporter* exporter() { return &m_exporter; }
    [[nodiscard]] Tab tab() const { return m_tab; }
    [[nodiscard]] QStringList tabTitles() const;

    void setTab(Tab tab);

Q_SIGNALS:
    void tabChanged();
    /// Something did not work: a title, and why.
    void told(const QString& title, const QString& text);

private:
    const EditorServices m_services;
    Worker m_worker;
    LookEditor m_look;
    PaletteEditor m_palette;
    PresetList m_presets;
    Exporter m_exporter;
    Tab m_tab = Shape;
};

} // namespace tessel
