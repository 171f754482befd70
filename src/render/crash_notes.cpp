// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "render/crash_notes.h"

#include "base/file_writer.h"
#include "model/pattern.h"
#include "render/drawing_error.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <span>
#include <string>
#include <unistd.h>
#include <vector>

namespace tessel::crash_notes {

namespace {

struct CrashNotesText
{
    Q_DECLARE_TR_FUNCTIONS(CrashNotesText)
};

constexpr std::array faults{SIGSEGV, SIGBUS, SIGILL, SIGFPE, SIGABRT};
constexpr int crashesToRefuse = 2;
constexpr std::size_t longestNote = 640;
constexpr int kinds = patternCount * ditherCount;
constexpr int nothing = -1;

/// A line of the file without what was drawn. Whoever handles a fault can only copy what lies ready.
std::array<char, longestNote> driver{};
std::array<char, 4096> fileName{};
std::array<struct sigaction, faults.size()> formerActions{};

std::string programVersion;
std::vector<std::string> notes;
std::array<std::atomic<bool>, kinds> refused{};

constinit thread_local int drawnHere = nothing;
/// What a thread of the driver's own is at work on.
std::atomic<int> drawnLast = nothing;

int kindOf(const Look& look)
{
    return static_cast<int>(look.pattern) * ditherCount + static_cast<int>(look.dither);
}

/// For fixed room that is zeroed behind it; what is too long is cut.
template<std::size_t Size>
void append(std::array<char, Size>& room, std::string_view text)
{
    const std::size_t used = std::strlen(room.data());
    std::memcpy(room.data() + used, text.data(), std::min(text.size(), Size - 1 - used));
}

std::array<char, longestNote> noteOf(int kind)
{
    std::array<char, longestNote> note = driver;
    append(note, title(static_cast<Pattern>(kind / ditherCount)));
    append(note, " with ");
    append(note, title(static_cast<Dither>(kind % ditherCount)));
    return note;
}

/// Only with what may be called while anything else is interrupted.
void writeNote()
{
    const int kind = drawnHere != nothing ? drawnHere : drawnLast.load();
    if (kind == nothing || driver.front() == '\0')
        return;
    std::array<char, longestNote> note = noteOf(kind);
    const std::size_t length = std::min(std::strlen(note.data()), note.size() - 1);
    note.at(length) = '\n';
    const int file = open(fileName.data(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    if (file < 0)
        return;
    [[maybe_unused]] const ssize_t written = write(file, note.data(), length + 1);
    close(file);
}

/// The fault is left to whoever handled it before, mostly the system, which ends the program.
void handleFault(int number, siginfo_t* details, void* /*context*/)
{
    const auto* place = std::ranges::find(faults, number);
    sigaction(number, &formerActions.at(static_cast<std::size_t>(place - faults.begin())), nullptr);
    writeNote();
    // A fault comes again by itself when we return, but not a signal that somebody has sent.
    if (details->si_code <= 0)
        raise(number);
}

void handleFaults()
{
    struct sigaction action = {};
    action.sa_sigaction = handleFault;
    action.sa_flags = SA_SIGINFO | SA_NODEFER;
    sigemptyset(&action.sa_mask);
    for (std::size_t i = 0; i < faults.size(); ++i) {
        struct sigaction former = {};
        sigaction(faults.at(i), &action, &former);
        if (former.sa_sigaction != handleFault)
            formerActions.at(i) = former;
    }
}

std::vector<std::string> readNotes(const std::filesystem::path& file)
{
    std::vector<std::string> lines;
    static constexpr std::size_t mostNotes = 1000;
    std::ifstream stream(file);
    for (std::string line; lines.size() < mostNotes && std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

bool isRefused(const std::string& note)
{
    return std::ranges::count(notes, note) >= crashesToRefuse;
}

} // namespace

void keep(const std::filesystem::path& file, std::string_view version)
{
    fileName.fill('\0');
    append(fileName, file.native());
    driver.fill('\0');
    programVersion = version;
    notes = readNotes(file);
    drawnHere = drawnLast = nothing;
    std::error_code ignored; // then nothing can be noted, which harms nobody
    std::filesystem::create_directories(folderOf(file), ignored);
    handleFaults();
}

void setDriver(std::string_view renderer, std::string_view version)
{
    driver.fill('\0');
    if (fileName.front() == '\0')
        return;
    std::string text = programVersion + ", " + std::string(renderer) + ", " + std::string(version) + ": ";
    std::ranges::replace(text, '\n', ' ');
    append(driver, text.substr(0, longestNote / 2));
    for (int kind = 0; kind < kinds; ++kind)
        refused.at(static_cast<std::size_t>(kind)) = isRefused(noteOf(kind).data());
}

void setDrawn(const Look& look)
{
    const int kind = kindOf(look);
    if (drawnHere == kind)
        return;
    drawnHere = kind;
    drawnLast = kind;
}

void check(const Look& look)
{
    if (refused.at(static_cast<std::size_t>(kindOf(look))))
        throw DrawingError(
            CrashNotesText::tr("The pattern %1 with the dither %2 has ended Tessel Broth twice. It is tried "
                               "again with another graphics driver, or another version of Tessel Broth.")
                .arg(QString::fromUtf8(title(look.pattern)), QString::fromUtf8(title(look.dither)))
                .toStdString());
}

void forgetAccidents()
{
    const std::filesystem::path file(fileName.data());
    std::string kept;
    for (const std::string& note : notes)
        if (isRefused(note))
            kept += note + '\n';
    try {
        if (!kept.empty())
            writeFile(file, std::as_bytes(std::span(kept)));
        else if (!file.empty())
            std::filesystem::remove(file);
    } catch (const std::runtime_error& error) {
        std::fprintf(stderr, "tessel-broth: %s\n", error.what());
    }
}

} // namespace tessel::crash_notes
