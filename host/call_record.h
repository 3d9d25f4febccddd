// A converted call record, cut into its fields at the positions that the server reports.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/output.h"
#include "host/server.h"

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

class CallLayout {
 public:
    explicit CallLayout(const Server& server);

    /// Of the whole converted record, with its two framing characters.
    std::size_t RecordLength() const { return body_length_ + 2; }
    std::size_t Length(CallField field) const { return places_[static_cast<std::size_t>(field)].length; }
    std::u16string_view Cut(std::u16string_view record, CallField field) const {
        const Place& place = places_[static_cast<std::size_t>(field)];
        return record.substr(place.start, place.length);
    }
    /// Of a table or file of calls, in the order in which WriteCall fills them.
    std::vector<Column> Columns() const;

 private:
    struct Place {
        std::size_t start;  ///< in the whole record: a body column c stands at index c, behind the start character
        std::size_t length;
    };
    std::size_t body_length_;
    std::array<Place, kCallFieldCount> places_{};
};

/// What a type digit says about the call: "out", "in", "missed", "out+" and "in+" for a continued or transferred one.
std::string_view CallKind(std::u16string_view type);

/// Fills the cells of one call. `record` has the full length.
void WriteCall(const CallLayout& layout, std::u16string_view record, RecordWriter& writer);

}  // namespace vintrel::host
