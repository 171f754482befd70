// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/desktop_pictures.h"
#include "platform/linux/desktops/desktop_calls.h"
#include "platform/linux/desktops/gnome_pictures.h"
#include "platform/linux/desktops/lxqt_pictures.h"
#include "platform/linux/desktops/pcmanfm_pictures.h"
#include "platform/linux/desktops/plasma_pictures.h"
#include "platform/linux/desktops/queued_pictures.h"
#include "platform/linux/desktops/root_pictures.h"
#include "platform/linux/desktops/spanned_picture.h"
#include "platform/linux/desktops/xfce_pictures.h"
#include "platform/linux/x11/x11_connection.h"
#include "platform/linux/x11/x11_upload.h"
#include "support/fake_service.h"
#include "support/surroundings.h"

#include <QDBusArgument>
#include <QDBusVariant>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QSemaphore>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTimer>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <limits>

namespace tessel {
namespace {

using namespace std::chrono_literals;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Which = PictureBackend::Which;

MATCHER_P(Has, part, "")
{
    return arg.contains(QString::fromUtf8(part));
}

class DesktopPicturesTest : public testing::Test
{
protected:
    /// A picture in which every pixel differs from its neighbours.
    DesktopPicture picture(const QString& name, const QRect& place, const char* file, std::uint32_t seed)
    {
        QImage image(place.size(), QImage::Format_RGB32);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                image.setPixel(x, y,
                               0xFF000000U | (static_cast<QRgb>(y * 4096 + x) * 2654435761U + seed) >> 8U);
        }
        const QString path = folder.filePath(QLatin1String(file));
        EXPECT_TRUE(image.save(path));
        return {{name, place, 1}, path};
    }

    WithApplication<QCoreApplication> application;
    const QTemporaryDir folder;
    const QRect leftPlace{0, 40, 400, 300};
    const QRect rightPlace{420, 0, 200, 260};
    const std::vector<DesktopPicture> two{
        picture(QStringLiteral("HDMI-1"), leftPlace, "wall-00000000001000-0.png", 1),
        picture(QStringLiteral("DP-2"), rightPlace, "wall-00000000001000-1.png", 2)};
    const std::vector<DesktopPicture> newer{
        picture(QStringLiteral("HDMI-1"), leftPlace, "wall-00000000002000-0.png", 3),
        picture(QStringLiteral("DP-2"), rightPlace, "wall-00000000002000-1.png", 4)};
};

/// What the pictures look like together, black where there is none.
QImage together(const std::vector<DesktopPicture>& pictures, QSize size)
{
    QImage whole(size, QImage::Format_RGB32);
    whole.fill(Qt::black);
    for (const DesktopPicture& picture : pictures) {
        const QImage part(picture.file);
        const QPoint corner = picture.screen.pixels().topLeft();
        for (int y = 0; y < part.height(); ++y) {
            for (int x = 0; x < part.width(); ++x)
                if (whole.rect().contains(corner + QPoint(x, y)))
                    whole.setPixel(corner + QPoint(x, y), part.pixel(x, y));
        }
    }
    return whole;
}

/// Why none of the monitors got its picture.
QString commonReason(PictureBackend& backend, const std::vector<DesktopPicture>& pictures)
{
    try {
        static_cast<void>(backend.apply(pictures, Which::all));
        return {};
    } catch (const DesktopError& error) {
        return error.reason;
    }
}

// --- one request after the other ---

struct Record
{
    QStringList files; ///< the first of each request that was carried out
    QString desktop = QStringLiteral("first");
    bool refuses = true;
    bool shows = true;
    bool isGone = false; ///< and answers nothing
    QSemaphore allowed;
};

class RecordingBackend : public PictureBackend
{
public:
    explicit RecordingBackend(Record& record) : m_record(record) {}
    [[nodiscard]] QString desktop() const override { return m_record.desktop; }
    [[nodiscard]] QStringList apply(const std::vector<DesktopPicture>& pictures, Which which) override
    {
        m_record.allowed.acquire();
        if (m_record.isGone)
            throw DesktopError{QStringLiteral("it is gone.")};
        m_record.files << pictures.front().file + (which == Which::all ? QString() : QStringLiteral("?"));
        return m_record.refuses ? QStringList{m_record.files.last()} : QStringList();
    }
    [[nodiscard]] bool shows(const std::vector<DesktopPicture>& /*pictures*/) override
    {
        if (m_record.isGone)
            throw DesktopError{QStringLiteral("it is gone.")};
        return m_record.shows;
    }

private:
    Record& m_record;
};

class QueuedPicturesTest : public DesktopPicturesTest
{
protected:
    QueuedPicturesTest() { note(queue); }

    void note(const QueuedPictures& pictures)
    {
        QObject::connect(&pictures, &DesktopPictures::finished,
                         [this](const QStringList& failures) { answers << failures.join(QLatin1Char(' ')); });
    }

