// The parts of a text that stand between marks.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vintrel::text {

/// The index-th comma-separated field. An index below 1 gives "", one beyond the last field the last field; quotes
/// mean nothing here.
std::u16string_view GetCommaField(std::u16string_view text, std::int16_t index);
/// The same for any separator. Of a longer separator only the first character is cut with the field before it.
std::u16string GetSeparatedField(std::u16string_view text, std::u16string_view separator, std::int16_t index);
std::u16string_view GetSeparatedField(std::u16string_view text, char16_t separator, std::int16_t index);

/// The text between the first start mark and the next end mark; "" without the end mark. Without the start mark the
/// search for the end mark begins at the position equal to the start mark's length; callers check for it first.
std::u16string_view GetTextBetween(std::u16string_view text, std::u16string_view start_mark,
                                   std::u16string_view end_mark);

/// The value that follows the first `key` (with its leading "|", such as "|RN") up to the next "|". The record is
/// trimmed in place. "" when the key is missing; nothing, a fault, when no "|" follows the key.
std::optional<std::u16string_view> GetPipeValue(std::u16string_view& record, std::u16string_view key);

}  // namespace vintrel::text
