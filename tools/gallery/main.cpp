// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Shows a QML page that is made of the interface's controls and saves a picture of it.
// Usage: gallery PAGE.qml OUT.png [SCALE]
#include "controls/controls.h"

#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickView>
#include <QTextStream>
#include <QTimer>

#include <chrono>

namespace {

// Long enough for every animation and picture of a page.
constexpr std::chrono::seconds kSettled{1};

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3) {
        QTextStream(stderr) << "Usage: gallery PAGE.qml OUT.png [SCALE]\n";
        return 2;
    }
    qputenv("QT_SCALE_FACTOR", argc > 3 ? argv[3] : "2");
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QGuiApplication app(argc, argv);

    QQuickView view;
    tessel::installControls(*view.engine());
    view.setSource(QUrl::fromLocalFile(QString::fromLocal8Bit(argv[1])));
    if (view.status() != QQuickView::Ready)
        return 1;
    view.show();
    bool saved = false;
    QTimer::singleShot(kSettled, &view, [&] {
        saved = view.grabWindow().save(QString::fromLocal8Bit(argv[2]));
        QGuiApplication::quit();
    });
    QGuiApplication::exec();
    return saved ? 0 : 1;
}
