// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/desktop_pictures.h"

#include "platform/linux/desktops/gnome_pictures.h"
#include "platform/linux/desktops/lxqt_pictures.h"
#include "platform/linux/desktops/pcmanfm_pictures.h"
#include "platform/linux/desktops/plasma_pictures.h"
#include "platform/linux/desktops/queued_pictures.h"
#include "platform/linux/desktops/root_pictures.h"
#include "platform/linux/desktops/xfce_pictures.h"
#include "platform/linux/session_desktops.h"
#include "platform/linux/x11/x11_connection.h"
#include "platform/linux/x11/x11_desktop_owner.h"

#include <QDBusMessage>

#include <algorithm>
#include <array>

namespace tessel {

namespace {

using BackendPointer = std::unique_ptr<PictureBackend>;

/// In which a session whose desktop has a name brings it up, or again.
constexpr std::chrono::seconds longestStart{30};

/// What tells which desktop runs.
struct Signs
{
    QDBusConnection bus;
    QStringList services;     ///< names on the session bus
    QStringList sessionNames; ///< what the session calls its desktop; often inherited by another
    QString windowClass;      ///< of the program that draws the desktop, on X11
    bool isX11WithoutDesktop = false;
    int workspaces = 0;
};

struct KnownDesktop
{
    const char* sessionName; ///< as the session calls it
    const char* service;     ///< on the session bus while it runs
    const char* schema;      ///< of its settings, for GNOME and its relatives
};

constexpr std::array gnomeFamily{
    KnownDesktop{"GNOME", "org.gnome.Shell", "org.gnome.desktop.background"},
    KnownDesktop{"Budgie", "org.budgie_desktop.Panel", "org.gnome.desktop.background"},
    KnownDesktop{"Pantheon", "org.pantheon.gala", "org.gnome.desktop.background"},
    KnownDesktop{"X-Cinnamon", "org.Cinnamon", "org.cinnamon.desktop.background"},
    KnownDesktop{"MATE", "org.mate.SettingsDaemon", "org.mate.background"},
};
constexpr KnownDesktop plasma{"KDE", "org.kde.plasmashell", nullptr};
constexpr KnownDesktop xfce{"XFCE", "org.xfce.xfdesktop", nullptr};
constexpr KnownDesktop lxqt{"LXQt", "org.pcmanfm.PCManFM", nullptr};
constexpr KnownDesktop lxde{"LXDE", nullptr, nullptr};
// Docks own its name too.
constexpr KnownDesktop unity{"Unity", "com.canonical.Unity", "org.gnome.desktop.background"};

bool runs(const Signs& signs, const KnownDesktop& desktop)
{
    return signs.services.contains(QLatin1String(desktop.service));
}

bool isNamed(const QStringList& sessionNames, const KnownDesktop& desktop)
{
    return sessionNames.contains(QLatin1String(desktop.sessionName), Qt::CaseInsensitive);
}

QStringList serviceNames(const QDBusConnection& bus)
{
    const QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("ListNames"));
    return bus.call(question, QDBus::Block, 1000).arguments().value(0).toStringList();
}

Signs readSigns(const QDBusConnection& bus)
{
    Signs signs{bus, serviceNames(bus), sessionDesktops(), {}};
    X11Connection connection;
    if (!connection.isValid())
        return signs;
    const std::optional<std::string> owner = desktopOwner(connection);
    signs.windowClass = QString::fromStdString(owner.value_or(std::string()));
    // On Wayland there is an X server for old programs, whose background nobody sees.
    signs.isX11WithoutDesktop = !owner && !qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    const auto workspaces =
        connection.property(connection.root(), "_NET_NUMBER_OF_DESKTOPS", XCB_ATOM_CARDINAL);
    signs.workspaces = workspaces.empty() ? 1 : static_cast<int>(workspaces.front());
    return signs;
}

/// \return the desktops that run: more than one where one program of another is used beside it
std::vector<std::pair<KnownDesktop, BackendPointer>> running(const Signs& signs)
{
    std::vector<std::pair<KnownDesktop, BackendPointer>> found;
    if (runs(signs, plasma))
        found.emplace_back(plasma, std::make_unique<PlasmaPictures>(signs.bus));
    if (signs.windowClass == QLatin1String("Pcmanfm"))
        found.emplace_back(lxde, std::make_unique<PcmanfmPictures>(signs.bus));
    if (runs(signs, xfce) || signs.windowClass == QLatin1String("Xfdesktop"))
        found.emplace_back(xfce, std::make_unique<XfcePictures>(signs.bus, signs.workspaces));
    for (const KnownDesktop& desktop : gnomeFamily) {
        if (runs(signs, desktop))
            found.emplace_back(desktop,
                               std::make_unique<GnomePictures>(signs.bus, QLatin1String(desktop.schema)));
    }
    if (runs(signs, unity) && isNamed(signs.sessionNames, unity))
        found.emplace_back(unity, std::make_unique<GnomePictures>(signs.bus, QLatin1String(unity.schema)));
    // The file manager is one program with the desktop, and may run for its windows only.
    if (runs(signs, lxqt) &&
        (signs.windowClass == QLatin1String("pcmanfm-qt") ||
         (signs.windowClass.isEmpty() && !signs.isX11WithoutDesktop && isNamed(signs.sessionNames, lxqt))))
        found.emplace_back(lxqt, std::make_unique<LxqtPictures>(signs.bus));
    return found;
}

QStringList knownServices()
{
    QStringList names;
    for (const KnownDesktop& desktop : {plasma, xfce, lxqt, unity})
        names << QLatin1String(desktop.service);
    for (const KnownDesktop& desktop : gnomeFamily)
        names << QLatin1String(desktop.service);
    return names;
}

} // namespace

std::unique_ptr<PictureBackend> findPictureBackend(const QDBusConnection& bus)
{
    const Signs signs = readSigns(bus);
    auto found = running(signs);
    for (auto& [desktop, backend] : found)
        if (isNamed(signs.sessionNames, desktop))
            return std::move(backend);
    if (!found.empty())
        return std::move(found.front().second);
    if (signs.isX11WithoutDesktop)
        return std::make_unique<RootPictures>();
    return nullptr;
}

bool isSessionOfDesktop()
{
    const QStringList session = sessionDesktops();
    return std::ranges::any_of(gnomeFamily, [&](const auto& each) { return isNamed(session, each); }) ||
           std::ranges::any_of(std::array{plasma, xfce, lxqt, unity},
                               [&](const auto& each) { return isNamed(session, each); });
}

std::unique_ptr<DesktopPictures> makeDesktopPictures(const QDBusConnection& bus,
                                                     const MakePictureBackend& makeOther)
{
    const auto find = [bus, makeOther] {
        BackendPointer backend = findPictureBackend(bus);
        return backend == nullptr && makeOther ? makeOther() : std::move(backend);
    };
    const BackendPointer backend = find();
    const auto patience = isSessionOfDesktop() ? longestStart : std::chrono::seconds(0);
    auto pictures =
        std::make_unique<QueuedPictures>(backend == nullptr ? QString() : backend->desktop(), find, patience);
    pictures->watch(bus, knownServices());
    return pictures;
}

} // namespace tessel
