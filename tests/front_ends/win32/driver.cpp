#include "tests/front_ends/driver.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <stdexcept>

#include <windows.h>

#include "front_ends/win32/host.h"
#include "tests/support/real_files.h"
#include "text/windows_text.h"

namespace solvanta::test {
namespace {

double screen_ratio() {
    return GetDpiForSystem() / 96.0;
}

std::wstring class_of(HWND window) {
    std::array<wchar_t, 64> name{};
    GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    return name.data();
}

std::string text_of(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    const int length = GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    std::erase(text, L'\n');
    std::replace(text.begin(), text.end(), L'\r', L'\n');
    return to_utf8(text);
}

using Fits = std::function<bool(HWND)>;

/// Goes on through windows until one fits.
BOOL CALLBACK look_at(HWND window, LPARAM fits) {
    return (*reinterpret_cast<const Fits*>(fits))(window) ? FALSE : TRUE;
}

/// The program's visible window that `fits`; null without one.
HWND find_window(const Fits& fits) {
    HWND found = nullptr;
    const Fits find = [&](HWND window) {
        if (IsWindowVisible(window) != FALSE && fits(window)) found = window;
        return found != nullptr;
    };
    EnumThreadWindows(GetCurrentThreadId(), look_at, reinterpret_cast<LPARAM>(&find));
    return found;
}

bool is_box(HWND window) {
    return class_of(window) == L"#32770";
}

HWND window_named(const std::string& caption) {
    return find_window([&](HWND window) { return !is_box(window) && text_of(window) == caption; });
}

HWND window_of(const Form& form) {
    HWND window = window_named(form.Caption);
    if (!window) throw std::runtime_error("no window " + form.Caption);
    return window;
}

POINT to_device(Point at) {
    return {static_cast<LONG>(std::floor(at.x * screen_ratio())),
            static_cast<LONG>(std::floor(at.y * screen_ratio()))};
}

bool is_control(HWND window) {
    const std::wstring name = class_of(window);
    const bool frame = (GetWindowLongPtrW(window, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX;
    return name == L"Edit" || (name == L"Button" && !frame) ||
           _wcsicmp(name.c_str(), L"RICHEDIT50W") == 0;
}

/// The system's control that shows `element`, found by its place.
HWND control_of(const Form& form, const Element& element) {
    HWND window = window_of(form);
    const Rectangle place = place_of(form, element);
    const POINT centre = to_device(place.centre());
    HWND control = nullptr;
    const Fits find = [&](HWND child) {
        RECT rect{};
        GetWindowRect(child, &rect);
        MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&rect), 2);
        if (is_control(child) && PtInRect(&rect, centre) != FALSE) control = child;
        return control != nullptr;
    };
    EnumChildWindows(window, look_at, reinterpret_cast<LPARAM>(&find));
    if (!control) throw std::runtime_error("no such control");
    return control;
}

WORD to_virtual_key(Key key) {
    constexpr WORD keys[] = {VK_RETURN, VK_RETURN, VK_SPACE, VK_ESCAPE, VK_TAB, VK_BACK,
                             VK_LEFT,   VK_END,    'A',      'M',       'N'};
    return keys[static_cast<std::size_t>(key)];
}

void send_key(WORD key, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags;
    SendInput(1, &input, sizeof input);
}

/// Drives the system as a hand would: input goes through its queue.
class Win32Driver final : public Driver {
  public:
    Win32Driver() = default;
    ~Win32Driver() override {
        for (const auto& waiting : waiting_)
            KillTimer(nullptr, waiting.first);
        waiting_.clear();
    }

    Host& host() override { return host_; }
    double ratio() const override { return screen_ratio(); }

    void settle() override {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            host_.handle(message);
    }

    void wait(int milliseconds) override {
        const ULONGLONG until = GetTickCount64() + static_cast<ULONGLONG>(milliseconds);
        for (ULONGLONG now = 0; (now = GetTickCount64()) < until; settle())
            MsgWaitForMultipleObjects(0, nullptr, FALSE, DWORD(until - now), QS_ALLINPUT);
    }

