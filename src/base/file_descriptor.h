// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <unistd.h>
#include <utility>

namespace tessel {

/// An open file of the system's, closed when this ends.
class FileDescriptor
{
public:
    FileDescriptor() = default;
    /// \param opened as open() returns it: none below 0
    explicit FileDescriptor(int opened) : m_number(opened) {}
    FileDescriptor(FileDescriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor() { close(); }

    [[nodiscard]] int get() const { return m_number; }
    [[nodiscard]] bool isOpen() const { return m_number >= 0; }

    /// Closes it before its time; false, with errno set, where a write fails only now.
    bool close() { return !isOpen() || ::close(std::exchange(m_number, -1)) == 0; }

private:
    int m_number = -1;
};

} // namespace tessel
