#include "com/strings.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <new>

namespace vintrel::com {
namespace {

/// The length stands in front of the characters, by the documented layout, and a NUL behind them. The block stays as it
/// is, and freeing gives back the whole of it; reallocating would cost as much as the conversion of a call record.
void Shorten(BSTR string, std::size_t length) {
    reinterpret_cast<UINT*>(string)[-1] = static_cast<UINT>(length * sizeof(OLECHAR));
    string[length] = L'\0';
}

}  // namespace

void Rewrite(BSTR* string, const text::InOutText& text) {
    const std::u16string_view front = text.Front();
    const std::u16string_view part = text.View();
    const std::size_t length = front.size() + part.size();
    const std::u16string_view whole = View(*string);
    const bool inside = whole.size() >= front.size() && !std::less<>()(part.data(), whole.data() + front.size()) &&
                        std::less<>()(part.data(), whole.data() + whole.size());
    if (inside) [[likely]] {  // it cannot have become longer
        std::memmove(*string + front.size(), part.data(), part.size() * sizeof(char16_t));
        std::copy(front.begin(), front.end(), *string);
        Shorten(*string, length);
        return;
    }
    wchar_t* const fresh = SysAllocStringLen(nullptr, static_cast<UINT>(length));
    if (!fresh) throw std::bad_alloc();
    std::copy(part.begin(), part.end(), std::copy(front.begin(), front.end(), fresh));
    SysFreeString(*string);
    *string = fresh;
}

}  // namespace vintrel::com
