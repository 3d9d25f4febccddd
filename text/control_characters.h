// Control characters of the exchanges' links, by their names.
#pragma once

#include <string_view>

namespace vintrel::text {

inline constexpr char16_t kNul = 0;
inline constexpr char16_t kStx = 2;
inline constexpr char16_t kEtx = 3;
inline constexpr char16_t kEnq = 5;
inline constexpr char16_t kAck = 6;
inline constexpr char16_t kTab = 9;
inline constexpr char16_t kLf = 10;
inline constexpr char16_t kVt = 11;
inline constexpr char16_t kFf = 12;
inline constexpr char16_t kCr = 13;
inline constexpr char16_t kDle = 16;
inline constexpr char16_t kNak = 21;
inline constexpr char16_t kBlank = 32;
inline constexpr char16_t kQuote = 34;

// The same as texts.
inline constexpr std::u16string_view kEtxText{&kEtx, 1};
inline constexpr std::u16string_view kEnqText{&kEnq, 1};
inline constexpr std::u16string_view kAckText{&kAck, 1};
inline constexpr std::u16string_view kLfText{&kLf, 1};
inline constexpr std::u16string_view kNakText{&kNak, 1};
inline constexpr std::u16string_view kCrLf = u"\r\n";

}  // namespace vintrel::text
