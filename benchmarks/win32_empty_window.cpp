#include <string_view>

#include <windows.h>

/// The least that a program with a window of the card table's size is: nothing in it, or with the
/// argument "word" a single word, which needs a font.
int WINAPI wWinMain(HINSTANCE instance, HINSTANCE /*previous*/, PWSTR arguments, int show) {
    WNDCLASSW description{};
    description.lpfnWndProc = [](HWND window, UINT id, WPARAM w, LPARAM l) {
        if (id == WM_DESTROY) PostQuitMessage(0);
        if (id != WM_PAINT || !GetWindowLongPtrW(window, GWLP_USERDATA))
            return DefWindowProcW(window, id, w, l);
        PAINTSTRUCT area{};
        HDC dc = BeginPaint(window, &area);
        SelectObject(dc, GetStockObject(DEFAULT_GUI_FONT));
        TextOutW(dc, 400, 250, L"Wort", 4);
        EndPaint(window, &area);
        return LRESULT{0};
    };
    description.hInstance = instance;
    description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    description.lpszClassName = L"Leer";
    RegisterClassW(&description);
    HWND window = CreateWindowExW(0, L"Leer", L"Leer", WS_OVERLAPPEDWINDOW, 100, 100, 828, 549,
                                  nullptr, nullptr, instance, nullptr);
    SetWindowLongPtrW(window, GWLP_USERDATA, std::wstring_view(arguments) == L"word" ? 1 : 0);
    ShowWindow(window, show);
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return 0;
}
