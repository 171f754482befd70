// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDBusConnection>
#include <QString>

/// How the desktop's portal is asked for what the user has to agree to.
namespace tessel::portal {

inline const auto service = QStringLiteral("org.freedesktop.portal.Desktop");
inline const auto path = QStringLiteral("/org/freedesktop/portal/desktop");

/// The object that answers a question, and the signal that does.
inline const auto request = QStringLiteral("org.freedesktop.portal.Request");
inline const auto response = QStringLiteral("Response");
inline const auto handleToken = QStringLiteral("handle_token");

/// What it answers when it has done as it was asked, and when the user did not want that.
inline constexpr uint agreed = 0;
inline constexpr uint cancelled = 1;

/// Where it answers a question with this `handleToken`, which has to be listened to before it is asked.
[[nodiscard]] inline QString answerPath(const QDBusConnection& bus, const QString& token)
{
    const QString sender = bus.baseService().mid(1).replace(QLatin1Char('.'), QLatin1Char('_'));
    return path + QStringLiteral("/request/") + sender + QLatin1Char('/') + token;
}

} // namespace tessel::portal
