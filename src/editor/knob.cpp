// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/knob.h"

#include "model/store.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace tessel {

namespace {

/// What one step of a key moves a knob without steps by, of its track.
constexpr float adjustment = 0.05F;

float clamped(const Slider& slider, float value)
{
    return std::min(std::max(value, slider.lower), slider.upper);
}

/// Where a value is on the track, 0 to 1.
float positionOf(const Slider& slider, float value)
{
    const float inside = clamped(slider, value);
    if (slider.scale == SliderScale::logarithmic)
        return std::log(inside / slider.lower) / std::log(slider.upper / slider.lower);
    return (inside - slider.lower) / (slider.upper - slider.lower);
}

/// The value at a place on the track; one that is outside counts as the end.
float valueAt(const Slider& slider, float position)
{
    const float inside = std::clamp(position, 0.0F, 1.0F);
    if (slider.scale == SliderScale::logarithmic)
        return slider.lower * std::pow(slider.upper / slider.lower, inside);
    return slider.lower + inside * (slider.upper - slider.lower);
}

/// The nearest value to choose; std::round() goes away from zero at a half.
float chosen(const Slider& slider, float value)
{
    return clamped(slider, slider.step ? *slider.step * std::round(value / *slider.step) : value);
}

} // namespace

Knob::Knob(const Slider& slider, Store& store, QObject* parent)
    : QObject(parent)
    , m_slider(slider)
    , m_store(store)
    , m_value(store.look().*slider.field)
{
    connect(&store, &Store::lookChanged, this, &Knob::readLook);
}

QString Knob::label() const
{
    return QCoreApplication::translate("Sliders", m_slider.title);
}

qreal Knob::position() const
{
    return positionOf(m_slider, m_value);
}

QString Knob::text() const
{
    const double value = m_value;
    // The 0 takes the sign from what is cut down to nothing.
    if (m_slider.step)
        return QString::asprintf("%.0f", std::trunc(value) + 0.0);
    //: between the whole of a number and the rest, as in 1.25
    return QString::asprintf("%.2f", value).replace(QLatin1Char('.'), tr("."));
}

qreal Knob::stepSize() const
{
    return m_slider.step.value_or(adjustment * (m_slider.upper - m_slider.lower));
}

void Knob::setValue(qreal value)
{
    if (std::isfinite(value))
        write(chosen(m_slider, static_cast<float>(value)));
}

void Knob::startDrag()
{
    m_dragStart = m_value;
}

void Knob::dragBy(qreal widths)
{
    if (!m_dragStart || !std::isfinite(widths))
        return;
    const float position = positionOf(m_slider, *m_dragStart) + static_cast<float>(widths);
    write(chosen(m_slider, valueAt(m_slider, position)));
}

void Knob::endDrag()
{
    m_dragStart.reset();
}

void Knob::reset()
{
    write(m_slider.initial);
}

void Knob::adjust(int direction)
{
    const auto sign = static_cast<float>((direction > 0) - (direction < 0));
    write(clamped(m_slider, m_slider.step
                                ? m_value + sign * *m_slider.step
                                : valueAt(m_slider, positionOf(m_slider, m_value) + sign * adjustment)));
}

void Knob::toLowest()
{
    write(m_slider.lower);
}

void Knob::toHighest()
{
    write(m_slider.upper);
}

bool Knob::enter(const QString& text)
{
    bool isNumber = false;
    const double value = text.trimmed().replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&isNumber);
    if (!isNumber || !std::isfinite(value))
        return false;
    setValue(value);
    return true;
}

void Knob::readLook()
{
    const float value = m_store.look().*m_slider.field;
    if (std::exchange(m_value, value) != value)
        Q_EMIT changed();
}

void Knob::write(float value)
{
    Look look = m_store.look();
    look.*m_slider.field = value;
    m_store.setLook(std::move(look));
}

} // namespace tessel
