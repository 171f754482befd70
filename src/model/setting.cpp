// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/setting.h"

#include "model/look_json.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <cmath>
#include <stdexcept>

namespace tessel {

namespace {

[[noreturn]] void refuse(const QVariant& stored, const char* expected)
{
    const QString held = stored.toStringList().join(QStringLiteral(", "));
    throw std::runtime_error(QStringLiteral("holds \"%1\"; %2 is expected")
                                 .arg(held, QString::fromLatin1(expected))
                                 .toStdString());
}

SettingValue bytes(const std::string& text)
{
    return QByteArray::fromStdString(text);
}

std::string json(const QVariant& stored)
{
    if (stored.typeId() != QMetaType::QByteArray && stored.typeId() != QMetaType::QString)
        refuse(stored, "JSON text in quotes");
    return stored.toByteArray().toStdString();
}

} // namespace

SettingValue toSetting(bool value)
{
    return value;
}

SettingValue toSetting(qint64 value)
{
    return value;
}

SettingValue toSetting(double value)
{
    return value;
}

SettingValue toSetting(Edge value)
{
    return static_cast<qint64>(value);
}

SettingValue toSetting(const QDateTime& value)
{
    return value.toUTC().toString(Qt::ISODateWithMs).toLatin1();
}

SettingValue toSetting(const QStringList& value)
{
    return QJsonDocument(QJsonArray::fromStringList(value)).toJson(QJsonDocument::Compact);
}

SettingValue toSetting(const Look& value)
{
    return bytes(encodeLook(value));
}

SettingValue toSetting(const std::optional<Look>& value)
{
    return value ? toSetting(*value) : QByteArray();
}

SettingValue toSetting(const std::vector<Look>& value)
{
    return bytes(encodeLooks(value));
}

SettingValue toSetting(const std::vector<std::vector<Color>>& value)
{
    return bytes(encodeColorLists(value));
}

SettingValue toSetting(const std::vector<Preset>& value)
{
    return bytes(encodePresets(value));
}

void fromSetting(const QVariant& stored, bool& value)
{
    const QString text = stored.toString().toLower();
    if (text != QStringLiteral("true") && text != QStringLiteral("false"))
        refuse(stored, "true or false");
    value = text == QStringLiteral("true");
}

void fromSetting(const QVariant& stored, qint64& value)
{
    bool isNumber = false;
    const qint64 number = stored.toString().toLongLong(&isNumber);
    if (!isNumber)
        refuse(stored, "a whole number");
    value = number;
}

void fromSetting(const QVariant& stored, double& value)
{
    bool isNumber = false;
    const double number = stored.toString().toDouble(&isNumber);
    if (!isNumber || !std::isfinite(number))
        refuse(stored, "a number");
    value = number;
}

void fromSetting(const QVariant& stored, Edge& value)
{
    qint64 raw = 0;
    fromSetting(stored, raw);
    value = raw == static_cast<qint64>(Edge::right) ? Edge::right : Edge::left;
}

void fromSetting(const QVariant& stored, QDateTime& value)
{
    const QDateTime date = QDateTime::fromString(stored.toString(), Qt::ISODateWithMs);
    if (!date.isValid())
        refuse(stored, "a date and time such as 2026-03-01T12:00:00Z");
    value = date.toUTC();
}

void fromSetting(const QVariant& stored, QStringList& value)
{
    const QJsonDocument list = QJsonDocument::fromJson(QByteArray::fromStdString(json(stored)));
    if (!list.isArray())
        refuse(stored, "a JSON array of strings");
    QStringList strings;
    for (const QJsonValue string : list.array()) {
        if (!string.isString())
            refuse(stored, "a JSON array of strings");
        strings.append(string.toString());
    }
    value = strings;
}

void fromSetting(const QVariant& stored, Look& value)
{
    value = decodeLook(json(stored));
}

void fromSetting(const QVariant& stored, std::optional<Look>& value)
{
    const auto text = json(stored);
    value = text.empty() ? std::nullopt : std::optional(decodeLook(text));
}

void fromSetting(const QVariant& stored, std::vector<Look>& value)
{
    value = decodeLooks(json(stored));
}

void fromSetting(const QVariant& stored, std::vector<std::vector<Color>>& value)
{
    value = decodeColorLists(json(stored));
}

void fromSetting(const QVariant& stored, std::vector<Preset>& value)
{
    value = decodePresets(json(stored));
}

} // namespace tessel
