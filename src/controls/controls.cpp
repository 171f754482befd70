// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/controls.h"

#include "controls/look_pictures.h"
#include "controls/shape_images.h"
#include "controls/symbol_images.h"

#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>

#include <stdexcept>

extern void qml_register_types_TesselBroth_Controls(); // written by qmltyperegistrar

namespace tessel {

void installControls(QQmlEngine& engine, LookPictures& pictures)
{
    qml_register_types_TesselBroth_Controls();
    engine.addImageProvider(QStringLiteral("looks"), pictures.makeProvider());
    engine.addImageProvider(QStringLiteral("shapes"), new ShapeImages);
    engine.addImageProvider(QStringLiteral("symbols"), new SymbolImages);
}

QQuickItem& showPage(QQuickView& view, const QString& file, const QVariantMap& properties)
{
    view.setTitle(QGuiApplication::applicationDisplayName());
    view.setResizeMode(QQuickView::SizeRootObjectToView);
    view.setInitialProperties(properties);
    view.setSource(QUrl(file));
    if (view.rootObject() == nullptr)
        throw std::logic_error(file.toStdString() + " cannot be loaded");
    return *view.rootObject();
}

} // namespace tessel
