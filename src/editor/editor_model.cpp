// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/editor_model.h"

#include "platform/process.h"

namespace tessel {

EditorModel::EditorModel(const EditorParts& parts, QObject* parent)
    : QObject(parent)
    , m_services(parts.services)
    , m_worker(QStringLiteral("tesselbroth.editor"), lowerThreadPriority)
    , m_look(parts.store, m_worker, m_services)
    , m_palette(parts.store, m_worker, m_services)
    , m_presets(parts.store)
    , m_exporter(parts.store, parts.screens, parts.clocks, parts.graphics, m_services)
{
    connect(&m_look, &LookEditor::told, this, &EditorModel::told);
    connect(&m_palette, &PaletteEditor::told, this, &EditorModel::told);
    connect(&m_exporter, &Exporter::told, this, &EditorModel::told);
}

QStringList EditorModel::tabTitles() const
{
    //: what the tabs of the editor change: the pattern, its colours, how tones become cells; short
    return {tr("Shape"), tr("Color"), tr("Dither"), tr("Presets")};
}

void EditorModel::setTab(Tab tab)
{
    if (std::exchange(m_tab, tab) != tab)
        Q_EMIT tabChanged();
}

} // namespace tessel
