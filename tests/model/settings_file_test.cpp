// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/settings_file.h"
#include "support/file_size_limit.h"

#include <QDir>
#include <QFile>
#include <QLockFile>
#include <QSettings>
#include <QTemporaryDir>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <sys/stat.h>
#include <thread>

namespace tessel {
namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;

class SettingsFile : public testing::Test
{
protected:
    [[nodiscard]] QString folder() const { return m_folder.path(); }

    [[nodiscard]] QString path(const char* name = "broth.conf") const
    {
        return m_folder.filePath(QString::fromLatin1(name));
    }

    static void put(const QString& path, const QByteArray& text)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(text), text.size());
    }

    static QByteArray textOf(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
    }

private:
    QTemporaryDir m_folder;
};

TEST_F(SettingsFile, GivesBackEveryByte)
{
    QByteArray bytes;
    for (int value = 0; value < 256; ++value)
        bytes.append(static_cast<char>(value)).append('f').append(static_cast<char>(value));
    ASSERT_EQ(writeSettings(path("a/b/broth.conf"), {{"bytes", bytes}, {"flag", true}, {"number", -5}}),
              std::nullopt);
    const StoredSettings stored = readSettings(path("a/b/broth.conf"));
    EXPECT_EQ(stored.problem, std::nullopt);
    EXPECT_EQ(stored.values.at("bytes"), bytes);
    EXPECT_EQ(stored.values.at("flag").toString(), QStringLiteral("true"));
    EXPECT_EQ(stored.values.at("number").toString(), QStringLiteral("-5"));
    EXPECT_EQ(stored.values.size(), 3);
}

TEST_F(SettingsFile, ChangesNothingButTheKeysGiven)
{
    EXPECT_EQ(withSettings("", {{"k", 1}}), "[General]\nk=1\n");
    EXPECT_EQ(withSettings("[window]\nk=2\n", {{"k", 1}}), "[General]\nk=1\n[window]\nk=2\n");
    EXPECT_EQ(withSettings("; note\n[General]\n a = x \nk=2 ; old\nz=@Invalid(\n", {{"k", 1}}),
              "; note\n[General]\n a = x \nk=1\nz=@Invalid(\n");
    EXPECT_EQ(withSettings("k=2\n[other]\nk=3\n[ general ]\nk=4", {{"k", 1}}),
              "k=1\n[other]\nk=3\n[ general ]\n");
    EXPECT_EQ(withSettings("\xEF\xBB\xBF"
                           "a=1",
                           {{"k", 1}}),
              "\xEF\xBB\xBF"
              "[General]\nk=1\na=1");
    // The value of `a` goes to the end of the file: behind it the new key would be a part of it.
    EXPECT_EQ(withSettings("[General]\na=\"cut sh\nb=2\n", {{"k", 1}}), "[General]\nk=1\na=\"cut sh\nb=2\n");
    EXPECT_EQ(withSettings("[General]", {{"k", 1}}), "[General]\nk=1\n[General]");
    EXPECT_EQ(withSettings("[General]\\\n", {{"k", 1}}), "[General]\nk=1\n[General]\\\n");
}

/// All settings of a file; without keys that QSettings lists but takes for others when asked for them.
std::map<QString, QVariant> allValues(const QString& path)
{
    const QSettings file(path, QSettings::IniFormat);
    std::map<QString, QVariant> values;
    for (const QString& key : file.allKeys())
        if (!QStringLiteral("/%1/").arg(key).contains(QStringLiteral("//")))
            values[key] = file.value(key);
    return values;
}

