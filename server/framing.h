// How the host cuts and answers the frames of each model: eight answers of ComEventsRX. An unknown code answers 0 or
// "", after the error report; only GetRepeatErrorEventRX answers 1.
#pragma once

#include <cstdint>
#include <string_view>

#include "server/type_code.h"

namespace vintrel::server {

/// The length in characters at which the host ends a read; 0 = only the end string ends a frame.
std::int32_t GetComLngEndReadRx(TypeCode type, platform::CriticalMessage& message);
/// The string that ends a frame.
std::u16string_view GetComEtxEndReadRx(TypeCode type, platform::CriticalMessage& message);
/// A second end string; no model has one.
std::u16string_view GetComEtxEndReadRx2(TypeCode type, platform::CriticalMessage& message);
/// What the host sends back after a frame; "@" and "£" (U+00A3): nothing.
std::u16string_view GetComACKRx(TypeCode type, platform::CriticalMessage& message);
/// How often the host repeats an error event.
std::int16_t GetRepeatErrorEventRX(TypeCode type, platform::CriticalMessage& message);
/// Columns of a separated record; 0 = records are not separated.
std::int16_t GetIPXComColumn(TypeCode type, platform::CriticalMessage& message);
/// 1 = the columns are separated by spaces.
std::int16_t GetIPXComSpace(TypeCode type, platform::CriticalMessage& message);
/// 1 = the columns are separated by commas.
std::int16_t GetIPXComComma(TypeCode type, platform::CriticalMessage& message);

}  // namespace vintrel::server
