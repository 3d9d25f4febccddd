// Times of day in frames and call records.
#pragma once

#include <optional>
#include <string_view>

namespace vintrel::rx {

/// Minutes since midnight of "hh" and "mm", one or two digits each, blanks around them allowed. Nothing for a time that
/// does not exist.
std::optional<int> MinuteOfDay(std::u16string_view hours, std::u16string_view minutes);

}  // namespace vintrel::rx
