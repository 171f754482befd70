// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/commands.h"
#include "app/fake_login_item.h"
#include "app/open_dialogs.h"
#include "render/png_file.h"
#include "support/file_size_limit.h"
#include "support/test_store.h"
#include "wallpaper/photos.h"

#include <QDir>
#include <QFileDialog>
#include <QImage>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QUuid>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace tessel {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using Status = LoginItem::Status;

class CommandsTest : public testing::Test
{
protected:
    void setLaunch(bool on)
    {
        m_matches.reset();
        setLaunchAtLogin(m_login, m_dialogs, on, [this](bool matches) { m_matches = matches; });
    }

    TestStore m_store;
    FakeLoginItem m_login;
    std::optional<bool> m_matches;
    Dialogs m_dialogs{nullptr};
};

TEST_F(CommandsTest, TurnsLaunchAtLoginOnAndOffWithoutAWord)
{
    setLaunch(true);
    EXPECT_EQ(m_matches, true);
    m_login.afterwards = Status::off;
    setLaunch(false);
    EXPECT_EQ(m_matches, true);
    // Not enabled is off.
    m_login.afterwards = Status::requiresApproval;
    setLaunch(false);
    EXPECT_EQ(m_matches, true);
    EXPECT_TRUE(openDialogs().isEmpty());
}

TEST_F(CommandsTest, SaysWhyLaunchAtLoginFails)
{
    m_login.failure = QStringLiteral("The disk is full.");
    m_login.afterwards = Status::off;
    setLaunch(true);
    EXPECT_EQ(openMessage(), QStringLiteral("Could not turn on Launch at Login"));
    EXPECT_EQ(openInformative(), QStringLiteral("The disk is full."));
    EXPECT_FALSE(m_matches);
    press("OK");
    EXPECT_EQ(m_matches, false);

    m_login.now = m_login.afterwards = Status::enabled;
    setLaunch(false);
    EXPECT_EQ(openMessage(), QStringLiteral("Could not turn off Launch at Login"));
    press("OK");
    EXPECT_EQ(m_matches, false);
}

TEST_F(CommandsTest, AsksOnlyForApprovalWhereThatIsNeeded)
{
    m_login.afterwards = Status::requiresApproval;
    for (const auto& failure : {std::optional<QString>(), std::optional(QStringLiteral("Forbidden."))}) {
        m_login.failure = failure;
        setLaunch(true);
        EXPECT_EQ(openMessage(), QStringLiteral("Allow Tessel Broth in Login Items"));
        press("Not Now");
        EXPECT_EQ(m_matches, false);
        EXPECT_EQ(m_login.settingsOpened, 0);
        EXPECT_TRUE(openDialogs().isEmpty());
    }
    for (const auto& failure : {std::optional<QString>(), std::optional(QStringLiteral("Look elsewhere."))}) {
        m_login.failure = failure;
        setLaunch(true);
        press("Open Login Items");
        EXPECT_EQ(m_matches, false);
        EXPECT_EQ(openDialogs().size(), failure ? 1 : 0);
    }
    EXPECT_EQ(m_login.settingsOpened, 2);
    EXPECT_EQ(openInformative(), QStringLiteral("Look elsewhere."));
}

/// What opens addresses, for as long as this lives: a script of the test.
class FakeOpener
{
public:
    explicit FakeOpener(const char* script)
    {
        QFile file(m_folder.filePath(QStringLiteral("xdg-open")));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray("#!/bin/sh\n") + script);
        file.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        qputenv("PATH", m_folder.path().toLocal8Bit() + ':' + m_path);
    }
    ~FakeOpener() { qputenv("PATH", m_path); }
    FakeOpener(const FakeOpener&) = delete;
    FakeOpener& operator=(const FakeOpener&) = delete;

    [[nodiscard]] bool hasRun(const char* mark) const
    {
        return QFile::exists(m_folder.filePath(QLatin1String(mark)));
    }

private:
    QTemporaryDir m_folder;
    QByteArray m_path = qgetenv("PATH");
};

TEST_F(CommandsTest, ShowsTheAddressThatNothingOpens)
{
    const auto address = QStringLiteral("https://example.org/a%20bowl");
    {
        const FakeOpener opener(
            R"(test "$1" = https://example.org/a%20bowl && touch "$(dirname "$0")/opened")");
        openWebPage(address, m_dialogs);
        EXPECT_TRUE(QTest::qWaitFor([&] { return opener.hasRun("opened"); }, 30000));
        QTest::qWait(50);
        EXPECT_TRUE(openDialogs().isEmpty());
    }
    const FakeOpener opener("exit 3");
    openWebPage(address, m_dialogs);
    ASSERT_TRUE(QTest::qWaitFor([] { return !openDialogs().isEmpty(); }, 30000));
    EXPECT_TRUE(openInformative().contains(address));
}

