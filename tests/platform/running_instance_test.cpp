// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/running_instance.h"
#include "support/fake_service.h"
#include "support/surroundings.h"

#include <QDBusConnectionInterface>
#include <QDBusPendingCall>
#include <QDBusPendingReply>
#include <QDateTime>
#include <QFile>
#include <QTemporaryDir>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <optional>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace tessel {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;

const auto name = QStringLiteral("org.tesselbroth.TesselBroth");

class RunningInstanceTest : public testing::Test
{
protected:
    /// Calls a method as the desktop does.
    QDBusMessage call(const QString& method, const QVariantList& arguments)
    {
        auto message = QDBusMessage::createMethodCall(name, QStringLiteral("/org/tesselbroth/TesselBroth"),
                                                      QStringLiteral("org.freedesktop.Application"), method);
        message.setArguments(arguments);
        const QDBusPendingCall answer = m_desktop.asyncCall(message);
        EXPECT_TRUE(waitUntil([&] { return answer.isFinished(); }));
        return answer.reply();
    }

    void note(RunningInstance& instance)
    {
        QObject::connect(&instance, &RunningInstance::activated,
                         [this] { m_heard.emplace_back("activated"); });
        instance.setAnswers(
            {.perform = [this](const QString& action, const QVariant& parameter) -> std::optional<QString> {
                 if (action == QStringLiteral("explode"))
                     return QStringLiteral("There is nothing to explode.");
                 m_heard.push_back(action.toStdString());
                 m_heard.emplace_back(parameter.typeName() == nullptr ? "nothing" : parameter.typeName());
                 return std::nullopt;
             },
             .wallpaper =
                 [] {
                     return ShownWallpaper{QStringLiteral("{}"), true};
                 }});
    }

    WithApplication<QCoreApplication> m_application;
    PrivateBus m_bus;
    QDBusConnection m_desktop = m_bus.connect();
    std::vector<std::string> m_heard;
};

TEST_F(RunningInstanceTest, TheSecondAsksTheFirstToComeForward)
{
    std::optional<BusInstance> first(std::in_place, m_bus.connect());
    note(*first);
    ASSERT_TRUE(first->isFirst());
    const QDBusConnection connection = m_bus.connect();
    bool isFirst = true;
    QString problem;
    std::thread second([&] {
        BusInstance instance(connection);
        isFirst = instance.isFirst();
        problem = instance.askToComeForward();
    });
    EXPECT_TRUE(waitUntil([&] { return !m_heard.empty(); }));
    second.join();
    EXPECT_FALSE(isFirst);
    EXPECT_EQ(problem, QString());
    EXPECT_THAT(m_heard, ElementsAre("activated"));

    EXPECT_EQ(m_desktop.interface()
                  ->call(QStringLiteral("RequestName"), name, 2U /* replace */ | 4U /* do not queue */)
                  .arguments()
                  .value(0)
                  .toUInt(),
              3U)
        << "the name can be taken away";
    first.reset();
    EXPECT_TRUE(BusInstance(connection).isFirst());
}

TEST_F(RunningInstanceTest, OneThatHangsIsStillTheFirst)
{
    const BusInstance first(m_bus.connect());
    // Whoever waits in this thread is not answered by it.
    BusInstance second(m_bus.connect(), 50ms);
    EXPECT_FALSE(second.isFirst());
    EXPECT_THAT(second.askToComeForward().toStdString(), HasSubstr("does not answer"));
}

TEST_F(RunningInstanceTest, AnotherProgramOfItsNameIsNotTakenForIt)
{
    const QDBusConnection connection = m_bus.connect();
    const FakeService other(m_bus.connect(), name.toLatin1().constData(), "/",
                            [](const QString&, const QVariantList&) { return std::nullopt; });
    bool isFirst = true;
    QString problem;
    std::atomic<bool> isAnswered = false;
    std::thread start([&] {
        BusInstance instance(connection);
        isFirst = instance.isFirst();
        problem = instance.askToComeForward();
        isAnswered = true;
    });
    EXPECT_TRUE(waitUntil([&] { return isAnswered.load(); }));
    start.join();
    EXPECT_FALSE(isFirst);
    EXPECT_THAT(problem.toStdString(), HasSubstr("another program has it"));
}

