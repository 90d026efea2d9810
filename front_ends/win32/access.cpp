#include "front_ends/win32/access.h"

#include <atomic>
#include <string>

#include "front_ends/common/walk.h"
#include "front_ends/win32/table_stop.h"
#include "text/windows_text.h"

namespace solvanta::win32 {
namespace {

HRESULT give(BSTR* out, const std::string& text) {
    *out = text.empty() ? nullptr : to_bstr(text);
    return *out ? S_OK : S_FALSE;
}

HRESULT give(VARIANT* out, LONG number) {
    out->vt = VT_I4;
    out->lVal = number;
    return S_OK;
}

// The system's interfaces are never deleted through: `Release` does it.
#ifdef __GNUC__
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif

/// The places of a stop as its simple children, numbered from 1, and what was said last.
class TableAccess final : public IAccessible {
  public:
    explicit TableAccess(TableStop& stop) : stop_(&stop) {}
    void forget_stop() { stop_ = nullptr; }

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        const bool is_ours = id == IID_IUnknown || id == IID_IDispatch || id == IID_IAccessible;
        *object = is_ours ? this : nullptr;
        if (!is_ours) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

    // IDispatch: readers use the methods themselves.
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT /*index*/, LCID /*locale*/,
                                          ITypeInfo** /*info*/) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID /*id*/, LPOLESTR* /*names*/, UINT /*index*/,
                                            LCID /*locale*/, DISPID* /*ids*/) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID /*member*/, REFIID /*id*/, LCID /*locale*/,
                                     WORD /*flags*/, DISPPARAMS* /*given*/, VARIANT* /*result*/,
                                     EXCEPINFO* /*trouble*/, UINT* /*wrong*/) override {
        return E_NOTIMPL;
    }

    // IAccessible
    HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) override {
        using Find = HRESULT WINAPI(HWND, DWORD, REFIID, void**);
        auto* const find = system_function<Find>(L"oleacc.dll", "AccessibleObjectFromWindow");
        if (!stop_ || !find) return E_FAIL;
        return find(stop_->handle(), static_cast<DWORD>(OBJID_WINDOW), IID_IDispatch,
                    reinterpret_cast<void**>(parent));
    }
    HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* count) override {
        *count = stop_ ? static_cast<LONG>(stop_->places().size()) : 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT /*child*/, IDispatch** object) override {
        *object = nullptr;
        return S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override {
        if (child.lVal == CHILDID_SELF) return give(name, to_utf8(table_name));
        if (child.lVal == said_object && stop_) return give(name, stop_->said());
        const PictureElement* const place = place_of(child);
        return give(name, place ? place_name(*place) : std::string());
    }
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* role) override {
        return give(role, child.lVal == CHILDID_SELF  ? ROLE_SYSTEM_GROUPING
                          : child.lVal == said_object ? ROLE_SYSTEM_ALERT
                                                      : ROLE_SYSTEM_PUSHBUTTON);
    }
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) override {
        const PictureElement* const place = place_of(child);
        if (!place) return give(state, child.lVal == CHILDID_SELF ? STATE_SYSTEM_FOCUSABLE : 0);
        LONG states = STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_SELECTABLE;
        if (child.lVal == stop_->focused()) states |= STATE_SYSTEM_FOCUSED;
        if (place->IsSelected && place->IsSelected()) states |= STATE_SYSTEM_SELECTED;
        return give(state, states);
    }
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT child, BSTR* key) override {
        const PictureElement* const place = place_of(child);
        return give(key, place && place->Key ? std::string(1, place->Key) : std::string());
    }
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* action) override {
        return give(action, place_of(child) ? "Klicken" : "");
    }
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) override {
        const PictureElement* const place = place_of(child);
        if (!place) return E_INVALIDARG;
        stop_->click(*place);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE accSelect(LONG flags, VARIANT child) override {
        const PictureElement* const place = place_of(child);
        if (!place || (flags & SELFLAG_TAKEFOCUS) == 0) return E_INVALIDARG;
        stop_->walk_to(*place);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* child) override {
        const int focused = stop_ ? stop_->focused() : 0;
        if (focused > 0) return give(child, focused);
        child->vt = VT_EMPTY;
        return S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* child) override {
        child->vt = VT_EMPTY;
        return S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                                          VARIANT child) override {
        const PictureElement* const place = place_of(child);
        if (!place) return E_INVALIDARG;
        const RECT area = stop_->place_on_screen(*place);
        *left = area.left;
        *top = area.top;
        *width = size_of(area).cx;
        *height = size_of(area).cy;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE accHitTest(LONG x, LONG y, VARIANT* child) override {
        child->vt = VT_EMPTY;
        if (!stop_) return S_FALSE;
        const auto places = stop_->places();
        for (std::size_t i = 0; i < places.size(); ++i) {
            const RECT area = stop_->place_on_screen(*places[i]);
            if (PtInRect(&area, {x, y})) return give(child, static_cast<LONG>(i) + 1);
        }
        return S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE accNavigate(LONG /*direction*/, VARIANT /*child*/,
                                          VARIANT* /*result*/) override {
        return DISP_E_MEMBERNOTFOUND;
    }
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT /*child*/, BSTR* /*text*/) override {
        return DISP_E_MEMBERNOTFOUND;
    }
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT /*child*/, BSTR* /*text*/) override {
        return DISP_E_MEMBERNOTFOUND;
    }
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT /*child*/, BSTR* /*text*/) override {
        return DISP_E_MEMBERNOTFOUND;
    }
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* /*text*/, VARIANT /*child*/,
                                               LONG* /*topic*/) override {
        return DISP_E_MEMBERNOTFOUND;
    }
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT /*child*/, BSTR /*text*/) override {
        return DISP_E_MEMBERNOTFOUND;
    }
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT /*child*/, BSTR /*text*/) override {
        return DISP_E_MEMBERNOTFOUND;
    }

  private:
    /// Null where there is no such place any more.
    const PictureElement* place_of(const VARIANT& child) const {
        if (!stop_ || child.vt != VT_I4) return nullptr;
        const auto places = stop_->places();
        const bool is_there = child.lVal >= 1 && child.lVal <= static_cast<LONG>(places.size());
        return is_there ? places[static_cast<std::size_t>(child.lVal) - 1] : nullptr;
    }

    TableStop* stop_;
    std::atomic<ULONG> references_ = 1;
};

}  // namespace

IAccessible* make_access(TableStop& stop) {
    return new TableAccess(stop);
}

void forget_stop(IAccessible& object) {
    dynamic_cast<TableAccess&>(object).forget_stop();
}

BSTR to_bstr(const std::string& text) {
    using Allocate = BSTR WINAPI(const OLECHAR*);
    static auto* const allocate = system_function<Allocate>(L"oleaut32.dll", "SysAllocString");
    return allocate ? allocate(to_utf16(text).c_str()) : nullptr;
}

void free_bstr(BSTR text) {
    static auto* const free = system_function<void WINAPI(BSTR)>(L"oleaut32.dll", "SysFreeString");
    if (free) free(text);
}

}  // namespace solvanta::win32
