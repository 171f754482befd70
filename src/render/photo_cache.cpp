// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "render/photo_cache.h"

#include "render/photo.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

namespace tessel {

namespace {

/// \throws PhotoError if the driver has no room for it
Photo upload(const QImage& image)
{
    // Rows of a QImage are padded to four bytes, those of a texture here are not.
    std::vector<uchar> rows;
    rows.reserve(static_cast<std::size_t>(image.width()) * static_cast<std::size_t>(image.height()));
    for (int y = 0; y < image.height(); ++y)
        rows.insert(rows.end(), image.constScanLine(y), image.constScanLine(y) + image.width());
    Photo photo{makeTexture(maskFormat, image.width(), image.height(), rows.data()),
                {static_cast<float>(image.width()), static_cast<float>(image.height()), true}};
    if (!photo.texture)
        throw PhotoError(
            QCoreApplication::translate("PhotoText", "it does not fit the graphics memory").toStdString());
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAX_LEVEL, 1000);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    // Zoomed out or rippled, the picture reaches past the photo's border.
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_MIRRORED_REPEAT);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_MIRRORED_REPEAT);
    glGenerateMipmap(GL_TEXTURE_2D);
    return photo;
}

} // namespace

PhotoCache::PhotoCache(int longestScreen) : m_longestSide(longestPhotoSide(longestScreen))
{
    m_photos.reserve(capacity);
}

std::vector<PhotoCache::Entry>::const_iterator PhotoCache::entry(const std::string& path) const
{
    return std::ranges::find(m_photos, path, &Entry::first);
}

template<typename MakeImage>
std::shared_ptr<const Photo> PhotoCache::take(const std::string& path, MakeImage makeImage)
{
    try {
        auto photo = std::make_shared<const Photo>(upload(makeImage()));
        if (m_photos.size() == capacity)
            m_photos.erase(m_photos.begin());
        return m_photos.emplace_back(path, std::move(photo)).second;
    } catch (const PhotoError& error) {
        m_failed.emplace(path, error.what());
        return nullptr;
    }
}

std::shared_ptr<const Photo> PhotoCache::find(const std::optional<std::string>& path)
{
    if (!path || m_failed.contains(*path))
        return nullptr;
    const auto found = entry(*path);
    if (found != m_photos.end())
        return found->second;
    return take(*path, [&] { return readPhoto(*path, m_longestSide); });
}

bool PhotoCache::holds(const std::string& path) const
{
    return m_failed.contains(path) || entry(path) != m_photos.end();
}

void PhotoCache::add(const std::string& path, const QImage& image)
{
    if (!holds(path))
        take(path, [&]() -> const QImage& { return image; });
}

void PhotoCache::setLongestScreen(int pixels)
{
    const int side = longestPhotoSide(pixels);
    if (std::exchange(m_longestSide, side) != side)
        m_photos.clear();
}

std::string PhotoCache::problem(const std::string& path) const
{
    const auto found = m_failed.find(path);
    return found == m_failed.end() ? std::string() : found->second;
}

} // namespace tessel
