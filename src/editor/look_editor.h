// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "editor/editor_services.h"
#include "editor/knob.h"
#include "editor/look_reader.h"
#include "editor/tile_model.h"

#include <QList>
#include <QObject>
#include <QQmlListProperty>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <initializer_list>

class QMimeData;

namespace tessel {

class Worker;

/// The look being edited, as the editor shows and changes it.
class LookEditor : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The editor model has the one there is")
    /// Such as "Flow Ember".
    Q_PROPERTY(QString title READ title NOTIFY titleChanged)
    Q_PROPERTY(bool isOnDesktop READ isOnDesktop NOTIFY isOnDesktopChanged)
    /// "On desktop" or "Draft"
    Q_PROPERTY(QString status READ status NOTIFY isOnDesktopChanged)
    /// "Apply to desktop" or "Applied. Apply again"
    Q_PROPERTY(QString applyTitle READ applyTitle NOTIFY isOnDesktopChanged)
    Q_PROPERTY(bool canUndo READ canUndo NOTIFY historyChanged)
    Q_PROPERTY(bool canRedo READ canRedo NOTIFY historyChanged)
    /// Whether the desktop is to be animated.
    Q_PROPERTY(bool motion READ motion WRITE setMotion NOTIFY motionChanged)
    /// What that means, in a line.
    Q_PROPERTY(QString motionText READ motionText NOTIFY motionChanged)
    Q_PROPERTY(bool invert READ invert WRITE setInvert NOTIFY invertChanged)
    /// Whether the pattern is the one that shows a photo, and whether it has none yet.
    Q_PROPERTY(bool showsPhoto READ showsPhoto NOTIFY photoChanged)
    Q_PROPERTY(bool needsPhoto READ needsPhoto NOTIFY photoChanged)
    /// Whether a chosen or dropped file is being read or copied.
    Q_PROPERTY(bool isReading READ isReading NOTIFY isReadingChanged)
    Q_PROPERTY(tessel::TileModel* patterns READ patterns CONSTANT)
    Q_PROPERTY(tessel::TileModel* dithers READ dithers CONSTANT)
    /// Scale, Warp, Speed, Seed; Shift, Contrast, Grain, Vignette; Pixel, Levels.
    Q_PROPERTY(QQmlListProperty<tessel::Knob> shapeKnobs READ shapeKnobs CONSTANT)
    Q_PROPERTY(QQmlListProperty<tessel::Knob> colorKnobs READ colorKnobs CONSTANT)
    Q_PROPERTY(QQmlListProperty<tessel::Knob> ditherKnobs READ ditherKnobs CONSTANT)

public:
    /// All of it must outlive this.
    /// \param worker reads files
    LookEditor(Store& store, Worker& worker, const EditorServices& services, QObject* parent = nullptr);
    ~LookEditor() override;

    [[nodiscard]] QString title() const { return m_title; }
    [[nodiscard]] bool isOnDesktop() const { return m_isOnDesktop; }
    [[nodiscard]] QString status() const;
    [[nodiscard]] QString applyTitle() const;
    [[nodiscard]] bool canUndo() const;
    [[nodiscard]] bool canRedo() const;
    [[nodiscard]] bool motion() const;
    [[nodiscard]] QString motionText() const;
    [[nodiscard]] bool invert() const { return m_invert; }
    [[nodiscard]] bool showsPhoto() const { return m_showsPhoto; }
    [[nodiscard]] bool needsPhoto() const { return m_needsPhoto; }
    [[nodiscard]] bool isReading() const { return m_reading > 0; }
    [[nodiscard]] TileModel* patterns() { return &m_patterns; }
    [[nodiscard]] TileModel* dithers() { return &m_dithers; }
    [[nodiscard]] QQmlListProperty<Knob> shapeKnobs() { return {this, &m_shapeKnobs}; }
    [[nodiscard]] QQmlListProperty<Knob> colorKnobs() { return {this, &m_colorKnobs}; }
    [[nodiscard]] QQmlListProperty<Knob> ditherKnobs() { return {this, &m_ditherKnobs}; }

    void setMotion(bool motion);
    void setInvert(bool invert);

    Q_INVOKABLE void undo();
    Q_INVOKABLE void redo();

    /// A random look, in the editor only.
    Q_INVOKABLE void shuffleDraft();

    /// Puts the look on the desktop, which goes on from the frame in the preview.
    Q_INVOKABLE void apply();

    /// Asks for a picture file and shows a copy of it in the look.
    Q_INVOKABLE void choosePhoto();

    /// Puts the look on the clipboard, as JSON.
    Q_INVOKABLE void copy();

    /// Takes what is on the clipboard: a look as JSON, one of our PNG files, or a picture that becomes the
    /// photo. What is none of these is told.
    Q_INVOKABLE void paste();

    /// The same for what was dropped; \param text counts if there are no local files among the addresses.
    Q_INVOKABLE void takeDrop(const QList<QUrl>& urls, const QString& text);

    /// Whether takeDrop() may find something to use.
    Q_INVOKABLE [[nodiscard]] bool acceptsDrop(const QList<QUrl>& urls, const QString& text) const;

    /// The same for data of any kind.
    void take(const QMimeData& data);

Q_SIGNALS:
    void titleChanged();
    void isOnDesktopChanged();
    void historyChanged();
    void motionChanged();
    void invertChanged();
    void photoChanged();
    void isReadingChanged();
    /// Something did not work.
    void told(const QString& title, const QString& text);

private:
    [[nodiscard]] QList<Knob*> makeKnobs(std::initializer_list<float Look::*> fields);
    void readLook();
    void readStatus();
    void takeFile(const QString& file);
    void takePng(std::function<QByteArray()> makePng);
    void usePhoto(const QString& file);
    void read(std::function<Found()> job);
    void takeFound(const Found& found);
    void tellUseless();
    void showPhoto(const QString& path);
    void removeOldPhotos();
    void setReading(int change);

    Store& m_store;
    Worker& m_worker;
    const EditorServices& m_services;
    TileModel m_patterns;
    TileModel m_dithers;
    QList<Knob*> m_shapeKnobs;
    QList<Knob*> m_colorKnobs;
    QList<Knob*> m_ditherKnobs;
    QString m_title;
    bool m_isOnDesktop = false;
    bool m_invert = false;
    bool m_showsPhoto = false;
    bool m_needsPhoto = false;
    int m_reading = 0; ///< files that are being read
};

} // namespace tessel
