#include <cstdlib>
#include <filesystem>
#include <string>

#include <QApplication>
#include <QLoggingCategory>

#include "app/form_main.h"
#include "front_ends/qt/display_probe.h"
#include "front_ends/qt/host.h"
#include "front_ends/qt/look.h"
#include "front_ends/qt/one_game.h"
#include "front_ends/qt/stop_signals.h"
#include "platform/trouble.h"

namespace {

using namespace solvanta;

constexpr int no_display = 69;  // the exit status by which scripts tell it from other failures

/// The directory of the executable, even when that has been deleted since; empty when it can't be
/// told. `name` is the one the program was started by.
std::string directory_of(const char* name) {
    std::error_code error;
    std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error) program = std::filesystem::canonical(name, error);
    return program.parent_path().string();
}

/// Plays in the window until it is closed; the exit status.
int play(int argc, char** argv, const std::string& directory, const qt::OneGame& game) {
    // Where there is no locale in UTF-8 Qt takes another, and says so at length.
    QLoggingCategory::setFilterRules("default.warning=false");
    QApplication application(argc, argv);
    qt::prepare_application(application);
    qt::QtHost host(directory);
    qt::on_stop_signals(application, [&host] { host.close_first(); });
    game.on_later_start(application, [&host] { return host.come_forward(); });
    Form_Main table(host);
    table.Form_Load();
    host.show(table);
    return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
    qt::hold_standard_streams();
    if (!qt::display_available()) {
        report_trouble(
            "kein Bildschirm gefunden (DISPLAY ist nicht gesetzt oder nicht erreichbar).");
        return no_display;
    }
    const std::string directory = directory_of(argv[0]);
    if (directory.empty()) {
        report_trouble("das Programmverzeichnis ist nicht zu finden.");
        return EXIT_FAILURE;
    }
    const qt::OneGame game(directory);
    return game.may_start() ? play(argc, argv, directory, game) : EXIT_SUCCESS;
}