TEST_F(CommandsTest, SavesTheDesktopAsAPreset)
{
    saveAsPreset(*m_store, m_dialogs);
    EXPECT_TRUE(openDialogs().isEmpty());

    m_store->applyToDesktop(lookWithSeed(5), RecordHistory::yes, true, ContinueFromEditor::no);
    for (int time = 0; time < 2; ++time) {
        saveAsPreset(*m_store, m_dialogs);
        EXPECT_EQ(openDialog().findChild<QLineEdit*>()->text(), QStringLiteral("Flow Ember"));
        press("Save");
    }
    saveAsPreset(*m_store, m_dialogs);
    press("Cancel");
    m_store.reopen();
    const std::vector<Preset>& presets = m_store->presets();
    ASSERT_EQ(presets.size(), 2U);
    EXPECT_EQ(presets[0].name, "Flow Ember");
    EXPECT_EQ(presets[0].look, lookWithSeed(5));
    EXPECT_TRUE(presets[0].motion);
    EXPECT_EQ(presets[1].name, presets[0].name);
    EXPECT_NE(presets[1].id, presets[0].id);
}

TEST_F(CommandsTest, NamesWhatWasOnTheDesktopWhenItWasAsked)
{
    m_store->applyToDesktop(lookWithSeed(5), RecordHistory::yes, false, ContinueFromEditor::no);
    saveAsPreset(*m_store, m_dialogs);
    m_store->shuffle();
    press("Save");
    ASSERT_EQ(m_store->presets().size(), 1U);
    EXPECT_EQ(m_store->presets()[0].look, lookWithSeed(5));
}

class SavePngTest : public CommandsTest
{
protected:
    void ask()
    {
        savePng(m_dialogs, lookWithSeed(1), {320, 200},
                [this](const Look& look, QSize size, const QString& file, const auto& done) {
                    EXPECT_EQ(look, lookWithSeed(1));
                    EXPECT_EQ(size, QSize(320, 200));
                    m_saved << file;
                    done(m_failure);
                });
    }

    static QLineEdit& nameField() { return *openDialog().findChild<QLineEdit*>(); }

    [[nodiscard]] QString path(const char* name) const
    {
        return m_store.folder() + QLatin1Char('/') + QLatin1String(name);
    }

    void choose(const char* name)
    {
        nameField().setText(path(name));
        press("&Save");
    }

    QStringList m_saved;
    std::optional<QString> m_failure;
};

TEST_F(SavePngTest, ProposesANameAndSavesUnderTheChosenOne)
{
    ask();
    EXPECT_EQ(nameField().text(), QStringLiteral("Tessel Broth Flow 320x200.png"));
    choose("bowl.PNG");
    ask();
    choose("bowl");
    ask();
    choose("bowl.jpg");
    EXPECT_EQ(m_saved, QStringList({path("bowl.PNG"), path("bowl.png"), path("bowl.jpg.png")}));
    EXPECT_TRUE(openDialogs().isEmpty());
}

TEST_F(SavePngTest, ReplacesNothingUnasked)
{
    QFile file(path("bowl.jpg.png"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ask();
    choose("bowl.jpg");
    EXPECT_TRUE(m_saved.isEmpty());
    EXPECT_EQ(openMessage(), QStringLiteral("Could not save that PNG"));
    EXPECT_THAT(openInformative().toStdString(), HasSubstr("bowl.jpg.png"));
}

TEST_F(SavePngTest, SaysWhyItDidNotWork)
{
    m_failure = QStringLiteral("The 320x200 image could not be rendered. Try a smaller size.");
    ask();
    choose("bowl.png");
    EXPECT_EQ(openMessage(), QStringLiteral("Could not save that PNG"));
    EXPECT_EQ(openInformative(), m_failure);
}

TEST_F(SavePngTest, SavesNothingWhenCancelled)
{
    ask();
    ask();
    openDialog().reject();
    EXPECT_TRUE(m_saved.isEmpty());
    EXPECT_TRUE(openDialogs().isEmpty());
}

class UsePhotoTest : public CommandsTest
{
protected:
    UsePhotoTest()
    {
        QImage image(40, 30, QImage::Format_RGB32);
        image.fill(Qt::darkCyan);
        EXPECT_TRUE(image.save(m_photo));
    }

    void use(const QString& file)
    {
        usePhoto(*m_store, m_dialogs, m_worker, file, m_folder);
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return m_store->look().imagePath.has_value() || !openDialogs().isEmpty(); }, 30000));
    }

    [[nodiscard]] std::string alertedReason() const
    {
        EXPECT_EQ(openMessage(), QStringLiteral("Could not use that photo"));
        return openInformative().toStdString();
    }

    [[nodiscard]] QStringList copies() const { return QDir(m_folder).entryList(QDir::Files | QDir::Hidden); }

    const QString m_photo = m_store.folder() + QStringLiteral("/my photo.JPG");
    const QString m_folder = m_store.folder() + QStringLiteral("/deep/Photos");
    Worker m_worker{QStringLiteral("photos")};
};

