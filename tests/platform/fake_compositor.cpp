// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/fake_compositor.h"

#include "viewporter-server.h"

#include <cstring>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>
#include <vector>
#include <wayland-server.h>

// A parameter in it has a name that C++ keeps to itself.
#define namespace scope // NOLINT(cppcoreguidelines-macro-usage)
#include "wlr-layer-shell-unstable-v1-server.h"
#undef namespace

namespace tessel {

namespace {

/// A pointer to what a client may destroy at any time.
class Watched
{
public:
    Watched() { m_listener.self = this; }
    Watched(const Watched&) = delete;
    Watched& operator=(const Watched&) = delete;
    ~Watched() { set(nullptr); }

    void set(wl_resource* resource)
    {
        if (m_resource != nullptr)
            wl_list_remove(&m_listener.listener.link);
        m_resource = resource;
        m_listener.listener.notify = [](wl_listener* listener, void* /*data*/) {
            reinterpret_cast<Listener*>(listener)->self->set(nullptr);
        };
        if (resource != nullptr)
            wl_resource_add_destroy_listener(resource, &m_listener.listener);
    }

    [[nodiscard]] wl_resource* get() const { return m_resource; }

private:
    struct Listener
    {
        wl_listener listener{}; // stays the first
        Watched* self = nullptr;
    };

    Listener m_listener;
    wl_resource* m_resource = nullptr;
};

void destroy(wl_client* /*client*/, wl_resource* resource)
{
    wl_resource_destroy(resource);
}

int listenAt(const QString& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const QByteArray name = path.toLocal8Bit();
    std::strncpy(static_cast<char*>(address.sun_path), name.constData(), sizeof(address.sun_path) - 1);
    const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0 ||
        listen(descriptor, 1) != 0)
        throw std::runtime_error("No socket can be made in " + path.toStdString());
    return descriptor;
}

} // namespace

struct FakeCompositor::Surface
{
    explicit Surface(FakeCompositor& its) : compositor(its) {}

    FakeCompositor& compositor;
    Watched attached;
    bool isAttached = false; ///< since the last commit
    Watched kept;
    Watched role;
    bool isConfigured = false;
    std::vector<std::uint32_t> layers; ///< the present one last
    std::vector<QRect> damage;
    std::vector<wl_resource*> asked;   ///< callbacks since the last commit
    std::vector<wl_resource*> waiting; ///< those before
    QImage shown;

    void commit();
    void copyDamage(wl_shm_buffer* buffer);
};

/// Ends whatever it has asked for, as the client need not wait for it.
void FakeCompositor::Surface::commit()
{
    ++compositor.m_commits;
    if (role.get() != nullptr && !std::exchange(isConfigured, true))
        zwlr_layer_surface_v1_send_configure(role.get(), 1,
                                             static_cast<std::uint32_t>(compositor.m_output.width()),
                                             static_cast<std::uint32_t>(compositor.m_output.height()));
    if (std::exchange(isAttached, false)) {
        wl_resource* const buffer = attached.get();
        copyDamage(wl_shm_buffer_get(buffer));
        if (compositor.m_keeps == Keeps::nothing) {
            wl_buffer_send_release(buffer);
        } else if (kept.get() != buffer) {
            if (kept.get() != nullptr)
                wl_buffer_send_release(kept.get());
            kept.set(buffer);
        }
    }
    damage.clear();
    waiting.insert(waiting.end(), asked.begin(), asked.end());
    asked.clear();
    compositor.answer(*this);
}

void FakeCompositor::Surface::copyDamage(wl_shm_buffer* buffer)
{
    const QSize size(wl_shm_buffer_get_width(buffer), wl_shm_buffer_get_height(buffer));
    if (shown.size() != size) {
        shown = QImage(size, QImage::Format_RGB32);
        shown.fill(Qt::magenta);
    }
    wl_shm_buffer_begin_access(buffer);
    const QImage pixels(static_cast<const uchar*>(wl_shm_buffer_get_data(buffer)), size.width(),
                        size.height(), wl_shm_buffer_get_stride(buffer), QImage::Format_RGB32);
    for (const QRect& whole : damage) {
        const QRect area = whole & shown.rect();
        for (int y = area.top(); y <= area.bottom(); ++y)
            for (int x = area.left(); x <= area.right(); ++x)
                shown.setPixel(x, y, pixels.pixel(x, y));
    }
    wl_shm_buffer_end_access(buffer);
}

