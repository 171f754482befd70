// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/dialogs.h"
#include "app/open_dialogs.h"

#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QTimer>
#include <gtest/gtest.h>

namespace tessel {
namespace {

/// Where the focus is, and was asked to go.
struct FocusLog
{
    WId current = 77;
    WId given = 0;
    WId givenBack = 0;
    WId panel = 0;
};

class FakeFocus : public Focus
{
public:
    explicit FakeFocus(FocusLog& log) : m_log(log) {}
    [[nodiscard]] WId current() override { return m_log.current; }
    void give(WId window) override { m_log.given = window; }
    void giveBack(WId window) override { m_log.givenBack = window; }
    void makePanel(WId window) override { m_log.panel = window; }

private:
    FocusLog& m_log;
};

class DialogsTest : public testing::Test
{
protected:
    void ask(const QString& initial)
    {
        m_answers = 0;
        m_name.reset();
        m_dialogs->askPresetName(QStringLiteral("Save as preset"), initial,
                                 [this](const std::optional<QString>& name) {
                                     ++m_answers;
                                     m_name = name;
                                 });
    }

    FocusLog m_log;
    FakeFocus m_focus{m_log};
    std::unique_ptr<Dialogs> m_dialogs = std::make_unique<Dialogs>(&m_focus);
    std::optional<QString> m_name;
    int m_answers = 0;
};

TEST_F(DialogsTest, AsksForANameThatIsReadyToBeTypedOver)
{
    ask(QStringLiteral("Flow Ember"));
    auto* field = openDialog().findChild<QLineEdit*>();
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(field->selectedText(), QStringLiteral("Flow Ember"));
    EXPECT_EQ(openDialog().focusWidget(), field);
    EXPECT_FALSE(field->accessibleName().isEmpty());
    EXPECT_EQ(field->width(), 240);
    QTest::keyClicks(field, QStringLiteral("  Miso & Rice \t"));
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(m_name, QStringLiteral("Miso & Rice"));
    EXPECT_EQ(m_answers, 1);
    EXPECT_TRUE(openDialogs().isEmpty());
}

TEST_F(DialogsTest, TakesBlankNamesForCancelled)
{
    ask(QStringLiteral("Flow Ember"));
    openDialog().findChild<QLineEdit*>()->setText(QStringLiteral(" \u00A0 \n"));
    press("Save");
    EXPECT_FALSE(m_name);
    EXPECT_EQ(m_answers, 1);
    ask(QStringLiteral("Flow Ember"));
    press("Cancel");
    EXPECT_FALSE(m_name);
    EXPECT_EQ(m_answers, 1);
}

TEST_F(DialogsTest, ClosesFromTheKeyboard)
{
    for (const auto& key :
         {std::pair(Qt::Key_Escape, Qt::NoModifier), std::pair(Qt::Key_W, Qt::ControlModifier)}) {
        ask(QStringLiteral("Flow Ember"));
        ASSERT_TRUE(QTest::qWaitForWindowActive(&openDialog()));
        QTest::keyClick(&openDialog(), key.first, key.second);
        EXPECT_TRUE(openDialogs().isEmpty()) << key.first;
        EXPECT_EQ(m_answers, 1);
    }
    int quits = 0;
    QObject::connect(m_dialogs.get(), &Dialogs::quitRequested, m_dialogs.get(), [&] { ++quits; });
    ask(QStringLiteral("Flow Ember"));
    ASSERT_TRUE(QTest::qWaitForWindowActive(&openDialog()));
    QTest::keyClick(&openDialog(), Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(quits, 1);
}

TEST_F(DialogsTest, IsNeverOpenTwice)
{
    ask(QStringLiteral("First"));
    QDialog* const first = &openDialog();
    ask(QStringLiteral("Second"));
    EXPECT_EQ(&openDialog(), first);
    EXPECT_EQ(m_answers, 1);
    EXPECT_FALSE(m_name);
    EXPECT_EQ(m_log.given, first->winId());
    press("Save");
    EXPECT_EQ(m_name, QStringLiteral("First"));
    ask(QStringLiteral("Third"));
    press("Save");
    EXPECT_EQ(m_name, QStringLiteral("Third"));
}

TEST_F(DialogsTest, TakesTheFocusAndGivesItBack)
{
    ask(QStringLiteral("Flow Ember"));
    const WId window = openDialog().winId();
    EXPECT_TRUE(openDialog().windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(QTest::qWaitFor([&] { return m_log.given == window && m_log.panel == window; }, 30000));
    ASSERT_TRUE(QTest::qWaitForWindowActive(&openDialog()));
    press("Cancel");
    EXPECT_EQ(m_log.givenBack, 77U);
}

TEST_F(DialogsTest, LeavesTheFocusToAWindowTheUserHasGoneTo)
{
    ask(QStringLiteral("Flow Ember"));
    const WId window = openDialog().winId();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&openDialog()));
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    press("Cancel");
    EXPECT_EQ(m_log.given, window);
    EXPECT_EQ(m_log.givenBack, 0U);
}

TEST_F(DialogsTest, LeavesTheFocusAloneWithAMereMessage)
{
    QWidget other;
    other.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    m_dialogs->alert({.message = QStringLiteral("Ready"), .informative = {}, .takeFocus = TakeFocus::no});
    const WId window = openDialog().winId();
    EXPECT_TRUE(QTest::qWaitFor([&] { return m_log.panel == window; }, 30000));
    press("OK");
    EXPECT_EQ(m_log.given, 0U);
}

TEST_F(DialogsTest, SeveralCanBeUsedTogether)
{
    ask(QStringLiteral("Flow Ember"));
    QDialog& name = openDialog();
    m_log.current = name.winId();
    const Alert shown{QStringLiteral("Updates come with your system"), {}};
    m_dialogs->alert(shown);
    QDialog& alert = *openDialogs()[openDialogs()[0] == &name ? 1 : 0];
    ASSERT_TRUE(QTest::qWaitForWindowActive(&alert));
    name.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&name));
    const auto* cancel = name.findChildren<QPushButton*>().constLast();
    QTest::mouseClick(name.windowHandle(), Qt::LeftButton, {}, cancel->mapTo(&name, cancel->rect().center()));
    EXPECT_EQ(m_answers, 1);
    EXPECT_EQ(m_log.given, alert.winId());
    EXPECT_EQ(m_log.givenBack, 0U);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&alert));
    m_dialogs->dismiss(shown);
    EXPECT_EQ(m_log.givenBack, 77U);
    m_dialogs->dismiss(shown);
}

