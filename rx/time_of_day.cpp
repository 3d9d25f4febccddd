#include "rx/time_of_day.h"

#include "server/text.h"

namespace vintrel::rx {
namespace {

using namespace server;

/// One or two digits below `limit`.
std::optional<int> Piece(std::u16string_view text, int limit) {
    text = Trim(text);
    if (!IsDigits(text) || text.size() > 2) return std::nullopt;
    int value = 0;
    for (const char16_t digit : text) value = value * 10 + (digit - u'0');
    return value < limit ? std::optional(value) : std::nullopt;
}

}  // namespace

std::optional<int> MinuteOfDay(std::u16string_view hours, std::u16string_view minutes) {
    const std::optional<int> hour = Piece(hours, 24);
    const std::optional<int> minute = Piece(minutes, 60);
    if (!hour || !minute) return std::nullopt;
    return *hour * 60 + *minute;
}

}  // namespace vintrel::rx
