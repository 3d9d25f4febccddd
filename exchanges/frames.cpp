#include "exchanges/frames.h"

#include <chrono>
#include <optional>

#include "text/control_characters.h"
#include "text/dates.h"
#include "text/numbers.h"
#include "text/text.h"

namespace vintrel::exchanges {
namespace {

std::optional<std::chrono::year_month_day> NextOccurrence(std::u16string_view hours, std::u16string_view minutes,
                                                          const platform::Clock& clock) {
    const std::optional<int> given = text::MinuteOfDay(hours, minutes);
    if (!given) return std::nullopt;
    const text::DateTime now = clock.LocalNow();
    const bool passed = *given < now.hour * 60 + now.minute;
    return text::DayOf(now) + std::chrono::days(passed ? 1 : 0);
}

}  // namespace

bool IsFramed(std::u16string_view frame, std::u16string_view type) {
    return frame.starts_with(text::kStx) && frame.substr(1).starts_with(type) && frame.ends_with(text::kEtx);
}

text::InlineText<4> NextDate(std::u16string_view hours, std::u16string_view minutes, const platform::Clock& clock) {
    const auto first = NextOccurrence(hours, minutes, clock);
    const auto second = NextOccurrence(hours, minutes, clock);
    if (!first || !second) return {};
    return text::InlineText<4>(text::TwoDigits(static_cast<int>(static_cast<unsigned>(first->day()))),
                               text::TwoDigits(static_cast<int>(static_cast<unsigned>(second->month()))));
}

}  // namespace vintrel::exchanges
