// INI files by the system's private-profile calls.
#pragma once

#include "platform/files.h"

namespace vintrel::win32 {

class Ini : public platform::IniStore {
 public:
    std::u16string Read(std::u16string_view path, std::u16string_view section, std::u16string_view key) override;
    void Write(std::u16string_view path, std::u16string_view section, std::u16string_view key,
               std::u16string_view value) override;
};

}  // namespace vintrel::win32
