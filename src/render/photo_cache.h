// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "render/gl_objects.h"
#include "render/uniforms.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QImage;

namespace tessel {

/// The luminance of a photo on the GPU, with mipmaps.
struct Photo
{
    GlTexture texture;
    PhotoSize size;
};

/// The three photos used last, first in first out. A photo that could not be read is not tried again.
class PhotoCache
{
public:
    /// \param longestScreen the longest side of any screen in pixels, 0 where there is none
    explicit PhotoCache(int longestScreen = 0);

    /// The photo at this path; none without a path or when it cannot be read.
    std::shared_ptr<const Photo> find(const std::optional<std::string>& path);

    /// Whether find() answers without reading a file.
    [[nodiscard]] bool holds(const std::string& path) const;

    /// Takes a photo that readPhoto() has read elsewhere, so that find() need not.
    void add(const std::string& path, const QImage& image);

    /// Photos are read anew when the longest screen is another one, if that makes them larger or smaller.
    void setLongestScreen(int pixels);

    /// Why a photo that was asked for cannot be shown; empty if it can.
    [[nodiscard]] std::string problem(const std::string& path) const;

    /// The longest side to read photos with.
    [[nodiscard]] int longestSide() const { return m_longestSide; }

private:
    using Entry = std::pair<std::string, std::shared_ptr<const Photo>>;

    [[nodiscard]] std::vector<Entry>::const_iterator entry(const std::string& path) const;
    template<typename MakeImage>
    std::shared_ptr<const Photo> take(const std::string& path, MakeImage makeImage);

    static constexpr std::size_t capacity = 3;
    int m_longestSide;
    std::vector<Entry> m_photos;
    std::map<std::string, std::string> m_failed;
};

} // namespace tessel
