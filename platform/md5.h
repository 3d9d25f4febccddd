// Digests.
#pragma once

#include <cstddef>
#include <span>
#include <string>

namespace vintrel::platform {

class Md5 {
 public:
    virtual ~Md5() = default;
    /// 32 upper-case hexadecimal digits.
    /// @throws OperationError with the numbers of MD5Hash.
    virtual std::u16string HashBytes(std::span<const std::byte> bytes) = 0;
};

}  // namespace vintrel::platform
