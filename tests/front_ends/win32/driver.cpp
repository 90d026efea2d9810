#include "tests/front_ends/driver.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <stdexcept>

#include <oleacc.h>
#include <windows.h>

#include "front_ends/win32/access.h"
#include "front_ends/win32/host.h"
#include "tests/support/real_files.h"
#include "text/windows_text.h"

namespace solvanta::test {
namespace {

double screen_ratio() {
    return GetDpiForSystem() / 96.0;
}

std::string text_of(HWND window) {
    std::string text = win32::text_of(window);
    std::erase(text, '\n');
    std::replace(text.begin(), text.end(), '\r', '\n');
    return text;
}

/// A window that is to be seen; null without one.
HWND find_window(const wchar_t* window_class, const wchar_t* caption) {
    HWND window = FindWindowW(window_class, caption);
    return IsWindowVisible(window) ? window : nullptr;
}

HWND open_box() {
    return find_window(L"#32770", nullptr);
}

HWND window_named(const std::string& caption) {
    return find_window(nullptr, to_utf16(caption).c_str());
}

HWND window_of(const Form& form) {
    HWND window = window_named(form.Caption);
    if (!window) throw std::runtime_error("no window " + form.Caption);
    return window;
}

POINT to_device(const Form& form, Point at) {
    RECT client{};
    GetClientRect(window_of(form), &client);
    const double scale = double(client.right) * twips_per_pixel / form.ClientWidth;
    return {LONG(std::floor(at.x * scale)), LONG(std::floor(at.y * scale))};
}

/// The innermost window at a place, which becomes one in it.
HWND innermost(HWND window, POINT& place, UINT passed_over) {
    HWND child = nullptr;
    while ((child = ChildWindowFromPointEx(window, place, passed_over)) && child != window) {
        MapWindowPoints(window, child, &place, 1);
        window = child;
    }
    return window;
}

/// The system's control that shows `element`, found by its place; null before there is one.
HWND control_of(const Form& form, const Element& element) {
    POINT centre = to_device(form, place_of(form, element).centre());
    HWND found = innermost(window_of(form), centre, CWP_ALL);
    return found == window_of(form) ? nullptr : found;
}

WORD to_virtual_key(Key key) {
    constexpr WORD keys[] = {VK_RETURN, VK_RETURN, VK_SPACE, VK_ESCAPE,
                             VK_TAB,    VK_BACK,   VK_LEFT,  VK_END};
    const auto number = static_cast<std::size_t>(key);
    return number < std::size(keys) ? keys[number] : static_cast<WORD>(number);
}

void press_key(WORD key, WORD held, DWORD extended) {
    const DWORD up = KEYEVENTF_KEYUP;
    for (const auto& [which, flags] :
         {std::pair(held, DWORD{0}), {key, extended}, {key, extended | up}, {held, up}})
        if (which) keybd_event(BYTE(which), BYTE(MapVirtualKeyW(which, MAPVK_VK_TO_VSC)), flags, 0);
}

struct Release {
    void operator()(IUnknown* object) const { object->Release(); }
};
using Accessible = std::unique_ptr<IAccessible, Release>;

/// The object that a screen reader gets for a form's table; null without one.
Accessible object_of(HWND window) {
    HWND stop = FindWindowExW(window, nullptr, nullptr, L"Spieltisch");
    void* object = nullptr;
    using Find = HRESULT WINAPI(HWND, DWORD, REFIID, void**);
    static auto* const find =
        win32::system_function<Find>(L"oleacc.dll", "AccessibleObjectFromWindow");
    find(stop, DWORD(OBJID_CLIENT), IID_IAccessible, &object);
    return Accessible(static_cast<IAccessible*>(object));
}

VARIANT child(LONG number) {
    VARIANT id{};
    id.vt = VT_I4;
    id.lVal = number;
    return id;
}

std::string taken(BSTR text) {
    std::string utf8 = text ? to_utf8(text) : "";
    win32::free_bstr(text);
    return utf8;
}

std::string name_of(IAccessible& table, LONG number) {
    BSTR name = nullptr;
    table.get_accName(child(number), &name);
    return taken(name);
}

AccessibleLook look_at(IAccessible& table, LONG number, HWND window) {
    BSTR key = nullptr;
    VARIANT state{};
    POINT corner{};
    LONG width = 0;
    LONG height = 0;
    table.get_accKeyboardShortcut(child(number), &key);
    table.get_accState(child(number), &state);
    table.accLocation(&corner.x, &corner.y, &width, &height, child(number));
    ScreenToClient(window, &corner);
    const double ratio = screen_ratio();
    const Rectangle at{{corner.x / ratio, corner.y / ratio}, width / ratio, height / ratio};
    return {name_of(table, number), taken(key)[0], (state.lVal & STATE_SYSTEM_FOCUSED) != 0,
            (state.lVal & STATE_SYSTEM_SELECTED) != 0, at};
}

std::vector<std::string> announcements;

void CALLBACK note_alert(HWINEVENTHOOK /*hook*/, DWORD /*event*/, HWND stop, LONG /*object*/,
                         LONG number, DWORD /*thread*/, DWORD /*time*/) {
    if (const Accessible table = object_of(GetParent(stop)))
        announcements.push_back(name_of(*table, number));
}

/// Drives the system as a hand would: input goes through its queue.
class Win32Driver final : public Driver {
  public:
    Win32Driver() = default;
    ~Win32Driver() override { waiting_.clear(); }

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
        POINT place = to_device(form, at);
        ClientToScreen(window_of(form), &place);
        const auto normalized = [](LONG pixel, int screen_size) {
            return static_cast<DWORD>((pixel + 0.5) * 65536 / GetSystemMetrics(screen_size));
        };
        mouse_event(uses[static_cast<std::size_t>(button)][down ? 1 : 0] | MOUSEEVENTF_MOVE |
                        MOUSEEVENTF_ABSOLUTE,
                    normalized(place.x, SM_CXSCREEN), normalized(place.y, SM_CYSCREEN), 0, 0);
    }

