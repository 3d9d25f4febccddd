#include "tests/laws/grammar.h"

#include <algorithm>
#include <utility>

namespace vintrel::laws {
namespace {

bool IsLetter(char16_t character) {
    return (character >= u'A' && character <= u'Z') || (character >= u'a' && character <= u'z');
}

}  // namespace

void Claims::Say(const GdvField& field, std::u16string_view text, std::size_t zeros, std::size_t blanks) {
    char16_t* column = std::fill_n(columns_.data() + Place(field), zeros, u'0');
    column = std::copy(text.begin(), text.end(), column);
    std::fill_n(column, blanks, u' ');
}

bool Claims::HoldIn(std::u16string_view record) const {
    return record.size() == columns_.size() &&
           std::equal(columns_.begin(), columns_.end(), record.begin(),
                      [](char16_t claimed, char16_t found) { return claimed == 0 || claimed == found; });
}

char16_t AnyPrinted(Random& random) {
    constexpr std::u16string_view kPrinted = u"0123456789xyz#";
    return kPrinted[random.Below(kPrinted.size())];
}

std::u16string_view Making::Number(std::size_t shortest, std::size_t longest) {
    const std::size_t begin = text.size();
    const std::uint32_t count = random.From(static_cast<std::uint32_t>(shortest), static_cast<std::uint32_t>(longest));
    text += static_cast<char16_t>(u'1' + random.Below(9U));
    for (std::uint32_t i = 1; i < count; ++i) text += static_cast<char16_t>(u'0' + random.Below(10U));
    return std::u16string_view(text).substr(begin);
}

void Made::Make(const Grammar& of, Random& random, Call& call) {
    grammar = &of;
    claims.Clear();
    fields_.clear();
    Making making{.random = random, .call = call, .text = fields_, .claims = claims};
    for (std::size_t i = 0; i < of.fields.size(); ++i) {
        fields_.append(of.fields[i].key).append(of.fields[i].text);
        of.fields[i].make(making);
        fields_ += of.fields[i].behind;
        ends_[i + 1] = fields_.size();
    }
    gaps_.resize(of.layout.columns);
    for (char16_t& character : gaps_) character = AnyPrinted(random);
    Order order{};
    for (std::size_t i = 0; i < of.fields.size(); ++i) order[i] = static_cast<std::uint8_t>(i);
    Join(text, fields_, order);
}

void Made::Join(std::u16string& joined, const std::u16string& fields, const Order& order) const {
    const Layout& layout = grammar->layout;
    const auto field = [&](std::size_t i) {
        return std::u16string_view(fields).substr(ends_[i], ends_[i + 1] - ends_[i]);
    };
    joined = layout.head;
    joined += gaps_;
    for (std::size_t i = 0; i < grammar->fields.size(); ++i) {
        if (layout.columns != 0)
            joined.replace(static_cast<std::size_t>(grammar->fields[i].at) - 1, field(i).size(), field(i));
        else
            joined.append(i == 0 ? u"" : layout.between)
                .append(layout.quote)
                .append(field(order[i]))
                .append(layout.quote);
    }
    joined += layout.tail;
}

void Made::SayOtherwise(Random& random, std::u16string& otherwise) {
    Order order{};
    other_fields_ = fields_;
    for (std::size_t i = 0; i < grammar->fields.size(); ++i) {
        order[i] = static_cast<std::uint8_t>(i);
        if (grammar->layout.any_order) std::swap(order[i], order[random.Below(i + 1)]);
        if (!grammar->fields[i].words) continue;
        for (std::size_t at = ends_[i] + grammar->fields[i].key.size(); at < ends_[i + 1]; ++at)
            if (IsLetter(other_fields_[at]) && random.Once(2)) other_fields_[at] ^= 0x20;
    }
    Join(otherwise, other_fields_, order);
}

void Mutate(Random& random, std::u16string& text, char16_t next) {
    constexpr std::u16string_view kMarks{u"\0\t\n\v\f\r \"#&'+,-./0:;<=>@EIRTX|\x02\x03", 31};
    const auto character = [&] { return random.Once(2) ? next : kMarks[random.Below(kMarks.size())]; };
    for (std::uint32_t left = random.From(1, 3); left > 0; --left) {
        const std::size_t at = random.Below(text.size() + 1);
        const std::size_t count = random.Below(random.Once(4) ? text.size() + 1 : std::size_t{4});
        switch (random.Below(5U)) {
            case 0: text.insert(at, 1, character()); break;
            case 1: text.erase(at, count); break;
            case 2: text.insert(random.Below(text.size() + 1), std::u16string(text, at, count)); break;
            case 3: text.resize(at); break;
            default:
                if (at < text.size()) text[at] = character();
        }
    }
}

}  // namespace vintrel::laws
