// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include <QAccessible>
#include <QGuiApplication>
#include <QQuickWindow>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    // Also while the tests are only listed, for which nobody sets an environment.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QSG_RENDER_LOOP", "basic");
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QGuiApplication application(argc, argv);
    QAccessible::setActive(true);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
