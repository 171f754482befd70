// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "plasma/wallpaper_frames.h"

#include <QQuickWindow>
#include <QSGImageNode>

#include <algorithm>
#include <memory>
#include <vector>

namespace tessel {

namespace {

/// Pixels. A frame that changes in a few places sends so much of it to the GPU for each.
constexpr int tileSide = 256;

/// A picture in tiles, of which those that have changed are given to the scene graph anew.
class TilesNode : public QSGNode
{
public:
    TilesNode(QQuickWindow& window, QSize pixels) : m_size(pixels)
    {
        for (int y = 0; y < pixels.height(); y += tileSide)
            for (int x = 0; x < pixels.width(); x += tileSide)
                addTile(window, QRect(x, y, tileSide, tileSide) & QRect(QPoint(), pixels));
    }

    [[nodiscard]] QSize size() const { return m_size; }

    /// \param place where the picture is shown
    void update(QQuickWindow& window, const QImage& picture, const QRegion& changes, const QRectF& place)
    {
        const double across = place.width() / m_size.width();
        const double down = place.height() / m_size.height();
        for (const Tile& tile : m_tiles) {
            const QRect& area = tile.area;
            tile.node->setRect(place.x() + area.x() * across, place.y() + area.y() * down,
                               area.width() * across, area.height() * down);
            if (tile.node->texture() == nullptr || changes.intersects(area))
                tile.node->setTexture(
                    window.createTextureFromImage(part(picture, area), QQuickWindow::TextureIsOpaque));
        }
    }

private:
    struct Tile
    {
        QRect area;
        QSGImageNode* node; ///< a child of this
    };

    void addTile(QQuickWindow& window, const QRect& area)
    {
        QSGImageNode* const node = window.createImageNode();
        node->setOwnsTexture(true);
        node->setFiltering(QSGTexture::Linear);
        appendChildNode(node);
        m_tiles.push_back({area, node});
    }

    /// The same memory, which is there as long as what is returned.
    static QImage part(const QImage& picture, const QRect& area)
    {
        const uchar* const first = picture.constScanLine(area.y()) + area.x() * picture.depth() / 8;
        return {first,
                area.width(),
                area.height(),
                picture.bytesPerLine(),
                picture.format(),
                [](void* whole) { delete static_cast<QImage*>(whole); },
                new QImage(picture)};
    }

    const QSize m_size;
    std::vector<Tile> m_tiles;
};

} // namespace

WallpaperFrames::WallpaperFrames(QQuickItem* parent, const QDBusConnection& bus)
    : QQuickItem(parent)
    , m_source(bus)
{
    setFlag(ItemHasContents);
    connect(&m_source, &FrameSource::changed, this, &QQuickItem::update);
    connect(&m_source, &FrameSource::pictureChanged, this, &QQuickItem::update);
    connect(&m_source, &FrameSource::pictureChanged, this, &WallpaperFrames::playingChanged);
}

void WallpaperFrames::setScreen(const QString& name)
{
    if (std::exchange(m_screen, name) == name)
        return;
    followWindow();
    Q_EMIT screenChanged();
}

void WallpaperFrames::itemChange(ItemChange change, const ItemChangeData& data)
{
    QQuickItem::itemChange(change, data);
    if (change == ItemVisibleHasChanged || change == ItemSceneChange)
        followWindow();
}

/// Plasma keeps wallpapers of other activities, which nobody sees.
void WallpaperFrames::followWindow()
{
    disconnect(m_swaps);
    const bool isSeen = isVisible() && window() != nullptr;
    if (isSeen)
        m_swaps = connect(window(), &QQuickWindow::frameSwapped, this, &WallpaperFrames::followSwap,
                          Qt::QueuedConnection);
    m_source.setScreen(isSeen ? m_screen : QString());
}

void WallpaperFrames::setWindows(QAbstractItemModel* windows)
{
    if (windows == m_windows)
        return;
    if (m_windows != nullptr)
        m_windows->disconnect(this);
    m_windows = windows;
    if (m_windows != nullptr) {
        const QHash<int, QByteArray> names = m_windows->roleNames();
        m_coveringRoles = {names.key("IsFullScreen", -1), names.key("IsMaximized", -1)};
        connect(m_windows, &QAbstractItemModel::dataChanged, this, &WallpaperFrames::findCovering);
        connect(m_windows, &QAbstractItemModel::rowsInserted, this, &WallpaperFrames::findCovering);
        connect(m_windows, &QAbstractItemModel::rowsRemoved, this, &WallpaperFrames::findCovering);
        connect(m_windows, &QAbstractItemModel::modelReset, this, &WallpaperFrames::findCovering);
    }
    findCovering();
    Q_EMIT windowsChanged();
}

/// The compositor does not tell it: Plasma's desktop goes on being drawn below windows.
void WallpaperFrames::findCovering()
{
    const int count = m_windows != nullptr ? m_windows->rowCount() : 0;
    m_isCovered = false;
    for (int row = 0; row < count && !m_isCovered; ++row) {
        const QModelIndex window = m_windows->index(row, 0);
        m_isCovered =
            std::ranges::any_of(m_coveringRoles, [&](int role) { return window.data(role).toBool(); });
    }
    acknowledge();
}

/// The first swap after what was drawn, which may happen on another thread, is the one that shows it.
void WallpaperFrames::followSwap()
{
    if (m_isDrawn.exchange(false)) {
        m_isShown = true;
        acknowledge();
    }
}

/// While nobody would see another frame, none is asked for.
void WallpaperFrames::acknowledge()
{
    if (!m_isShown || m_isCovered)
        return;
    m_isShown = false;
    m_source.acknowledge();
}

/// This thread waits meanwhile where it is another one that draws.
QSGNode* WallpaperFrames::updatePaintNode(QSGNode* old, UpdatePaintNodeData* /*data*/)
{
    std::unique_ptr<TilesNode> node(static_cast<TilesNode*>(old));
    const QImage picture = m_source.picture();
    if (picture.isNull())
        return nullptr;
    if (node == nullptr || node->size() != picture.size())
        node = std::make_unique<TilesNode>(*window(), picture.size());
    const QRegion changes = m_source.takeChanges();
    node->update(*window(), picture, changes, boundingRect());
    if (!changes.isEmpty())
        m_isDrawn = true;
    return node.release();
}

} // namespace tessel
