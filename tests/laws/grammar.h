// What exchanges send, made from the grammar of each family: a table of field makers, and how the fields are joined.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "records/layout.h"
#include "tests/laws/random.h"

namespace vintrel::laws {

using records::GdvField;

/// What must stand in some columns of a record that the server makes. Where nothing is claimed, anything may stand.
class Claims {
 public:
    void Clear() { columns_.fill(0); }
    /// Zeros in front of the text, or blanks behind it, to the field's width.
    void Zeros(const GdvField& field, std::u16string_view text) { Say(field, text, field.Width() - text.size(), 0); }
    void Blanks(const GdvField& field, std::u16string_view text) { Say(field, text, 0, field.Width() - text.size()); }
    void Say(const GdvField& field, std::u16string_view text) { Say(field, text, 0, 0); }
    bool HoldIn(std::u16string_view record) const;
    std::u16string_view At(const GdvField& field) const { return {&columns_[Place(field)], field.Width()}; }

 private:
    static std::size_t Place(const GdvField& field) { return static_cast<std::size_t>(field.start); }
    void Say(const GdvField& field, std::u16string_view text, std::size_t zeros, std::size_t blanks);

    std::array<char16_t, records::kGdvRecordLength> columns_{};
};

/// The call that a record belongs to: its legs come as records of their own.
struct Call {
    std::uint32_t number = 0;  ///< no two calls at the same time have the same
    bool incoming = true;
    int leg = 0;               ///< from 0
    bool last = true;          ///< leg
    std::int64_t started = 0;  ///< seconds since 1970
    std::int64_t spent = 0;    ///< seconds, in the legs before
};

/// What a field maker works with: it appends the field to `text`, and claims what the field must become.
struct Making {
    Random& random;
    Call& call;
    std::u16string& text;
    Claims& claims;

    /// A number without zeros in front, so many digits long.
    std::u16string_view Number(std::size_t shortest, std::size_t longest);
    void Append(std::u16string_view part) { text += part; }
};

struct FieldMaker {
    std::ptrdiff_t at = 0;  ///< its first column, where fields stand in columns
    std::u16string_view key = {};
    std::u16string_view text = {};                  ///< what is always there
    void (*make)(Making& making) = [](Making&) {};  ///< and what is not
    std::u16string_view behind = {};
    bool words = false;  ///< behind the key: capital and small letters are the same
};

struct Layout {
    std::size_t columns = 0;  ///< of a line; between its fields anything stands. 0: the fields are joined
    std::u16string_view head = {}, quote = {}, between = {}, tail = {};
    bool any_order = false;  ///< the fields' order does not matter
};

struct Grammar {
    std::u16string_view code;
    const Layout& layout;
    std::span<const FieldMaker> fields;
    bool legs = false;  ///< the exchange remembers a call from leg to leg
};

/// A record, and how it can be said otherwise.
class Made {
 public:
    void Make(const Grammar& grammar, Random& random, Call& call);
    /// The same with other order and other letters, where these do not matter.
    void SayOtherwise(Random& random, std::u16string& text);

    const Grammar* grammar = nullptr;
    std::u16string text;
    Claims claims;

 private:
    static constexpr std::size_t kMostFields = 40;
    using Order = std::array<std::uint8_t, kMostFields>;

    void Join(std::u16string& text, const std::u16string& fields, const Order& order) const;

    std::u16string fields_;  // one behind the other
    std::u16string other_fields_;
    std::array<std::size_t, kMostFields + 1> ends_{};
    std::u16string gaps_;  // what stands between the fields of a line
};

/// Text without meaning for any exchange.
char16_t AnyPrinted(Random& random);

/// Breaks a text in one to three places; each time it puts a character in, that is `next` or one that separates fields.
void Mutate(Random& random, std::u16string& text, char16_t next);

}  // namespace vintrel::laws