struct FakeCompositor::Requests
{
    static FakeCompositor& compositorOf(wl_resource* resource)
    {
        return *static_cast<FakeCompositor*>(wl_resource_get_user_data(resource));
    }
    static Surface& surfaceOf(wl_resource* resource)
    {
        return *static_cast<Surface*>(wl_resource_get_user_data(resource));
    }

    // Surfaces

    static void attach(wl_client* /*client*/, wl_resource* surface, wl_resource* buffer, int /*x*/, int /*y*/)
    {
        surfaceOf(surface).attached.set(buffer);
        surfaceOf(surface).isAttached = true;
    }
    static void damageSurface(wl_client* /*client*/, wl_resource* /*surface*/, int /*x*/, int /*y*/,
                              int /*width*/, int /*height*/)
    {
    }
    static void frame(wl_client* client, wl_resource* surface, std::uint32_t number)
    {
        wl_resource* const callback = wl_resource_create(client, &wl_callback_interface, 1, number);
        wl_resource_set_implementation(callback, nullptr, &surfaceOf(surface), [](wl_resource* gone) {
            if (auto* const owner = static_cast<Surface*>(wl_resource_get_user_data(gone))) {
                std::erase(owner->asked, gone);
                std::erase(owner->waiting, gone);
            }
        });
        surfaceOf(surface).asked.push_back(callback);
    }
    static void setRegion(wl_client* /*client*/, wl_resource* /*surface*/, wl_resource* /*region*/) {}
    static void commit(wl_client* /*client*/, wl_resource* surface) { surfaceOf(surface).commit(); }
    static void setNumber(wl_client* /*client*/, wl_resource* /*surface*/, int /*number*/) {}
    static void damageBuffer(wl_client* /*client*/, wl_resource* surface, int x, int y, int width, int height)
    {
        surfaceOf(surface).damage.emplace_back(x, y, width, height);
    }

    static void endSurface(wl_resource* resource)
    {
        Surface& surface = surfaceOf(resource);
        for (const auto* callbacks : {&surface.asked, &surface.waiting})
            for (wl_resource* const callback : *callbacks)
                wl_resource_set_user_data(callback, nullptr);
        if (surface.role.get() != nullptr)
            wl_resource_set_user_data(surface.role.get(), nullptr);
        surface.compositor.m_surfaces.remove_if([&](const auto& each) { return each.get() == &surface; });
    }

    static constexpr struct wl_surface_interface surfaces
    {
        destroy, attach, damageSurface, frame, setRegion, setRegion, commit, setNumber, setNumber,
            damageBuffer, nullptr,
    };

    static void addToRegion(wl_client* /*client*/, wl_resource* /*region*/, int /*x*/, int /*y*/,
                            int /*width*/, int /*height*/)
    {
    }
    static constexpr struct wl_region_interface regions
    {
        destroy, addToRegion, addToRegion
    };

    static void createSurface(wl_client* client, wl_resource* compositor, std::uint32_t number)
    {
        FakeCompositor& self = compositorOf(compositor);
        wl_resource* const resource = wl_resource_create(client, &wl_surface_interface, 4, number);
        Surface* const surface = self.m_surfaces.emplace_back(std::make_unique<Surface>(self)).get();
        wl_resource_set_implementation(resource, &surfaces, surface, endSurface);
    }
    static void createRegion(wl_client* client, wl_resource* /*compositor*/, std::uint32_t number)
    {
        wl_resource* const region = wl_resource_create(client, &wl_region_interface, 1, number);
        wl_resource_set_implementation(region, &regions, nullptr, nullptr);
    }
    static constexpr struct wl_compositor_interface compositors
    {
        createSurface, createRegion
    };