    void rest() override { Sleep(GetDoubleClickTime() + 50); }

    void key(Key key, Modifier modifier) override {
        constexpr WORD modifiers[] = {0, VK_SHIFT, VK_CONTROL, VK_MENU};
        press_key(to_virtual_key(key), modifiers[static_cast<std::size_t>(modifier)],
                  key == Key::KeypadEnter ? KEYEVENTF_EXTENDEDKEY : 0);
    }

    /// Copied from a text box of the system's.
    void paste(const std::string& line, const std::string& next) override {
        HWND box = CreateWindowW(L"Edit", to_utf16(line + "\r\n" + next).c_str(), ES_MULTILINE, 0,
                                 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
        SendMessageW(box, EM_SETSEL, 0, -1);
        SendMessageW(box, WM_COPY, 0, 0);
        DestroyWindow(box);
        press_key('V', VK_CONTROL, 0);
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

    /// Not beyond the screen.
    bool resize(const Form& form, double scale) override {
        HWND window = window_of(form);
        RECT outer{};
        RECT before{};
        RECT client{};
        GetWindowRect(window, &outer);
        GetClientRect(window, &before);
        const double pixels = scale * screen_ratio() / twips_per_pixel;
        const int width = int(std::lround(form.ClientWidth * pixels));
        const int height = int(std::lround(form.ClientHeight * pixels));
        SetWindowPos(window, nullptr, 0, 0, outer.right - outer.left - before.right + width,
                     outer.bottom - outer.top - before.bottom + height, 0);
        wait(200);
        GetClientRect(window, &client);
        return client.right == width && client.bottom == height;
    }

    void save_desktop() override {
        for (const UINT message : {UINT{WM_QUERYENDSESSION}, UINT{WM_ENDSESSION}}) {
            HWND window = nullptr;
            while ((window = FindWindowExW(nullptr, window, L"Solvanta", nullptr)))
                SendMessageW(window, message, FALSE, 0);
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
        POINT place = to_device(form, at);
        RedrawWindow(window_of(form), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        HWND window = innermost(window_of(form), place, CWP_SKIPINVISIBLE);
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

    std::optional<BoxLook> box() override {
        HWND box = open_box();
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

    std::vector<AccessibleLook> accessible(const Form& form) override {
        std::vector<AccessibleLook> looks;
        const auto table = object_of(window_of(form));
        LONG count = 0;
        table->get_accChildCount(&count);
        for (LONG number = 1; number <= count; ++number)
            looks.push_back(look_at(*table, number, window_of(form)));
        return looks;
    }

    void press_accessible(const Form& form, std::size_t index) override {
        object_of(window_of(form))->accDoDefaultAction(child(static_cast<LONG>(index) + 1));
    }

    std::vector<std::string> announced() override {
        static auto* const hook =
            SetWinEventHook(EVENT_SYSTEM_ALERT, EVENT_SYSTEM_ALERT, nullptr, note_alert,
                            GetCurrentProcessId(), 0, WINEVENT_OUTOFCONTEXT);
        if (HWND window = find_window(L"Solvanta", nullptr)) object_of(window);
        settle();
        return hook ? std::exchange(announcements, {}) : announcements;
    }

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
