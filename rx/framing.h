// How the host cuts and answers the frames of each model: eight answers of ComEventsRX. An unknown code answers 0 or
// "", after the error report; only GetRepeatErrorEventRX answers 1.
#pragma once

#include <cstdint>
#include <string_view>

#include "server/type_code.h"

namespace vintrel::rx {

// Two answers that are no text of the link: the model has no character-level message of that kind, ...
inline constexpr std::u16string_view kNoMessage = u"@";
// ... and the server itself drives it, over HTTP or SOAP.
inline constexpr std::u16string_view kDriven = u"\u00A3";

/// The length in characters at which the host ends a read; 0 = only the end string ends a frame.
std::int32_t GetComLngEndReadRx(server::TypeCode type, server::CriticalMessage& message);
/// The string that ends a frame.
std::u16string_view GetComEtxEndReadRx(server::TypeCode type, server::CriticalMessage& message);
/// A second end string; no model has one.
std::u16string_view GetComEtxEndReadRx2(server::TypeCode type, server::CriticalMessage& message);
/// What the host sends back after a frame; kNoMessage and kDriven: nothing.
std::u16string_view GetComACKRx(server::TypeCode type, server::CriticalMessage& message);
/// How often the host repeats an error event.
std::int16_t GetRepeatErrorEventRX(server::TypeCode type, server::CriticalMessage& message);
/// Columns of a separated record; 0 = records are not separated.
std::int16_t GetIPXComColumn(server::TypeCode type, server::CriticalMessage& message);
/// 1 = the columns are separated by spaces.
std::int16_t GetIPXComSpace(server::TypeCode type, server::CriticalMessage& message);
/// 1 = the columns are separated by commas.
std::int16_t GetIPXComComma(server::TypeCode type, server::CriticalMessage& message);

}  // namespace vintrel::rx
