// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/file_writer.h"

#include <QTemporaryDir>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <fstream>
#include <iterator>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace tessel {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

class FileWriterTest : public testing::Test
{
protected:
    static std::span<const std::byte> bytes(std::string_view text) { return std::as_bytes(std::span(text)); }

    static std::string contentOf(const fs::path& path)
    {
        std::ifstream stream(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    }

    [[nodiscard]] std::vector<std::string> names() const
    {
        std::vector<std::string> found;
        for (const auto& entry : fs::directory_iterator(folder))
            found.push_back(entry.path().filename().string());
        return found;
    }

private:
    QTemporaryDir m_folder;

protected:
    const fs::path folder = m_folder.path().toStdString();
    const fs::path file = folder / "a.txt";
};

TEST_F(FileWriterTest, TheOldFileStaysUntilTheNewOneIsWhole)
{
    std::ofstream(file) << "old";
    fs::permissions(file, fs::perms(0600));
    {
        FileWriter writer(file, Permissions::asBefore);
        writer.write(bytes("ne"));
        EXPECT_EQ(contentOf(file), "old");
        writer.write(bytes("w"));
        writer.commit();
    }
    EXPECT_EQ(contentOf(file), "new");
    EXPECT_EQ(fs::status(file).permissions(), fs::perms(0600)) << "as private as before";
    {
        FileWriter writer(file);
        writer.write(bytes("given up"));
    }
    EXPECT_EQ(contentOf(file), "new");
    EXPECT_THAT(names(), ElementsAre("a.txt"));
}

TEST_F(FileWriterTest, WhatAKilledProgramLeftIsRemovedByTheNext)
{
    const pid_t child = fork();
    if (child == 0) {
        FileWriter writer(file);
        writer.write(bytes("half"));
        raise(SIGKILL);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status));
    ASSERT_THAT(names(), ElementsAre(testing::Truly(isTemporary)));

    for (const char* name : {".tessel-.tmp", ".tessel-1-x.tmp", ".tessel-1-2.tmp.txt", "tessel-1-2.tmp"})
        std::ofstream(folder / name) << "somebody else's";
    fs::create_symlink("nowhere", folder / ".tessel-3-4.tmp");
    FileWriter other(folder / "b.txt");
    other.write(bytes("b"));
    writeFile(file, bytes("whole"));
    other.commit();
    EXPECT_THAT(names(), UnorderedElementsAre("a.txt", "b.txt", ".tessel-.tmp", ".tessel-1-x.tmp",
                                              ".tessel-1-2.tmp.txt", "tessel-1-2.tmp", ".tessel-3-4.tmp"));
    EXPECT_EQ(contentOf(folder / "b.txt"), "b") << "it was being written";
}

TEST_F(FileWriterTest, ManyAtOnceDoNotTakeEachOthersForLeftovers)
{
    std::vector<std::jthread> writers;
    writers.reserve(4);
    for (int writer = 0; writer < 4; ++writer) {
        writers.emplace_back([this, name = folder / std::to_string(writer)] {
            for (int round = 0; round < 100; ++round)
                EXPECT_NO_THROW(writeFile(name, bytes("whole")));
        });
    }
    writers.clear();
    EXPECT_THAT(names(), UnorderedElementsAre("0", "1", "2", "3"));
}

} // namespace
} // namespace tessel