    Record record;
    QStringList answers;
    std::atomic<int> looks = 0;
    const QueuedPictures::Find find = [this]() -> std::unique_ptr<PictureBackend> {
        ++looks;
        if (record.desktop.isEmpty())
            return nullptr;
        return std::make_unique<RecordingBackend>(record);
    };
    QueuedPictures queue{record.desktop, find, 0ms};
};

TEST_F(QueuedPicturesTest, DoesTheFirstAndTheNewestAndAnswersAll)
{
    const std::vector<DesktopPicture> third{two[1]};
    queue.set(two);
    queue.set(third);
    queue.restore(third);
    queue.restore(newer);
    runEvents(20ms);
    EXPECT_THAT(answers, IsEmpty());
    record.allowed.release(10);
    const QString last = newer[0].file + QLatin1Char('?');
    ASSERT_TRUE(waitUntil([this] { return answers.size() >= 4; }));
    runEvents(20ms);
    EXPECT_THAT(record.files, ElementsAre(two[0].file, last));
    EXPECT_THAT(answers, ElementsAre(two[0].file, last, last, last));
}

TEST_F(QueuedPicturesTest, TellsAnotherDesktopThatStartsLater)
{
    record.allowed.release(10);
    queue.lookAgain();
    queue.set(two);
    ASSERT_TRUE(waitUntil([this] { return answers.size() == 1; }));
    queue.lookAgain();
    runEvents(50ms);
    EXPECT_THAT(record.files, ElementsAre(two[0].file)) << "the same desktop keeps what its user chose";
    int changes = 0;
    QObject::connect(&queue, &DesktopPictures::desktopChanged, [&changes] { ++changes; });
    record.desktop.clear();
    queue.lookAgain();
    ASSERT_TRUE(waitUntil([&changes] { return changes == 1; }));
    EXPECT_FALSE(queue.canSet());
    record.desktop = QStringLiteral("second");
    queue.lookAgain();
    ASSERT_TRUE(waitUntil([&changes] { return changes == 2; }));
    EXPECT_TRUE(queue.canSet());
    ASSERT_TRUE(waitUntil([this] { return record.files.size() == 2; }));
    runEvents(20ms);
    EXPECT_EQ(record.files.last(), two[0].file + QLatin1Char('?'));
    EXPECT_THAT(answers, SizeIs(1)) << "nobody asked";
}

TEST_F(QueuedPicturesTest, WaitsForADesktopThatIsStillStarting)
{
    record.allowed.release(10);
    record.refuses = false;
    record.desktop.clear();
    QueuedPictures patient(QString(), find, 1h);
    note(patient);
    patient.set(two);
    ASSERT_TRUE(waitUntil([this] { return looks == 1; }));
    patient.restore(newer);
    runEvents(50ms);
    EXPECT_THAT(answers, IsEmpty());
    record.desktop = QStringLiteral("late");
    patient.lookAgain();
    ASSERT_TRUE(waitUntil([this] { return answers.size() == 2; }));
    EXPECT_THAT(answers, Each(QString()));
    EXPECT_THAT(record.files, ElementsAre(newer[0].file + QLatin1Char('?')));

    record.desktop.clear();
    QueuedPictures impatient(QString(), find, 50ms);
    note(impatient);
    impatient.set(two);
    ASSERT_TRUE(waitUntil([this] { return answers.size() == 3; }));
    EXPECT_THAT(answers.last(), Has("no way to set pictures"));
}

TEST_F(QueuedPicturesTest, TellsOnceOfAPictureThatSomebodyElseHasSet)
{
    record.allowed.release(10);
    record.shows = false;
    int replacements = 0;
    QObject::connect(&queue, &DesktopPictures::replaced, [&replacements] { ++replacements; });
    const auto look = [&] {
        // The second begins when the first is done with.
        for (int i = 0; i < 2; ++i) {
            const int before = looks;
            queue.lookAgain();
            EXPECT_TRUE(waitUntil([&] { return looks > before; }));
        }
        runEvents(20ms);
    };
    const auto set = [&](const std::vector<DesktopPicture>& pictures) {
        const auto before = answers.size();
        queue.set(pictures);
        EXPECT_TRUE(waitUntil([&] { return answers.size() > before; }));
    };
    look();
    set(two);
    look();
    EXPECT_EQ(replacements, 0) << "it took none of ours";
    record.refuses = false;
    set(two);
    EXPECT_EQ(replacements, 0);
    look();
    EXPECT_EQ(replacements, 1);
    record.desktop = QStringLiteral("second");
    look();
    EXPECT_EQ(replacements, 1);
    EXPECT_THAT(record.files, SizeIs(2)) << "what is no longer wanted is told to nobody";
    record.shows = true;
    set(newer);
    look();
    EXPECT_EQ(replacements, 1);
}

TEST_F(QueuedPicturesTest, ADesktopThatIsGoneIsToldForEveryMonitorAndHasReplacedNothing)
{
    record.allowed.release(10);
    record.refuses = false;
    int replacements = 0;
    QObject::connect(&queue, &DesktopPictures::replaced, [&replacements] { ++replacements; });
    queue.set(two);
    ASSERT_TRUE(waitUntil([this] { return answers.size() == 1; }));
    record.isGone = true;
    queue.lookAgain();
    queue.set(two);
    ASSERT_TRUE(waitUntil([this] { return answers.size() == 2; }));
    EXPECT_THAT(answers[1], Has("HDMI-1: it is gone."));
    EXPECT_THAT(answers[1], Has("DP-2: it is gone."));
    EXPECT_EQ(replacements, 0);
}

TEST_F(QueuedPicturesTest, LeavesOutAFileThatIsGone)
{
    record.allowed.release(10);
    QFile::remove(two[0].file);
    queue.set(two);
    ASSERT_TRUE(waitUntil([this] { return !answers.isEmpty(); }));
    EXPECT_THAT(record.files, ElementsAre(two[1].file));
    EXPECT_THAT(answers.first(), Has("HDMI-1"));
    EXPECT_THAT(answers.first(), Has("wall-00000000001000-0.png is gone"));
}

// --- desktops on a message bus ---

class OnBusTest : public DesktopPicturesTest
{
protected:
    PrivateBus bus;
    const QDBusConnection ours = bus.connect();
};

TEST_F(OnBusTest, AHungDesktopIsWaitedForOnce)
{
    FakeService service(bus.connect(), "org.kde.plasmashell", "/PlasmaShell",
                        [](const QString&, const QVariantList&) { return QVariantList(); });
    service.hang();
    DesktopCalls calls(ours, 200ms);
    const DesktopCalls::Method method{QStringLiteral("org.kde.plasmashell"), QStringLiteral("/PlasmaShell"),
                                      QStringLiteral("org.kde.PlasmaShell"),
                                      QStringLiteral("evaluateScript")};
    EXPECT_THROW(calls.call(method, {}), DesktopError);
    EXPECT_EQ(service.unanswered(), 1);
    EXPECT_THROW(calls.call(method, {}), DesktopError);
    EXPECT_THROW(calls.run(QStringLiteral("true"), {}), DesktopError);
    EXPECT_EQ(service.unanswered(), 1) << "it is not asked again";

    DesktopCalls programs(ours, 200ms);
    EXPECT_EQ(programs.run(QStringLiteral("echo"), {QStringLiteral("yes")}), QStringLiteral("yes"));
    try {
        programs.run(QStringLiteral("sh"),
                     {QStringLiteral("-c"), QStringLiteral("printf %9999d 1 | tr ' ' x >&2; false")});
        ADD_FAILURE() << "it has failed";
    } catch (const DesktopError& error) {
        EXPECT_THAT(error.reason, Has("xxx"));
        EXPECT_LT(error.reason.size(), 500);
    }
    EXPECT_THROW(programs.run(QStringLiteral("sleep"), {QStringLiteral("60")}), DesktopError);
}

/// Waits an hour for its desktop.
class PatientBackend : public PictureBackend
{
public:
    explicit PatientBackend(const QDBusConnection& bus) : m_calls(bus, 1h) {}
    [[nodiscard]] QString desktop() const override { return QStringLiteral("patient"); }
    [[nodiscard]] QStringList apply(const std::vector<DesktopPicture>& /*pictures*/, Which /*which*/) override
    {
        m_calls.call({QStringLiteral("org.kde.plasmashell"), QStringLiteral("/PlasmaShell"),
                      QStringLiteral("org.kde.PlasmaShell"), QStringLiteral("evaluateScript")},
                     {});
        return {};
    }
    [[nodiscard]] bool shows(const std::vector<DesktopPicture>& /*pictures*/) override { return true; }

private:
    DesktopCalls m_calls;
};

TEST_F(OnBusTest, DoesNotKeepTheProgramFromEndingWhileADesktopHangs)
{
    FakeService service(bus.connect(), "org.kde.plasmashell", "/PlasmaShell",
                        [](const QString&, const QVariantList&) { return QVariantList(); });
    service.hang();
    auto queue = std::make_unique<QueuedPictures>(
        QString(), [this] { return std::make_unique<PatientBackend>(ours); }, 0ms);
    queue->set(two);
    ASSERT_TRUE(waitUntil([&service] { return service.unanswered() == 1; }));
    queue.reset(); // within the hour
}

class XfceTest : public OnBusTest
{
protected:
    std::optional<QVariantList> answer(const QString& method, const QVariantList& arguments)
    {
        EXPECT_EQ(arguments.value(0), QStringLiteral("xfce4-desktop"));
        if (method == QLatin1String("GetAllProperties"))
            return allBelow(arguments.value(1).toString());
        EXPECT_EQ(method, QStringLiteral("SetProperty"));
        const QString key = arguments.value(1).toString();
        if (key == locked)
            return std::nullopt;
        changed << key;
        settings[key] = arguments.value(2).value<QDBusVariant>().variant();
        return QVariantList();
    }
    /// As the real service does: there is no folder without settings, but for the uppermost.
    std::optional<QVariantList> allBelow(const QString& path)
    {
        QVariantMap found = settings;
        found.removeIf([&path](const auto& setting) { return !setting.key().startsWith(path); });
        if (found.isEmpty() && path != QLatin1String("/"))
            return std::nullopt;
        return QVariantList{found};
    }
    static QString key(const char* monitor, int workspace, const char* name)
    {
        return QStringLiteral("/backdrop/screen0/monitor%1/workspace%2/%3")
            .arg(QLatin1String(monitor))
            .arg(workspace)
            .arg(QLatin1String(name));
    }

