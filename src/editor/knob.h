// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/sliders.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace tessel {

class Store;

/// One slider of the edited look: what it shows, and what dragging, keys and typing make of its value.
class Knob : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(KnobModel)
    QML_UNCREATABLE("The editor makes its knobs")
    Q_PROPERTY(QString label READ label CONSTANT)
    /// Written as by typing: kept within the limits and on the steps.
    Q_PROPERTY(qreal value READ value WRITE setValue NOTIFY changed)
    /// Of the value on the track, 0 to 1.
    Q_PROPERTY(qreal position READ position NOTIFY changed)
    /// The value as people read it.
    Q_PROPERTY(QString text READ text NOTIFY changed)
    Q_PROPERTY(qreal minimumValue READ minimumValue CONSTANT)
    Q_PROPERTY(qreal maximumValue READ maximumValue CONSTANT)
    /// Of the accessibility interface: what every value is a multiple of, else a twentieth of the range.
    Q_PROPERTY(qreal stepSize READ stepSize CONSTANT)

public:
    /// \param slider one of `sliders`
    /// \param store must outlive this
    Knob(const Slider& slider, Store& store, QObject* parent = nullptr);

    [[nodiscard]] QString label() const;
    [[nodiscard]] qreal value() const { return m_value; }
    [[nodiscard]] qreal position() const;
    [[nodiscard]] QString text() const;
    [[nodiscard]] qreal minimumValue() const { return m_slider.lower; }
    [[nodiscard]] qreal maximumValue() const { return m_slider.upper; }
    [[nodiscard]] qreal stepSize() const;

    void setValue(qreal value);

    /// A drag is relative: it moves the value from where it was when the drag began, wherever the pointer is.
    Q_INVOKABLE void startDrag();
    /// \param widths the way from the start of the drag, in widths of the knob; to the right is more
    Q_INVOKABLE void dragBy(qreal widths);
    Q_INVOKABLE void endDrag();

    /// Back to the initial value.
    Q_INVOKABLE void reset();

    /// One step of a key or of an assistive technology.
    /// \param direction above 0 for more, below for less
    Q_INVOKABLE void adjust(int direction);
    Q_INVOKABLE void toLowest();
    Q_INVOKABLE void toHighest();

    /// Takes a typed number, with a comma or a dot.
    /// \return false for what is no number; nothing changes then
    Q_INVOKABLE bool enter(const QString& text);

Q_SIGNALS:
    void changed();

private:
    void readLook();
    void write(float value);

    const Slider& m_slider;
    Store& m_store;
    float m_value;
    std::optional<float> m_dragStart;
};

} // namespace tessel
