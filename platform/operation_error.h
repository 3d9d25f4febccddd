// A failure that the host must learn: the operation becomes a failed call with rich error information.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace vintrel::platform {

/// The HRESULTs that an Automation host shows as the classic run-time error numbers.
inline constexpr std::uint32_t kInvalidArgument = 0x800A0005;     // 5
inline constexpr std::uint32_t kOverflow = 0x800A0006;            // 6
inline constexpr std::uint32_t kBadRecordLength = 0x800A003B;     // 59
inline constexpr std::uint32_t kInputPastEnd = 0x800A003E;        // 62
inline constexpr std::uint32_t kPathOrFileAccess = 0x800A004B;    // 75
inline constexpr std::uint32_t kCannotCreateObject = 0x800A01AD;  // 429

class OperationError : public std::exception {
 public:
    /// @param source  empty: the class of the operation, such as "Vintrel.PMSEvents".
    OperationError(std::uint32_t result, std::u16string description, std::u16string source = {})
        : result_(result), description_(std::move(description)), source_(std::move(source)) {}

    std::uint32_t Result() const { return result_; }
    const std::u16string& Description() const { return description_; }
    const std::u16string& Source() const { return source_; }
    const char* what() const noexcept override { return "OperationError"; }

 private:
    std::uint32_t result_;
    std::u16string description_;
    std::u16string source_;
};

}  // namespace vintrel::platform
