// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/look_pictures.h"

#include "model/look_json.h"
#include "platform/process.h"
#include "render/background_drawing.h"
#include "render/drawing_error.h"
#include "render/geometry.h"
#include "render/graphics.h"
#include "render/headless_context.h"

#include <QByteArray>
#include <QImage>
#include <QQuickTextureFactory>
#include <QTimer>

#include <chrono>
#include <cstring>
#include <exception>
#include <memory>
#include <mutex>
#include <vector>

namespace tessel {

namespace {

/// How long the context is kept with nothing to draw.
constexpr std::chrono::seconds patience{4};

/// What is drawn where QML asks for no size.
constexpr QSize usualSize{140, 80};

/// More than any window of ours, so that no address can ask for all memory.
constexpr int longestSide = 4096;

class Response;

/// A picture that QML waits for.
struct Order
{
    QString id;
    QSize size;
    std::mutex mutex;
    Response* response = nullptr; ///< gone once QML has lost interest
};

class Response final : public QQuickImageResponse
{
public:
    explicit Response(std::shared_ptr<Order> order) : m_order(std::move(order)) {}
    ~Response() override { withdraw(); }

    [[nodiscard]] QQuickTextureFactory* textureFactory() const override
    {
        return QQuickTextureFactory::textureFactoryForImage(m_image);
    }
    [[nodiscard]] QString errorString() const override { return m_failure; }

    /// Qt deletes this once it is told of the end, for which it must not be told in this very call. When an
    /// engine ends it hears of it no more, and would leave this and the provider behind.
    void cancel() override
    {
        withdraw();
        QMetaObject::invokeMethod(
            this, [this] { finish({}, {}); }, Qt::QueuedConnection);
        deleteLater();
    }

    /// Called in the thread that this lives in.
    void finish(QImage image, QString failure)
    {
        m_image = std::move(image);
        m_failure = std::move(failure);
        Q_EMIT finished();
    }

private:
    void withdraw()
    {
        const std::lock_guard lock(m_order->mutex);
        m_order->response = nullptr;
    }

    const std::shared_ptr<Order> m_order;
    QImage m_image;
    QString m_failure;
};

bool isCancelled(Order& order)
{
    const std::lock_guard lock(order.mutex);
    return order.response == nullptr;
}

void answer(Order& order, QImage image, QString failure)
{
    const std::lock_guard lock(order.mutex);
    if (order.response == nullptr)
        return;
    // The call goes with the response, should that be deleted before.
    QMetaObject::invokeMethod(
        order.response,
        [response = order.response, image = std::move(image), failure = std::move(failure)] {
            response->finish(image, failure);
        },
        Qt::QueuedConnection);
}

/// \throws JsonError
Look lookOf(const QString& id)
{
    const QByteArray json = QByteArray::fromBase64(id.toLatin1(), QByteArray::Base64UrlEncoding);
    return decodeLook({json.constData(), static_cast<std::size_t>(json.size())});
}

QSize sizeOf(const QSize& requested)
{
    const QSize wanted = requested.isEmpty() ? usualSize : requested;
    return wanted.boundedTo({longestSide, longestSide});
}

QImage imageOf(const Picture& picture)
{
    QImage image(picture.width, picture.height, QImage::Format_RGB32);
    for (int y = 0; y < picture.height; ++y)
        std::memcpy(image.scanLine(y), picture.row(y).data(), picture.row(y).size_bytes());
    return image;
}

} // namespace

/// Draws what is asked for, the newest first. Lives on the thread where it draws.
class LookPictures::Painter : public QObject
{
public:
    Painter()
    {
        m_idle.setSingleShot(true);
        m_idle.setInterval(patience);
        connect(&m_idle, &QTimer::timeout, this, &Painter::forget);
    }

    /// May be called from any thread.
    void add(std::shared_ptr<Order> order)
    {
        const std::lock_guard lock(m_mutex);
        m_orders.push_back(std::move(order));
    }

    /// To be called once for each that was added. Qt asks for the pictures of a page from its end, and for
    /// those that are scrolled into sight after others.
    void carryOutNewest() { carryOut(*takeNewest()); }

    void forget()
    {
        if (m_graphics == nullptr)
            return;
        const BackgroundDrawing drawing; // the driver takes apart what it drew with
        m_graphics.reset();
        releaseUnusedMemory();
    }

private:
    std::shared_ptr<Order> takeNewest()
    {
        const std::lock_guard lock(m_mutex);
        std::shared_ptr<Order> newest = std::move(m_orders.back());
        m_orders.pop_back();
        return newest;
    }

    void carryOut(Order& order)
    {
        if (isCancelled(order))
            return;
        try {
            answer(order, draw(lookOf(order.id), order.size), {});
        } catch (const std::exception& error) {
            answer(order, {}, QString::fromUtf8(error.what()));
        }
        m_idle.start();
    }

    QImage draw(const Look& look, QSize size)
    {
        BackgroundDrawing drawing;
        if (m_graphics == nullptr)
            m_graphics = std::make_unique<Graphics>([] { return std::make_unique<HeadlessContext>(); });
        const auto picture = m_graphics->draw({.previous = look,
                                               .current = look,
                                               .width = size.width(),
                                               .height = size.height(),
                                               .reference = thumbReference});
        drawing.guardExit();
        if (!picture)
            throw DrawingError("A picture of this size cannot be drawn");
        return imageOf(*picture);
    }

    std::mutex m_mutex;
    std::vector<std::shared_ptr<Order>> m_orders;
    std::unique_ptr<Graphics> m_graphics;
    QTimer m_idle{this};
};

namespace {

class Provider final : public QQuickAsyncImageProvider
{
public:
    explicit Provider(LookPictures& pictures) : m_pictures(pictures) {}

    QQuickImageResponse* requestImageResponse(const QString& id, const QSize& requestedSize) override
    {
        return m_pictures.request(id, requestedSize);
    }

private:
    LookPictures& m_pictures;
};

} // namespace

LookPictures::LookPictures() : m_painter(new Painter), m_worker(QStringLiteral("look pictures"))
{
    m_worker.adopt(m_painter);
}

LookPictures::~LookPictures()
{
    m_isEnding = true;
}

QQuickAsyncImageProvider* LookPictures::makeProvider()
{
    return new Provider(*this);
}

QQuickImageResponse* LookPictures::request(const QString& id, const QSize& requestedSize)
{
    const auto order = std::make_shared<Order>();
    order->id = id;
    order->size = sizeOf(requestedSize);
    auto* response = new Response(order);
    order->response = response;
    m_painter->add(order);
    m_worker.run([this] {
        if (!m_isEnding)
            m_painter->carryOutNewest();
    });
    return response;
}

void LookPictures::release()
{
    m_worker.run([this] { m_painter->forget(); });
}

QString pictureOfLook(const Look& look)
{
    const QByteArray json = QByteArray::fromStdString(encodeLook(look));
    return QStringLiteral("image://looks/") +
           QString::fromLatin1(json.toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals));
}

float pixelForCells(float cellPoints, float widthPoints)
{
    return cellPoints * thumbReference / widthPoints;
}

} // namespace tessel
