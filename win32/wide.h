// Text on its way to Windows and back: UTF-16 on both sides, char16_t here and wchar_t there.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace vintrel::win32 {

inline const wchar_t* Wide(const std::u16string& text) { return reinterpret_cast<const wchar_t*>(text.c_str()); }

/// A copy with a NUL behind it.
inline std::wstring WideCopy(std::u16string_view text) { return {text.begin(), text.end()}; }

inline std::u16string_view FromWide(const wchar_t* text, std::size_t length) {
    return {reinterpret_cast<const char16_t*>(text), length};
}

}  // namespace vintrel::win32
