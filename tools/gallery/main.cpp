// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Shows a QML page that is made of the interface's controls and saves a picture of it.
// Usage: gallery PAGE.qml OUT.png [SCALE]
// TESSEL_QML in the environment names a folder of QML modules that are taken instead of the built-in ones, so
// that changes can be seen without building.
#include "controls/controls.h"
#include "controls/look_pictures.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QQmlEngine>
#include <QQuickView>
#include <QTextStream>
#include <QTimer>

#include <chrono>

namespace {

// Long enough for every animation and picture of a page.
constexpr std::chrono::seconds settled{1};

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

    tessel::LookPictures pictures;
    QQuickView view;
    tessel::installControls(*view.engine(), pictures);
    if (qEnvironmentVariableIsSet("TESSEL_QML"))
        view.engine()->addImportPath(qEnvironmentVariable("TESSEL_QML"));
    view.setSource(QUrl::fromLocalFile(QString::fromLocal8Bit(argv[1])));
    if (view.status() != QQuickView::Ready)
        return 1;
    view.show();
    QKeyEvent key(QEvent::KeyPress, Qt::Key_F35, Qt::NoModifier); // rings are shown once a key was used
    QGuiApplication::sendEvent(&view, &key);
    bool saved = false;
    QTimer::singleShot(settled, &view, [&] {
        saved = view.grabWindow().save(QString::fromLocal8Bit(argv[2]));
        QGuiApplication::quit();
    });
    QGuiApplication::exec();
    return saved ? 0 : 1;
}
