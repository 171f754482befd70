// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/software_centre.h"

#include "platform/open_address.h"

#include <QProcess>
#include <QUrl>

namespace tessel {

// Browsers take addresses that nothing else takes, though they can do nothing with these: so it is asked
// before.
void openSoftwareCentre(const QString& component, QObject* context, const std::function<void(bool)>& done)
{
    // Without slashes: QUrl would put a host into lower case.
    const QUrl address(QStringLiteral("appstream:") + component);
    auto* query = new QProcess(context);
    QObject::connect(query, &QProcess::finished, context, [query, address, context, done] {
        query->deleteLater();
        const bool isKnown = !query->readAllStandardOutput().trimmed().isEmpty();
        if (isKnown)
            openAddress(address, context, done);
        else
            done(false);
    });
    QObject::connect(query, &QProcess::errorOccurred, context,
                     [query, address, context, done](QProcess::ProcessError error) {
                         // Later errors end with finished().
                         if (error != QProcess::FailedToStart)
                             return;
                         query->deleteLater();
                         openAddress(address, context, done);
                     });
    query->start(QStringLiteral("xdg-mime"), {QStringLiteral("query"), QStringLiteral("default"),
                                              QStringLiteral("x-scheme-handler/appstream")});
}

} // namespace tessel
