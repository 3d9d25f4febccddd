// Files of the host and of the server, read only.
#pragma once

#include "platform/files.h"

namespace vintrel::win32 {

class Files : public platform::Files {
 public:
    bool Exists(std::u16string_view path) const override;
    std::optional<std::vector<std::byte>> Read(std::u16string_view path, std::uint64_t offset,
                                               std::size_t count) const override;
};

}  // namespace vintrel::win32
