#include "front_ends/win32/controls.h"

#include <algorithm>
#include <string_view>

#include <commctrl.h>

#include "front_ends/win32/button.h"
#include "front_ends/win32/canvas.h"
#include "front_ends/win32/rich_text_view.h"

namespace solvanta::win32 {
namespace {

constexpr wchar_t select_all = 0x01;

/// The characters of control keys that a text box acts on besides: copy, erase, paste, cut and
/// undo.
constexpr std::wstring_view acting_characters = L"\x03\x08\x16\x18\x1A";

bool is_control_character(wchar_t character) {
    return character < L' ' || character == 0x7F;
}

LONG line_height(HWND edit) {
    HDC dc = GetDC(edit);
    auto* const font = reinterpret_cast<HFONT>(SendMessageW(edit, WM_GETFONT, 0, 0));
    const LONG height = text_size(dc, "X", font).cy;
    ReleaseDC(edit, dc);
    return height;
}

/// The text on the clipboard; empty where there is none.
std::wstring clipboard_text(HWND owner) {
    if (!OpenClipboard(owner)) return {};
    std::wstring text;
    HGLOBAL memory = GetClipboardData(CF_UNICODETEXT);
    if (const auto* characters =
            static_cast<const wchar_t*>(memory ? GlobalLock(memory) : nullptr)) {
        text.assign(characters, std::find(characters, characters + GlobalSize(memory) / 2, L'\0'));
        GlobalUnlock(memory);
    }
    CloseClipboard();
    return text;
}

/// A text in one line: line breaks and other control characters become blanks.
std::wstring in_one_line(std::wstring text) {
    for (std::size_t end = 0; (end = text.find(L"\r\n", end)) != std::wstring::npos;)
        text.erase(end, 1);
    std::replace_if(text.begin(), text.end(), is_control_character, L' ');
    return text;
}

/// The class writes a box of one line at its upper edge. One for more lines can be told where to
/// write; what would make a second line is kept from it.
class NameEdit final : public Window {
  public:
    NameEdit(TextBox& box, WindowParts& parts, const Canvas& parent)
        : box_(box), parts_(parts), parent_(parent) {}

    void sync() override {
        if (!is_shown(parent_.handle())) return;
        if (!handle()) make();
        sync_text(handle(), box_.Text, to_font(box_.Font, parts_.scale));
        sync_place(handle(), box_, parent_.scale());
    }

  protected:
    std::optional<LRESULT> answer(const Message& message) override {
        switch (message.id) {
            case WM_GETDLGCODE:
                return keys_wanted(message);
            case WM_KEYDOWN:
            case WM_SYSKEYDOWN:  // with Alt
                return hear_key(static_cast<int>(message.w));
            case WM_CHAR:
            case WM_SYSCHAR:
                return take_character(static_cast<wchar_t>(message.w));
            case WM_PASTE:
                return paste();
            case WM_SIZE:
            case WM_SETFONT:
                return write_in_the_middle(message);
            case handed_on + WM_COMMAND:
                if (HIWORD(message.w) == EN_CHANGE) box_.Text = text_of(handle());
                return 0;
        }
        return std::nullopt;
    }

  private:
    void make() {
        create(WC_EDITW, WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP | ES_MULTILINE | ES_AUTOHSCROLL,
               WS_EX_CLIENTEDGE, parent_.handle());
        parts_.text_boxes[&box_] = handle();
    }

    /// Every key, but for those that lead to another control. The class, if it were asked, would
    /// take the window for a dialog and close it at Esc.
    static LRESULT keys_wanted(const Message& message) {
        constexpr LRESULT wanted = DLGC_WANTARROWS | DLGC_WANTCHARS | DLGC_HASSETSEL;
        return message.w == VK_TAB ? wanted : wanted | DLGC_WANTALLKEYS;
    }

    std::optional<LRESULT> hear_key(int key) {
        parts_.deliver([this, key] {
            if (box_.KeyDown) box_.KeyDown(key);
        });
        return std::nullopt;
    }

    std::optional<LRESULT> take_character(wchar_t character) {
        if (character == select_all) SendMessageW(handle(), EM_SETSEL, 0, -1);
        const bool acts = acting_characters.find(character) != std::wstring_view::npos;
        if (!is_control_character(character) || acts) return std::nullopt;
        return 0;
    }

