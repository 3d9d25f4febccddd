#include "text/fields.h"

#include "text/text.h"

namespace vintrel::text {

std::u16string_view GetSeparatedField(std::u16string_view text, char16_t separator, std::int16_t index) {
    std::u16string_view field;
    for (std::int16_t i = 0; i < index; ++i) {
        const std::size_t end = text.find(separator);
        field = text.substr(0, end);
        if (end == std::u16string_view::npos) break;
        text.remove_prefix(end + 1);
    }
    return field;
}

std::u16string_view GetCommaField(std::u16string_view text, std::int16_t index) {
    return GetSeparatedField(text, u',', index);
}

std::u16string_view GetTextBetween(std::u16string_view text, std::u16string_view start_mark,
                                   std::u16string_view end_mark) {
    const std::size_t found = text.find(start_mark);
    const std::size_t from = found == std::u16string_view::npos ? start_mark.size() - 1 : found + start_mark.size();
    if (start_mark.empty() || from > text.size()) return {};
    const std::u16string_view rest = text.substr(from);
    const std::size_t end = rest.find(end_mark);
    return end == std::u16string_view::npos ? std::u16string_view{} : rest.substr(0, end);
}

std::optional<std::u16string_view> GetPipeValue(std::u16string_view& record, std::u16string_view key) {
    record = Trim(record);
    const std::size_t found = Find(record, key);
    if (found == std::u16string_view::npos || record.empty()) return std::u16string_view{};
    const std::size_t from = found + key.size();
    const std::size_t end = Find(record, u"|", from);
    if (end == std::u16string_view::npos) return std::nullopt;
    return record.substr(from, end - from);
}

}  // namespace vintrel::text
