// Files, and the files of settings that the system reads and writes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vintrel::platform {

class Files {
 public:
    virtual ~Files() = default;
    virtual bool Exists(std::u16string_view path) const = 0;
    /// The bytes from `offset`, at most `count`, fewer where the file ends. Nothing when it cannot be opened or read.
    virtual std::optional<std::vector<std::byte>> Read(std::u16string_view path, std::uint64_t offset,
                                                       std::size_t count) const = 0;
};

class IniStore {
 public:
    virtual ~IniStore() = default;
    /// At most 255 characters, as the system gives them; "" for what is missing.
    virtual std::u16string Read(std::u16string_view path, std::u16string_view section, std::u16string_view key) = 0;
    virtual void Write(std::u16string_view path, std::u16string_view section, std::u16string_view key,
                       std::u16string_view value) = 0;
};

}  // namespace vintrel::platform
