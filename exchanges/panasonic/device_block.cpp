#include "exchanges/panasonic/device_block.h"

#include <algorithm>
#include <span>

namespace vintrel::exchanges::panasonic {

void DeviceBlock::SetWord(std::size_t position, std::uint32_t value) {
    for (std::size_t i = 0; i < 4; ++i) bytes_[position + i] = static_cast<std::byte>((value >> (8 * i)) & 0xFFU);
}

void DeviceBlock::SetRequest(Request request) {
    SetWord(0, kSize);
    SetWord(12, static_cast<std::uint32_t>(request));
}

void DeviceBlock::SetTime(std::uint32_t hours, std::uint32_t minutes) { SetWord(16, hours * 2048 + minutes * 32); }

void DeviceBlock::SetRepeat(bool repeat) { SetWord(24, repeat ? 1 : 0); }

void DeviceBlock::SetNameLength(std::uint32_t length) {
    SetWord(28, length);
    SetWord(32, length == 0 ? 0 : static_cast<std::uint32_t>(kSize) - length);
}

void DeviceBlock::SetNameBytes(std::string_view bytes) {
    const std::span<std::byte> name = std::span<std::byte>(bytes_).last(kNameBytes);
    std::fill(name.begin(), name.end(), std::byte{0});
    std::transform(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(std::min(bytes.size(), kNameBytes)),
                   name.begin(), [](char byte) { return static_cast<std::byte>(byte); });
}

}  // namespace vintrel::exchanges::panasonic
