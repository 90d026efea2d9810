#include "front_ends/qt/stop_signals.h"

#include <array>
#include <cerrno>
#include <csignal>

#include <QObject>
#include <QSocketNotifier>
#include <fcntl.h>
#include <unistd.h>

namespace solvanta::qt {
namespace {

std::array<int, 2> pipe_ends{-1, -1};

void write_to_pipe(int /*signal*/) {
    const int saved = errno;
    const char byte = 0;
    [[maybe_unused]] const auto written = write(pipe_ends[1], &byte, 1);
    errno = saved;
}

void catch_signal(int signal) {
    struct sigaction action {};
    if (sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN) return;
    action = {};
    action.sa_handler = write_to_pipe;
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    sigaction(signal, &action, nullptr);
}

}  // namespace

void hold_standard_streams() {
    int file = open("/dev/null", O_RDWR);
    while (file >= 0 && file <= STDERR_FILENO)
        file = open("/dev/null", O_RDWR);
    if (file > STDERR_FILENO) close(file);
}

void on_stop_signals(QObject& owner, std::function<void()> stop) {
    if (pipe(pipe_ends.data()) != 0) return;
    for (const int end : pipe_ends) {
        fcntl(end, F_SETFD, FD_CLOEXEC);
        fcntl(end, F_SETFL, O_NONBLOCK);
    }
    auto* notifier = new QSocketNotifier(pipe_ends[0], QSocketNotifier::Read, &owner);
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, [stop = std::move(stop)] {
        char byte = 0;
        if (read(pipe_ends[0], &byte, 1) == 1) stop();
    });
    for (const int signal : {SIGTERM, SIGHUP, SIGINT})
        catch_signal(signal);
    // A reader of standard error that went away must not end the game.
    std::signal(SIGPIPE, SIG_IGN);
    // Nor must a limit on the size of files: the write that meets it fails and is told of.
    std::signal(SIGXFSZ, SIG_IGN);
}

}  // namespace solvanta::qt