    bool run() override {
        later(10'000, [] { PostQuitMessage(1); });
        return host_.run() == 0;
    }

    void later(int milliseconds, std::function<void()> act) override {
        const auto call = [](HWND, UINT, UINT_PTR id, DWORD) {
            KillTimer(nullptr, id);
            if (const auto found = waiting_.extract(id)) found.mapped()();
        };
        const UINT_PTR id = SetTimer(nullptr, 0, static_cast<UINT>(milliseconds), call);
        waiting_[id] = std::move(act);
    }

    /// One event moves the pointer and uses the button, so nothing comes between.
    void mouse(const Form& form, Point at, MouseButton button, bool down) override {
        constexpr DWORD uses[][2] = {{MOUSEEVENTF_LEFTUP, MOUSEEVENTF_LEFTDOWN},
                                     {MOUSEEVENTF_RIGHTUP, MOUSEEVENTF_RIGHTDOWN}};
        POINT place = to_device(at);
        ClientToScreen(window_of(form), &place);
        const auto normalized = [](LONG pixel, int screen_size) {
            return static_cast<LONG>((pixel + 0.5) * 65536 / GetSystemMetrics(screen_size));
        };
        INPUT input{};
        input.type = INPUT_MOUSE;
        input.mi.dx = normalized(place.x, SM_CXSCREEN);
        input.mi.dy = normalized(place.y, SM_CYSCREEN);
        input.mi.dwFlags = uses[static_cast<std::size_t>(button)][down ? 1 : 0] | MOUSEEVENTF_MOVE |
                           MOUSEEVENTF_ABSOLUTE;
        SendInput(1, &input, sizeof input);
    }

    void rest() override { Sleep(GetDoubleClickTime() + 50); }

    void key(Key key, Modifier modifier) override {
        constexpr WORD modifiers[] = {0, VK_SHIFT, VK_CONTROL, VK_MENU};
        const WORD held = modifiers[static_cast<std::size_t>(modifier)];
        const DWORD extended = key == Key::KeypadEnter ? KEYEVENTF_EXTENDEDKEY : 0;
        if (held) send_key(held, 0);
        send_key(to_virtual_key(key), extended);
        send_key(to_virtual_key(key), extended | KEYEVENTF_KEYUP);
        if (held) send_key(held, KEYEVENTF_KEYUP);
    }

    void repeat_key(Key key) override {
        constexpr LPARAM was_down = LPARAM{1} << 30U;
        PostMessageW(GetFocus(), WM_KEYDOWN, to_virtual_key(key), was_down | 1);
    }

    void close(const std::string& caption) override {
        PostMessageW(window_named(caption), WM_CLOSE, 0, 0);
    }

    void minimise(const std::string& caption) override {
        ShowWindow(window_named(caption), SW_MINIMIZE);
    }

    void save_desktop() override {
        for (const auto message : {WM_QUERYENDSESSION, WM_ENDSESSION}) {
            find_window([message](HWND window) {
                SendMessageW(window, static_cast<UINT>(message), FALSE, 0);
                return false;
            });
        }
    }

    std::optional<WindowLook> window(const std::string& caption) override {
        HWND window = window_named(caption);
        if (!window) return std::nullopt;
        RECT client{};
        GetClientRect(window, &client);
        const auto style = GetWindowLongPtrW(window, GWL_STYLE);
        return WindowLook{static_cast<int>(std::lround(client.right / screen_ratio())),
                          static_cast<int>(std::lround(client.bottom / screen_ratio())),
                          GetForegroundWindow() == window, (style & WS_MINIMIZEBOX) != 0,
                          (style & (WS_THICKFRAME | WS_MAXIMIZEBOX)) != 0};
    }

    Color pixel(const Form& form, Point at) override {
        HWND window = window_of(form);
        RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        POINT place = to_device(at);
        for (HWND child = nullptr;; window = child) {
            child = ChildWindowFromPointEx(window, place, CWP_SKIPINVISIBLE);
            if (!child || child == window) break;
            MapWindowPoints(window, child, &place, 1);
        }
        HDC dc = GetDC(window);
        const COLORREF color = GetPixel(dc, place.x, place.y);
        ReleaseDC(window, dc);
        return {GetRValue(color), GetGValue(color), GetBValue(color)};
    }

    ControlLook control(const Form& form, const Element& element) override {
        HWND control = control_of(form, element);
        return {IsWindowVisible(control) != FALSE, GetFocus() == control,
                (GetWindowLongPtrW(control, GWL_STYLE) & WS_VSCROLL) != 0,
                static_cast<int>(SendMessageW(control, EM_GETFIRSTVISIBLELINE, 0, 0)),
                text_of(control)};
    }

    void scroll_down(const Form& form, const RichTextBox& box) override {
        SendMessageW(control_of(form, box), WM_VSCROLL, SB_PAGEDOWN, 0);
    }

    std::optional<BoxLook> box() override {
        HWND box = find_window(is_box);
        if (!box) return std::nullopt;
        BoxLook look{text_of(box), text_of(FindWindowExW(box, nullptr, L"Static", nullptr)), {}};
        HWND button = nullptr;
        while ((button = FindWindowExW(box, button, L"Button", nullptr)) != nullptr) {
            std::string caption = text_of(button);
            std::erase(caption, '&');
            const bool standard = (GetWindowLongPtrW(button, GWL_STYLE) & BS_DEFPUSHBUTTON) != 0;
            look.buttons.insert(standard ? look.buttons.begin() : look.buttons.end(), caption);
        }
        return look;
    }

    void close_box() override { PostMessageW(find_window(is_box), WM_CLOSE, 0, 0); }

    std::string put_file(const std::string& name, const std::string& bytes) override {
        return files_.put(name, bytes);
    }

  private:
    win32::Win32Host host_;
    RealFolder files_;
    static inline std::map<UINT_PTR, std::function<void()>> waiting_;
};

}  // namespace

std::unique_ptr<Driver> make_driver() {
    return std::make_unique<Win32Driver>();
}

}  // namespace solvanta::test