TEST_F(SettingsFile, AgreesWithQSettingsOnWhatIsWhere)
{
    // Whatever the text, the next reader sees the new values and everything else as it was.
    std::mt19937 engine(20260101);
    const QByteArray pieces[] = {"a",  "b",  "=", "=",           "\n",       "\n",    "\r",
                                 "\"", "\\", ";", "[",           "]",        " ",     "[x]\n",
                                 "1",  ",",  "@", "[General]\n", "[General", "k=2\n", "\\\r\n"};
    const QString key = QStringLiteral("k");
    const QString bytesKey = QStringLiteral("a");
    const QByteArray bytes = "\"x\";\n";
    std::uniform_int_distribution<std::size_t> piece(0, std::size(pieces) - 1);
    std::uniform_int_distribution<int> length(0, 25);
    for (int round = 0; round < 2000; ++round) {
        QByteArray text;
        for (int left = length(engine); left > 0; --left)
            text += pieces[piece(engine)];
        // Files of their own each time: QSettings remembers what it has read under a name.
        const QString before = path((std::to_string(round) + ".before").c_str());
        const QString after = path((std::to_string(round) + ".after").c_str());
        put(before, text);
        put(after, withSettings(text, {{"k", 71}, {"a", bytes}}));
        auto expected = allValues(before);
        auto actual = allValues(after);
        ASSERT_EQ(actual[key].toString(), QStringLiteral("71")) << text.toStdString();
        ASSERT_EQ(actual[bytesKey], bytes) << text.toStdString();
        for (const auto& [name, value] : readSettings(before).values) {
            const auto found = expected.find(QString::fromStdString(name));
            if (found == expected.end())
                continue;
            ASSERT_EQ(value.toStringList(), found->second.toStringList()) << text.toStdString();
        }
        expected[key] = actual[key];
        expected[bytesKey] = actual[bytesKey];
        ASSERT_EQ(actual, expected) << text.toStdString();
        QFile::remove(before);
        QFile::remove(after);
    }
}

TEST_F(SettingsFile, ReadsWhatItCanOfADamagedFile)
{
    put(path(), QByteArray("[General]\nmotion=false\n\0\0\0garbage\nedge=1\n", 41));
    const StoredSettings stored = readSettings(path());
    EXPECT_EQ(stored.values.at("motion").toString(), QStringLiteral("false"));
    EXPECT_EQ(stored.values.at("edge").toString(), QStringLiteral("1"));
    ASSERT_TRUE(stored.problem);
    EXPECT_THAT(stored.problem->toStdString(), HasSubstr(path().toStdString()));

    EXPECT_TRUE(readSettings(path("missing")).values.empty());
    EXPECT_FALSE(readSettings(path("missing")).problem);
    ASSERT_TRUE(QDir().mkpath(path("folder")));
    EXPECT_TRUE(readSettings(path("folder")).problem);
    EXPECT_TRUE(writeSettings(path("folder"), {{"k", 1}}));
}

