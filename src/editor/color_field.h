// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/look.h"

#include <QColor>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace tessel {

/// One colour of the palette being edited. Black and grey keep the hue and saturation that were there before,
/// so that they are back when the brightness is.
class ColorField : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(ColorFieldModel)
    QML_UNCREATABLE("The palette editor makes its fields")
    /// "Colour 1"
    Q_PROPERTY(QString name READ name CONSTANT)
    Q_PROPERTY(QColor color READ color NOTIFY changed)
    /// Six upper-case digits.
    Q_PROPERTY(QString hex READ hex NOTIFY changed)
    /// "hex D9583B", for screen readers.
    Q_PROPERTY(QString description READ description NOTIFY changed)
    /// 0 to 1 each; what is written outside is brought inside.
    Q_PROPERTY(qreal hue READ hue WRITE setHue NOTIFY changed)
    Q_PROPERTY(qreal saturation READ saturation WRITE setSaturation NOTIFY changed)
    Q_PROPERTY(qreal brightness READ brightness WRITE setBrightness NOTIFY changed)
    /// "11°", "73", "85"
    Q_PROPERTY(QString hueText READ hueText NOTIFY changed)
    Q_PROPERTY(QString saturationText READ saturationText NOTIFY changed)
    Q_PROPERTY(QString brightnessText READ brightnessText NOTIFY changed)

public:
    enum Component
    {
        Hue,
        Saturation,
        Brightness
    };
    Q_ENUM(Component)

    /// \param number of the colour in its palette, from 1
    explicit ColorField(int number, QObject* parent = nullptr);

    [[nodiscard]] QString name() const;
    [[nodiscard]] QColor color() const { return QColor::fromRgb(m_value); }
    [[nodiscard]] QString hex() const;
    [[nodiscard]] QString description() const;
    [[nodiscard]] qreal hue() const { return m_hue; }
    [[nodiscard]] qreal saturation() const { return m_saturation; }
    [[nodiscard]] qreal brightness() const { return m_brightness; }
    [[nodiscard]] QString hueText() const;
    [[nodiscard]] QString saturationText() const;
    [[nodiscard]] QString brightnessText() const;

    void setHue(qreal hue);
    void setSaturation(qreal saturation);
    void setBrightness(qreal brightness);

    /// One step of a key: 5 degrees, or 5 of 100.
    /// \param direction above 0 for more, below for less
    Q_INVOKABLE void adjust(tessel::ColorField::Component component, int direction);

    /// Whether enterHex() would take it, to show it as wrong while it is typed.
    Q_INVOKABLE [[nodiscard]] bool acceptsHex(const QString& text) const;

    /// Takes three or six hexadecimal digits, in either case, with or without "#", with white space anywhere.
    /// \return false for anything else; the colour stays then
    Q_INVOKABLE bool enterHex(const QString& text);

    [[nodiscard]] Color value() const { return m_value; }

    /// A colour from outside. The same one changes nothing, so that hue and saturation stay.
    void setValue(Color value);

    /// Shows a colour anew, with nothing kept from before.
    void restart(Color value);

Q_SIGNALS:
    void changed();
    /// It was changed here, not from outside.
    void edited();

private:
    void rebuild();

    const int m_number;
    Color m_value = 0;
    double m_hue = 0;
    double m_saturation = 0;
    double m_brightness = 0;
};

/// The colour that text means as enterHex() reads it; none if it means none.
[[nodiscard]] std::optional<Color> colorFromHex(const QString& text);

} // namespace tessel
