// The judge of converted call records. The server converts what stands at the model's columns, whatever it is: a record
// that was cut on the line still has the length of one, and a date that is none.
#pragma once

#include <string_view>

#include "host/calls/call_layout.h"

namespace vintrel::host {

/// Why a converted record cannot be a call, such as "the date is none"; "" for one that can.
std::string_view WhyNoCall(const CallLayout& layout, std::u16string_view record);

}  // namespace vintrel::host
