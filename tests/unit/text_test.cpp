#include "server/text.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "printing.h"
#include "server/scan.h"

namespace vintrel::server {
namespace {

using testing::Shown;

std::string Pad(std::optional<Padded> padded) { return padded ? Shown(padded->str()) : "does not fit"; }

TEST(Text, ZeroPaddingMeasuresTheTrimmedTextAndKeepsTheBlanks) {
    EXPECT_EQ(Pad(ZeroPad(u"7", 4)), "0007");
    EXPECT_EQ(Pad(ZeroPad(u"1234", 4)), "1234");
    EXPECT_EQ(Pad(ZeroPad(u"12345", 4)), "does not fit");
    EXPECT_EQ(Pad(ZeroPad(u" 12", 4)), "00 12");
    EXPECT_EQ(Pad(ZeroPad(u"", 5)), "00000");
}

TEST(Text, BlankPaddingTrimsFirst) {
    EXPECT_EQ(Pad(BlankPad(u"  Rossi ", 16)), "Rossi           ");
    EXPECT_EQ(Pad(BlankPad(u"12345678901234567", 16)), "does not fit");
    EXPECT_EQ(Pad(BlankPad(u"12345678901234567", 17)), "12345678901234567");
}

TEST(Text, FieldsBeyondTheLastAreTheLast) {
    EXPECT_EQ(GetCommaField(u"a,b,c", 2), u"b");
    EXPECT_EQ(GetCommaField(u"a,b,c", 4), u"c");
    EXPECT_EQ(GetCommaField(u"a,b,", 9), u"");
    EXPECT_EQ(GetCommaField(u"a,b,c", 0), u"");
    EXPECT_EQ(GetCommaField(u"a,b,c", -3), u"");
    EXPECT_EQ(GetCommaField(u"", 1), u"");
    EXPECT_EQ(GetSeparatedField(u"10<>20<>30", u"<>", 2), u">20") << "only its first character is cut";
    EXPECT_EQ(GetSeparatedField(u"10", u"", 1), u"");
}

TEST(Text, TextBetweenMarks) {
    EXPECT_EQ(GetTextBetween(u"<a>x</a>", u"<a>", u"</a>"), u"x");
    EXPECT_EQ(GetTextBetween(u"<a>x", u"<a>", u"</a>"), u"");
    EXPECT_EQ(GetTextBetween(u"12345</a>", u"<a>", u"</a>"), u"345") << "the search begins at position 3";
    EXPECT_EQ(GetTextBetween(u"x", u"<a>", u"x"), u"");
}

TEST(Text, NumberValueReadsTheLeadingNumber) {
    const struct {
        std::u16string_view text;
        double value;
    } rows[] = {
        {u"", 0},
        {u"abc", 0},
        {u"12abc", 12},
        {u" 1 2\t3\n", 123},
        {u"-4.5", -4.5},
        {u"+7", 7},
        {u"8085.6", 8085.6},
        {u"1.2.3", 1.2},
        {u"1e3", 1000},
        {u"2D-1", 0.2},
        {u"5E", 5},
        {u"&HfF", 255},
        {u"&O17", 15},
        {u"&Z1", 0},
        {u"1,5", 1},
        {u"0.1", 0.1},
        {u"1e999", 0},
        {u"1234567890", 1234567890},
        {u"123456789012345", 123456789012345},
        {u"00051", 51},
    };
    for (const auto& row : rows) EXPECT_EQ(NumberValue(row.text), row.value) << Shown(row.text);
}

TEST(Text, SearchingFindsWhatStandsInEitherCase) {
    const std::u16string line = u"04/03/24 08:02 Cl checked cHeCk ouT \u00FFes";
    EXPECT_EQ(Upper(std::u16string_view(u"aZ\u00E4\u00FF\u00F7\u00DF\u0431")), u"AZ\u00C4\u0178\u00F7\u00DF\u0431");
    EXPECT_TRUE(UpperContains(line, u"CHECK OUT"));
    EXPECT_FALSE(UpperContains(line, u"CHECK IN"));
    EXPECT_TRUE(UpperContains(line, u"\u0178ES"));
    EXPECT_EQ(Find(line, u":"), 11U);
    EXPECT_EQ(Find(line, u":", 12), std::u16string_view::npos);
    EXPECT_EQ(Find(line, u"ch", 3), 18U);
    EXPECT_EQ(Find(line, u":", 1000), std::u16string_view::npos);
    EXPECT_EQ(Find(u"", u":"), std::u16string_view::npos);
}

TEST(Text, NumericTest) {
    for (const auto* text : {u"0", u" 12 ", u"-1", u"+1.5", u"1,5", u".5", u"5.", u"1D+2", u"&H1F"})
        EXPECT_TRUE(IsNumeric(text)) << Shown(text);
    for (const auto* text : {u"", u" ", u"-", u".", u"1.2.3", u"12a", u"1e", u"1 2", u"&H", u"&HG"})
        EXPECT_FALSE(IsNumeric(text)) << Shown(text);
}

TEST(Text, RoundsHalfToEvenWithinThe32BitRange) {
    EXPECT_EQ(RoundToInt32(8085.6), 8086);
    EXPECT_EQ(RoundToInt32(0.5), 0);
    EXPECT_EQ(RoundToInt32(1.5), 2);
    EXPECT_EQ(RoundToInt32(-2.5), -2);
    EXPECT_EQ(RoundToInt32(2147483647.4), 2147483647);
    EXPECT_EQ(RoundToInt32(2147483647.5), std::nullopt);
    EXPECT_EQ(RoundToInt32(-2147483649.0), std::nullopt);
}

TEST(Text, DecimalTextIsTheShortestForm) {
    const struct {
        double value;
        const char* text;
    } rows[] = {{0, "0"},          {-3, "-3"},          {12.4, "12.4"},
                {0.1, "0.1"},      {-0.05, "-0.05"},    {1e14, "100000000000000"},
                {1e15, "1E+15"},   {1.5e20, "1.5E+20"}, {1e-7, "1E-7"},
                {100.25, "100.25"}};
    for (const auto& row : rows) EXPECT_EQ(Shown(DecimalText(row.value)), row.text);
    EXPECT_EQ(DecimalText(std::int32_t{-2147483647 - 1}), u"-2147483648");
}

TEST(Text, MidReadsShortAndNeverBeforeTheText) {
    EXPECT_EQ(Mid(u"abc", 2, 9), u"bc");
    EXPECT_EQ(Mid(u"abc", 4, 1), u"");
    EXPECT_EQ(Mid(u"abc", 0, 2), u"");
    EXPECT_EQ(Mid(u"abc", 1, -1), u"");
    EXPECT_EQ(Right(u"abc", 5), u"abc");
    EXPECT_EQ(Right(u"abc", 2), u"bc");
    EXPECT_EQ(Trim(u"  a\tb  "), u"a\tb");
    EXPECT_TRUE(Contains(u"aaaaaaaaaaaaaab", u"aab"));
    EXPECT_FALSE(Contains(u"</cdr", u"</cdr>"));
}

TEST(Scan, FindsAtEveryPositionAndLength) {
    for (std::size_t length = 0; length <= 40; ++length) {
        for (std::size_t at = 0; at <= length; ++at) {
            std::u16string text(length, u'\xFF26');  // its low byte is that of "&"
            text.replace(at, std::u16string::npos, length - at, u'&');
            const char16_t* const begin = text.data();
            const char16_t* const end = begin + length;
            EXPECT_EQ(FindFirst(begin, end, scan::Is{u'&'}) - begin, static_cast<std::ptrdiff_t>(at)) << length;
            EXPECT_EQ(FindFirst(begin, end, scan::IsAtMost{u'&'}) - begin, static_cast<std::ptrdiff_t>(at)) << length;
            std::size_t found = at;
            const auto next = [&](const char16_t* place) { return place == begin + found++; };
            FindEach(begin, end, scan::Is{u'&'}, next);
            EXPECT_EQ(found, length) << at;
            found = at;
            FindEachPair(begin, end, u'&', u'&', next);
            EXPECT_EQ(found, std::max(at, length - std::min<std::size_t>(length, 1))) << length;
        }
    }
}

}  // namespace
}  // namespace vintrel::server