    LRESULT paste() {
        const std::wstring text = in_one_line(clipboard_text(handle()));
        if (!text.empty()) {
            SendMessageW(handle(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
        }
        return 0;
    }

    LRESULT write_in_the_middle(const Message& message) {
        constexpr int indent = 5;
        const LRESULT result = answer_of_class(message);
        RECT area = client_area(handle());
        const LONG height = line_height(handle());
        area.top = (area.bottom - height) / 2;
        area.bottom = area.top + height;
        InflateRect(&area, -parts_.scale.scaled(indent), 0);
        SendMessageW(handle(), EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, 0);
        SendMessageW(handle(), EM_SETRECT, 0, reinterpret_cast<LPARAM>(&area));
        return result;
    }

    TextBox& box_;
    WindowParts& parts_;
    const Canvas& parent_;
};

/// The largest size with the proportions of `picture` that fits into `room`.
PixelSize fitted(PixelSize picture, SIZE room) {
    const int width = MulDiv(room.cy, picture.width, picture.height);
    const PixelSize size = width <= room.cx
                               ? PixelSize{width, room.cy}
                               : PixelSize{room.cx, MulDiv(room.cx, picture.height, picture.width)};
    return {std::max(1, size.width), std::max(1, size.height)};
}

/// The picture is drawn as large as fits, its proportions kept, on the form's background.
class PictureView final : public PaintedWindow {
  public:
    PictureView(const PictureBox& box, WindowParts& parts, const Canvas& parent)
        : box_(box), parts_(parts), parent_(parent) {}

    void sync() override {
        if (!handle() && !box_.Visible) return;
        if (!handle()) create(plain_class(), WS_CHILD | WS_CLIPSIBLINGS, 0, parent_.handle());
        sync_place(handle(), box_, parent_.scale());
        if (shown_ != box_.Picture.load_number()) InvalidateRect(handle(), nullptr, FALSE);
        shown_ = box_.Picture.load_number();
    }

  protected:
    void paint(HDC dc) override {
        const RECT area = client_area(handle());
        fill(dc, area, to_ground(parts_.background));
        if (box_.Picture.load_number() == 0) return;
        const PictureContent* const content = parts_.pictures.content(box_.Picture);
        if (!content) return paint_placeholder(dc, area, box_.Picture, parts_.scale);
        const PixelSize size = fitted(content->size, size_of(area));
        const LONG left = (area.right - size.width) / 2;
        const LONG top = (area.bottom - size.height) / 2;
        parts_.pictures.image(box_.Picture, size)
            .paint(dc, {left, top, left + size.width, top + size.height}, size.height);
    }

  private:
    const PictureBox& box_;
    WindowParts& parts_;
    const Canvas& parent_;
    std::uint64_t shown_ = 0;  // the load of the picture
};

template <typename ControlWindow, typename Element>
ControlWindow& add(Element& element, const Canvas& parent, WindowParts& parts) {
    auto control = std::make_unique<ControlWindow>(element, parts, parent);
    ControlWindow& added = *control;
    parts.controls.push_back(std::move(control));
    return added;
}

void build(CommandButton& button, const Canvas& parent, WindowParts& parts) {
    add<Button>(button, parent, parts);
}

// First the frame: a control in a frame just shown can take the focus at once.
void build(Frame& frame, const Canvas& parent, WindowParts& parts) {
    build_controls(frame, add<FrameBox>(frame, parent, parts), parts);
}

void build(TextBox& box, const Canvas& parent, WindowParts& parts) {
    add<NameEdit>(box, parent, parts);
}

void build(PictureBox& box, const Canvas& parent, WindowParts& parts) {
    add<PictureView>(box, parent, parts);
}

void build(RichTextBox& box, const Canvas& parent, WindowParts& parts) {
    add<RichTextView>(box, parent, parts);
}

}  // namespace

void build_controls(Container& container, const Canvas& parent, WindowParts& parts) {
    for (const Control& control : container.controls) {
        std::visit([&](auto* element) { build(*element, parent, parts); }, control);
    }
}

}  // namespace solvanta::win32
