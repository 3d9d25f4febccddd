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

/// The number times a power of ten; 0 when it is too large. Multiplied and divided by powers that a double holds
/// exactly, as long as there are any: 0.1 is 1 / 10.
double Scaled(double number, int exponent) {
    constexpr int kExact = 22;
    constexpr std::array<double, kExact + 1> kPowers{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                     1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                     1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    while (exponent != 0 && number != 0 && std::isfinite(number)) {
        const int step = std::clamp(exponent, -kExact, kExact);
        const double power = kPowers[static_cast<std::size_t>(std::abs(step))];
        number = step < 0 ? number / power : number * power;
        exponent -= step;
    }
    return std::isfinite(number) ? number : 0;
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
    return Scaled(mantissa, scale + ReadExponent(reader));
}

/// Every decimal digit of a positive number: a whole number, and how many of its digits stand behind the decimal mark.
class Decimal {
 public:
    explicit Decimal(double number) {
        int exponent = 0;
        auto mantissa = static_cast<std::uint64_t>(std::ldexp(std::frexp(number, &exponent), kMantissaBits));
        exponent -= kMantissaBits;
        for (; mantissa != 0; mantissa /= kBase) words_.at(count_++) = static_cast<std::uint32_t>(mantissa % kBase);
        for (; exponent > 0; --exponent) Multiply(2);
        for (; exponent < 0; ++exponent, ++behind_mark_) Multiply(5);  // a half is five tenths
    }

    /// The digits without leading zeros.
    std::u16string Digits() const {
        std::u16string digits;
        for (std::size_t i = count_; i-- > 0;)
            for (std::uint32_t place = kBase / 10; place != 0; place /= 10)
                if (const std::uint32_t digit = words_[i] / place % 10; digit != 0 || !digits.empty())
                    digits += static_cast<char16_t>(u'0' + digit);
        return digits;
    }
    int BehindMark() const { return behind_mark_; }

 private:
    static constexpr int kMantissaBits = 53;
    static constexpr std::uint32_t kBase = 1'000'000'000;
    static constexpr std::size_t kWords = 88;  // for the 767 digits of the longest double

    void Multiply(std::uint32_t factor) {
        std::uint64_t carry = 0;
        for (std::size_t i = 0; i < count_; ++i, carry /= kBase) {
            carry += std::uint64_t{words_[i]} * factor;
            words_[i] = static_cast<std::uint32_t>(carry % kBase);
        }
        if (carry != 0) words_.at(count_++) = static_cast<std::uint32_t>(carry);
    }

    std::array<std::uint32_t, kWords> words_{};  // the lowest first
    std::size_t count_ = 0;
    int behind_mark_ = 0;
};

/// Rounded to so many digits, half up; one digit more where 9 becomes 10.
std::u16string Rounded(std::u16string digits, std::size_t count) {
    if (digits.size() <= count) return digits;
    const bool up = digits[count] >= u'5';
    digits.resize(count);
    if (!up) return digits;
    const std::size_t last = digits.find_last_not_of(u'9');
    if (last == std::u16string::npos) return u"1" + std::u16string(count, u'0');
    ++digits[last];
    std::fill(digits.begin() + static_cast<std::ptrdiff_t>(last) + 1, digits.end(), u'0');
    return digits;
}

/// The fewest digits that are read as the number again, at most 15, and the exponent of the first of them.
struct Shortest {
    explicit Shortest(double magnitude) {
        constexpr std::size_t kMost = 15;  // what a double holds for certain
        const Decimal decimal(magnitude);
        const std::u16string all = decimal.Digits();
        for (std::size_t count = 1;; ++count) {
            digits = Rounded(all, count);
            exponent = static_cast<int>(all.size()) - decimal.BehindMark() - 1 + (digits.size() > count ? 1 : 0);
            digits.resize(std::min(count, digits.size()));
            if (count == kMost || count >= all.size() || Read() == magnitude) break;
        }
        digits.erase(digits.find_last_not_of(u'0') + 1);
    }
    double Read() const {
        double mantissa = 0;
        for (const char16_t digit : digits) mantissa = mantissa * 10 + (digit - u'0');
        return Scaled(mantissa, exponent + 1 - static_cast<int>(digits.size()));
    }

    std::u16string digits;
    int exponent = 0;
};

std::u16string IntegerText(std::uint32_t number) {
    std::u16string text;
    do {
        text.insert(text.begin(), static_cast<char16_t>(u'0' + number % 10));
        number /= 10;
    } while (number != 0);
    return text;
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
    constexpr int kPlainDigits = 15;
    if (const auto whole = RoundToInt32(value); whole && *whole == value) return DecimalText(*whole);
    const std::u16string sign = value < 0 ? u"-" : u"";
    auto [digits, exponent] = Shortest(std::fabs(value));
    if (exponent >= kPlainDigits || exponent < -4) {
        if (digits.size() > 1) digits.insert(1, 1, u'.');
        return sign + digits + (exponent < 0 ? u"E-" : u"E+") +
               IntegerText(static_cast<std::uint32_t>(std::abs(exponent)));
    }
    if (exponent < 0) digits.insert(0, static_cast<std::size_t>(-exponent), u'0');
    const auto whole_digits = static_cast<std::size_t>(std::max(exponent, 0)) + 1;
    if (digits.size() < whole_digits) digits.append(whole_digits - digits.size(), u'0');
    if (digits.size() > whole_digits) digits.insert(whole_digits, 1, u'.');
    return sign + digits;
}

std::u16string DecimalText(std::int32_t value) {
    const std::uint32_t magnitude =
        value < 0 ? 0U - static_cast<std::uint32_t>(value) : static_cast<std::uint32_t>(value);
    return (value < 0 ? u"-" : u"") + IntegerText(magnitude);
}

std::u16string TwoDigits(int value) {
    const int last = ((value % 100) + 100) % 100;
    return {static_cast<char16_t>(u'0' + last / 10), static_cast<char16_t>(u'0' + last % 10)};
}

}  // namespace vintrel::text
