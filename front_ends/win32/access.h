#pragma once

#include <string>

#include <oleacc.h>
#include <windows.h>

namespace solvanta::win32 {

class TableStop;

inline constexpr const wchar_t* table_name = L"Spieltisch";

/// The number, as an object, of what was said last.
inline constexpr int said_object = 1000;

/// The object that screen readers get for a stop, with a reference that is the caller's. It
/// outlives the stop, to be told by `forget_stop`.
IAccessible* make_access(TableStop& stop);

/// From now on the object answers that it has gone.
void forget_stop(IAccessible& object);

/// A function of one of the system's libraries, which is loaded when it is first asked for; null
/// where the system lacks it.
template <typename Function>
Function* system_function(const wchar_t* library, const char* name) {
    HMODULE module = LoadLibraryExW(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    return module
               ? reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module, name)))
               : nullptr;
}

/// A text that its receiver frees; null where the system can't.
BSTR to_bstr(const std::string& text);
void free_bstr(BSTR text);

}  // namespace solvanta::win32
