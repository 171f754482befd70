// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/surroundings.h"

#include <QDirIterator>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QQmlEngine>
#include <QWindow>

namespace tessel {

namespace {

// The first of these that there is.
QString familyOf(const QStringList& families)
{
    for (const QString& family : families)
        if (QFontDatabase::hasFamily(family))
            return family;
    return QGuiApplication::font().family();
}

void addFonts()
{
    QDirIterator files(QStringLiteral(":/fonts"));
    while (files.hasNext())
        QFontDatabase::addApplicationFont(files.next());
}

bool isModifier(int key)
{
    return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt || key == Qt::Key_Meta ||
           key == Qt::Key_AltGr || key == Qt::Key_CapsLock;
}

} // namespace

Surroundings& Surroundings::instance()
{
    static auto* const surroundings = new Surroundings; // QML may outlive everything static
    return *surroundings;
}

Surroundings* Surroundings::create(QQmlEngine* /*engine*/, QJSEngine* /*scripts*/)
{
    QQmlEngine::setObjectOwnership(&instance(), QQmlEngine::CppOwnership);
    return &instance();
}

Surroundings::Surroundings()
{
    addFonts();
    const QStringList text = {QStringLiteral("Inter"), QStringLiteral("Noto Sans"),
                              QStringLiteral("DejaVu Sans")};
    m_textFamily = familyOf(text);
    m_displayFamily = familyOf(QStringList(QStringLiteral("Modak")) + text);
    qGuiApp->installEventFilter(this);
}

void Surroundings::setReducedMotion(bool reduced)
{
    if (m_reducedMotion == reduced)
        return;
    m_reducedMotion = reduced;
    Q_EMIT reducedMotionChanged();
}

void Surroundings::setHighContrast(bool high)
{
    if (m_highContrast == high)
        return;
    m_highContrast = high;
    Q_EMIT highContrastChanged();
}

void Surroundings::setComposited(bool composited)
{
    if (m_composited == composited)
        return;
    m_composited = composited;
    Q_EMIT compositedChanged();
}

void Surroundings::setUsesKeys(bool uses)
{
    if (m_usesKeys == uses)
        return;
    m_usesKeys = uses;
    Q_EMIT usesKeysChanged();
}

bool Surroundings::eventFilter(QObject* watched, QEvent* event)
{
    if (qobject_cast<QWindow*>(watched) == nullptr)
        return false;
    if (event->type() == QEvent::KeyPress) {
        if (!isModifier(static_cast<QKeyEvent*>(event)->key()))
            setUsesKeys(true);
    } else if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::TouchBegin) {
        setUsesKeys(false);
    }
    return false;
}

} // namespace tessel
