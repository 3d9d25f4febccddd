// The encodings in which files reach the program: as they came off a link, or as an editor or a shell has saved them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vintrel::host {

enum class Encoding : std::uint8_t {
    Bytes,  ///< no sign of any
    Utf8,   ///< with a mark
    Utf16LittleEndian,
    Utf16BigEndian,
};

/// By the mark at the beginning; UTF-16 also without one, by its zeros. @param head  some of the file, from its start
Encoding EncodingOf(std::string_view head);

/// Turns a file into UTF-8, piece by piece, without the mark; bytes of no encoding stay what they are.
class Decoder {
 public:
    explicit Decoder(Encoding encoding) : encoding_(encoding) {}
    std::string Decode(std::string_view piece);

 private:
    Encoding encoding_;
    bool at_start_ = true;
    std::string rest_;  ///< of a character that the last piece has cut
};

/// All of a text file, in UTF-8 and without its mark.
std::string DecodedText(std::string_view file);

}  // namespace vintrel::host
