// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QVariantMap>

class QQmlEngine;
class QQuickItem;
class QQuickView;

namespace tessel {

class LookPictures;

/// Makes "import TesselBroth.Controls" work in an engine: its types, typefaces, symbols, shapes and pictures
/// of looks. There must be a QGuiApplication.
/// \param pictures must outlive the engine
void installControls(QQmlEngine& engine, LookPictures& pictures);

/// Shows a QML file of the program's own in a window, which it fills.
/// \param properties those that the file requires
/// \return what it shows
QQuickItem& showPage(QQuickView& view, const QString& file, const QVariantMap& properties);

} // namespace tessel
