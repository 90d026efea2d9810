#include "front_ends/qt/display_probe.h"

#include <algorithm>

#include <QtGlobal>

#if defined(Q_OS_UNIX) && !defined(Q_OS_DARWIN)
#include <QByteArrayList>
#include <QDir>
#include <QFile>
#include <QLibraryInfo>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#ifdef SOLVANTA_XCB
#include <xcb/xcb.h>
#endif

namespace solvanta::qt {
namespace {

bool x_server_answers() {
#ifdef SOLVANTA_XCB
    xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
    const bool answers = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return answers;
#else
    return !qEnvironmentVariableIsEmpty("DISPLAY");
#endif
}

bool socket_answers(const QByteArray& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (static_cast<std::size_t>(path.size()) >= sizeof address.sun_path) return false;
    std::copy(path.begin(), path.end(), address.sun_path);
    const int handle = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (handle < 0) return false;
    const bool answers =
        connect(handle, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    close(handle);
    return answers;
}

bool wayland_answers() {
    const QDir plugins(QLibraryInfo::path(QLibraryInfo::PluginsPath) + "/platforms");
    if (plugins.entryList({"libqwayland*"}, QDir::Files).isEmpty()) return false;
    QByteArray path = qgetenv("WAYLAND_DISPLAY");
    if (path.isEmpty()) return false;
    if (!path.startsWith('/')) path = qgetenv("XDG_RUNTIME_DIR") + '/' + path;
    return socket_answers(path);
}

/// `platform` is one of the names in QT_QPA_PLATFORM, such as "xcb" or "offscreen:options".
bool platform_available(const QByteArray& platform) {
    const QByteArray name = platform.split(':').front().trimmed();
    if (name == "xcb") return x_server_answers();
    if (name.startsWith("wayland")) return wayland_answers();
    return !name.isEmpty();
}

}  // namespace

bool display_available() {
    const QByteArray wanted = qgetenv("QT_QPA_PLATFORM");
    if (wanted.isEmpty()) return x_server_answers() || wayland_answers();
    const QByteArrayList platforms = wanted.split(';');
    return std::any_of(platforms.begin(), platforms.end(), platform_available);
}

}  // namespace solvanta::qt

#else

namespace solvanta::qt {

bool display_available() {
    return true;
}

}  // namespace solvanta::qt

#endif
