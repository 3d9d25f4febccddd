#include "records/network_record.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "text/numbers.h"
#include "text/scan.h"
#include "text/text.h"

namespace vintrel::records {

using text::IsDigits;

std::u16string_view FirstExtension(std::initializer_list<std::u16string_view> parties, std::u16string_view otherwise) {
    const auto* const found = std::find_if(parties.begin(), parties.end(), IsExtension);
    return found == parties.end() ? otherwise : *found;
}

namespace {

/// Of 1 to 18 digits, what 64 bits hold for certain; nothing for any other text.
std::optional<std::int64_t> PlainWholeNumber(std::u16string_view text) {
    constexpr std::size_t kLongest = 18;
    constexpr std::size_t kEight = 8;
    if (text.empty() || text.size() > kLongest) return std::nullopt;
    const char16_t* at = text.data();
    std::uint32_t front = 0;
    for (std::size_t left = text.size() % kEight; left != 0; --left, ++at) {
        if (!text::IsDigit(*at)) return std::nullopt;
        front = front * 10 + (*at - u'0');
    }
    std::int64_t number = front;
    for (const char16_t* const end = text.data() + text.size(); at != end; at += kEight) {
        const std::optional<std::uint32_t> eight = text::scan::EightDigits(at);
        if (!eight) return std::nullopt;
        number = number * 100'000'000 + *eight;
    }
    return number;
}

}  // namespace

std::int64_t WholeNumber(std::u16string_view text) {
    if (const auto plain = PlainWholeNumber(text)) [[likely]]
        return *plain;
    constexpr double kBeyond = 1e18;
    const double number = text::NumberValue(text);
    return std::fabs(number) < kBeyond && std::floor(number) == number ? static_cast<std::int64_t>(number) : 0;
}

void AssignSeconds(GdvRecord& gdv, std::int64_t seconds) {
    constexpr std::int64_t kLongest = 99'999;
    gdv.BecomeDigits<kDurationS>(static_cast<unsigned>(std::clamp<std::int64_t>(seconds, 0, kLongest)));
}

void AssignAccount(GdvRecord& gdv, std::u16string_view account) {
    const bool fits = account.size() <= kUserCode.length && IsDigits(account);
    AssignZeroPadded<kUserCode>(gdv, fits ? account : kNoUserCode);
}

void AssignStart(GdvRecord& gdv, std::u16string_view start) {
    constexpr std::u16string_view kForm = u"0000-00-00 00:00:00";
    if (start.size() != kForm.size()) return;
    const auto formed = [&]<std::size_t... I>(std::index_sequence<I...>) {
        return (... && (kForm[I] == u'0' ? text::IsDigit(start[I]) : start[I] == kForm[I]));
    };
    if (!formed(std::make_index_sequence<kForm.size()>())) return;
    AssignDateTime(gdv, start, {.day = 9, .month = 6, .year = 3, .hour = 12, .minute = 15});
}

}  // namespace vintrel::records