TEST_F(UsePhotoTest, ShowsACopyUnderAFreshName)
{
    use(m_photo);
    EXPECT_EQ(m_store->look().pattern, Pattern::image);
    const QFileInfo copy(QString::fromStdString(m_store->look().imagePath.value_or("")));
    EXPECT_EQ(copy.path(), m_folder);
    EXPECT_FALSE(QUuid::fromString(copy.completeBaseName()).isNull());
    EXPECT_EQ(copy.suffix(), QStringLiteral("JPG"));
    EXPECT_EQ(QImage(copy.filePath()).size(), QSize(40, 30));
    // The old look can be gone back to, and the original may go.
    EXPECT_EQ(m_store->history().size(), 1U);
    EXPECT_TRUE(QFile::remove(m_photo));
    EXPECT_EQ(copies().size(), 1);
}

TEST_F(UsePhotoTest, RefusesWhatIsNoPicture)
{
    QFile text(m_store.folder() + QStringLiteral("/recipe.png"));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("two cups of rice");
    text.close();
    for (const QString& file : {text.fileName(), m_store.folder(), QStringLiteral("/nowhere/photo.png")}) {
        use(file);
        EXPECT_THAT(alertedReason(), HasSubstr(file.toStdString()));
        m_dialogs.closeAll();
    }
    EXPECT_EQ(m_store->look(), Look());
    EXPECT_THAT(copies(), IsEmpty());
}

TEST_F(UsePhotoTest, SaysWhereItCannotWrite)
{
    // A file is where the folder should be.
    QFile obstacle(m_store.folder() + QStringLiteral("/deep"));
    ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
    use(m_photo);
    EXPECT_THAT(alertedReason(), HasSubstr(m_folder.toStdString()));
    EXPECT_EQ(m_store->look(), Look());
}

TEST_F(UsePhotoTest, LeavesNothingBehindOnAFullDisk)
{
    const FileSizeLimit limit(100);
    ASSERT_GT(QFileInfo(m_photo).size(), 100);
    EXPECT_THROW(static_cast<void>(copyPhoto(m_photo, m_folder)), FileError);
    EXPECT_THAT(copies(), IsEmpty());
}

TEST_F(UsePhotoTest, EndsInPeaceWhileACopyIsBeingMade)
{
    auto dialogs = std::make_unique<Dialogs>(nullptr);
    usePhoto(*m_store, *dialogs, m_worker, m_photo, m_folder);
    dialogs.reset();
    m_worker.wait();
    QCoreApplication::processEvents();
    EXPECT_EQ(copies().size(), 1);
    EXPECT_EQ(m_store->look(), Look());
}

TEST_F(UsePhotoTest, KnowsThePhotosOfEveryLookThatCanComeBack)
{
    const auto withPhoto = [](const char* name) {
        Look look;
        look.imagePath = std::string("/photos/") + name;
        return look;
    };
    m_store->setPresets({{"6F9619FF-8B86-D011-B42D-00C04FC964FF", "", withPhoto("preset"), false}});
    m_store->applyToDesktop(withPhoto("oldest"), RecordHistory::yes, false, ContinueFromEditor::no);
    m_store->applyToDesktop(withPhoto("old"), RecordHistory::yes, false, ContinueFromEditor::no);
    m_store->applyToDesktop(withPhoto("desktop"), RecordHistory::yes, false, ContinueFromEditor::no);
    m_store->changeLook(withPhoto("undone"));
    m_store->changeLook(withPhoto("edited"));
    const std::set<QString> all{QStringLiteral("preset"), QStringLiteral("oldest"),
                                QStringLiteral("old"),    QStringLiteral("desktop"),
                                QStringLiteral("undone"), QStringLiteral("edited")};
    EXPECT_EQ(photosInUse(*m_store), all);
    // Presets that nobody could read may use any of them.
    EXPECT_TRUE(m_store->saveNow());
    QFile settings(m_store.settingsFile());
    ASSERT_TRUE(settings.open(QIODevice::WriteOnly));
    settings.write("[General]\npresets=broken\n");
    settings.close();
    m_store.reopen();
    EXPECT_FALSE(photosInUse(*m_store));
}

TEST_F(UsePhotoTest, RemovesOnlyOldCopiesOutOfUse)
{
    const QString used = QFileInfo(copyPhoto(m_photo, m_folder)).fileName();
    const QString unused = QFileInfo(copyPhoto(m_photo, m_folder)).fileName();
    const QString foreign = QStringLiteral("holiday.jpg");
    ASSERT_TRUE(QFile::copy(m_photo, m_folder + QLatin1Char('/') + foreign));
    const QDateTime now = QDateTime::currentDateTimeUtc();
    removePhotos(m_folder, {used}, now.addDays(-1));
    EXPECT_EQ(copies().size(), 3);
    removePhotos(m_folder, {used}, now.addDays(1));
    EXPECT_EQ(copies().size(), 2);
    EXPECT_FALSE(copies().contains(unused));
}

} // namespace
} // namespace tessel
