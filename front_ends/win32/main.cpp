#include <cstdlib>
#include <exception>

#include <windows.h>

#include "app/form_main.h"
#include "front_ends/win32/host.h"
#include "front_ends/win32/one_game.h"
#include "platform/trouble.h"

int WINAPI wWinMain(HINSTANCE /*instance*/, HINSTANCE /*previous*/, PWSTR /*arguments*/,
                    int /*show*/) {
    using namespace solvanta;
    try {
        win32::Win32Host host;
        win32::OneGame game(host.program_directory());
        if (!game.may_start()) return EXIT_SUCCESS;
        Form_Main table(host);
        table.Form_Load();
        host.show(table);
        game.on_later_start([&host] { return host.come_forward(); });
        return host.run();
    } catch (const std::exception& error) {
        report_trouble(error.what());
        return EXIT_FAILURE;
    }
}
