// What the frames of several families share.
#pragma once

#include <string_view>

#include "platform/clock.h"
#include "text/inline_text.h"

namespace vintrel::exchanges {

/// The date of a set-clock frame that has none.
inline constexpr std::u16string_view kNoDate = u"----";

/// Whether the frame is STX, the record type ("07" of the Avaya Integral family, "RE|" of FIAS), anything, ETX.
bool IsFramed(std::u16string_view frame, std::u16string_view type);

/// "ddmm" of the day on which the clock next shows this time: today, also when it is that time now, or tomorrow. ""
/// for a time that does not exist. The day and the month each read the clock, as hosts have always had it.
text::InlineText<4> NextDate(std::u16string_view hours, std::u16string_view minutes, const platform::Clock& clock);

}  // namespace vintrel::exchanges
