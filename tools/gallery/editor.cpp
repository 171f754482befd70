// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Shows the editor with presets, palettes and a look of its own, does what it is told, and saves pictures of
// it. Usage: editor_gallery HEIGHT SCALE STEP... Steps: tab:NAME, move:X,Y, press:X,Y, release:X,Y,
// click:X,Y, rightclick:X,Y, wheel:X,Y,ANGLE, key:SEQUENCE, type:TEXT, look:JSON, apply, wait:MILLISECONDS,
// time:STEP (says how long a step takes until it is to be seen), rtl, focus:STOPS (walks along the chain of
// Tab and says what it finds), shot:FILE.png. Places are points of the editor.
#include "controls/controls.h"
#include "controls/live_picture.h"
#include "controls/look_pictures.h"
#include "editor/editor_model.h"
#include "model/look_json.h"
#include "model/store.h"
#include "render/headless_context.h"

#include <QAccessible>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMetaEnum>
#include <QMouseEvent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>
#include <QUuid>

#include <ctime>
#include <stdexcept>

void qml_register_types_TesselBroth_Editor();

namespace tessel {
namespace {

class OneScreen : public Screens
{
public:
    [[nodiscard]] std::vector<Screen> list() const override
    {
        return {{QStringLiteral("ONE"), QRect(0, 0, 1440, 900), 2.0}};
    }
};

class QuietSession : public Session
{
};

Preset preset(const char* name, const char* look, bool isAnimated)
{
    return {QUuid::createUuid().toString(QUuid::WithoutBraces).toStdString(), name, decodeLook(look),
            isAnimated};
}

void fill(Store& store)
{
    store.setCustomPalettes(
        {{0x10131F, 0x274B5E, 0xD9583B, 0xF7B05B, 0xFFF0D0}, {0x1E0214, 0x67083A, 0xB80F55, 0xF0668F}});
    store.setPresets({
        preset("Swell Hearth", R"({"pattern": 27, "palette": 24, "seed": 4})", true),
        preset("Late shift", R"({"pattern": 4, "palette": 100, "seed": 12})", true),
        preset("Planet Low Orbit", R"({"pattern": 21, "palette": 1, "seed": 5})", false),
        preset("Sunday borscht",
               R"({"pattern": 33, "custom": [1966612, 6752314, 12062549, 15754895, 16773608]})", true),
    });
    store.setLook(decodeLook(R"({"pattern": 0, "palette": 2, "seed": 8, "scale": 1.3, "warp": 1.48})"));
}

class Stage
{
public:
    Stage(int height, double scale)
        : m_store({.settingsFile = m_folder.filePath(QStringLiteral("settings.conf"))})
        , m_graphics([] { return std::make_unique<HeadlessContext>(); })
        , m_services{m_store, m_session, m_graphics, m_clocks, m_preparer}
        , m_preview(Source::editor, m_services, m_screens)
        , m_model({m_store, m_screens, m_clocks, m_graphics, services()})
        , m_scale(scale)
    {
        fill(m_store);
        m_preview.setFrozen(true);
        installControls(*m_view.engine(), m_pictures);
        qml_register_types_TesselBroth_Editor();
        if (qEnvironmentVariableIsSet("TESSEL_QML"))
            m_view.engine()->addImportPath(qEnvironmentVariable("TESSEL_QML"));
        m_view.setInitialProperties({{QStringLiteral("model"), QVariant::fromValue(&m_model)},
                                     {QStringLiteral("preview"), QVariant::fromValue(&m_preview)}});
        m_view.setResizeMode(QQuickView::SizeRootObjectToView);
        m_view.resize(312 + 2 * margin, height + 2 * margin);
    }

    void open(const QUrl& page)
    {
        const Watch watch;
        m_view.setSource(page);
        if (m_view.status() != QQuickView::Ready)
            throw std::runtime_error("the page cannot be loaded");
        m_view.show();
        m_view.requestActivate();
        waitForFrame();
        watch.say(QStringLiteral("open"));
    }