    QVariantMap settings{{key("HDMI-1", 0, "last-image"), QStringLiteral("/old.png")},
                         {key("HDMI-1", 0, "image-style"), 0},
                         {key("HDMI-1", 3, "last-image"), QStringLiteral("/old.png")},
                         {key("HDMI-1", 3, "image-style"), 4},
                         {key("HDMI-10", 7, "last-image"), QStringLiteral("/other.png")}};
    QString locked;
    QStringList changed;
    FakeService service{
        bus.connect(), "org.xfce.Xfconf", "/org/xfce/Xfconf",
        [this](const QString& method, const QVariantList& arguments) { return answer(method, arguments); }};
    XfcePictures xfce{ours, 2};
};

TEST_F(XfceTest, SetsEveryWorkspaceOfEveryMonitor)
{
    EXPECT_THAT(xfce.apply(two, Which::all), IsEmpty());
    for (const int workspace : {0, 1, 3})
        EXPECT_EQ(settings.value(key("HDMI-1", workspace, "last-image")), two[0].file) << workspace;
    for (const int workspace : {0, 1})
        EXPECT_EQ(settings.value(key("DP-2", workspace, "last-image")), two[1].file) << workspace;
    EXPECT_EQ(settings.value(key("HDMI-10", 7, "last-image")), QStringLiteral("/other.png"));
    EXPECT_EQ(settings.value(key("HDMI-1", 0, "image-style")), 5) << "nothing was shown before";
    EXPECT_EQ(settings.value(key("HDMI-1", 3, "image-style")), 4) << "the user's choice";
    EXPECT_FALSE(settings.contains(key("DP-2", 0, "image-style")));
}

TEST_F(XfceTest, SetsThePicturesOfAUserWhoNeverDid)
{
    settings.clear();
    EXPECT_THAT(xfce.apply(two, Which::all), IsEmpty());
    EXPECT_EQ(settings.value(key("HDMI-1", 1, "last-image")), two[0].file);
}

TEST_F(XfceTest, ManyWorkspacesThatSomebodySaysThereAreAreNotTried)
{
    XfcePictures many(ours, std::numeric_limits<int>::max());
    EXPECT_THAT(many.apply(std::vector{two[0]}, Which::all), IsEmpty());
    EXPECT_LT(settings.size(), 1000);
}

TEST_F(XfceTest, RestoresOnlyWhatDiffers)
{
    EXPECT_THAT(xfce.apply(two, Which::all), IsEmpty());
    settings[key("DP-2", 1, "last-image")] = QStringLiteral("/chosen.png");
    changed.clear();
    EXPECT_THAT(xfce.apply(two, Which::different), IsEmpty());
    EXPECT_THAT(changed, ElementsAre(key("DP-2", 1, "last-image")));
    EXPECT_TRUE(xfce.shows(two));
    settings[key("HDMI-1", 0, "last-image")] = QStringLiteral("/chosen.png");
    EXPECT_FALSE(xfce.shows(two));
}

TEST_F(XfceTest, ARefusalNamesItsMonitorAndLeavesTheOthersTheirs)
{
    locked = key("HDMI-1", 1, "last-image");
    const QStringList failures = xfce.apply(two, Which::all);
    ASSERT_THAT(failures, SizeIs(1));
    EXPECT_EQ(failures.first(),
              QStringLiteral("The desktop did not take the picture for HDMI-1: it does not allow it."));
    EXPECT_EQ(settings.value(key("DP-2", 1, "last-image")), two[1].file);
}

TEST_F(OnBusTest, PlasmaIsToldInOneScriptAndSaysWhatItTook)
{
    QString script;
    std::optional<QVariantList> answer = QVariantList{QStringLiteral("[[2,2],[1,1]]")};
    const FakeService service(bus.connect(), "org.kde.plasmashell", "/PlasmaShell",
                              [&](const QString& method, const QVariantList& arguments) {
                                  EXPECT_EQ(method, QStringLiteral("evaluateScript"));
                                  script = arguments.value(0).toString();
                                  return answer;
                              });
    PlasmaPictures plasma(ours);
    // A name that would end a text of the script.
    DesktopPicture odd = picture(QStringLiteral("DP-3"), {620, 0, 20, 20}, R"(it's "100%" \ new.png)", 5);
    EXPECT_THAT(plasma.apply({two[0], odd}, Which::all), IsEmpty());
    EXPECT_THAT(script, Has("wall-00000000001000-0.png"));
    EXPECT_THAT(script, Has(R"("frame":{"height":300,"width":400,"x":0,"y":40})"));
    EXPECT_THAT(script, Has(R"(it's \"100%\" \\ new.png)"));
    EXPECT_THAT(script, Has("it's%20%22100%25%22%20%5C%20new.png"));
    EXPECT_THAT(script, Has("change = 'all'"));

    answer = QVariantList{QStringLiteral("[[2,1],[0,0]]")};
    EXPECT_THAT(
        plasma.apply(two, Which::different),
        ElementsAre(Has("HDMI-1: it kept the picture"), Has("DP-2: it has no desktop on this monitor")));
    EXPECT_THAT(script, Has("change = 'different'"));
    EXPECT_FALSE(plasma.shows(two));
    EXPECT_THAT(script, Has("change = 'none'"));
    answer = QVariantList{QStringLiteral("[[2,2],[0,0]]")};
    EXPECT_TRUE(plasma.shows(two));
    answer = QVariantList{QStringLiteral("Widgets are locked")};
    EXPECT_THAT(commonReason(plasma, two), Has("it answered “Widgets are locked”"));
    answer = std::nullopt;
    EXPECT_THAT(commonReason(plasma, two), Has("it does not allow"));
}

TEST_F(OnBusTest, LxqtIsToldOnePictureForAllMonitors)
{
    const Variable configuration("XDG_CONFIG_HOME", folder.path().toUtf8());
    const QString settings = folder.filePath(QStringLiteral("pcmanfm-qt/default/settings.conf"));
    const auto write = [&settings](const char* key, const QVariant& value) {
        QSettings(settings, QSettings::IniFormat)
            .setValue(QLatin1String("Desktop/") + QLatin1String(key), value);
    };
    std::vector<QVariantList> calls;
    bool takesIt = true;
    const FakeService service(bus.connect(), "org.pcmanfm.PCManFM", "/Application",
                              [&](const QString& method, const QVariantList& arguments) {
                                  EXPECT_EQ(method, QStringLiteral("setWallpaper"));
                                  calls.push_back(arguments);
                                  if (takesIt)
                                      write("Wallpaper", arguments.value(0));
                                  return QVariantList();
                              });
    LxqtPictures lxqt(ours);
    EXPECT_THAT(lxqt.apply(two, Which::different), IsEmpty());
    EXPECT_THAT(calls, ElementsAre(QVariantList{spannedFile(two), QStringLiteral("stretch")}));
    EXPECT_EQ(QImage(spannedFile(two)).size(), QSize(620, 340));

    write("WallpaperMode", QStringLiteral("fit"));
    EXPECT_THAT(lxqt.apply(two, Which::different), IsEmpty());
    EXPECT_THAT(calls, SizeIs(1)) << "it shows that already";
    EXPECT_TRUE(lxqt.shows(two));
    EXPECT_FALSE(lxqt.shows(newer));
    write("PerScreenWallpaper", true);
    EXPECT_THAT(lxqt.apply(newer, Which::different), IsEmpty());
    EXPECT_EQ(calls.back(), (QVariantList{newer[0].file, QString()}));
    EXPECT_FALSE(QFile::exists(spannedFile(newer)));
    takesIt = false;
    EXPECT_THAT(commonReason(lxqt, two), Has("its settings"));
}

// --- one picture for all monitors ---

TEST_F(DesktopPicturesTest, SpansUnequalMonitorsWithAGap)
{
    EXPECT_EQ(spannedFile({two[0]}), two[0].file);
    ASSERT_EQ(writeSpanned(two), QString());
    EXPECT_THAT(QFileInfo(spannedFile(two)).fileName(), testing::Truly([](const QString& name) {
                    return name.startsWith(QLatin1String("span-00000000001000-"));
                }));
    EXPECT_EQ(QImage(spannedFile(two)).convertToFormat(QImage::Format_RGB32), together(two, {620, 340}));

    std::vector<DesktopPicture> moved = two;
    moved[0].screen.frame.moveTo(-400, 0);
    ASSERT_EQ(writeSpanned(moved), QString());
    EXPECT_NE(spannedFile(moved), spannedFile(two)) << "the same files in other places";
    EXPECT_EQ(QImage(spannedFile(moved)).size(), QSize(1020, 300));
}

TEST_F(DesktopPicturesTest, SpansMonitorsThatAreLaidOutByPoints)
{
    std::vector<DesktopPicture> pictures = two;
    for (DesktopPicture& picture : pictures) {
        picture.screen.layout = Layout::points;
        picture.screen.scale = 2;
    }
    ASSERT_EQ(writeSpanned(pictures), QString());
    EXPECT_EQ(QImage(spannedFile(pictures)).size(), QSize(1240, 680));
}

TEST_F(DesktopPicturesTest, KeepsTheNewestTwoSpannedPictures)
{
    const QStringList ownFiles{QStringLiteral("wall-*"), QStringLiteral("spanner.png")};
    QFile(folder.filePath(ownFiles.last())).open(QIODevice::WriteOnly);
    QStringList names;
    for (const char* file :
         {"wall-00000000003000-1.png", "wall-00000000004000-1.png", "wall-00000000005000-1.png"}) {
        const std::vector<DesktopPicture> pictures{two[0],
                                                   picture(QStringLiteral("DP-2"), rightPlace, file, 9)};
        ASSERT_EQ(writeSpanned(pictures), QString());
        names << QFileInfo(spannedFile(pictures)).fileName();
        QThread::msleep(20);
    }
    EXPECT_THAT(QDir(folder.path()).entryList({QStringLiteral("span*")}, QDir::Files, QDir::Name),
                ElementsAre(names[1], names[2], ownFiles.last()));
}

TEST_F(DesktopPicturesTest, SaysWhySpanningFails)
{
    QFile broken(two[1].file);
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("no picture");
    broken.close();
    EXPECT_THAT(writeSpanned(two), Has("wall-00000000001000-1.png cannot be read"));
    EXPECT_FALSE(QFile::exists(spannedFile(two)));
}

TEST_F(OnBusTest, GnomeShowsTheSpannedPictureOnSeveralMonitors)
{
    const QString schema = QStringLiteral("org.gnome.desktop.background");
    const Variable backend("GSETTINGS_BACKEND", "keyfile");
    const Variable configuration("XDG_CONFIG_HOME", folder.path().toUtf8());
    DesktopCalls calls(ours);
    try {
        calls.run(QStringLiteral("gsettings"), {QStringLiteral("list-keys"), schema});
    } catch (const DesktopError& error) {
        GTEST_SKIP() << "GNOME's settings cannot be read here: " << qPrintable(error.reason);
    }
    const auto get = [&](const char* key) {
        return calls.run(QStringLiteral("gsettings"), {QStringLiteral("get"), schema, QLatin1String(key)});
    };
    GnomePictures gnome(ours, schema);
    calls.run(QStringLiteral("gsettings"),
              {QStringLiteral("set"), schema, QStringLiteral("picture-options"), QStringLiteral("none")});
    const DesktopPicture odd = picture(QStringLiteral("DP-3"), {0, 0, 20, 20}, R"(it's "100%" \ new.png)", 5);
    EXPECT_THAT(gnome.apply({odd}, Which::all), IsEmpty());
    EXPECT_THAT(get("picture-uri"), Has("it's%20%22100%25%22%20%5C%20new.png"));
    EXPECT_EQ(get("picture-options"), QStringLiteral("'zoom'"));

    EXPECT_THAT(gnome.apply(two, Which::all), IsEmpty());
    const QString url = QStringLiteral("'file://%1'").arg(spannedFile(two));
    EXPECT_EQ(get("picture-uri"), url);
    EXPECT_EQ(get("picture-uri-dark"), url);
    EXPECT_EQ(get("picture-options"), QStringLiteral("'spanned'"));

    const QString store = folder.filePath(QStringLiteral("glib-2.0/settings/keyfile"));
    const QDateTime before = QFileInfo(store).lastModified();
    EXPECT_THAT(gnome.apply(two, Which::different), IsEmpty());
    EXPECT_EQ(QFileInfo(store).lastModified(), before) << "it shows that already";

    GnomePictures unknown(ours, QStringLiteral("org.example.none"));
    EXPECT_THAT(commonReason(unknown, two), Has("it answered “No such schema"));
    // Without this backend what is set is lost with the program that sets it.
    const Variable memory("GSETTINGS_BACKEND", "memory");
    EXPECT_THAT(commonReason(gnome, newer), Has("its setting"));
}

// --- X11 ---

class OnX11Test : public DesktopPicturesTest
{
protected:
    QImage content(xcb_drawable_t drawable)
    {
        const XcbPointer<xcb_get_geometry_reply_t> size(
            xcb_get_geometry_reply(x.get(), xcb_get_geometry(x.get(), drawable), nullptr));
        if (size == nullptr)
            return {};
        const auto cookie =
            xcb_get_image(x.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, drawable, 0, 0, size->width, size->height, ~0U);
        const XcbPointer<xcb_get_image_reply_t> reply(xcb_get_image_reply(x.get(), cookie, nullptr));
        if (reply == nullptr)
            return {};
        const QImage image(xcb_get_image_data(reply.get()), size->width, size->height, QImage::Format_RGB32);
        return image.convertToFormat(QImage::Format_ARGB32).convertToFormat(QImage::Format_RGB32);
    }