    // Their size

    static void setSource(wl_client* /*client*/, wl_resource* /*viewport*/, wl_fixed_t /*x*/,
                          wl_fixed_t /*y*/, wl_fixed_t /*width*/, wl_fixed_t /*height*/)
    {
    }
    static void setDestination(wl_client* /*client*/, wl_resource* /*viewport*/, int /*width*/,
                               int /*height*/)
    {
    }
    static constexpr struct wp_viewport_interface viewports
    {
        destroy, setSource, setDestination
    };

    static void getViewport(wl_client* client, wl_resource* /*viewporter*/, std::uint32_t number,
                            wl_resource* /*surface*/)
    {
        wl_resource* const viewport = wl_resource_create(client, &wp_viewport_interface, 1, number);
        wl_resource_set_implementation(viewport, &viewports, nullptr, nullptr);
    }
    static constexpr struct wp_viewporter_interface viewporters
    {
        destroy, getViewport
    };

    // Layers

    static void setPair(wl_client* /*client*/, wl_resource* /*role*/, std::uint32_t /*width*/,
                        std::uint32_t /*height*/)
    {
    }
    static void setUnsigned(wl_client* /*client*/, wl_resource* /*role*/, std::uint32_t /*value*/) {}
    static void setSigned(wl_client* /*client*/, wl_resource* /*role*/, std::int32_t /*value*/) {}
    static void setMargin(wl_client* /*client*/, wl_resource* /*role*/, std::int32_t /*top*/,
                          std::int32_t /*right*/, std::int32_t /*bottom*/, std::int32_t /*left*/)
    {
    }
    static void setLayer(wl_client* /*client*/, wl_resource* role, std::uint32_t layer)
    {
        surfaceOf(role).layers.push_back(layer);
    }
    static constexpr struct zwlr_layer_surface_v1_interface roles
    {
        setPair, setUnsigned, setSigned, setMargin, setUnsigned, setRegion, setUnsigned, destroy, setLayer,
            setUnsigned,
    };

    static void getRole(wl_client* client, wl_resource* /*layers*/, std::uint32_t number,
                        wl_resource* surface, wl_resource* /*output*/, std::uint32_t layer,
                        const char* /*name*/)
    {
        wl_resource* const role = wl_resource_create(client, &zwlr_layer_surface_v1_interface, 3, number);
        wl_resource_set_implementation(role, &roles, &surfaceOf(surface), nullptr);
        surfaceOf(surface).role.set(role);
        surfaceOf(surface).layers.push_back(layer);
    }
    static constexpr struct zwlr_layer_shell_v1_interface shells
    {
        getRole, destroy
    };

    // Globals

    template<const wl_interface& interface, const auto& requests, int version>
    static void bind(wl_client* client, void* self, std::uint32_t /*version*/, std::uint32_t number)
    {
        wl_resource* const resource = wl_resource_create(client, &interface, version, number);
        wl_resource_set_implementation(resource, &requests, self, nullptr);
    }

    static constexpr struct wl_output_interface outputs
    {
        destroy
    };
    static void bindOutput(wl_client* client, void* self, std::uint32_t /*version*/, std::uint32_t number)
    {
        wl_resource* const output = wl_resource_create(client, &wl_output_interface, 4, number);
        wl_resource_set_implementation(output, &outputs, self, nullptr);
        const QSize size = static_cast<FakeCompositor*>(self)->m_output;
        wl_output_send_geometry(output, 0, 0, 0, 0, 0, "", "", WL_OUTPUT_TRANSFORM_NORMAL);
        wl_output_send_mode(output, WL_OUTPUT_MODE_CURRENT, size.width(), size.height(), 60000);
        wl_output_send_name(output, qPrintable(outputName()));
        wl_output_send_done(output);
    }
};