    void run(const QString& step)
    {
        const QString name = step.section(u':', 0, 0);
        const QString value = step.section(u':', 1);
        const QStringList numbers = value.split(u',');
        const QPoint place(numbers.value(0).toInt() + margin, numbers.value(1).toInt() + margin);
        if (name == QLatin1String("tab"))
            m_model.setTab(static_cast<EditorModel::Tab>(
                QMetaEnum::fromType<EditorModel::Tab>().keyToValue(value.toLatin1().constData())));
        else if (name == QLatin1String("move"))
            QTest::mouseMove(&m_view, place);
        else if (name == QLatin1String("press"))
            QTest::mousePress(&m_view, Qt::LeftButton, {}, place);
        else if (name == QLatin1String("release"))
            QTest::mouseRelease(&m_view, Qt::LeftButton, {}, place);
        else if (name == QLatin1String("click"))
            QTest::mouseClick(&m_view, Qt::LeftButton, {}, place);
        else if (name == QLatin1String("rightclick"))
            QTest::mouseClick(&m_view, Qt::RightButton, {}, place);
        else if (name == QLatin1String("wheel"))
            turnWheel(place, numbers.value(2).toInt());
        else if (name == QLatin1String("key"))
            QTest::keySequence(&m_view, QKeySequence(value));
        else if (name == QLatin1String("type"))
            for (const QChar letter : value)
                QTest::keyClick(&m_view, letter.toLatin1());
        else if (name == QLatin1String("look"))
            m_store.setLook(decodeLook(value.toStdString()));
        else if (name == QLatin1String("apply"))
            m_model.look()->apply();
        else if (name == QLatin1String("rtl"))
            QGuiApplication::setLayoutDirection(Qt::RightToLeft);
        else if (name == QLatin1String("wait"))
            QTest::qWait(value.toInt());
        else if (name == QLatin1String("time"))
            time(value);
        else if (name == QLatin1String("shot"))
            shoot(value);
        else if (name == QLatin1String("focus"))
            walkFocus(value.toInt());
        else
            throw std::runtime_error("there is no step " + name.toStdString());
    }

private:
    static constexpr int margin = 24;

    EditorServices services()
    {
        EditorServices services;
        services.chooseImage = [](const auto& /*chosen*/) {};
        services.choosePngFile = [this](const QString& name, const auto& chosen) {
            chosen(m_folder.filePath(name));
        };
        services.photoFolder = m_folder.path();
        return services;
    }

    /// Time that has passed, and what this thread has computed of it: others may be using the machine.
    class Watch
    {
    public:
        Watch() { m_wall.start(); }
        void say(const QString& what) const
        {
            QTextStream(stdout) << what << ": " << static_cast<double>(m_wall.nsecsElapsed()) / 1e6 << " ms, "
                                << (processorTime() - m_begin) * 1e3 << " ms of the processor\n";
        }

    private:
        static double processorTime()
        {
            timespec time{};
            clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
            return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
        }

        QElapsedTimer m_wall;
        double m_begin = processorTime();
    };

    void waitForFrame()
    {
        bool shown = false;
        const auto connection =
            QObject::connect(&m_view, &QQuickWindow::frameSwapped, &m_view, [&shown] { shown = true; });
        m_view.update();
        while (!shown)
            QGuiApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QObject::disconnect(connection);
    }

    void time(const QString& step)
    {
        const Watch watch;
        run(step);
        waitForFrame();
        watch.say(step);
    }

    void turnWheel(QPoint place, int angle)
    {
        QWheelEvent event(place, m_view.mapToGlobal(place), QPoint(), QPoint(0, angle), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QGuiApplication::sendEvent(&m_view, &event);
    }

    void shoot(const QString& file)
    {
        const QRect frame(QPoint(margin, margin) * m_scale,
                          QSize(312, m_view.height() - 2 * margin) * m_scale);
        m_view.grabWindow().copy(frame).save(file);
    }

    void walkFocus(int stops)
    {
        for (int stop = 0; stop < stops; ++stop) {
            QTest::keyClick(&m_view, Qt::Key_Tab);
            const QQuickItem* const item = m_view.activeFocusItem();
            QAccessibleInterface* const heard =
                QAccessible::queryAccessibleInterface(const_cast<QQuickItem*>(item));
            const QPointF place = item->mapToScene(QPointF(0, 0)) - QPointF(margin, margin);
            QTextStream(stdout) << stop << "  " << place.x() << "," << place.y() << "  "
                                << item->metaObject()->className() << "  "
                                << (heard ? heard->text(QAccessible::Name) : QString()) << "  "
                                << (heard ? static_cast<int>(heard->role()) : 0) << "\n";
        }
    }

    QTemporaryDir m_folder;
    Store m_store;
    OneScreen m_screens;
    QuietSession m_session;
    AnimationClocks m_clocks;
    Graphics m_graphics;
    LookPreparer m_preparer;
    SceneServices m_services;
    LivePicture m_preview;
    EditorModel m_model;
    LookPictures m_pictures;
    QQuickView m_view;
    double m_scale;
};

} // namespace
} // namespace tessel

int main(int argc, char** argv)
{
    if (argc < 4) {
        QTextStream(stderr) << "Usage: editor_gallery HEIGHT SCALE STEP...\n";
        return 2;
    }
    qputenv("QT_SCALE_FACTOR", argv[2]);
    qputenv("QSG_RENDER_LOOP", "basic");
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QGuiApplication app(argc, argv);
    QAccessible::setActive(true);
    try {
        tessel::Stage stage(atoi(argv[1]), atof(argv[2]));
        stage.open(QUrl(QStringLiteral("qrc:/gallery/Panel.qml")));
        for (int i = 3; i < argc; ++i)
            stage.run(QString::fromLocal8Bit(argv[i]));
    } catch (const std::exception& problem) {
        QTextStream(stderr) << problem.what() << "\n";
        return 1;
    }
    return 0;
}
