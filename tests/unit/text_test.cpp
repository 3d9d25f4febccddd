#include "text/text.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "printing.h"
#include "text/fields.h"
#include "text/numbers.h"
#include "text/scan.h"
#include "text/word.h"

namespace vintrel::text {
namespace {

using testing::Shown;

std::string Pad(std::optional<Padded> padded) { return padded ? Shown(padded->str()) : "does not fit"; }

TEST(Text, PaddingWithZerosKeepsTheBlanksAndPaddingWithBlanksTrimsThem) {
    EXPECT_EQ(Pad(ZeroPad(u"1234", 4)), "1234");
    EXPECT_EQ(Pad(ZeroPad(u"12345", 4)), "does not fit");
    EXPECT_EQ(Pad(ZeroPad(u" 12", 4)), "00 12") << "the trimmed text is measured";
    EXPECT_EQ(Pad(ZeroPad(u"", 5)), "00000");
    EXPECT_EQ(Pad(BlankPad(u"  Rossi ", 16)), "Rossi           ");
    EXPECT_EQ(Pad(BlankPad(u"12345678901234567", 16)), "does not fit");
    EXPECT_EQ(Pad(BlankPad(u"12345678901234567", 17)), "12345678901234567");
}

TEST(Text, FieldsAndTextBetweenMarks) {
    EXPECT_EQ(GetCommaField(u"a,b,c", 2), u"b");
    EXPECT_EQ(GetCommaField(u"a,b,c", 4), u"c") << "beyond the last is the last";
    EXPECT_EQ(GetCommaField(u"a,b,", 9), u"");
    EXPECT_EQ(GetCommaField(u"a,b,c", 0), u"");
    EXPECT_EQ(GetCommaField(u"", 1), u"");
    EXPECT_EQ(GetSeparatedField(u"10<>20<>30", u"<>", 2), u">20") << "only its first character is cut";
    EXPECT_EQ(GetSeparatedField(u"10", u"", 1), u"");
    EXPECT_EQ(GetTextBetween(u"<a>x</a>", u"<a>", u"</a>"), u"x");
    EXPECT_EQ(GetTextBetween(u"<a>x", u"<a>", u"</a>"), u"");
    EXPECT_EQ(GetTextBetween(u"12345</a>", u"<a>", u"</a>"), u"345") << "the search begins at position 3";
    EXPECT_EQ(GetTextBetween(u"x", u"<a>", u"x"), u"");
}

TEST(Text, NumberValueReadsTheLeadingNumber) {
    const std::pair<std::u16string_view, double> rows[] = {{u"", 0},        {u"abc", 0},
                                                           {u"12abc", 12},  {u" 1 2\t3\n", 123},
                                                           {u"-4.5", -4.5}, {u"+7", 7},
                                                           {u"1.2.3", 1.2}, {u"1e3", 1000},
                                                           {u"2D-1", 0.2},  {u"5E", 5},
                                                           {u"&HfF", 255},  {u"&O17", 15},
                                                           {u"&Z1", 0},     {u"1,5", 1},
                                                           {u"0.1", 0.1},   {u"1e999", 0},
                                                           {u"00051", 51},  {u"123456789012345", 123456789012345}};
    for (const auto& [text, value] : rows) EXPECT_EQ(NumberValue(text), value) << Shown(text);
}

TEST(Text, NumericTest) {
    for (const auto* text : {u"0", u" 12 ", u"-1", u"+1.5", u"1,5", u".5", u"5.", u"1D+2", u"&H1F"})
        EXPECT_TRUE(IsNumeric(text)) << Shown(text);
    for (const auto* text : {u"", u" ", u"-", u".", u"1.2.3", u"12a", u"1e", u"1 2", u"&H", u"&HG"})
        EXPECT_FALSE(IsNumeric(text)) << Shown(text);
}

TEST(Text, NumbersAreRoundedHalfToEvenWithin32BitsAndWrittenInTheShortestForm) {
    using Rounded = std::optional<std::int32_t>;
    const std::pair<double, Rounded> rounded[] = {
        {8085.6, 8086},     {0.5, 0},           {1.5, 2}, {-2.5, -2}, {2147483647.4, 2147483647},
        {2147483647.5, {}}, {-2147483649.0, {}}};
    for (const auto& [value, number] : rounded) EXPECT_EQ(RoundToInt32(value), number) << value;
    const std::pair<double, const char*> written[] = {
        {0, "0"},        {-3, "-3"},          {12.4, "12.4"}, {-0.05, "-0.05"}, {1e14, "100000000000000"},
        {1e15, "1E+15"}, {1.5e20, "1.5E+20"}, {1e-7, "1E-7"}};
    for (const auto& [value, text] : written) EXPECT_EQ(Shown(DecimalText(value)), text);
    EXPECT_EQ(DecimalText(std::int32_t{-2147483647 - 1}), u"-2147483648");
    EXPECT_EQ(DecimalText(999999999999999.9), u"1E+15");
    EXPECT_EQ(DecimalText(1.0 / 3), u"0.333333333333333");
}

TEST(Text, ANumberIsWrittenWithTheDigitsThatItWasReadFrom) {
    for (const std::u16string_view digits : {u"1", u"3", u"7", u"9", u"12", u"98765", u"123456789012345"})
        for (std::int32_t exponent = 16; exponent < 290; ++exponent)
            for (const std::u16string_view sign : {u"+", u"-"}) {
                const std::u16string point(digits.size() > 1 ? u"." : u"");
                const std::u16string text = std::u16string(digits.substr(0, 1)) + point +
                                            std::u16string(digits.substr(1)) + u"E" + std::u16string(sign) +
                                            DecimalText(exponent);
                ASSERT_EQ(Shown(DecimalText(NumberValue(text))), Shown(text));
            }
}

TEST(Text, SearchingFindsWhatStandsInEitherCase) {
    const std::u16string line = u"04/03/24 08:02 Cl checked cHeCk ouT \u00FFes";
    EXPECT_EQ(Upper(std::u16string_view(u"aZ\u00E4\u00FF\u00F7\u00DF\u0431")), u"AZ\u00C4\u0178\u00F7\u00DF\u0431");
    EXPECT_EQ(Find(line, u":"), 11U);
    EXPECT_EQ(Find(line, u"ch", 3), 18U);
    for (const std::size_t from : {12U, 1000U}) EXPECT_EQ(Find(line, u":", from), std::u16string_view::npos);
    EXPECT_EQ(Find(u"", u":"), std::u16string_view::npos);
    EXPECT_EQ(Find(line, u"\u00FFe"), 36U);
    EXPECT_TRUE(Contains(u"aaaaaaaaaaaaaab", u"aab"));
    EXPECT_FALSE(Contains(u"</cdr", u"</cdr>"));
}

TEST(Text, MidReadsShortAndNeverBeforeTheText) {
    EXPECT_EQ(Mid(u"abc", 2, 9), u"bc");
    EXPECT_EQ(Mid(u"abc", 4, 1), u"");
    EXPECT_EQ(Mid(u"abc", 0, 2), u"");
    EXPECT_EQ(Mid(u"abc", 1, -1), u"");
    EXPECT_EQ(Right(u"abc", 5), u"abc");
    EXPECT_EQ(Right(u"abc", 2), u"bc");
    EXPECT_EQ(Trim(u"  a\tb  "), u"a\tb");
}

TEST(Word, MatchesEitherCaseOfLettersAndNothingElse) {
    EXPECT_TRUE((UpperEquals<u"AE", u"ARE">(u"aRe")));
    EXPECT_TRUE(UpperEquals<u"S">(u"s"));
    EXPECT_FALSE((UpperEquals<u"AE", u"ARE">(u"arena")));
    EXPECT_FALSE(UpperEquals<u"S">(u""));
    EXPECT_TRUE((UpperBegins<u"QUEUE[", u"XFER-">(u"xfer-1")));
    for (const char16_t* const near : {u"queue{1", u"xfer\r1", u"queu", u"qu\x0165ue[", u"\x0171ueue["})
        EXPECT_FALSE((UpperBegins<u"QUEUE[", u"XFER-">(near))) << Shown(near);

    const std::u16string line = u"04/03/24 08:02 Cl checked cHeCk ouT";
    EXPECT_EQ(UpperFind<u"CHECK OUT">(line), 26U);
    EXPECT_TRUE((UpperContains<u"CHECK IN", u"CHECK OUT">(line)));
    EXPECT_FALSE((UpperContains<u"CHECK IN", u"CLEANED UP">(line)));
    EXPECT_FALSE(UpperContains<u"OUTSIDE">(line)) << "which ends within the word";
    EXPECT_FALSE(UpperContains<u"O">(u""));
}

TEST(Scan, FindsAtEveryPositionAndLength) {
    for (const char16_t other : {u'z', u'\x0126', u'\x7F26', u'\x8026', u'\xFF26'}) {  // some with the low byte of "&"
        for (std::size_t length = 0; length <= 70; ++length) {
            for (std::size_t at = 0; at <= length; ++at) {
                std::u16string text(length, other);
                text.replace(at, std::u16string::npos, length - at, u'&');
                const char16_t* const begin = text.data();
                const char16_t* const end = begin + length;
                EXPECT_EQ(FindFirst(begin, end, scan::Is(u'&')), begin + at) << length;
                EXPECT_EQ(FindFirst(begin, end, scan::IsEither(u'&', u'-')), begin + at) << length;
                EXPECT_EQ(FindFirst(begin, end, [](auto c) { return !((c == u'z') | (c == u'-')); }),
                          other == u'z' ? begin + at : begin);
                EXPECT_EQ(FindEndOf(begin, begin + length, [](auto c) { return !(c == u'&'); }), begin + at) << length;
                std::size_t found = at;
                const auto next = [&](const char16_t* place) { return place == begin + found++; };
                FindEach(
                    begin, end, [](auto c) { return (c <= u'%') | (c == u'&'); }, next);
                EXPECT_EQ(found, length) << at;
            }
        }
    }
}

}  // namespace
}  // namespace vintrel::text
