// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/x11/x11_upload.h"

#include "platform/linux/x11/x11_connection.h"
#include "platform/linux/x11/x11_shared_memory.h"

#include <QImage>

#include <cstring>

namespace tessel {

namespace {

/// \return false if it cannot be done this way
bool uploadShared(X11Connection& connection, xcb_drawable_t drawable, const QImage& picture, QPoint to)
{
    const auto size = static_cast<std::size_t>(picture.sizeInBytes());
    const std::unique_ptr<X11SharedMemory> memory = X11SharedMemory::make(connection.get(), size);
    if (memory == nullptr)
        return false;
    std::memcpy(memory->bytes(), picture.constBits(), size);
    const auto width = static_cast<std::uint16_t>(picture.width());
    const auto height = static_cast<std::uint16_t>(picture.height());
    const xcb_gcontext_t context = xcb_generate_id(connection.get());
    xcb_create_gc(connection.get(), context, drawable, 0, nullptr);
    xcb_shm_put_image(connection.get(), drawable, context, width, height, 0, 0, width, height,
                      static_cast<std::int16_t>(to.x()), static_cast<std::int16_t>(to.y()),
                      connection.screen().root_depth, XCB_IMAGE_FORMAT_Z_PIXMAP, 0, memory->segment(), 0);
    xcb_free_gc(connection.get(), context);
    // The memory is ours again once the server has read it.
    connection.sync();
    return true;
}

} // namespace

void upload(X11Connection& connection, xcb_drawable_t drawable, const QImage& picture, QPoint to)
{
    const QImage image = inFormatOf(connection.screen().root_depth, picture);
    // Below that the way through the socket is as fast.
    static constexpr qsizetype large = 0x40000;
    if (image.sizeInBytes() < large || !uploadShared(connection, drawable, image, to))
        connection.put(drawable, image, to);
}

} // namespace tessel
