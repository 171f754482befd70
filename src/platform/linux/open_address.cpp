// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/open_address.h"

#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>
#include <QStringList>
#include <QTimer>

#include <chrono>
#include <unistd.h>

namespace tessel {

namespace {

/// What still runs then has taken the address: some openers wait until the browser has been closed.
constexpr std::chrono::seconds patience{5};

/// The command that opens an address and tells by its exit code whether something has taken it: the first of
/// those that are there; empty if none is.
QStringList findOpener()
{
    for (const QStringList& command :
         {QStringList{QStringLiteral("xdg-open")}, QStringList{QStringLiteral("kde-open5")},
          QStringList{QStringLiteral("kde-open")},
          QStringList{QStringLiteral("gio"), QStringLiteral("open")}})
        if (!QStandardPaths::findExecutable(command.front()).isEmpty())
            return command;
    return {};
}

/// A process that lives on after us and the terminal we were started from.
QProcess* makeOpener(QObject* context)
{
    auto* opener = new QProcess(context);
    opener->setStandardInputFile(QProcess::nullDevice());
    opener->setStandardOutputFile(QProcess::nullDevice());
    opener->setStandardErrorFile(QProcess::nullDevice());
    opener->setChildProcessModifier([] { ::setsid(); });
    QObject::connect(opener, &QProcess::finished, opener, &QObject::deleteLater);
    return opener;
}

} // namespace

void openAddress(const QUrl& address, QObject* context, const std::function<void(bool)>& done)
{
    QStringList command = findOpener();
    if (command.isEmpty()) {
        done(QDesktopServices::openUrl(address));
        return;
    }
    QProcess* opener = makeOpener(context);
    QObject::connect(opener, &QProcess::finished, context, [done](int code, QProcess::ExitStatus status) {
        done(status == QProcess::NormalExit && code == 0);
    });
    QObject::connect(opener, &QProcess::errorOccurred, context, [opener, done](QProcess::ProcessError error) {
        // Later errors end with finished().
        if (error != QProcess::FailedToStart)
            return;
        opener->deleteLater();
        done(false);
    });
    auto* timer = new QTimer(opener);
    QObject::connect(timer, &QTimer::timeout, opener, [opener, timer, context, done] {
        timer->stop();
        if (opener->state() == QProcess::NotRunning)
            return;
        opener->disconnect(context);
        opener->setParent(nullptr);
        done(true);
    });
    timer->start(patience);
    const QString program = command.takeFirst();
    opener->start(program, command << address.toString(QUrl::FullyEncoded));
}

} // namespace tessel
