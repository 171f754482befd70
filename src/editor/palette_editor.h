// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "editor/color_field.h"
#include "editor/editor_services.h"
#include "editor/palette_grid.h"
#include "model/palette.h"

#include <QList>
#include <QObject>
#include <QQmlListProperty>
#include <QtQml/qqmlregistration.h>

#include <array>
#include <optional>
#include <vector>

namespace tessel {

class Worker;

/// The palettes to choose from, and the one that is being edited. The look wears the colours of the draft, so
/// that the preview shows them, until it is saved or given up; a look that comes in between ends the edit.
class PaletteEditor : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The editor model has the one there is")
    Q_PROPERTY(tessel::PaletteGrid* grid READ grid CONSTANT)
    Q_PROPERTY(bool isEditing READ isEditing NOTIFY isEditingChanged)
    /// The colours of the draft, two to five; none while nothing is edited.
    Q_PROPERTY(QQmlListProperty<tessel::ColorField> fields READ fields NOTIFY fieldsChanged)
    /// Which of them is open, from 0.
    Q_PROPERTY(int openIndex READ openIndex WRITE setOpenIndex NOTIFY openIndexChanged)
    /// Whether there may be one more, or one fewer.
    Q_PROPERTY(bool canAdd READ canAdd NOTIFY fieldsChanged)
    Q_PROPERTY(bool canRemove READ canRemove NOTIFY fieldsChanged)
    Q_PROPERTY(bool isReadingPhoto READ isReadingPhoto NOTIFY isReadingPhotoChanged)
    /// What the question whether to delete a palette adds.
    Q_PROPERTY(QString deleteInformation READ deleteInformation CONSTANT)

public:
    /// All of it must outlive this.
    /// \param worker reads photos
    PaletteEditor(Store& store, Worker& worker, const EditorServices& services, QObject* parent = nullptr);
    ~PaletteEditor() override;

    [[nodiscard]] PaletteGrid* grid() { return &m_grid; }
    [[nodiscard]] bool isEditing() const { return !m_fields.isEmpty(); }
    [[nodiscard]] QQmlListProperty<ColorField> fields() { return {this, &m_fields}; }
    [[nodiscard]] int openIndex() const { return m_openIndex; }
    [[nodiscard]] bool canAdd() const;
    [[nodiscard]] bool canRemove() const;
    [[nodiscard]] bool isReadingPhoto() const { return m_photosInWork > 0; }
    [[nodiscard]] QString deleteInformation() const;

    void setOpenIndex(int index);

    /// Gives the look the colours of a swatch, with history; Add begins a new palette.
    Q_INVOKABLE void choose(tessel::PaletteGrid::SwatchKind kind, int index);

    /// Begins to edit a new palette, with the colours that the look has.
    Q_INVOKABLE void create();
    /// Begins to edit one of the user's own.
    Q_INVOKABLE void edit(int index);

    /// Adds a colour at the end and opens it.
    Q_INVOKABLE void addColor();
    Q_INVOKABLE void removeLastColor();

    /// Asks for a picture and takes the colours that it is made of.
    Q_INVOKABLE void fromPhoto();

    /// Gives the draft up: the look has its colours of before again.
    Q_INVOKABLE void cancel();
    /// Keeps the draft as the palette that was edited, or as a new one.
    Q_INVOKABLE void save();

    /// "Mine 1"
    Q_INVOKABLE [[nodiscard]] QString nameOf(int index) const;
    /// What to ask before one of the user's own palettes is deleted.
    Q_INVOKABLE [[nodiscard]] QString deleteQuestion(int index) const;
    Q_INVOKABLE void remove(int index);

Q_SIGNALS:
    void isEditingChanged();
    void fieldsChanged();
    void openIndexChanged();
    void isReadingPhotoChanged();
    /// Something did not work.
    void told(const QString& title, const QString& text);

private:
    void begin(std::optional<int> index, std::vector<Color> stops);
    void readDraft();
    void writeDraft();
    void readPhoto(const QString& file);
    void setPhotosInWork(int count);
    [[nodiscard]] bool isMine(int index) const;
    [[nodiscard]] std::vector<Color> draft() const;

    Store& m_store;
    Worker& m_worker;
    const EditorServices& m_services;
    PaletteGrid m_grid;
    std::array<ColorField*, maxStops> m_allFields{};
    QList<ColorField*> m_fields; ///< those in use
    qsizetype m_shown = 0;       ///< how many were told of
    int m_openIndex = 0;
    int m_edit = 0; ///< its number, to tell it from the next
    int m_photosInWork = 0;
};

} // namespace tessel