    /// Both properties, which must agree.
    xcb_pixmap_t rootPixmap()
    {
        const auto pixmap = x.property(x.root(), "_XROOTPMAP_ID", XCB_ATOM_PIXMAP);
        EXPECT_EQ(x.property(x.root(), "ESETROOT_PMAP_ID", XCB_ATOM_PIXMAP), pixmap);
        return pixmap.empty() ? xcb_pixmap_t{XCB_NONE} : pixmap.front();
    }

    xcb_window_t window(const QRect& place, const char* type = nullptr, std::uint32_t process = 0,
                        std::string_view names = {})
    {
        const xcb_window_t id = xcb_generate_id(x.get());
        const std::uint32_t values[] = {0x123456};
        xcb_create_window(x.get(), XCB_COPY_FROM_PARENT, id, x.root(), static_cast<std::int16_t>(place.x()),
                          static_cast<std::int16_t>(place.y()), static_cast<std::uint16_t>(place.width()),
                          static_cast<std::uint16_t>(place.height()), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                          XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL, values);
        if (type != nullptr)
            x.setProperty(id, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM, std::array{x.atom(type)});
        x.setProperty(id, "_NET_WM_PID", XCB_ATOM_CARDINAL, std::array{process});
        xcb_change_property(x.get(), XCB_PROP_MODE_REPLACE, id, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8,
                            static_cast<std::uint32_t>(names.size()), names.data());
        xcb_map_window(x.get(), id);
        x.sync();
        return id;
    }

