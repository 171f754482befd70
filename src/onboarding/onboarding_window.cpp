// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "onboarding/onboarding_window.h"

#include "controls/controls.h"
#include "controls/look_pictures.h"
#include "onboarding/onboarding_images.h"

#include <QEvent>
#include <QGuiApplication>
#include <QQuickItem>
#include <QScreen>

#include <utility>

void qml_register_types_TesselBroth_Onboarding();

namespace tessel {

namespace {

const auto source = QStringLiteral("qrc:/qt-project.org/imports/TesselBroth/Onboarding/OnboardingRoot.qml");
constexpr QSize wholeSize(880, 560);

/// In the middle of where windows may be; a smaller screen has all of it, drawn smaller.
QRect frameOn(const QScreen& screen)
{
    const QRect space = screen.availableGeometry();
    QRect frame({}, wholeSize.scaled(wholeSize.boundedTo(space.size()), Qt::KeepAspectRatio));
    frame.moveCenter(space.center());
    return frame;
}

} // namespace

OnboardingWindow::OnboardingWindow(Onboarding& onboarding, LookPictures& pictures, Focus* focus)
    : m_onboarding(onboarding)
    , m_pictures(pictures)
    , m_focus(focus)
    , m_view(&m_engine, nullptr)
{
    installControls(m_engine, pictures);
    m_engine.addImageProvider(QStringLiteral("onboarding"), new OnboardingImages);
    qml_register_types_TesselBroth_Onboarding();
    m_view.setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    m_view.setColor(Qt::black);
    setFrame(frameOn(*QGuiApplication::primaryScreen()));
    QQuickItem* const root =
        &showPage(m_view, source, {{QStringLiteral("model"), QVariant::fromValue(&onboarding)}});
    connect(root, SIGNAL(closeRequested()), &m_view, SLOT(close()));
    connect(root, SIGNAL(moveRequested()), &m_view, SLOT(startSystemMove()));
    connect(root, SIGNAL(quitRequested()), this, SIGNAL(quitRequested()));
    m_view.installEventFilter(this);
    m_view.show();
}

OnboardingWindow::~OnboardingWindow()
{
    m_view.removeEventFilter(this);
    // What Qt deletes later waits for its pictures until then, which it must not beyond its engine.
    m_view.setSource({});
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_pictures.release();
}

void OnboardingWindow::setFrame(const QRect& frame)
{
    m_view.setGeometry(frame);
    m_view.setMinimumSize(frame.size());
    m_view.setMaximumSize(frame.size());
}

/// As a new window: of an old one, window systems keep the size and place in points of theirs.
void OnboardingWindow::fitScreen()
{
    const QRect frame = frameOn(*m_view.screen());
    if (frame.size() == m_view.size())
        return;
    m_view.destroy();
    setFrame(frame);
    m_view.show();
}

void OnboardingWindow::bringForward()
{
    m_view.raise();
    m_view.requestActivate();
    if (m_focus != nullptr)
        m_focus->give(m_view.winId());
}

bool OnboardingWindow::eventFilter(QObject* watched, QEvent* event)
{
    // It can get the focus as soon as it is to be seen.
    if (event->type() == QEvent::Expose && m_view.isExposed() && !std::exchange(m_isSeen, true))
        bringForward();
    if (event->type() == QEvent::Close)
        m_onboarding.finish(Ending::closed);
    return QObject::eventFilter(watched, event);
}

} // namespace tessel
