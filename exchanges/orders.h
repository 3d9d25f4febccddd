// The orders of the host, and what their forms share from model to model.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace vintrel::exchanges {

/// The verdict of the exchanges that the server drives itself.
std::u16string Verdict(bool carried_out);

/// WakeUpMode.
inline constexpr std::int16_t kSetOnce = 0;
inline constexpr std::int16_t kCancel = 1;
inline constexpr std::int16_t kSetRepeating = 2;

struct WakeUpOrder {
    std::int32_t room = 0;
    std::u16string_view time = {};  ///< "hhmm"; shorter text is used as it is
    std::u16string_view date = {};  ///< "ddmm"; "----" is no date for FIAS
    std::int16_t mode = kSetOnce;
    std::int16_t language = 0;  ///< 0 German, 1 Italian, 2 English, 3 French, 4 Spanish

    std::u16string_view Hours() const;
    std::u16string_view Minutes() const;
    std::u16string_view Day() const;
    std::u16string_view Month() const;
};

struct CheckInOrder {
    std::int32_t room = 0;
    std::u16string_view name = {};
    std::int16_t language = 0;
    bool change_name = false;
};

struct CheckOutOrder {
    std::int32_t room = 0;
    bool change_name = false;
};

/// A piece of a command.
class Piece {
 public:
    Piece(std::u16string_view text) : text_(text) {}    // NOLINT(google-explicit-constructor): commands read as
    Piece(const char16_t* text) : text_(text) {}        // NOLINT(google-explicit-constructor): the list of their
    Piece(const std::u16string& text) : text_(text) {}  // NOLINT(google-explicit-constructor): pieces
    Piece(const char16_t& character) : text_(&character, 1) {}  // NOLINT(google-explicit-constructor)
    std::u16string_view Text() const { return text_; }

 private:
    std::u16string_view text_;
};

/// The pieces, one behind the other. They are views: make them in the expression of the call.
std::u16string Command(std::initializer_list<Piece> pieces);

/// The extension in plain decimal.
std::u16string Room(std::int32_t room);
/// The extension with zeros in front to five characters; a longer one stays as it is.
std::u16string PaddedRoom(std::int32_t room);

/// The word of a language in a table of five, or `otherwise`.
std::u16string_view LanguageWord(const std::array<std::u16string_view, 5>& words, std::int16_t language,
                                 std::u16string_view otherwise);

}  // namespace vintrel::exchanges
