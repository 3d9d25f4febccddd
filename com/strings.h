// The host's strings (BSTR) as texts.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <cstddef>
#include <new>
#include <string_view>

#include "text/text.h"

namespace vintrel::com {

inline BSTR NewString(std::u16string_view text) {
    BSTR string = SysAllocStringLen(reinterpret_cast<const wchar_t*>(text.data()), static_cast<UINT>(text.size()));
    if (!string) throw std::bad_alloc();
    return string;
}

/// In characters. The number of bytes stands in front of them, by the documented layout of a BSTR; every call reads
/// it, and asking the system costs more than the reading.
inline std::size_t Length(const OLECHAR* string) {
    return string ? reinterpret_cast<const UINT*>(string)[-1] / sizeof(OLECHAR) : 0;
}

/// A null BSTR is the empty text.
inline std::u16string_view View(const OLECHAR* string) {
    return string ? std::u16string_view(reinterpret_cast<const char16_t*>(string), Length(string))
                  : std::u16string_view();
}

/// The caller's variable becomes the text, which may be a part of what it holds. What becomes no longer stays where it
/// is.
void Rewrite(BSTR* string, const text::InOutText& text);

}  // namespace vintrel::com