TEST_F(RunningInstanceTest, HearsWhatTheDesktopAsks)
{
    BusInstance instance(m_bus.connect());
    const auto ask = [&](const QString& action, const QVariantList& parameter) {
        return call(QStringLiteral("ActivateAction"), {action, parameter, QVariantMap()});
    };
    EXPECT_THAT(ask(QStringLiteral("stir"), {}).errorMessage().toStdString(), HasSubstr("is starting"));
    note(instance);
    EXPECT_EQ(call(QStringLiteral("Activate"), {QVariantMap()}).type(), QDBusMessage::ReplyMessage);
    EXPECT_EQ(call(QStringLiteral("Open"), {QStringList(QStringLiteral("file:///a")), QVariantMap()}).type(),
              QDBusMessage::ReplyMessage);
    EXPECT_EQ(ask(QStringLiteral("stir"), {}).type(), QDBusMessage::ReplyMessage);
    EXPECT_EQ(ask(QStringLiteral("serve"), {QStringLiteral("hot")}).type(), QDBusMessage::ReplyMessage);
    EXPECT_EQ(ask(QStringLiteral("serve"), {QStringList(QStringLiteral("a"))}).type(),
              QDBusMessage::ReplyMessage);
    const QDBusMessage refused = ask(QStringLiteral("explode"), {});
    EXPECT_EQ(refused.type(), QDBusMessage::ErrorMessage);
    EXPECT_EQ(refused.errorMessage(), QStringLiteral("There is nothing to explode."));
    EXPECT_THAT(ask(QStringLiteral("stir"), {1, 2}).errorMessage().toStdString(),
                HasSubstr("one parameter at most"));
    EXPECT_EQ(call(QStringLiteral("ActivateAction"), {QStringLiteral("stir")}).type(),
              QDBusMessage::ErrorMessage);
    EXPECT_THAT(m_heard, ElementsAre("activated", "activated", "stir", "nothing", "serve", "QString", "serve",
                                     "QStringList"));

    auto question = QDBusMessage::createMethodCall(name, QStringLiteral("/org/tesselbroth/TesselBroth"), name,
                                                   QStringLiteral("Wallpaper"));
    const QDBusPendingCall wallpaper = m_desktop.asyncCall(question);
    ASSERT_TRUE(waitUntil([&] { return wallpaper.isFinished(); }));
    EXPECT_EQ(wallpaper.reply().arguments(), QVariantList({QStringLiteral("{}"), true}));
}

TEST(LockFileInstanceTest, OnlyALivingProcessHoldsTheLock)
{
    const QTemporaryDir home;
    const QString folder = home.filePath(QStringLiteral("not there yet"));
    const pid_t child = fork();
    if (child == 0) {
        const LockFileInstance dies(folder);
        _exit(dies.isFirst() ? 0 : 1); // with no chance to give the lock back
    }
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_EQ(status, 0);
    EXPECT_TRUE(QFile::exists(folder + QStringLiteral("/org.tesselbroth.TesselBroth.lock")));

    const WithApplication<QCoreApplication> application;
    std::optional<LockFileInstance> first(folder);
    EXPECT_TRUE(first->isFirst());
    int activations = 0;
    QObject::connect(&*first, &RunningInstance::activated, [&] { ++activations; });
    LockFileInstance second(folder);
    EXPECT_FALSE(second.isFirst());
    EXPECT_EQ(second.askToComeForward(), QString());
    EXPECT_TRUE(waitUntil([&] { return activations == 1; }));
    first.reset();
    EXPECT_TRUE(LockFileInstance(folder).isFirst());

    // Killed after it had made the file, before it wrote into it who it was.
    QFile lock(folder + QStringLiteral("/org.tesselbroth.TesselBroth.lock"));
    ASSERT_TRUE(lock.open(QIODevice::WriteOnly));
    ASSERT_TRUE(
        lock.setFileTime(QDateTime::currentDateTime().addDays(-1), QFileDevice::FileModificationTime));
    EXPECT_TRUE(LockFileInstance(folder).isFirst());
}

} // namespace
} // namespace tessel
