// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/headless.h"

#include "cli/options.h"
#include "render/headless_context.h"

#include <array>
#include <iostream>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

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

Headless::Headless()
    : m_application(offscreenArguments(), arguments.data())
    , m_graphics([] { return std::make_unique<HeadlessContext>(); })
{
    qInstallMessageHandler(handlerBefore);
}

Picture Headless::draw(const Frame& frame, StillTiming* timing)
{
    std::optional<Picture> picture = renderStill(encoder(), frame, timing);
    if (!picture)
        throw std::runtime_error("The " + sizeText({frame.width, frame.height}) +
                                 " image could not be rendered. Try a smaller size.");
    return std::move(*picture);
}

void Headless::warnOfPhoto(const Look& look)
{
    const std::string problem = look.imagePath ? encoder().photos().problem(*look.imagePath) : std::string();
    if (!problem.empty())
        std::cerr << "tessel: the photo " << *look.imagePath << " cannot be shown: " << problem << '\n';
}

} // namespace tessel::cli