TEST_F(DialogsTest, ShowsAlertsAsPlainText)
{
    std::optional<bool> first;
    m_dialogs->alert({QStringLiteral("Could not save <b>that</b>"), QStringLiteral("<i>file</i>.png & more"),
                      QStringLiteral("Open"), QStringLiteral("Not Now")},
                     [&](bool answer) { first = answer; });
    EXPECT_EQ(openMessage(), QStringLiteral("Could not save <b>that</b>"));
    for (const char* name : {"message", "informative"})
        EXPECT_EQ(openDialog().findChild<QLabel*>(QLatin1String(name))->textFormat(), Qt::PlainText);
    EXPECT_EQ(openInformative(), QStringLiteral("<i>file</i>.png & more"));
    press("Open");
    EXPECT_EQ(first, true);
}

TEST_F(DialogsTest, LetsItsTextBeCopiedFromTheKeyboard)
{
    std::optional<bool> first;
    m_dialogs->alert({QStringLiteral("Could not open"), QStringLiteral("https://example.org")},
                     [&](bool answer) { first = answer; });
    ASSERT_TRUE(QTest::qWaitForWindowActive(&openDialog()));
    EXPECT_NE(qobject_cast<QPushButton*>(openDialog().focusWidget()), nullptr);
    QTest::keyClick(&openDialog(), Qt::Key_Tab);
    auto* label = qobject_cast<QLabel*>(openDialog().focusWidget());
    ASSERT_NE(label, nullptr);
    QTest::keyClick(label, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(label->selectedText(), QStringLiteral("https://example.org"));
    QTest::keyClick(label, Qt::Key_Return);
    EXPECT_EQ(first, true);
}

TEST_F(DialogsTest, TellsTheAnswersOfAlertsApart)
{
    const Alert alert{QStringLiteral("Really?"), {}, QStringLiteral("Yes"), QStringLiteral("No")};
    std::optional<bool> first;
    const auto show = [&] {
        first.reset();
        m_dialogs->alert(alert, [&](bool answer) { first = answer; });
    };
    show();
    press("No");
    EXPECT_EQ(first, false);
    show();
    openDialog().close();
    EXPECT_EQ(first, false);
    show();
    QTest::keyClick(&openDialog(), Qt::Key_Return);
    EXPECT_EQ(first, true);
}

TEST_F(DialogsTest, HoldsNothingUp)
{
    bool isRun = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] { isRun = true; });
    timer.start(0);
    ask(QStringLiteral("Flow Ember"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return isRun; }, 30000));
    EXPECT_EQ(openDialogs().size(), 1);
    m_dialogs->alert({QStringLiteral("Another"), {}});
    EXPECT_EQ(openDialogs().size(), 2);
    m_dialogs->closeAll();
    EXPECT_TRUE(openDialogs().isEmpty());
    EXPECT_EQ(m_answers, 1);
}

TEST_F(DialogsTest, AsksNothingMoreOnceItIsGone)
{
    ask(QStringLiteral("Flow Ember"));
    const QPointer<QDialog> dialog = &openDialog();
    m_dialogs.reset();
    EXPECT_EQ(dialog, nullptr);
    EXPECT_EQ(m_answers, 0);
}

} // namespace
} // namespace tessel
