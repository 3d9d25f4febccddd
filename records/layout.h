// The Gdv record, the one form of a call record that the host knows: where each of its fields stands.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace vintrel::records {

/// A field of the record's body: its first column, counted from 1, and its width.
struct GdvField {
    std::int16_t start;
    std::int16_t length;

    constexpr std::size_t Width() const { return static_cast<std::size_t>(length); }
    bool operator==(const GdvField&) const = default;
};

// The body, left to right without separators.
inline constexpr GdvField kLine{.start = 1, .length = 5};
inline constexpr GdvField kUser{.start = 6, .length = 5};
inline constexpr GdvField kNumber{.start = 11, .length = 16};
inline constexpr GdvField kUserCode{.start = 27, .length = 4};
inline constexpr GdvField kSpare{.start = 31, .length = 1};  // the host has no name for it
inline constexpr GdvField kInfo{.start = 32, .length = 1};
inline constexpr GdvField kType{.start = 33, .length = 1};
inline constexpr GdvField kUnity{.start = 34, .length = 4};
inline constexpr GdvField kDurationS{.start = 38, .length = 5};
inline constexpr GdvField kDateD{.start = 43, .length = 2};
inline constexpr GdvField kDateM{.start = 45, .length = 2};
inline constexpr GdvField kDateY{.start = 47, .length = 2};
inline constexpr GdvField kTimeH{.start = 49, .length = 2};
inline constexpr GdvField kTimeM{.start = 51, .length = 2};
inline constexpr GdvField kPTYNumber{.start = 53, .length = 16};
inline constexpr GdvField kMacAddress{.start = 69, .length = 17};

/// All of them, in order.
inline constexpr std::array kGdvFields{kLine,      kUser,  kNumber, kUserCode, kSpare, kInfo,  kType,      kUnity,
                                       kDurationS, kDateD, kDateM,  kDateY,    kTimeH, kTimeM, kPTYNumber, kMacAddress};

/// The framed record: STX, the body, ETX.
inline constexpr GdvField kGdvBody{.start = 2, .length = 85};
inline constexpr std::int16_t kGdvRecordLength = 87;

consteval bool FillTheBody(const decltype(kGdvFields)& fields) {
    int next = 1;
    for (const GdvField& field : fields) {
        if (field.start != next) return false;
        next += field.length;
    }
    return next == kGdvBody.length + 1;
}
static_assert(FillTheBody(kGdvFields));

}  // namespace vintrel::records
