#include "win32/ini.h"

#include <array>

#include "win32/wide.h"

namespace vintrel::win32 {

std::u16string Ini::Read(std::u16string_view path, std::u16string_view section, std::u16string_view key) {
    std::array<wchar_t, 256> value{};
    const DWORD length = GetPrivateProfileStringW(WideCopy(section).c_str(), WideCopy(key).c_str(), L"", value.data(),
                                                  static_cast<DWORD>(value.size()), WideCopy(path).c_str());
    return std::u16string(FromWide(value.data(), length));
}

void Ini::Write(std::u16string_view path, std::u16string_view section, std::u16string_view key,
                std::u16string_view value) {
    WritePrivateProfileStringW(WideCopy(section).c_str(), WideCopy(key).c_str(), WideCopy(value).c_str(),
                               WideCopy(path).c_str());
}

}  // namespace vintrel::win32