TEST_F(SettingsFile, MakesNothingButTextOfWhatItHolds)
{
    put(path(), R"ini(a=@Variant(\0\0\0\n\0\0\0\x2\0\x61)
b=@Rect(1 2 3 4)
c="@ByteArray(x, \x66g\061\\)"
d=" q" ,"; no comment" , @@x ; comment
e=@@x
f= \xe4 \t  ; comment
)ini");
    const StoredSettings stored = readSettings(path());
    EXPECT_EQ(stored.problem, std::nullopt);
    const auto value = [&](const char* key) { return stored.values.at(key); };
    EXPECT_EQ(value("a").typeId(), QMetaType::QString);
    EXPECT_EQ(value("b"), QStringLiteral("@Rect(1 2 3 4)"));
    EXPECT_EQ(value("c"), QByteArray("x, fg1\\"));
    EXPECT_EQ(value("d"),
              (QStringList{QStringLiteral(" q"), QStringLiteral("; no comment"), QStringLiteral("@@x")}));
    EXPECT_EQ(value("e"), QStringLiteral("@x"));
    EXPECT_EQ(value("f"), QStringLiteral("\u00E4 \t"));

    // QSettings goes down into each of these lists, to the end of the stack.
    const QByteArray lists = QByteArray(R"(\0\0\0\t\0\0\0\x1)").repeated(200'000);
    put(path(), "edge=1\ndeep=@Variant(" + lists + ")\n");
    EXPECT_EQ(readSettings(path()).values.at("edge").toInt(), 1);
}

TEST_F(SettingsFile, StaysAsItWasWhenTheDiskIsFull)
{
    const QByteArray before = "[General]\nedge=1\npresets=" + QByteArray(400, 'p') + "\n";
    put(path(), before);
    for (const rlim_t room : {0U, 1U, 200U, 450U}) {
        std::optional<WritingFailure> failure;
        {
            const FileSizeLimit limit(room);
            failure = writeSettings(path(), {{"look", QByteArray(1000, 'l')}});
        }
        ASSERT_TRUE(failure) << room;
        EXPECT_THAT(failure->message.toStdString(), HasSubstr(folder().toStdString())) << room;
        EXPECT_EQ(textOf(path()), before) << room;
    }
    EXPECT_EQ(QDir(folder()).entryList(QDir::Files | QDir::Hidden),
              QStringList(QStringLiteral("broth.conf")));
    EXPECT_EQ(writeSettings(path(), {{"edge", 0}}), std::nullopt);
    EXPECT_EQ(textOf(path()), QByteArray(before).replace("edge=1", "edge=0"));
}

TEST_F(SettingsFile, GivesWayToWhatItWasBeforeWhereNothingIsLeftOfIt)
{
    EXPECT_EQ(writeSettings(path(), {{"edge", 1}}), std::nullopt);
    EXPECT_EQ(writeSettings(path(), {{"look", 2}}), std::nullopt);
    for (const QByteArray& rubble : {QByteArray(), QByteArray(4551, '\0')}) {
        put(path(), rubble);
        const StoredSettings stored = readSettings(path());
        EXPECT_EQ(stored.text, "[General]\nedge=1\n");
        EXPECT_EQ(stored.values.at("edge").toInt(), 1);
        ASSERT_TRUE(stored.problem);
        EXPECT_THAT(stored.problem->toStdString(), HasSubstr("before its last change"));
        EXPECT_EQ(writeSettings(path(), {{"tea", 3}}), std::nullopt);
        EXPECT_EQ(textOf(path()), "[General]\ntea=3\nedge=1\n");
        EXPECT_EQ(readSettings(path()).problem, std::nullopt);
    }
    EXPECT_EQ(textOf(path("broth.conf.unreadable-0001")), QByteArray(4551, '\0'));
    put(path(), "; only a note\n");
    QFile::remove(path("broth.conf.previous"));
    EXPECT_EQ(writeSettings(path(), {{"tea", 3}}), std::nullopt);
    EXPECT_EQ(textOf(path()), "[General]\ntea=3\n; only a note\n") << "there is nothing better";
}

TEST_F(SettingsFile, IsWrittenWholeAgainAfterItWasRemoved)
{
    QByteArray known = "[General]\nedge=1\nlook=2\n";
    EXPECT_EQ(writeSettings(path(), {{"look", 3}}, {}, {}, &known), std::nullopt);
    EXPECT_EQ(textOf(path()), "[General]\nedge=1\nlook=3\n");
    QFile::remove(path());
    EXPECT_EQ(writeSettings(path(), {{"tea", 4}}, {}, {}, &known), std::nullopt);
    EXPECT_EQ(textOf(path()), "[General]\ntea=4\nedge=1\nlook=3\n");
    // Somebody else has written it meanwhile: that counts.
    put(path(), "[General]\nedge=0\n");
    EXPECT_EQ(writeSettings(path(), {{"tea", 5}}, {}, {}, &known), std::nullopt);
    EXPECT_EQ(textOf(path()), "[General]\ntea=5\nedge=0\n");
}

TEST_F(SettingsFile, IsAnOrdinaryFileOfASensibleSize)
{
    ASSERT_EQ(mkfifo(path("pipe").toLocal8Bit().constData(), 0600), 0);
    put(path("huge"), QByteArray("a=1\n").repeated(3 << 20));
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/zero"), path("endless")));
    for (const char* name : {"pipe", "huge", "endless"}) {
        const StoredSettings stored = readSettings(path(name));
        EXPECT_TRUE(stored.values.empty()) << name;
        EXPECT_TRUE(stored.problem) << name;
        EXPECT_TRUE(writeSettings(path(name), {{"edge", 1}})) << name;
    }
    EXPECT_EQ(QFileInfo(path("huge")).size(), 12 << 20) << "it may be somebody's";
}

TEST_F(SettingsFile, FollowsALink)
{
    put(path("elsewhere"), "k=2\n");
    ASSERT_TRUE(QFile::link(path("elsewhere"), path()));
    EXPECT_EQ(writeSettings(path(), {{"k", 1}}), std::nullopt);
    EXPECT_EQ(textOf(path("elsewhere")), "k=1\n");
    EXPECT_TRUE(QFileInfo(path()).isSymLink());
}

TEST_F(SettingsFile, OnlyALivingProgramHoldsTheLock)
{
    const QString lock = path("broth.conf.lock");
    // Killed after it had made the file, before it wrote into it who it was.
    put(lock, {});
    EXPECT_EQ(writeSettings(path(), {{"edge", 1}}), std::nullopt);
    EXPECT_FALSE(QFile::exists(lock));

    QLockFile other(lock);
    ASSERT_TRUE(other.lock());
    const std::optional<WritingFailure> failure = writeSettings(path(), {{"edge", 0}});
    ASSERT_TRUE(failure);
    EXPECT_TRUE(failure->isLocked);
    EXPECT_THAT(failure->message.toStdString(), HasSubstr("another program is writing"));
    EXPECT_EQ(textOf(path()), "[General]\nedge=1\n");

    const std::jthread ending([&other] {
        std::this_thread::sleep_for(50ms);
        other.unlock();
    });
    EXPECT_EQ(writeSettings(path(), {{"edge", 0}}, {}, 10s), std::nullopt);
}

TEST_F(SettingsFile, ManyWritersLoseNothing)
{
    std::vector<std::jthread> writers;
    for (const char* key : {"a", "b", "c", "d"}) {
        writers.emplace_back([this, key] {
            for (qint64 round = 1; round <= 100; ++round)
                while (const auto failure = writeSettings(path(), {{key, round}}))
                    ASSERT_TRUE(failure->isLocked) << failure->message.toStdString();
        });
    }
    writers.clear();
    for (const char* key : {"a", "b", "c", "d"})
        EXPECT_EQ(readSettings(path()).values[key].toString(), QStringLiteral("100"));
}

TEST_F(SettingsFile, KeepsACopyOfWhatNobodyCouldRead)
{
    const auto copies = [this] {
        QList<QByteArray> texts;
        for (const QString& name : QDir(folder()).entryList({QStringLiteral("broth.conf.unreadable-*")})) {
            EXPECT_EQ(QFile::permissions(path(name.toLatin1())), QFile::permissions(path()));
            texts.append(textOf(path(name.toLatin1())));
        }
        return texts;
    };
    // A quote is missing: "look" has swallowed the presets.
    const QByteArray damaged = "[General]\nedge=1\ntea=" + QByteArray(400, 't') +
                               "\nlook=\"@ByteArray({})\npresets=\"@ByteArray([])\"\n";
    put(path(), damaged);
    ASSERT_TRUE(QFile::setPermissions(path(), QFile::ReadOwner | QFile::WriteOwner));
    EXPECT_EQ(writeSettings(path(), {{"edge", 1}}), std::nullopt);
    EXPECT_EQ(copies(), QList<QByteArray>());
    {
        const FileSizeLimit room(600);
        for (int attempt = 0; attempt < 2; ++attempt)
            EXPECT_TRUE(writeSettings(path(), {{"look", QByteArray(1000, 'l')}}));
    }
    EXPECT_EQ(copies(), QList<QByteArray>{damaged}) << "once";
    EXPECT_EQ(writeSettings(path(), {{"look", 1}}), std::nullopt);
    EXPECT_EQ(copies(), QList<QByteArray>{damaged});
    {
        // No room for the copy, though for the file.
        const QByteArray before = textOf(path());
        const FileSizeLimit room(100);
        const std::optional<WritingFailure> failure = writeSettings(path(), {{"tea", 1}}, {"tea"});
        ASSERT_TRUE(failure);
        EXPECT_THAT(failure->message.toStdString(), HasSubstr("a copy cannot be kept"));
        EXPECT_EQ(textOf(path()), before);
    }
    // The copies of a file are told apart from whatever else is named alike, which stays.
    const QString foreign = path("broth.conf.unreadable-0099.txt");
    put(foreign, {});
    ASSERT_TRUE(QFile::setPermissions(foreign, QFile::permissions(path())));
    for (int value = 1; value <= 12; ++value)
        EXPECT_EQ(writeSettings(path(), {{"tea", value}}, {"tea"}), std::nullopt);
    EXPECT_TRUE(QFile::remove(foreign));
    QList<QByteArray> newest;
    for (int value = 7; value <= 11; ++value)
        newest.append("[General]\nedge=1\ntea=" + QByteArray::number(value) + "\nlook=1\n");
    EXPECT_EQ(copies(), newest);
}

} // namespace
} // namespace tessel
