#include "cdr/network_record.h"

#include <algorithm>
#include <utility>

#include "server/text.h"

namespace vintrel::cdr {

using server::IsDigits;
using server::Mid;

std::u16string_view FirstExtension(std::initializer_list<std::u16string_view> parties, std::u16string_view otherwise) {
    const auto* const found = std::find_if(parties.begin(), parties.end(), IsExtension);
    return found == parties.end() ? otherwise : *found;
}

std::int64_t WholeNumber(std::u16string_view text) {
    constexpr std::size_t kLongest = 18;  // what 64 bits hold for certain
    if (text.size() > kLongest || !IsDigits(text)) return 0;
    // Two halves that 32 bits hold.
    constexpr std::uint32_t kBillion = 1'000'000'000;
    constexpr std::size_t kHalf = 9;
    const auto value = [](std::u16string_view digits) {
        std::uint32_t sum = 0;
        for (const char16_t digit : digits) sum = sum * 10 + (digit - u'0');
        return sum;
    };
    const std::size_t front = text.size() < kHalf ? 0 : text.size() - kHalf;
    return std::int64_t{value(text.substr(0, front))} * kBillion + value(text.substr(front));
}

void AssignSeconds(GdvRecord& gdv, std::int64_t seconds) {
    constexpr std::int64_t kLongest = 99'999;
    gdv.BecomeDigits<kDurationS>(static_cast<unsigned>(std::clamp<std::int64_t>(seconds, 0, kLongest)));
}

void AssignAccount(GdvRecord& gdv, std::u16string_view account) {
    const bool fits = account.size() <= kUserCode.length && IsDigits(account);
    Assign<kUserCode>(gdv, server::ZeroPad(fits ? account : kNoUserCode, kUserCode.length));
}

void AssignStart(GdvRecord& gdv, std::u16string_view start) {
    constexpr std::u16string_view kForm = u"0000-00-00 00:00:00";
    if (start.size() != kForm.size()) return;
    const auto formed = [&]<std::size_t... I>(std::index_sequence<I...>) {
        return (... && (kForm[I] == u'0' ? server::IsDigit(start[I]) : start[I] == kForm[I]));
    };
    if (!formed(std::make_index_sequence<kForm.size()>())) return;
    Assign<kDateY>(gdv, Mid(start, 3, 2));
    Assign<kDateM>(gdv, Mid(start, 6, 2));
    Assign<kDateD>(gdv, Mid(start, 9, 2));
    Assign<kTimeH>(gdv, Mid(start, 12, 2));
    Assign<kTimeM>(gdv, Mid(start, 15, 2));
}

}  // namespace vintrel::cdr
