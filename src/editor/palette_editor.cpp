// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/palette_editor.h"

#include "base/worker.h"
#include "editor/photo_palette.h"
#include "model/oklab.h"
#include "model/palette.h"
#include "model/store.h"

#include <QPointer>

#include <algorithm>
#include <utility>

namespace tessel {

namespace {

/// The colour that a palette is offered as its next: half way to white. Where that would hardly differ, half
/// way back to the colour before the last.
Color nextStop(const std::vector<Color>& stops)
{
    constexpr double clearlyApart = 0.05;
    const Oklab last = toOklab(stops.back());
    const Oklab lighter = mix(last, toOklab(0xFFFFFF), 0.5);
    if (distance(last, lighter) >= clearlyApart)
        return toColor(lighter);
    return toColor(mix(last, toOklab(stops[stops.size() - 2]), 0.5));
}

/// The colours that a look is drawn in.
std::vector<Color> drawnStops(const Look& look)
{
    const Stops stops = resolveStops(look);
    return {stops.slot.begin(), stops.slot.begin() + stops.count};
}

} // namespace

PaletteEditor::PaletteEditor(Store& store, Worker& worker, const EditorServices& services, QObject* parent)
    : QObject(parent)
    , m_store(store)
    , m_worker(worker)
    , m_services(services)
    , m_grid(store)
{
    for (std::size_t place = 0; place < m_allFields.size(); ++place) {
        m_allFields[place] = new ColorField(static_cast<int>(place) + 1, this);
        connect(m_allFields[place], &ColorField::edited, this, &PaletteEditor::writeDraft);
    }
    connect(&store, &Store::draftStopsChanged, this, &PaletteEditor::readDraft);
    readDraft();
}

PaletteEditor::~PaletteEditor() = default;

bool PaletteEditor::canAdd() const
{
    return isEditing() && m_fields.size() < static_cast<qsizetype>(maxStops);
}

bool PaletteEditor::canRemove() const
{
    return m_fields.size() > 2;
}

QString PaletteEditor::deleteInformation() const
{
    return tr("Wallpapers already using these colours keep them.");
}

void PaletteEditor::setOpenIndex(int index)
{
    const int inside = std::clamp(index, 0, std::max(static_cast<int>(m_fields.size()) - 1, 0));
    if (std::exchange(m_openIndex, inside) != inside)
        Q_EMIT openIndexChanged();
}

void PaletteEditor::choose(PaletteGrid::SwatchKind kind, int index)
{
    Look look = m_store.look();
    switch (kind) {
    case PaletteGrid::BuiltIn:
        look.palette = index;
        look.custom.reset();
        break;
    case PaletteGrid::Mine:
        if (!isMine(index))
            return;
        look.custom = m_store.customPalettes()[static_cast<std::size_t>(index)];
        break;
    case PaletteGrid::Add:
        create();
        return;
    }
    m_store.changeLook(std::move(look));
}

void PaletteEditor::create()
{
    begin(std::nullopt, drawnStops(m_store.look()));
}

void PaletteEditor::edit(int index)
{
    if (!isMine(index))
        return;
    Look look;
    look.custom = m_store.customPalettes()[static_cast<std::size_t>(index)];
    begin(index, drawnStops(look));
}

void PaletteEditor::begin(std::optional<int> index, std::vector<Color> stops)
{
    ++m_edit;
    m_fields.clear();
    m_store.beginEditing(index, std::move(stops));
    // The store is silent where the new draft is the one before.
    readDraft();
    setOpenIndex(0);
}

void PaletteEditor::addColor()
{
    if (!canAdd())
        return;
    std::vector<Color> stops = draft();
    stops.push_back(nextStop(stops));
    m_store.setDraftStops(std::move(stops));
    setOpenIndex(static_cast<int>(m_fields.size()) - 1);
}

void PaletteEditor::removeLastColor()
{
    if (!canRemove())
        return;
    std::vector<Color> stops = draft();
    stops.pop_back();
    m_store.setDraftStops(std::move(stops));
}

void PaletteEditor::fromPhoto()
{
    m_services.chooseImage([guard = QPointer(this), edit = m_edit](const QString& file) {
        if (guard && guard->isEditing() && guard->m_edit == edit)
            guard->readPhoto(file);
    });
}

void PaletteEditor::readPhoto(const QString& file)
{
    setPhotosInWork(m_photosInWork + 1);
    m_worker.run([file] { return paletteOfFile(file); },
                 [this, edit = m_edit](const Outcome<std::vector<Color>>& outcome) {
                     setPhotosInWork(m_photosInWork - 1);
                     if (!outcome.value)
                         Q_EMIT told(tr("Could not use that photo"), outcome.failure);
                     else if (outcome.value->empty())
                         Q_EMIT told(tr("Could not use that photo"),
                                     tr("It is transparent all over and has no colours."));
                     else if (isEditing() && m_edit == edit)
                         m_store.setDraftStops(*outcome.value);
                 });
}

void PaletteEditor::cancel()
{
    m_store.endEditing();
}

void PaletteEditor::save()
{
    m_store.savePalette();
}

QString PaletteEditor::nameOf(int index) const
{
    return PaletteGrid::nameOfMine(index);
}

QString PaletteEditor::deleteQuestion(int index) const
{
    return tr("Delete \"%1\"?").arg(nameOf(index));
}

void PaletteEditor::remove(int index)
{
    m_store.deletePalette(index);
}

bool PaletteEditor::isMine(int index) const
{
    return index >= 0 && static_cast<std::size_t>(index) < m_store.customPalettes().size();
}

std::vector<Color> PaletteEditor::draft() const
{
    return m_store.draftStops().value_or(std::vector<Color>());
}

/// Brings the fields up to date. Those that were not there before show their colours with nothing kept.
void PaletteEditor::readDraft()
{
    const std::vector<Color> stops = draft();
    const qsizetype before = std::exchange(m_shown, static_cast<qsizetype>(stops.size()));
    for (std::size_t place = 0; place < stops.size(); ++place)
        if (static_cast<qsizetype>(place) < m_fields.size())
            m_allFields[place]->setValue(stops[place]);
        else
            m_allFields[place]->restart(stops[place]);
    m_fields = QList<ColorField*>(m_allFields.begin(), m_allFields.begin() + m_shown);
    setOpenIndex(m_openIndex);
    if (m_shown == before)
        return;
    Q_EMIT fieldsChanged();
    if ((before == 0) != (m_shown == 0))
        Q_EMIT isEditingChanged();
}

void PaletteEditor::writeDraft()
{
    std::vector<Color> stops;
    for (const ColorField* field : std::as_const(m_fields))
        stops.push_back(field->value());
    m_store.setDraftStops(std::move(stops));
}

void PaletteEditor::setPhotosInWork(int count)
{
    const bool before = isReadingPhoto();
    m_photosInWork = count;
    if (isReadingPhoto() != before)
        Q_EMIT isReadingPhotoChanged();
}

} // namespace tessel
