#include "front_ends/win32/table_stop.h"

#include <algorithm>
#include <map>
#include <utility>

#include "front_ends/common/walk.h"
#include "front_ends/win32/access.h"

namespace solvanta::win32 {
namespace {

/// Sent to the stop by itself when the focus has come or gone: not before the system is through.
constexpr UINT focus_changed = WM_USER;

bool is_down(int key) {
    return GetKeyState(key) < 0;
}

char character_of(WPARAM key) {
    if (key >= VK_NUMPAD0 && key <= VK_NUMPAD9) return static_cast<char>('0' + key - VK_NUMPAD0);
    const bool is_of_use = (key >= '0' && key <= '9') || (key >= 'A' && key <= 'Z');
    return is_of_use ? static_cast<char>(key) : '\0';
}

KeyPress to_key_press(const Message& message) {
    static const std::map<WPARAM, TableKey> keys{
        {VK_LEFT, TableKey::Left},    {VK_RIGHT, TableKey::Right},   {VK_UP, TableKey::Up},
        {VK_DOWN, TableKey::Down},    {VK_HOME, TableKey::Home},     {VK_END, TableKey::End},
        {VK_PRIOR, TableKey::PageUp}, {VK_NEXT, TableKey::PageDown}, {VK_RETURN, TableKey::Click},
        {VK_SPACE, TableKey::Click},
    };
    const auto found = keys.find(message.w);
    return {.key = found == keys.end() ? TableKey::Character : found->second,
            .character = character_of(message.w),
            .shift = is_down(VK_SHIFT),
            .control = is_down(VK_CONTROL),
            .repeated = (HIWORD(message.l) & KF_REPEAT) != 0};
}

/// Has the system say a text; answers whether it can.
bool notify(HWND window, const std::string& text) {
    using Provide = HRESULT WINAPI(HWND, IUnknown**);
    using Notify = HRESULT WINAPI(IUnknown*, int kind, int processing, BSTR text, BSTR activity);
    constexpr const wchar_t* library = L"uiautomationcore.dll";
    static auto* const provide = system_function<Provide>(library, "UiaHostProviderFromHwnd");
    static auto* const raise = system_function<Notify>(library, "UiaRaiseNotificationEvent");
    IUnknown* provider = nullptr;
    if (!provide || !raise || FAILED(provide(window, &provider))) return false;
    constexpr int action_completed = 2;
    constexpr int say_all = 2;
    BSTR said = to_bstr(text);
    const bool done = SUCCEEDED(raise(provider, action_completed, say_all, said, said));
    free_bstr(said);
    provider->Release();
    return done;
}

}  // namespace

TableStop::TableStop(Container& table, WindowParts& parts, HWND parent)
    : table_(table),
      parts_(parts),
      keyboard_(table, parts.deliver, [this](const std::string& text) { say(text); }),
      voice_(table) {
    create(plain_class(), WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, parent);
    SetWindowTextW(handle(), table_name);
    parts_.hide_ring = [this] { keyboard_.use(false); };
}

TableStop::~TableStop() {
    if (object_) forget_stop(*object_);
}

void TableStop::sync() {
    keyboard_.sync();
    const bool has_focus = GetFocus() == handle();
    parts_.ringed = keyboard_.is_in_use() && has_focus ? keyboard_.place() : nullptr;
    if (object_) tell(voice_.news(has_focus ? keyboard_.place() : nullptr));
}

std::vector<PictureElement*> TableStop::places() const {
    return places_of(table_);
}

int TableStop::focused() const {
    if (GetFocus() != handle()) return 0;
    const auto all = places();
    const auto found = std::find(all.begin(), all.end(), keyboard_.place());
    return found == all.end() ? 0 : static_cast<int>(found - all.begin()) + 1;
}

RECT TableStop::place_on_screen(const PictureElement& place) const {
    RECT area = to_rect(parts_.scale.place_of(place));
    MapWindowPoints(GetParent(handle()), nullptr, reinterpret_cast<POINT*>(&area), 2);
    return area;
}

void TableStop::walk_to(const PictureElement& place) {
    keyboard_.walk_to(&place);
    SetFocus(handle());
    parts_.deliver({});
}

std::optional<LRESULT> TableStop::answer(const Message& message) {
    switch (message.id) {
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS | DLGC_WANTCHARS |
                   (message.w == VK_RETURN ? DLGC_WANTMESSAGE : 0);
        case WM_KEYDOWN:
            if (!keyboard_.press(to_key_press(message))) return std::nullopt;
            parts_.deliver({});
            return 0;
        case WM_SETFOCUS:
            if (is_down(VK_TAB)) keyboard_.use(true);
            PostMessageW(handle(), focus_changed, 0, 0);
            return 0;
        case WM_KILLFOCUS:
            voice_.forget_focus();
            PostMessageW(handle(), focus_changed, 0, 0);
            return 0;
        case focus_changed:
            parts_.deliver({});
            return 0;
        case WM_GETOBJECT:
            if (static_cast<LONG>(message.l) == OBJID_CLIENT) return give_object(message);
            return std::nullopt;
        default:
            return std::nullopt;
    }
}

LRESULT TableStop::give_object(const Message& message) {
    using Give = LRESULT WINAPI(REFIID, WPARAM, IUnknown*);
    static auto* const give = system_function<Give>(L"oleacc.dll", "LresultFromObject");
    if (!give) return 0;
    if (!object_) {
        object_.reset(make_access(*this));
        voice_.news(nullptr);  // begins here
    }
    return give(IID_IAccessible, message.w, object_.get());
}

void TableStop::tell(const News& news) {
    const auto all = places();
    for (int number = 1; const PictureElement* place : all) {
        if (std::find(news.renamed.begin(), news.renamed.end(), place) != news.renamed.end())
            NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, handle(), OBJID_CLIENT, number);
        ++number;
    }
    if (news.others) NotifyWinEvent(EVENT_OBJECT_REORDER, handle(), OBJID_CLIENT, CHILDID_SELF);
    if (news.focused) NotifyWinEvent(EVENT_OBJECT_FOCUS, handle(), OBJID_CLIENT, focused());
    say(news.said);
}

/// Where the system can't say a text it is an alert, which readers say too.
void TableStop::say(const std::string& text) {
    if (text.empty() || !object_ || notify(handle(), text)) return;
    said_ = text;
    NotifyWinEvent(EVENT_SYSTEM_ALERT, handle(), OBJID_CLIENT, said_object);
}

}  // namespace solvanta::win32
