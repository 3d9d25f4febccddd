// Which exchange an input is for: it begins with the five digits of the type code, so that a new model moves no seed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "exchanges/catalogue.h"

namespace vintrel::fuzz {

/// So many characters stand in front of what the exchange sends.
inline constexpr std::size_t kDigits = 5;

/// What a target answers to an input for no model: it is worth no place among the seeds.
inline constexpr int kNotForAModel = -1;

/// Null when the input names no model.
inline const exchanges::Model* ModelOf(const std::uint8_t* data, std::size_t size) {
    if (size < kDigits) return nullptr;
    return exchanges::FindModel(u"TYPE" + std::u16string(data, data + kDigits));
}

}  // namespace vintrel::fuzz
