#include "exchanges/orders.h"

#include "text/numbers.h"
#include "text/text.h"

namespace vintrel::exchanges {

std::u16string Verdict(bool carried_out) { return carried_out ? u"<OK>" : u"<ERROR>"; }

std::u16string_view WakeUpOrder::Hours() const { return text::Left(time, 2); }
std::u16string_view WakeUpOrder::Minutes() const { return text::Right(time, 2); }
std::u16string_view WakeUpOrder::Day() const { return text::Left(date, 2); }
std::u16string_view WakeUpOrder::Month() const { return text::Right(date, 2); }

std::u16string Command(std::initializer_list<Piece> pieces) {
    std::u16string command;
    for (const Piece& piece : pieces) command += piece.Text();
    return command;
}

std::u16string Room(std::int32_t room) { return text::DecimalText(room); }

std::u16string PaddedRoom(std::int32_t room) {
    const std::u16string plain = Room(room);
    const std::optional<text::Padded> padded = text::ZeroPad(plain, 5);
    return padded ? padded->str() : plain;
}

std::u16string_view LanguageWord(const std::array<std::u16string_view, 5>& words, std::int16_t language,
                                 std::u16string_view otherwise) {
    if (language < 0 || language >= static_cast<std::int16_t>(words.size())) return otherwise;
    return words[static_cast<std::size_t>(language)];
}

}  // namespace vintrel::exchanges
