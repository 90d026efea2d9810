#include "front_ends/qt/one_game.h"

#include <QtGlobal>

#ifdef Q_OS_LINUX
#include <array>
#include <cerrno>
#include <chrono>
#include <thread>

#include <QSocketNotifier>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace solvanta::qt {
namespace {

using namespace std::chrono;

constexpr milliseconds patience = 2s;
constexpr milliseconds pause = 20ms;

/// A name that belongs to no file: the system gives it to one process at a time.
class Address {
  public:
    explicit Address(const struct stat& directory) {
        const std::string name = "solvanta-" + std::to_string(getuid()) + '-' +
                                 std::to_string(directory.st_dev) + '-' +
                                 std::to_string(directory.st_ino);
        address_.sun_family = AF_UNIX;
        name.copy(address_.sun_path + 1, sizeof address_.sun_path - 1);
        length_ = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + name.size());
    }

    /// A socket of this name, to be listened at; -1 with errno set when it can't be had.
    int bind() const {
        const int handle = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        if (handle < 0 || (::bind(handle, plain(), length_) == 0 && listen(handle, 8) == 0))
            return handle;
        const int error = errno;
        close(handle);
        errno = error;
        return -1;
    }

    /// A connection to who has the name, each of whose calls ends after `patience`; -1 without one.
    int connect() const {
        const int handle = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        const timeval limit{duration_cast<seconds>(patience).count(), 0};
        for (const int kind : {SO_SNDTIMEO, SO_RCVTIMEO})
            setsockopt(handle, SOL_SOCKET, kind, &limit, sizeof limit);
        if (handle < 0 || ::connect(handle, plain(), length_) == 0) return handle;
        close(handle);
        return -1;
    }

  private:
    const sockaddr* plain() const { return reinterpret_cast<const sockaddr*>(&address_); }

    sockaddr_un address_{};
    socklen_t length_ = 0;
};

/// By which a desktop lets a window come forward that was not clicked.
std::string activation_token() {
    const QByteArray token = qgetenv("XDG_ACTIVATION_TOKEN");
    return (token.isEmpty() ? qgetenv("DESKTOP_STARTUP_ID") : token).toStdString() + '\n';
}

enum class Holder { Ends, ComesForward, Stranger };

/// Asks who has the lock to come forward.
Holder ask_holder(const Address& address) {
    const int connection = address.connect();
    if (connection < 0) return Holder::Ends;
    ucred holder{};
    socklen_t size = sizeof holder;
    getsockopt(connection, SOL_SOCKET, SO_PEERCRED, &holder, &size);
    const std::string token = activation_token();
    char answer = 0;
    const bool ours = holder.uid == getuid();
    const bool answered = ours && send(connection, token.data(), token.size(), MSG_NOSIGNAL) > 0 &&
                          recv(connection, &answer, 1, 0) == 1;
    close(connection);
    if (!ours) return Holder::Stranger;
    return answered ? Holder::ComesForward : Holder::Ends;
}

/// Takes what a later game has sent, and answers it.
void hear(int lock, const std::function<bool()>& come_forward) {
    const int connection = accept4(lock, nullptr, nullptr, SOCK_CLOEXEC);
    if (connection < 0) return;
    const timeval limit{0, 200'000};
    setsockopt(connection, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
    std::array<char, 4096> token{};
    const ssize_t length = recv(connection, token.data(), token.size(), 0);
    if (length > 1) qputenv("XDG_ACTIVATION_TOKEN", QByteArray(token.data(), length - 1));
    if (come_forward()) send(connection, "", 1, MSG_NOSIGNAL);
    close(connection);
}

}  // namespace

OneGame::OneGame(const std::string& directory) {
    struct stat about {};
    if (stat(directory.c_str(), &about) != 0) return;
    const Address address(about);
    const auto end = steady_clock::now() + patience;
    while ((lock_ = address.bind()) < 0 && errno == EADDRINUSE && may_start_) {
        const Holder holder = ask_holder(address);
        if (holder == Holder::Stranger) return;
        may_start_ = holder == Holder::Ends && steady_clock::now() < end;
        std::this_thread::sleep_for(may_start_ ? pause : 0ms);
    }
}

OneGame::~OneGame() {
    if (lock_ >= 0) close(lock_);
}

void OneGame::on_later_start(QObject& owner, std::function<bool()> come_forward) const {
    if (lock_ < 0) return;
    auto* notifier = new QSocketNotifier(lock_, QSocketNotifier::Read, &owner);
    QObject::connect(
        notifier, &QSocketNotifier::activated, notifier,
        [lock = lock_, come_forward = std::move(come_forward)] { hear(lock, come_forward); });
}

}  // namespace solvanta::qt

#else

namespace solvanta::qt {

OneGame::OneGame(const std::string& /*directory*/) {}

OneGame::~OneGame() = default;

void OneGame::on_later_start(QObject& /*owner*/, std::function<bool()> /*come_forward*/) const {}

}  // namespace solvanta::qt

#endif
