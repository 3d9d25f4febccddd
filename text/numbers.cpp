#include "text/numbers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "text/control_characters.h"

namespace vintrel::text {
namespace {

int DigitValue(char16_t character, int base) {
    const char16_t upper = Upper(character);
    const int value = IsDigit(upper) ? upper - u'0' : (upper >= u'A' && upper <= u'F') ? upper - u'A' + 10 : base;
    return value < base ? value : -1;
}

/// Reads a text character by character, passing over what numbers ignore.
class NumberReader {
 public:
    explicit NumberReader(std::u16string_view text) : text_(text) { SkipIgnored(); }

    char16_t Peek() const { return at_ < text_.size() ? text_[at_] : kNul; }
    void Next() {
        ++at_;
        SkipIgnored();
    }
    bool Accept(char16_t character) {
        if (at_ >= text_.size() || text_[at_] != character) return false;
        Next();
        return true;
    }
    std::size_t Position() const { return at_; }
    void Return(std::size_t position) { at_ = position; }

 private:
    void SkipIgnored() {
        while (at_ < text_.size() && IsIgnoredInNumbers(text_[at_])) ++at_;
    }

    std::u16string_view text_;
    std::size_t at_ = 0;
};

double ReadBased(NumberReader& reader, int base) {
    double value = 0;
    for (int digit = 0; (digit = DigitValue(reader.Peek(), base)) >= 0; reader.Next()) value = value * base + digit;
    return value;
}

int ReadExponent(NumberReader& reader) {
    constexpr int kFarBeyondAnyDouble = 9999;
    const std::size_t before = reader.Position();
    const char16_t mark = Upper(reader.Peek());
    if (mark != u'E' && mark != u'D') return 0;
    reader.Next();
    const bool negative = reader.Peek() == u'-';
    if (negative || reader.Peek() == u'+') reader.Next();
    if (!IsDigit(reader.Peek())) {
        reader.Return(before);
        return 0;
    }
    int exponent = 0;
    for (; IsDigit(reader.Peek()); reader.Next())
        exponent = std::min(kFarBeyondAnyDouble, exponent * 10 + (reader.Peek() - u'0'));
    return negative ? -exponent : exponent;
}

double ReadDecimal(NumberReader& reader) {
    double mantissa = 0;
    int scale = 0;
    bool point = false;
    for (;; reader.Next()) {
        const char16_t character = reader.Peek();
        if (IsDigit(character)) {
            mantissa = mantissa * 10 + (character - u'0');
            if (point) --scale;
        } else if (character == u'.' && !point) {
            point = true;
        } else {
            break;
        }
    }
    scale += ReadExponent(reader);
    // Dividing by a power of ten is exact where multiplying by its inverse is not: 0.1 is 1 / 10.
    const double value = scale < 0 ? mantissa / std::pow(10.0, -scale) : mantissa * std::pow(10.0, scale);
    return std::isfinite(value) ? value : 0;
}

std::u16string IntegerText(double magnitude) {
    std::array<char16_t, 24> digits{};
    auto first = digits.end();
    auto rest = static_cast<std::uint64_t>(magnitude);
    do {
        *--first = static_cast<char16_t>(u'0' + rest % 10);
        rest /= 10;
    } while (rest != 0);
    return {first, digits.end()};
}

}  // namespace

double NumberValue(std::u16string_view text) {
    if (const auto plain = PlainNumber(text)) return *plain;
    NumberReader reader(text);
    if (reader.Accept(u'&')) {
        const char16_t base = Upper(reader.Peek());
        if (base != u'H' && base != u'O') return 0;
        reader.Next();
        const double value = ReadBased(reader, base == u'H' ? 16 : 8);
        return std::isfinite(value) ? value : 0;
    }
    const bool negative = reader.Accept(u'-');
    if (!negative) reader.Accept(u'+');
    const double value = ReadDecimal(reader);
    return negative ? -value : value;
}

bool IsNumeric(std::u16string_view text) {
    if (IsDigits(text)) return true;
    text = Trim(text);
    if (text.size() > 2 && text[0] == u'&' && Upper(text[1]) == u'H')
        return std::all_of(text.begin() + 2, text.end(), [](char16_t c) { return DigitValue(c, 16) >= 0; });
    std::size_t at = 0;
    const auto accept = [&](char16_t a, char16_t b) {
        const bool found = at < text.size() && (text[at] == a || text[at] == b);
        if (found) ++at;
        return found;
    };
    const auto digits = [&] {
        const std::size_t before = at;
        while (at < text.size() && IsDigit(text[at])) ++at;
        return at - before;
    };
    accept(u'+', u'-');
    std::size_t count = digits();
    if (accept(u'.', u',')) count += digits();
    if (count == 0) return false;
    if (at < text.size() && (Upper(text[at]) == u'E' || Upper(text[at]) == u'D')) {
        ++at;
        accept(u'+', u'-');
        if (digits() == 0) return false;
    }
    return at == text.size();
}

std::optional<std::int32_t> RoundToInt32(double value) {
    const double floor = std::floor(value);
    const double rest = value - floor;
    const bool up = rest > 0.5 || (rest == 0.5 && std::fmod(floor, 2.0) != 0);
    const double rounded = up ? floor + 1 : floor;
    if (!(rounded >= std::numeric_limits<std::int32_t>::min() && rounded <= std::numeric_limits<std::int32_t>::max()))
        return std::nullopt;
    return static_cast<std::int32_t>(rounded);
}

std::u16string DecimalText(double value) {
    constexpr int kDigits = 15;  // what a double holds for certain
    constexpr double kPlain = 1e15;
    const std::u16string sign = value < 0 ? u"-" : u"";
    const double magnitude = std::fabs(value);
    if (magnitude < kPlain && magnitude == std::floor(magnitude)) return sign + IntegerText(magnitude);

    const int exponent = static_cast<int>(std::floor(std::log10(magnitude)));
    const bool scientific = magnitude >= kPlain || exponent < -4;
    const double shown = scientific ? magnitude / std::pow(10.0, exponent) : magnitude;
    const int whole_digits = scientific ? 1 : std::max(1, exponent + 1);
    double scale = 1;
    int decimals = 0;
    while (decimals < kDigits - whole_digits && std::round(shown * scale) / scale != shown) {
        scale *= 10;
        ++decimals;
    }
    std::u16string text = IntegerText(std::round(shown * scale));
    if (decimals > 0) {
        const auto width = static_cast<std::size_t>(decimals) + 1;
        if (text.size() < width) text.insert(0, width - text.size(), u'0');
        text.insert(text.size() - static_cast<std::size_t>(decimals), 1, u'.');
    }
    if (scientific) text += (exponent < 0 ? u"E-" : u"E+") + IntegerText(std::abs(exponent));
    return sign + text;
}

std::u16string DecimalText(std::int32_t value) {
    const std::u16string digits = IntegerText(std::fabs(static_cast<double>(value)));
    return value < 0 ? u'-' + digits : digits;
}

std::u16string TwoDigits(int value) {
    const int last = ((value % 100) + 100) % 100;
    return {static_cast<char16_t>(u'0' + last / 10), static_cast<char16_t>(u'0' + last % 10)};
}

}  // namespace vintrel::text
