#pragma once

#include <windows.h>

namespace solvanta::win32 {

/// Loads a library of the system's own, never another of the same name; null when there is none.
/// What the first window does not need is loaded in this way, when it is needed.
inline HMODULE system_library(const wchar_t* name) {
    return LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
}

/// A function in such a library; null when there is none.
template <typename Function>
Function* system_function(HMODULE library, const char* name) {
    void* address = library ? reinterpret_cast<void*>(GetProcAddress(library, name)) : nullptr;
    return reinterpret_cast<Function*>(address);
}

}  // namespace solvanta::win32