FakeCompositor::FakeCompositor(Keeps keeps, QSize output)
    : m_keeps(keeps)
    , m_output(output)
    , m_socket(m_folder.filePath(QStringLiteral("wayland")))
    , m_variable("WAYLAND_DISPLAY", m_socket.toLocal8Bit())
    , m_display(wl_display_create())
{
    wl_display_add_socket_fd(m_display, listenAt(m_socket));
    wl_display_init_shm(m_display);
    wl_global_create(m_display, &wl_compositor_interface, 4, this,
                     &Requests::bind<wl_compositor_interface, Requests::compositors, 4>);
    wl_global_create(m_display, &wp_viewporter_interface, 1, this,
                     &Requests::bind<wp_viewporter_interface, Requests::viewporters, 1>);
    wl_global_create(m_display, &zwlr_layer_shell_v1_interface, 3, this,
                     &Requests::bind<zwlr_layer_shell_v1_interface, Requests::shells, 3>);
    plugOutput();
    m_thread = std::thread([this] { serve(); });
}

FakeCompositor::~FakeCompositor()
{
    m_isEnding = true;
    m_thread.join();
    wl_display_destroy_clients(m_display);
    wl_display_destroy(m_display);
}

void FakeCompositor::serve()
{
    pollfd events{
        .fd = wl_event_loop_get_fd(wl_display_get_event_loop(m_display)), .events = POLLIN, .revents = 0};
    constexpr int mostMilliseconds = 5; // until what the test has asked for is sent
    while (!m_isEnding) {
        poll(&events, 1, mostMilliseconds);
        const std::lock_guard lock(m_mutex);
        wl_event_loop_dispatch(wl_display_get_event_loop(m_display), 0);
        wl_display_flush_clients(m_display);
    }
}

const QString& FakeCompositor::outputName()
{
    static const auto name = QStringLiteral("FAKE-1");
    return name;
}

void FakeCompositor::plugOutput()
{
    const std::lock_guard lock(m_mutex);
    m_outputGlobal = wl_global_create(m_display, &wl_output_interface, 4, this, &Requests::bindOutput);
}

void FakeCompositor::unplugOutput()
{
    const std::lock_guard lock(m_mutex);
    wl_global_destroy(std::exchange(m_outputGlobal, nullptr));
}

void FakeCompositor::setAnswers(Answers answers)
{
    const std::lock_guard lock(m_mutex);
    m_answers = answers;
    for (const auto& surface : m_surfaces)
        answer(*surface);
}

void FakeCompositor::answer(Surface& surface) const
{
    const bool isAtBottom =
        !surface.layers.empty() && surface.layers.back() == ZWLR_LAYER_SHELL_V1_LAYER_BOTTOM;
    const bool isSeen = m_answers == Answers::all || (m_answers == Answers::bottomOnly && isAtBottom);
    if (!isSeen)
        return;
    for (wl_resource* const callback : std::exchange(surface.waiting, {})) {
        wl_callback_send_done(callback, 0);
        wl_resource_destroy(callback);
    }
}

std::size_t FakeCompositor::surfaceCount() const
{
    const std::lock_guard lock(m_mutex);
    return m_surfaces.size();
}

QImage FakeCompositor::shown() const
{
    const std::lock_guard lock(m_mutex);
    return m_surfaces.empty() ? QImage() : m_surfaces.front()->shown.copy();
}

std::vector<std::uint32_t> FakeCompositor::layers() const
{
    const std::lock_guard lock(m_mutex);
    return m_surfaces.empty() ? std::vector<std::uint32_t>() : m_surfaces.front()->layers;
}

int FakeCompositor::commitCount() const
{
    const std::lock_guard lock(m_mutex);
    return m_commits;
}

int FakeCompositor::objectCount() const
{
    const std::lock_guard lock(m_mutex);
    int count = 0;
    wl_client* client = nullptr;
    wl_client_for_each(client, wl_display_get_client_list(m_display))
    {
        wl_client_for_each_resource(
            client,
            [](wl_resource* /*resource*/, void* counter) {
                ++*static_cast<int*>(counter);
                return WL_ITERATOR_CONTINUE;
            },
            &count);
    }
    return count;
}

} // namespace tessel