    VirtualDisplay display{QStringLiteral("640x400x24")};
    X11Connection x;
    RootPictures root;
};

TEST_F(OnX11Test, TheRootShowsEveryMonitorsPictureInItsPlace)
{
    EXPECT_THAT(root.apply(two, Which::all), IsEmpty());
    const QImage expected = together(two, {640, 400});
    EXPECT_EQ(content(rootPixmap()), expected);
    EXPECT_EQ(content(x.root()), expected) << "shown at once, too";

    const xcb_pixmap_t before = rootPixmap();
    EXPECT_THAT(root.apply(newer, Which::all), IsEmpty());
    EXPECT_EQ(content(x.root()), together(newer, {640, 400}));
    EXPECT_NE(rootPixmap(), before);
    EXPECT_TRUE(content(before).isNull()) << "the pixmap before is freed";
}

TEST_F(OnX11Test, TheRootIsRestoredOnlyWhereItDiffers)
{
    EXPECT_THAT(root.apply(two, Which::all), IsEmpty());
    const xcb_pixmap_t before = rootPixmap();
    EXPECT_THAT(root.apply(two, Which::different), IsEmpty());
    EXPECT_EQ(rootPixmap(), before);

    // The left file is not even read again.
    QFile::remove(two[0].file);
    EXPECT_THAT(root.apply({two[0], newer[1]}, Which::different), IsEmpty());
    const QImage right = content(x.root()).copy(rightPlace);
    EXPECT_EQ(right, together(newer, {640, 400}).copy(rightPlace));
    EXPECT_THAT(root.apply({two[0], newer[1]}, Which::all), ElementsAre(Has("HDMI-1: the file")));
    EXPECT_EQ(content(x.root()).copy(rightPlace), right);
}

TEST_F(OnX11Test, TheRootIsSetAgainAfterAnotherProgramChangedIt)
{
    EXPECT_THAT(root.apply(two, Which::all), IsEmpty());
    const xcb_pixmap_t foreign = xcb_generate_id(x.get());
    xcb_create_pixmap(x.get(), 24, foreign, x.root(), 640, 400);
    // It stands in one property only, so its owner is alive, and would be ended with it.
    x.setProperty(x.root(), "_XROOTPMAP_ID", XCB_ATOM_PIXMAP, {&foreign, 1});
    x.sync();
    EXPECT_FALSE(root.shows(two));
    EXPECT_THAT(root.apply(two, Which::different), IsEmpty());
    EXPECT_TRUE(root.shows(two));
    EXPECT_EQ(content(x.root()), together(two, {640, 400}));
    EXPECT_NE(rootPixmap(), foreign);
    EXPECT_FALSE(content(foreign).isNull());
}

TEST_F(OnX11Test, ANumberThatIsAWindowsNowIsNoReasonToEndItsOwner)
{
    const xcb_window_t id = window(QRect(0, 0, 20, 20));
    for (const char* name : {"_XROOTPMAP_ID", "ESETROOT_PMAP_ID"})
        x.setProperty(x.root(), name, XCB_ATOM_PIXMAP, {&id, 1});
    x.sync();
    EXPECT_THAT(root.apply(two, Which::all), IsEmpty());
    x.sync();
    EXPECT_TRUE(x.isValid());
    EXPECT_EQ(content(rootPixmap()), together(two, {640, 400}));
}

TEST_F(OnX11Test, TheRootIsSetAgainWhenItGrows)
{
    EXPECT_THAT(root.apply({two[0]}, Which::all), IsEmpty());
    xrandr("--fb 640x400 --output screen --off");
    xrandr("--fb 600x380");
    EXPECT_THAT(root.apply({two[0]}, Which::different), IsEmpty());
    EXPECT_EQ(content(rootPixmap()), together({two[0]}, {600, 380}));
    xrandr("--fb 640x400");
    EXPECT_THAT(root.apply(two, Which::different), IsEmpty());
    EXPECT_EQ(content(rootPixmap()), together(two, {640, 400}));
}

// --- which desktop runs ---

class DetectionTest : public OnX11Test
{
protected:
    [[nodiscard]] QString found() const
    {
        const std::unique_ptr<PictureBackend> backend = findPictureBackend(ours);
        return backend == nullptr ? QStringLiteral("unknown") : backend->desktop();
    }

