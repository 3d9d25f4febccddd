// The parameters of a device-specific request to the telephony service of the exchange.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vintrel::exchanges::panasonic {

/// 61 bytes with little-endian words. They live from request to request: what a request does not set keeps its value.
class DeviceBlock {
 public:
    static constexpr std::size_t kSize = 61;
    static constexpr std::size_t kNameBytes = 25;

    /// The command words of the exchange.
    enum class Request : std::uint32_t { SetWakeUp = 6, SetName = 13, ClearWakeUp = 16, CheckIn = 63, CheckOut = 64 };

    void SetRequest(Request request);
    /// Hours and minutes packed as in a file-system time.
    void SetTime(std::uint32_t hours, std::uint32_t minutes);
    void SetRepeat(bool repeat);
    void SetNameLength(std::uint32_t length);
    /// At most 25 bytes; the rest is zero.
    void SetNameBytes(std::string_view bytes);

    std::array<std::byte, kSize>& Bytes() { return bytes_; }

 private:
    void SetWord(std::size_t position, std::uint32_t value);

    std::array<std::byte, kSize> bytes_{};
};

}  // namespace vintrel::exchanges::panasonic
