// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/color_field.h"

#include "model/palette.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tessel {

namespace {

/// What less of is black, or grey, and says nothing of the rest.
constexpr double visible = 0.001;

constexpr double hueStep = 1.0 / 72;
constexpr double percentStep = 0.05;

/// Hue, saturation and brightness, 0 to 1.
struct Hsb
{
    double hue = 0;
    double saturation = 0;
    double brightness = 0;
};

Hsb hsbOf(Color color)
{
    const double red = (color >> 16U & 0xFFU) / 255.0;
    const double green = (color >> 8U & 0xFFU) / 255.0;
    const double blue = (color & 0xFFU) / 255.0;
    const double most = std::max({red, green, blue});
    const double range = most - std::min({red, green, blue});
    if (range <= 0)
        return {0, 0, most};
    double sixths = 0;
    if (most == red)
        sixths = (green - blue) / range + (green < blue ? 6 : 0);
    else if (most == green)
        sixths = (blue - red) / range + 2;
    else
        sixths = (red - green) / range + 4;
    return {sixths / 6, range / most, most};
}

Color colorOf(const Hsb& hsb)
{
    const auto channel = [&](double shift) {
        const double place = std::fmod(hsb.hue * 6 + shift, 6.0);
        const double away = std::clamp(std::min(place, 4 - place), 0.0, 1.0);
        return static_cast<Color>(std::round(255 * hsb.brightness * (1 - hsb.saturation * away)));
    };
    return channel(5) << 16U | channel(3) << 8U | channel(1);
}

QString percent(double part)
{
    return QString::number(std::lround(part * 100));
}

double inside(double part)
{
    return std::isfinite(part) ? std::clamp(part, 0.0, 1.0) : 0.0;
}

} // namespace

std::optional<Color> colorFromHex(const QString& text)
{
    QString digits;
    for (const QChar each : text)
        if (!each.isSpace())
            digits += each;
    if (digits.startsWith(QLatin1Char('#')))
        digits.remove(0, 1);
    if (digits.size() == 3)
        for (const qsizetype place : {2, 1, 0})
            digits.insert(place, digits[place]);
    // toUInt() would take a sign too.
    const bool isHex = std::ranges::all_of(digits, [](QChar each) {
        return each.unicode() < 0x80 && std::isxdigit(static_cast<unsigned char>(each.unicode())) != 0;
    });
    if (digits.size() != 6 || !isHex)
        return std::nullopt;
    return digits.toUInt(nullptr, 16);
}

ColorField::ColorField(int number, QObject* parent) : QObject(parent), m_number(number) {}

QString ColorField::name() const
{
    return tr("Colour %1").arg(m_number);
}

QString ColorField::hex() const
{
    return QString::fromStdString(hexText(m_value));
}

QString ColorField::description() const
{
    //: six hexadecimal digits, for screen readers
    return tr("hex %1").arg(hex());
}

QString ColorField::hueText() const
{
    return QString::number(std::lround(m_hue * 360)) + QChar(0xB0);
}

QString ColorField::saturationText() const
{
    return percent(m_saturation);
}

QString ColorField::brightnessText() const
{
    return percent(m_brightness);
}

void ColorField::setHue(qreal hue)
{
    m_hue = inside(hue);
    rebuild();
}

void ColorField::setSaturation(qreal saturation)
{
    m_saturation = inside(saturation);
    rebuild();
}

void ColorField::setBrightness(qreal brightness)
{
    m_brightness = inside(brightness);
    rebuild();
}

void ColorField::adjust(Component component, int direction)
{
    const int sign = (direction > 0) - (direction < 0);
    switch (component) {
    case Hue:
        setHue(m_hue + sign * hueStep);
        break;
    case Saturation:
        setSaturation(m_saturation + sign * percentStep);
        break;
    case Brightness:
        setBrightness(m_brightness + sign * percentStep);
        break;
    }
}

bool ColorField::acceptsHex(const QString& text) const
{
    return colorFromHex(text).has_value();
}

bool ColorField::enterHex(const QString& text)
{
    const std::optional<Color> color = colorFromHex(text);
    if (!color)
        return false;
    if (*color != m_value) {
        setValue(*color);
        Q_EMIT edited();
    }
    return true;
}

void ColorField::setValue(Color value)
{
    if (value == m_value)
        return;
    const Hsb hsb = hsbOf(value);
    m_value = value;
    m_brightness = hsb.brightness;
    if (hsb.brightness > visible) {
        m_saturation = hsb.saturation;
        if (hsb.saturation > visible)
            m_hue = hsb.hue;
    }
    Q_EMIT changed();
}

void ColorField::restart(Color value)
{
    m_value = 0;
    m_hue = m_saturation = m_brightness = 0;
    setValue(value);
}

/// Makes the colour from hue, saturation and brightness.
void ColorField::rebuild()
{
    m_value = colorOf({m_hue, m_saturation, m_brightness});
    Q_EMIT changed();
    Q_EMIT edited();
}

} // namespace tessel