    const Variable session{"XDG_CURRENT_DESKTOP", ""};
    PrivateBus bus;
    const QDBusConnection ours = bus.connect();
};

TEST_F(DetectionTest, GoesByWhoDrawsTheDesktop)
{
    const QRect everything(0, 0, 640, 400);
    const auto with = [&](const QRect& place, std::uint32_t process, std::string_view names) {
        const xcb_window_t id = window(place, "_NET_WM_WINDOW_TYPE_DESKTOP", process, names);
        QString desktop = found();
        xcb_destroy_window(x.get(), id);
        x.sync();
        return desktop;
    };
    using namespace std::string_view_literals;
    EXPECT_EQ(found(), QStringLiteral("X11"));
    EXPECT_EQ(with(everything, 1, "files\0Files\0"sv), QStringLiteral("unknown"));
    EXPECT_EQ(with(everything, 1, "broken"sv), QStringLiteral("unknown"));
    EXPECT_EQ(with(everything, 1, {}), QStringLiteral("unknown"));
    EXPECT_EQ(with(everything, static_cast<std::uint32_t>(getpid()), "tests\0Tests\0"sv),
              QStringLiteral("X11"));
    EXPECT_EQ(with(QRect(400, 20, 120, 200), 1, "clock\0Clock\0"sv), QStringLiteral("X11"));
    EXPECT_EQ(with(everything, 1, "xfdesktop\0Xfdesktop\0"sv), QStringLiteral("XFCE"));
    EXPECT_EQ(with(everything, 1, "pcmanfm\0Pcmanfm\0"sv), QStringLiteral("LXDE"));

    QDBusConnection files = bus.connect();
    EXPECT_TRUE(files.registerService(QStringLiteral("org.pcmanfm.PCManFM")));
    EXPECT_EQ(found(), QStringLiteral("X11")) << "a file manager only";
    EXPECT_EQ(with(everything, 1, "pcmanfm-qt\0pcmanfm-qt\0"sv), QStringLiteral("LXQt"));

    const Variable wayland("WAYLAND_DISPLAY", "wayland-7");
    EXPECT_EQ(found(), QStringLiteral("unknown")) << "nobody sees that root window";
}

TEST_F(DetectionTest, GoesByWhatIsOnTheBus)
{
    QDBusConnection others = bus.connect();
    EXPECT_TRUE(others.registerService(QStringLiteral("com.canonical.Unity")));
    EXPECT_EQ(found(), QStringLiteral("X11")) << "docks have that name";
    for (const auto& [name, desktop] : {std::pair{"org.gnome.Shell", "org.gnome.desktop.background"},
                                        std::pair{"org.xfce.xfdesktop", "XFCE"},
                                        std::pair{"org.Cinnamon", "org.cinnamon.desktop.background"},
                                        std::pair{"org.mate.SettingsDaemon", "org.mate.background"},
                                        std::pair{"org.kde.plasmashell", "Plasma"}}) {
        EXPECT_TRUE(others.registerService(QLatin1String(name)));
        EXPECT_EQ(found(), QLatin1String(desktop));
        EXPECT_TRUE(others.unregisterService(QLatin1String(name)));
    }
    EXPECT_TRUE(others.registerService(QStringLiteral("org.kde.plasmashell")));
    EXPECT_TRUE(others.registerService(QStringLiteral("org.gnome.Shell")));
    EXPECT_EQ(found(), QStringLiteral("Plasma"));
    const Variable named("XDG_CURRENT_DESKTOP", "ubuntu:GNOME");
    EXPECT_EQ(found(), QStringLiteral("org.gnome.desktop.background"));
}

TEST_F(DetectionTest, AWindowThatComesOrGoesMakesAnotherDesktop)
{
    using namespace std::string_view_literals;
    const auto list = [this](const std::vector<std::uint32_t>& windows) {
        x.setProperty(x.root(), "_NET_CLIENT_LIST", XCB_ATOM_WINDOW, windows);
        x.sync();
    };
    const xcb_window_t files =
        window(QRect(0, 0, 640, 400), "_NET_WM_WINDOW_TYPE_DESKTOP", 1, "files\0Files\0"sv);
    list({files});
    const std::unique_ptr<DesktopPictures> pictures = makeDesktopPictures(ours);
    EXPECT_FALSE(pictures->canSet());
    QStringList failures;
    QObject::connect(pictures.get(), &DesktopPictures::finished,
                     [&failures](const QStringList& messages) { failures = messages; });
    pictures->set(two);
    ASSERT_TRUE(waitUntil([&failures] { return !failures.isEmpty(); }));
    EXPECT_THAT(failures, ElementsAre(Has("HDMI-1"), Has("no way to set pictures")));

    xcb_destroy_window(x.get(), files);
    list({});
    ASSERT_TRUE(waitUntil([&pictures] { return pictures->canSet(); }));
    EXPECT_EQ(content(x.root()), together(two, {640, 400})) << "it has got what it could not show before";
}

/// LXDE's file manager, played by a program that saves what it is told.
class PcmanfmTest : public OnX11Test
{
protected:
    PcmanfmTest()
    {
        QFile program(folder.filePath(QStringLiteral("pcmanfm")));
        EXPECT_TRUE(program.open(QIODevice::WriteOnly));
        program.write("#!/bin/sh\nd=$XDG_CONFIG_HOME/pcmanfm/LXDE; mkdir -p $d; echo \"$@\" >> $d/calls\n"
                      "[ -e $d/locked ] || printf '[*]\\nwallpaper_mode=%s\\nwallpaper=%s\\n' "
                      "\"${3:-kept}\" \"$2\" > $d/desktop-items-0.conf\n");
        program.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        drawing.start(QStringLiteral("sh"),
                      {QStringLiteral("-c"), QStringLiteral("sleep 60; :"), QStringLiteral("pcmanfm"),
                       QStringLiteral("--desktop"), QStringLiteral("--profile"), QStringLiteral("LXDE")});
        EXPECT_TRUE(drawing.waitForStarted());
        using namespace std::string_view_literals;
        window(QRect(0, 0, 640, 400), "_NET_WM_WINDOW_TYPE_DESKTOP",
               static_cast<std::uint32_t>(drawing.processId()), "pcmanfm\0Pcmanfm\0"sv);
    }
    ~PcmanfmTest() override
    {
        drawing.kill();
        drawing.waitForFinished();
    }

