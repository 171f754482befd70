// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <chrono>
#include <string>

namespace tessel::cli {

/// A line on standard error that tells how far the work is: only on a terminal, and only once it has taken
/// more than a second. It is wiped when the work is done.
class Progress
{
public:
    Progress(std::string what, int total);
    ~Progress() { finish(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Step `done` of the total has been finished.
    void report(int done);

    /// The work is done: wipes the line, so that other messages can follow.
    void finish();

private:
    std::string m_what;
    int m_total;
    bool m_terminal;
    bool m_shown = false;
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

} // namespace tessel::cli
