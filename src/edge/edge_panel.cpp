// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "edge/edge_panel.h"

#include "controls/art_pixels.h"
#include "controls/controls.h"
#include "controls/surroundings.h"

#include <QGuiApplication>
#include <QQuickItem>

#include <algorithm>
#include <cmath>

namespace tessel {

namespace {

const auto source = QStringLiteral("qrc:/qt-project.org/imports/TesselBroth/Edge/EdgeRoot.qml");

/// Whether a point is on another window of ours, such as a menu or a dialog.
bool isOnOther(const QWindow& panel, QPoint position)
{
    const QWindowList windows = QGuiApplication::topLevelWindows();
    return std::ranges::any_of(windows, [&](const QWindow* window) {
        return window != &panel && window->isVisible() && window->frameGeometry().contains(position);
    });
}

/// What QML says that it shows, in device pixels.
QRegion shownShape(const QQuickItem& root, double scale)
{
    QRegion shape;
    for (const QVariant& part : root.property("shapes").toList()) {
        const QVariantMap values = part.toMap();
        const QRectF frame = values.value(QStringLiteral("frame")).toRectF();
        const int radius = values.value(QStringLiteral("radius")).toInt();
        const auto pixels = [scale](double points) { return static_cast<int>(std::lround(points * scale)); };
        const QPoint corner(pixels(frame.left()), pixels(frame.top()));
        const QSize size(pixels(frame.right()) - corner.x(), pixels(frame.bottom()) - corner.y());
        shape += art::steppedShape(size, radius, scale).translated(corner);
    }
    return shape;
}

} // namespace

std::unique_ptr<EdgePanel> EdgePanel::make(WindowSystem& windows, QQmlEngine& engine,
                                           const QVariantMap& properties)
{
    std::unique_ptr<EdgePanel> panel(new EdgePanel(engine));
    return panel->open(windows, properties) ? std::move(panel) : nullptr;
}

EdgePanel::~EdgePanel() = default;

bool EdgePanel::open(WindowSystem& windows, const QVariantMap& properties)
{
    m_view.setColor(Qt::transparent);
    m_panel = windows.makePanelWindow(m_view);
    if (m_panel == nullptr)
        return false;
    Surroundings::instance().setComposited(m_panel->isBlended());
    QQuickItem* const root = &showPage(m_view, source, properties);
    connect(root, SIGNAL(handleClicked()), this, SIGNAL(handleClicked()));
    connect(root, SIGNAL(menuRequested()), this, SIGNAL(menuRequested()));
    connect(root, SIGNAL(closeRequested()), this, SIGNAL(closeRequested()));
    connect(root, SIGNAL(shapesChanged()), this, SLOT(shapesChanged()));
    connect(m_panel.get(), &PanelWindow::blendingChanged, this, [this] {
        Surroundings::instance().setComposited(m_panel->isBlended());
        updateShape();
    });
    m_pointer = windows.makePointerFeed(m_view);
    if (m_pointer != nullptr) {
        connect(m_pointer.get(), &PointerFeed::moved, this, &EdgePanel::pointerMoved);
        connect(m_pointer.get(), &PointerFeed::left, this, &EdgePanel::pointerLeft);
        connect(m_pointer.get(), &PointerFeed::pressed, this, [this](QPoint position) {
            if (!isOnOther(m_view, position))
                Q_EMIT pressed(position);
        });
    }
    return true;
}

void EdgePanel::place(const QRect& frame)
{
    m_panel->setFrame(frame);
    updateShape();
}

void EdgePanel::setActive(const QRect& frame)
{
    frame.isEmpty() ? m_panel->hide() : m_panel->show();
    m_panel->setInputRegion(frame);
}

void EdgePanel::setKeyboardFocus(KeyboardFocus focus)
{
    m_panel->setKeyboardFocus(focus);
}

/// Where nothing shines through, the window is cut to what it shows.
void EdgePanel::updateShape()
{
    const double scale = m_view.effectiveDevicePixelRatio();
    const QRect all({}, (m_view.size().toSizeF() * scale).toSize());
    m_panel->setShape(m_panel->isBlended() ? all : shownShape(*m_view.rootObject(), scale));
}

} // namespace tessel
