#include "text/fields.h"

namespace vintrel::text {

std::u16string GetSeparatedField(std::u16string_view text, std::u16string_view separator, std::int16_t index) {
    if (separator.empty()) return {};
    if (separator.size() == 1) return std::u16string(GetSeparatedField(text, separator.front(), index));
    std::u16string work(text);
    work += separator;
    std::u16string_view rest = work;
    std::u16string_view field;
    for (std::int16_t i = 0; i < index; ++i) {
        const std::size_t end = rest.find(separator);
        if (end == std::u16string_view::npos) break;
        field = rest.substr(0, end);
        rest.remove_prefix(end + 1);
    }
    return std::u16string(field);
}

}  // namespace vintrel::text
