// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/x11/x11_shared_memory.h"

#include "platform/linux/x11/x11_connection.h"

#include <sys/mman.h>
#include <sys/socket.h>
#include <unistd.h>

namespace tessel {

namespace {

/// Whether the server takes files to share: one on this machine, of version 1.2 or later.
bool canShare(xcb_connection_t* connection)
{
    sockaddr_storage address{};
    socklen_t size = sizeof address;
    if (getsockname(xcb_get_file_descriptor(connection), reinterpret_cast<sockaddr*>(&address), &size) != 0 ||
        address.ss_family != AF_UNIX)
        return false;
    if (!hasExtension(connection, xcb_shm_id))
        return false;
    const auto version =
        readReply(xcb_shm_query_version_reply, connection, xcb_shm_query_version(connection));
    return version != nullptr &&
           (version->major_version > 1 || (version->major_version == 1 && version->minor_version >= 2));
}

} // namespace

std::unique_ptr<X11SharedMemory> X11SharedMemory::make(xcb_connection_t* connection, std::size_t size)
{
    if (!canShare(connection))
        return nullptr;
    const int file = memfd_create("picture", MFD_CLOEXEC);
    if (file < 0)
        return nullptr;
    void* bytes = MAP_FAILED;
    if (ftruncate(file, static_cast<off_t>(size)) == 0)
        bytes = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    if (bytes == MAP_FAILED) {
        ::close(file);
        return nullptr;
    }
    std::unique_ptr<X11SharedMemory> memory(new X11SharedMemory(connection, bytes, size));
    // This hands the file over.
    const auto cookie = xcb_shm_attach_fd_checked(connection, memory->segment(), file, 0);
    const XcbPointer<xcb_generic_error_t> error(xcb_request_check(connection, cookie));
    return error == nullptr && xcb_connection_has_error(connection) == 0 ? std::move(memory) : nullptr;
}

X11SharedMemory::X11SharedMemory(xcb_connection_t* connection, void* bytes, std::size_t size)
    : m_connection(connection)
    , m_bytes(bytes)
    , m_size(size)
    , m_segment(xcb_generate_id(connection))
{
}

X11SharedMemory::~X11SharedMemory()
{
    xcb_shm_detach(m_connection, m_segment);
    munmap(m_bytes, m_size);
}

} // namespace tessel
