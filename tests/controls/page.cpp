// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/page.h"

#include "controls/controls.h"

#include <QQmlComponent>
#include <QTest>
#include <gtest/gtest.h>

namespace tessel {

Page::Page(const char* body)
{
    installControls(m_engine, m_pictures);
    QByteArray qml = "import QtQuick\nimport TesselBroth.Controls\n"
                     "Item { id: page; width: 400; height: 400; property string said;\n"
                     "function say(word) { said += (said === '' ? '' : ' ') + word }\n";
    qml += body;
    qml += "\n}";
    QQmlComponent component(&m_engine);
    component.setData(qml, QUrl(QStringLiteral("page.qml")));
    m_root.reset(qobject_cast<QQuickItem*>(component.create()));
    EXPECT_NE(m_root, nullptr) << component.errorString().toStdString();
    if (!m_root)
        return;
    m_root->setParentItem(m_window.contentItem());
    m_window.resize(400, 400);
    m_window.show();
    m_window.requestActivate();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&m_window, 60000));
}

QString Page::heard()
{
    QString said = m_root->property("said").toString();
    m_root->setProperty("said", QString());
    return said;
}

QQuickItem* Page::item(const char* name)
{
    // Not by findChild(): a delegate's visual parent does not own it.
    std::vector<QQuickItem*> left{m_window.contentItem()};
    while (!left.empty()) {
        QQuickItem* const item = left.back();
        left.pop_back();
        if (item->objectName() == QLatin1String(name))
            return item;
        for (QQuickItem* child : item->childItems())
            left.push_back(child);
    }
    ADD_FAILURE() << "There is no " << name;
    return nullptr;
}

QAccessibleInterface* Page::accessible(const char* name)
{
    return QAccessible::queryAccessibleInterface(item(name));
}

QVariant Page::property(const char* name, const char* property)
{
    return item(name)->property(property);
}

void Page::press(int key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(&m_window, static_cast<Qt::Key>(key), modifiers);
}

void Page::type(const char* text)
{
    for (const char* letter = text; *letter != '\0'; ++letter)
        QTest::keyClick(&m_window, *letter);
}

void Page::moveTo(const char* name, double x, double y)
{
    QTest::mouseMove(&m_window, item(name)->mapToScene(QPointF(x, y)).toPoint());
}

void Page::click(const char* name, Qt::MouseButton button)
{
    const QQuickItem* const target = item(name);
    const QPointF middle = target->mapToScene(QPointF(target->width() / 2, target->height() / 2));
    QTest::mouseClick(&m_window, button, {}, middle.toPoint());
}

QString Page::focus()
{
    const QQuickItem* const focused = m_window.activeFocusItem();
    return focused != nullptr ? focused->objectName() : QString();
}

} // namespace tessel
