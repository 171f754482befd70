// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/headless.h"

#include <array>
#include <iostream>
#include <string>

namespace tessel::cli {

namespace {

// QGuiApplication keeps references to these.
int argumentCount = 1;
std::array<char, 7> programName{"tessel"};
std::array<char*, 2> arguments{programName.data(), nullptr};

QtMessageHandler handlerBefore = nullptr;

/// Passes on every message of Qt's but one that means nothing to a program without a session.
void dropRuntimeFolderMessage(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (!message.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR not set")))
        handlerBefore(type, context, message);
}

int& offscreenArguments()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    handlerBefore = qInstallMessageHandler(dropRuntimeFolderMessage);
    return argumentCount;
}

} // namespace

Headless::Headless() : m_application(offscreenArguments(), arguments.data())
{
    qInstallMessageHandler(handlerBefore);
}

void Headless::warnOfPhoto(const Look& look) const
{
    const std::string problem = look.imagePath ? m_encoder.photos().problem(*look.imagePath) : std::string();
    if (!problem.empty())
        std::cerr << "tessel: the photo " << *look.imagePath << " cannot be shown: " << problem << '\n';
}

} // namespace tessel::cli
