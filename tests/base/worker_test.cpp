// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/worker.h"
#include "support/surroundings.h"

#include <gtest/gtest.h>

#include <fstream>
#include <future>
#include <stdexcept>
#include <sys/resource.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <vector>

namespace tessel {

namespace {

class WorkerTest : public testing::Test, protected WithApplication<QCoreApplication>
{
};

/// No room for the stack of another thread, while it lives.
class NoRoomForThreads
{
public:
    NoRoomForThreads()
    {
        getrlimit(RLIMIT_AS, &m_before);
        constexpr rlim_t lessThanAStack = rlim_t{4} << 20U;
        const rlimit little{usedBytes() + lessThanAStack, m_before.rlim_max};
        setrlimit(RLIMIT_AS, &little);
        useUpSpareStacks();
    }
    ~NoRoomForThreads()
    {
        setrlimit(RLIMIT_AS, &m_before);
        m_release.set_value();
        for (std::thread& thread : m_idle)
            thread.join();
    }
    NoRoomForThreads(const NoRoomForThreads&) = delete;
    NoRoomForThreads& operator=(const NoRoomForThreads&) = delete;

private:
    static rlim_t usedBytes()
    {
        rlim_t pages = 0;
        std::ifstream("/proc/self/statm") >> pages;
        return pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
    }

    /// The C library keeps those of threads that have ended.
    void useUpSpareStacks()
    {
        const auto released = m_release.get_future().share();
        try {
            while (true)
                m_idle.emplace_back([released] { released.wait(); });
        } catch (const std::system_error&) {
        }
    }

    rlimit m_before{};
    std::promise<void> m_release;
    std::vector<std::thread> m_idle;
};

} // namespace

TEST_F(WorkerTest, DoesJobsInOrderElsewhereAndTellsOfThemHere)
{
    Worker worker(QStringLiteral("test"));
    std::vector<int> done;
    std::vector<int> told;
    bool isElsewhere = true;
    for (int i = 0; i < 3; ++i) {
        worker.run(
            [&done, &isElsewhere, i] {
                isElsewhere =
                    isElsewhere && QThread::currentThread() != QCoreApplication::instance()->thread();
                done.push_back(i);
                return i;
            },
            [&told](const Outcome<int>& outcome) { told.push_back(outcome.value.value_or(-1)); });
    }
    worker.wait();
    EXPECT_EQ(done, (std::vector{0, 1, 2}));
    EXPECT_TRUE(isElsewhere);
    EXPECT_TRUE(told.empty());
    EXPECT_TRUE(waitUntil([&] { return told == done; }));
}

TEST_F(WorkerTest, WhatAJobThrowsIsItsOutcomeAndTheNextOneRuns)
{
    Worker worker(QStringLiteral("test"));
    QString failure;
    bool ranNext = false;
    worker.run([] { throw std::runtime_error("no such dish"); },
               [&](const Outcome<std::monostate>& outcome) {
                   EXPECT_FALSE(outcome.value.has_value());
                   failure = outcome.failure;
               });
    worker.run([] { throw std::runtime_error("nobody asked"); });
    worker.run([&ranNext] { ranNext = true; });
    worker.wait();
    EXPECT_TRUE(ranNext);
    EXPECT_TRUE(waitUntil([&] { return failure == QStringLiteral("no such dish"); }));
}

TEST_F(WorkerTest, EndsOnlyWhenItsJobsAreDone)
{
    int done = 0;
    bool wasTold = false;
    {
        Worker worker(QStringLiteral("test"));
        for (int i = 0; i < 3; ++i)
            worker.run([&done] { ++done; }, [&wasTold](const auto& /*outcome*/) { wasTold = true; });
    }
    EXPECT_EQ(done, 3);
    QCoreApplication::processEvents();
    EXPECT_FALSE(wasTold);
}

TEST_F(WorkerTest, WithoutRoomForAThreadWorksHere)
{
#ifdef TESSEL_SANITIZED
    GTEST_SKIP() << "Sanitizers need more room than there is.";
#endif
    std::optional<Worker> worker;
    {
        const NoRoomForThreads limit;
        worker.emplace(QStringLiteral("test"));
    }
    bool ran = false;
    bool wasTold = false;
    worker->run([&ran] { ran = QThread::currentThread() == QCoreApplication::instance()->thread(); },
                [&wasTold](const auto& outcome) { wasTold = outcome.value.has_value(); });
    EXPECT_TRUE(ran);
    worker->wait();
    EXPECT_TRUE(waitUntil([&] { return wasTold; }));
}

} // namespace tessel
