// A quick source of random numbers: the same seed gives the same records.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vintrel::laws {

class Random {
 public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    /// 0 to `end` - 1. Splitmix64; the bias of the product does not matter here.
    std::uint32_t Below(std::size_t end) {
        std::uint64_t mixed = state_ += 0x9E3779B97F4A7C15;
        mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9;
        mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EB;
        return static_cast<std::uint32_t>(((mixed >> 32U) * static_cast<std::uint32_t>(end)) >> 32U);
    }
    std::uint32_t From(std::uint32_t first, std::uint32_t last) { return first + Below(last - first + 1); }
    bool Once(std::uint32_t in) { return Below(in) == 0; }

 private:
    std::uint64_t state_;
};

}  // namespace vintrel::laws
