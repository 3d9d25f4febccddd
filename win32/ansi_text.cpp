#include "win32/ansi_text.h"

#include "win32/wide.h"

namespace vintrel::win32 {

std::string AnsiText::FromText(std::u16string_view text) const {
    const std::wstring wide = WideCopy(text);
    const int length = static_cast<int>(wide.size());
    const int needed = WideCharToMultiByte(CP_ACP, 0, wide.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(needed), '\0');
    WideCharToMultiByte(CP_ACP, 0, wide.data(), length, bytes.data(), needed, nullptr, nullptr);
    return bytes;
}

std::u16string AnsiText::ToText(std::string_view bytes) const {
    const int length = static_cast<int>(bytes.size());
    const int needed = MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(needed), L'\0');
    MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, wide.data(), needed);
    return std::u16string(FromWide(wide.data(), wide.size()));
}

}  // namespace vintrel::win32
