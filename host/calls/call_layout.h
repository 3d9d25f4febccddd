// Where the fields of a converted call record stand, as the server reports it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vintrel::host {

enum class CallField : std::uint8_t {
    Line,
    User,
    Number,
    UserCode,
    Info,
    Type,
    Unity,
    Duration,
    Day,
    Month,
    Year,
    Hour,
    Minute,
    PtyNumber,
    MacAddress
};
inline constexpr std::size_t kCallFieldCount = 15;

struct CallLayout {
    struct Place {
        std::size_t start;  ///< in the whole record: a body column c stands at index c, behind the start character
        std::size_t length;
    };
    std::size_t body_length = 0;
    std::array<Place, kCallFieldCount> places{};

    /// Of the whole converted record, with its two framing characters.
    std::size_t RecordLength() const { return body_length + 2; }
    std::size_t Length(CallField field) const { return places[static_cast<std::size_t>(field)].length; }
    std::u16string_view Cut(std::u16string_view record, CallField field) const {
        const Place& place = places[static_cast<std::size_t>(field)];
        return record.substr(place.start, place.length);
    }
};

/// What a type digit says about the call: "out", "in", "missed", "out+" and "in+" for a continued or transferred one.
/// "" for another digit.
std::string_view CallKind(std::u16string_view type);

}  // namespace vintrel::host
