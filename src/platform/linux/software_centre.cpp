// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/software_centre.h"

#include <QDesktopServices>
#include <QProcess>
#include <QUrl>

namespace tessel {

// What opens addresses reports success also where nothing takes them, so it is asked before.
void openSoftwareCentre(const QString& component, QObject* context, const std::function<void(bool)>& done)
{
    // Without slashes: QUrl would put a host into lower case.
    const QUrl address(QStringLiteral("appstream:") + component);
    auto* query = new QProcess(context);
    QObject::connect(query, &QProcess::finished, context, [query, address, done] {
        query->deleteLater();
        const bool isKnown = !query->readAllStandardOutput().trimmed().isEmpty();
        done(isKnown && QDesktopServices::openUrl(address));
    });
    QObject::connect(query, &QProcess::errorOccurred, context,
                     [query, address, done](QProcess::ProcessError error) {
                         // Later errors end with finished().
                         if (error != QProcess::FailedToStart)
                             return;
                         query->deleteLater();
                         done(QDesktopServices::openUrl(address));
                     });
    query->start(QStringLiteral("xdg-mime"), {QStringLiteral("query"), QStringLiteral("default"),
                                              QStringLiteral("x-scheme-handler/appstream")});
}

} // namespace tessel
