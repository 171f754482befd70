// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/quit_signals.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace tessel {

namespace {

/// What terminals, session managers and shutdowns send.
constexpr std::array signalsToQuit{SIGTERM, SIGINT, SIGHUP};

/// Hardly anything may be done in a signal's handler but writing into a pipe, which the event loop reads.
int writingEnd = -1;

void handleSignal(int /*number*/)
{
    const int error = errno;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(writingEnd, &byte, 1);
    errno = error;
}

class SignalPipe : public QuitSignals
{
public:
    SignalPipe()
    {
        std::array<int, 2> ends{};
        if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
            throw std::system_error(errno, std::generic_category(), "signals cannot be watched");
        m_readingEnd = ends[0];
        writingEnd = ends[1];
        m_notifier = std::make_unique<QSocketNotifier>(m_readingEnd, QSocketNotifier::Read);
        connect(m_notifier.get(), &QSocketNotifier::activated, this, &SignalPipe::drain);
        handle(handleSignal);
    }

    ~SignalPipe() override
    {
        handle(SIG_DFL);
        m_notifier.reset();
        close(m_readingEnd);
        close(writingEnd);
    }

    SignalPipe(const SignalPipe&) = delete;
    SignalPipe& operator=(const SignalPipe&) = delete;

private:
    static void handle(void (*handler)(int))
    {
        struct sigaction action = {};
        action.sa_handler = handler;
        action.sa_flags = SA_RESTART;
        sigemptyset(&action.sa_mask);
        for (const int number : signalsToQuit)
            sigaction(number, &action, nullptr);
    }

    void drain()
    {
        std::array<char, 16> bytes{};
        while (read(m_readingEnd, bytes.data(), bytes.size()) > 0) {
        }
        Q_EMIT received();
    }

    int m_readingEnd = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace

std::unique_ptr<QuitSignals> watchQuitSignals()
{
    return std::make_unique<SignalPipe>();
}

} // namespace tessel
