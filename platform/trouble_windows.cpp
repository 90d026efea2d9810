#include <windows.h>

#include "platform/trouble.h"
#include "text/windows_text.h"

namespace solvanta {
namespace {

void write_to_console(HANDLE console, std::string_view line) {
    const std::wstring text = to_utf16(line);
    DWORD written = 0;
    WriteConsoleW(console, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
}

/// A program with windows has no console of its own. That of the program it was started from is
/// joined for the one line only: whoever closes it later must not end the game.
void write_to_console_of_parent(std::string_view line) {
    const bool joined = AttachConsole(ATTACH_PARENT_PROCESS) != FALSE;
    const bool had_one = !joined && GetLastError() == ERROR_ACCESS_DENIED;
    if (!joined && !had_one) return;
    HANDLE console = CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_WRITE,
                                 nullptr, OPEN_EXISTING, 0, nullptr);
    if (console != INVALID_HANDLE_VALUE) {
        write_to_console(console, line);
        CloseHandle(console);
    }
    if (joined) FreeConsole();
}

}  // namespace

void report_trouble(std::string_view text) {
    const std::string line = "Solvanta: " + std::string(text) + "\r\n";
    OutputDebugStringW(to_utf16(line).c_str());  // a player's program has no standard error
    HANDLE standard_error = GetStdHandle(STD_ERROR_HANDLE);
    DWORD mode = 0;
    DWORD written = 0;
    if (standard_error == nullptr || standard_error == INVALID_HANDLE_VALUE) {
        write_to_console_of_parent(line);
    } else if (GetConsoleMode(standard_error, &mode) != FALSE) {
        write_to_console(standard_error, line);
    } else {
        WriteFile(standard_error, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
    }
}

}  // namespace solvanta
