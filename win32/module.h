// The module that this code is linked into: the owner of window classes and resources.
#pragma once

#include <windows.h>

extern "C" IMAGE_DOS_HEADER __ImageBase;  // NOLINT(bugprone-reserved-identifier,cert-dcl*): the linker's name

namespace vintrel::win32 {

inline HINSTANCE ThisModule() { return reinterpret_cast<HINSTANCE>(&__ImageBase); }

/// A function of a system library that is loaded when it is needed, or that older systems do not have (then null).
template <typename Function>
Function SystemFunction(const wchar_t* library, const char* name) {
    auto* const module = LoadLibraryW(library);
    auto* const function = module != nullptr ? GetProcAddress(module, name) : nullptr;
    return reinterpret_cast<Function>(reinterpret_cast<void*>(function));
}

/// Runs a body whose caller is Windows: no exception may leave it.
template <typename Body>
void Fenced(Body body) noexcept {
    try {
        body();
    } catch (...) {  // NOLINT(bugprone-empty-catch): nobody is there to learn it; the next message is handled anew
    }
}

}  // namespace vintrel::win32