    [[nodiscard]] QByteArray saved(const char* name) const
    {
        QFile file(folder.filePath(QStringLiteral("pcmanfm.d/pcmanfm/LXDE/") + QLatin1String(name)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    const Variable configuration{"XDG_CONFIG_HOME", folder.filePath(QStringLiteral("pcmanfm.d")).toUtf8()};
    const Variable path{"PATH", folder.path().toUtf8() + ':' + qgetenv("PATH")};
    QProcess drawing;
    PcmanfmPictures pcmanfm{QDBusConnection(QString())};
};

TEST_F(PcmanfmTest, GetsThePictureOfItsFirstMonitor)
{
    const DesktopPicture whole =
        picture(QStringLiteral("screen"), QRect(0, 0, 640, 400), "wall-00000000003000-0.png", 5);
    EXPECT_THAT(pcmanfm.apply({whole}, Which::different), IsEmpty());
    EXPECT_EQ(saved("calls"), "--set-wallpaper " + whole.file.toUtf8() + " --wallpaper-mode=stretch\n");
    EXPECT_THAT(pcmanfm.apply({whole}, Which::different), IsEmpty());
    EXPECT_EQ(saved("calls").count('\n'), 1) << "it shows that already";
    EXPECT_TRUE(pcmanfm.shows({whole}));
    EXPECT_FALSE(pcmanfm.shows({{whole.screen, QStringLiteral("/chosen.png")}}));

    EXPECT_THAT(pcmanfm.apply({whole, two[1]}, Which::all), ElementsAre(Has("DP-2: it lets programs set")));
    EXPECT_EQ(saved("calls").count('\n'), 2);

    QFile(folder.filePath(QStringLiteral("pcmanfm.d/pcmanfm/LXDE/locked"))).open(QIODevice::WriteOnly);
    EXPECT_THAT(pcmanfm.apply({newer[0]}, Which::all), ElementsAre(Has("LXDE/desktop-items-0.conf stay")));
}

TEST_F(DetectionTest, APictureThatTheUserChoosesInTheDesktopsSettingsIsNoticed)
{
    QVariantMap settings;
    int readings = 0;
    FakeService service(bus.connect(), "org.xfce.Xfconf", "/org/xfce/Xfconf",
                        [&](const QString& method, const QVariantList& arguments) {
                            if (method == QLatin1String("GetAllProperties")) {
                                ++readings;
                                return QVariantList{settings};
                            }
                            settings[arguments.value(1).toString()] =
                                arguments.value(2).value<QDBusVariant>().variant();
                            return QVariantList();
                        });
    QDBusConnection others = bus.connect();
    EXPECT_TRUE(others.registerService(QStringLiteral("org.xfce.xfdesktop")));
    const std::unique_ptr<DesktopPictures> pictures = makeDesktopPictures(ours);
    int answers = 0;
    int replacements = 0;
    QObject::connect(pictures.get(), &DesktopPictures::finished, [&answers] { ++answers; });
    QObject::connect(pictures.get(), &DesktopPictures::replaced, [&replacements] { ++replacements; });
    pictures->set(two);
    ASSERT_TRUE(waitUntil([&answers] { return answers == 1; }));
    const auto tell = [&service](const QString& setting) {
        service.signal(QStringLiteral("/org/xfce/Xfconf"), QStringLiteral("org.xfce.Xfconf"),
                       QStringLiteral("PropertyChanged"),
                       {QStringLiteral("xfce4-desktop"), setting,
                        QVariant::fromValue(QDBusVariant(QStringLiteral("/chosen.png")))});
    };
    const QString setting = settings.firstKey();
    const int before = readings;
    tell(setting);
    ASSERT_TRUE(waitUntil([&] { return readings > before; }));
    runEvents(20ms);
    EXPECT_EQ(replacements, 0) << "our own";
    settings[setting] = QStringLiteral("/chosen.png");
    tell(setting);
    EXPECT_TRUE(waitUntil([&replacements] { return replacements == 1; }));
}

TEST_F(DetectionTest, ADesktopThatComesAfterUsGetsThePictures)
{
    const std::unique_ptr<DesktopPictures> pictures = makeDesktopPictures(ours);
    ASSERT_NE(pictures, nullptr);
    int answers = 0;
    QObject::connect(pictures.get(), &DesktopPictures::finished, [&answers] { ++answers; });
    pictures->set(two);
    ASSERT_TRUE(waitUntil([&answers] { return answers == 1; }));
    EXPECT_EQ(content(x.root()), together(two, {640, 400}));

    QString script;
    const FakeService plasma(bus.connect(), "org.kde.plasmashell", "/PlasmaShell",
                             [&script](const QString&, const QVariantList& arguments) {
                                 script = arguments.value(0).toString();
                                 return QVariantList{QStringLiteral("[[1,1],[1,1]]")};
                             });
    ASSERT_TRUE(waitUntil([&script] { return !script.isEmpty(); }));
    EXPECT_THAT(script, Has("wall-00000000001000-1.png"));
    runEvents(20ms);
    EXPECT_EQ(answers, 1);
}

} // namespace
} // namespace tessel
