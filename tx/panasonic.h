// Panasonic KX-TDE/NS: an order is one or two device-specific requests on the telephony line of the extension.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "tx/exchange_access.h"
#include "tx/orders.h"

namespace vintrel::tx {

/// The parameters of a device-specific request: 61 bytes with little-endian words. They live from request to request:
/// what a request does not set keeps its value.
class DeviceBlock {
 public:
    static constexpr std::size_t kSize = 61;

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

class Panasonic {
 public:
    Panasonic(ExchangeAccess access, const server::AnsiText& ansi, server::TelephonyService& telephony)
        : access_(access), ansi_(ansi), telephony_(telephony) {}

    /// A mode above 2 does nothing and answers "".
    std::u16string_view WakeUp(const WakeUpOrder& order);
    std::u16string_view CheckIn(const CheckInOrder& order);
    std::u16string_view CheckOut(const CheckOutOrder& order);
    /// Names are changed by checking in: this clears the length of the name, whatever the new name is.
    std::u16string_view UserName(std::int32_t room);

 private:
    /// Opens the line of the room and carries the requests out, or answers without it.
    template <typename Requests>
    std::u16string_view OnLine(std::int32_t room, Requests requests);
    std::optional<std::uint32_t> FindDevice(std::int32_t room);
    std::optional<std::uint32_t> OpenLine(std::int32_t room);
    bool Carry(std::uint32_t line, DeviceBlock::Request request);
    bool ClearName(std::uint32_t line);

    ExchangeAccess access_;
    const server::AnsiText& ansi_;
    server::TelephonyService& telephony_;
    DeviceBlock block_;
};

}  // namespace vintrel::tx
