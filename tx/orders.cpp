#include "tx/orders.h"

#include "server/text.h"

namespace vintrel::tx {

std::u16string_view WakeUpOrder::Hours() const { return server::Left(time, 2); }
std::u16string_view WakeUpOrder::Minutes() const { return server::Right(time, 2); }
std::u16string_view WakeUpOrder::Day() const { return server::Left(date, 2); }
std::u16string_view WakeUpOrder::Month() const { return server::Right(date, 2); }

std::u16string Command(std::initializer_list<Piece> pieces) {
    std::u16string command;
    for (const Piece& piece : pieces) command += piece.Text();
    return command;
}

std::u16string Room(std::int32_t room) { return server::DecimalText(room); }

std::u16string PaddedRoom(std::int32_t room) {
    const std::u16string plain = Room(room);
    const std::optional<server::Padded> padded = server::ZeroPad(plain, 5);
    return padded ? padded->str() : plain;
}

std::u16string_view LanguageWord(const std::array<std::u16string_view, 5>& words, std::int16_t language,
                                 std::u16string_view otherwise) {
    if (language < 0 || language >= static_cast<std::int16_t>(words.size())) return otherwise;
    return words[static_cast<std::size_t>(language)];
}

}  // namespace vintrel::tx
