// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QQuickImageProvider>

namespace tessel {

/// Draws symbols in any colour and size: "image://symbols/NAME/STROKE/COLOUR", where NAME is a file's below
/// :/symbols without its end, STROKE the width of its lines in twenty-fourths of its side and COLOUR RRGGBB
/// or AARRGGBB. The size that is asked for is in device pixels.
class SymbolImages : public QQuickImageProvider
{
public:
    SymbolImages();

    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;
};

} // namespace tessel
