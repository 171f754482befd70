// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/commands.h"
#include "app/fake_login_item.h"
#include "app/open_dialogs.h"
#include "support/test_store.h"

#include <QImage>
#include <QLineEdit>
#include <QTemporaryDir>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tessel {
namespace {

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

class FileDialogsTest : public CommandsTest
{
protected:
    static QLineEdit& nameField() { return *openDialog().findChild<QLineEdit*>(); }

    [[nodiscard]] QString path(const char* name) const
    {
        return m_store.folder() + QLatin1Char('/') + QLatin1String(name);
    }

    void choose(const char* name, const char* button)
    {
        nameField().setText(path(name));
        press(button);
    }

    std::vector<bool> m_openings;
    EditorServices m_services =
        editorServices(m_dialogs, true, [this](bool isOpen) { m_openings.push_back(isOpen); });
    QStringList m_chosen;
    std::function<void(const QString&)> m_note = [this](const QString& file) { m_chosen << file; };
};

TEST_F(FileDialogsTest, ProposeANameAndTellTheChosenOne)
{
    m_services.choosePngFile(QStringLiteral("Tessel Broth Flow 320x200.png"), m_note);
    EXPECT_EQ(nameField().text(), QStringLiteral("Tessel Broth Flow 320x200.png"));
    choose("bowl.PNG", "&Save");
    m_services.choosePngFile(QStringLiteral("x.png"), m_note);
    choose("bowl", "&Save");
    EXPECT_EQ(m_chosen, QStringList({path("bowl.PNG"), path("bowl.png")}));

    QImage image(8, 8, QImage::Format_RGB32);
    ASSERT_TRUE(image.save(path("photo.jpg")));
    m_services.chooseImage(m_note);
    choose("photo.jpg", "&Open");
    EXPECT_EQ(m_chosen.last(), path("photo.jpg"));
    EXPECT_TRUE(openDialogs().isEmpty());
}

TEST_F(FileDialogsTest, TellNothingWhenCancelled)
{
    m_services.choosePngFile(QStringLiteral("x.png"), m_note);
    m_services.choosePngFile(QStringLiteral("x.png"), m_note);
    openDialog().reject();
    m_services.chooseImage(m_note);
    openDialog().reject();
    EXPECT_TRUE(m_chosen.isEmpty());
    EXPECT_TRUE(openDialogs().isEmpty());
    EXPECT_EQ(m_openings, (std::vector{true, false, true, false})) << "the second one did not open";
}

} // namespace
} // namespace tessel
