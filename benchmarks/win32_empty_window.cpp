#include <windows.h>

/// The least that a program with a window of the card table's size is.
int WINAPI wWinMain(HINSTANCE instance, HINSTANCE /*previous*/, PWSTR /*arguments*/, int show) {
    WNDCLASSW description{};
    description.lpfnWndProc = [](HWND window, UINT id, WPARAM w, LPARAM l) {
        if (id == WM_DESTROY) PostQuitMessage(0);
        return DefWindowProcW(window, id, w, l);
    };
    description.hInstance = instance;
    description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    description.lpszClassName = L"Leer";
    RegisterClassW(&description);
    HWND window = CreateWindowExW(0, L"Leer", L"Leer", WS_OVERLAPPEDWINDOW, 100, 100, 828, 549,
                                  nullptr, nullptr, instance, nullptr);
    ShowWindow(window, show);
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return 0;
}
