// The Gdv record while a converter fills it, slot by slot. Nothing here allocates.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "records/copies.h"
#include "records/layout.h"
#include "text/text.h"

namespace vintrel::records {

/// What a converter fills, each field at its place: its slot. A slot that stays empty makes the record shorter, and the
/// host rejects it by its length. The result of a conversion: a call, the reject marker, or empty.
class GdvRecord {
 public:
    GdvRecord() {}  // NOLINT(modernize-use-equals-default): = default would clear the characters first

    /// The whole record, once it is assembled.
    std::u16string_view View() const { return {characters_.data(), size_}; }
    operator std::u16string_view() const { return View(); }  // NOLINT(google-explicit-constructor): it is a text
    std::size_t size() const { return size_; }

    template <GdvField Field>
    std::u16string_view Slot() const {
        return {At(Field), sizes_[kIndex<Field>]};
    }
    template <GdvField Field>
    void Clear() {
        sizes_[kIndex<Field>] = 0;
    }
    /// The text must fit.
    template <GdvField Field>
    void Become(std::u16string_view text) {
        if (text.size() == Field.Width()) [[likely]] {  // one copy of known size
            CopyFixed<Field.Width()>(At(Field), text.data());
        } else {
            CopyShort(At(Field), text);
        }
        sizes_[kIndex<Field>] = static_cast<std::uint8_t>(text.size());
    }
    template <GdvField Field>
    void Become(const text::Padded& text) {
        CopyFixed<Field.Width()>(At(Field), text.character == u'0' ? kZeros.data() : kBlanks.data());
        CopyShort(At(Field) + (text.in_front ? text.count : 0), text.text);
        sizes_[kIndex<Field>] = static_cast<std::uint8_t>(text.size());
    }
    /// In the slot's first positions.
    template <GdvField Field>
    void Replace(std::size_t positions, char16_t character, char16_t replacement) {
        char16_t* const slot = At(Field);
        const std::size_t count = std::min<std::size_t>(positions, sizes_[kIndex<Field>]);
        const auto replaced = [=](char16_t c) { return c == character ? replacement : c; };  // no branch
        if (Field.Width() % 8 == 0 && count == Field.Width())  // in the machine's own pieces
            for (std::size_t i = 0; i < Field.Width(); ++i) slot[i] = replaced(slot[i]);
        else
            for (std::size_t i = 0; i < count; ++i) slot[i] = replaced(slot[i]);
    }
    /// With leading zeros. The number must fit.
    template <GdvField Field>
    void BecomeDigits(unsigned number) {
        char16_t* const slot = At(Field);
        std::size_t left = Field.Width();
        for (; left > 2; number /= 100) CopyFixed<2>(slot + (left -= 2), &kDigitPairs[std::size_t{number % 100} * 2]);
        if (left == 2)
            CopyFixed<2>(slot, &kDigitPairs[std::size_t{number} * 2]);
        else
            *slot = static_cast<char16_t>(u'0' + number);
        sizes_[kIndex<Field>] = static_cast<std::uint8_t>(Field.Width());
    }

    /// The record becomes STX, the slots without the gaps that short ones leave, ETX.
    void Assemble();
    /// The record becomes the reject marker (DLE).
    void Reject();

 private:
    static constexpr std::size_t kCount = kGdvFields.size();
    template <GdvField Field>
    static constexpr auto kIndex = static_cast<std::size_t>(std::find(kGdvFields.begin(), kGdvFields.end(), Field) -
                                                            kGdvFields.begin());

    char16_t* At(const GdvField& field) { return characters_.data() + kGdvBody.start - 1 + field.start - 1; }
    const char16_t* At(const GdvField& field) const {
        return characters_.data() + kGdvBody.start - 1 + field.start - 1;
    }

    std::array<char16_t, kGdvRecordLength> characters_;  // written before they are read: `size_` of them count
    std::size_t size_ = 0;
    std::array<std::uint8_t, kCount> sizes_{};  // of the slots
};

/// What a converter made of a record.
enum class Outcome : std::uint8_t {
    Call,
    Rejected,  ///< a header, a status line, a call that is not charged: the host discards it
};

}  // namespace vintrel::records
