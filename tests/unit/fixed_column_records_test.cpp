#include "call_records.h"

namespace vintrel::cdr {
namespace {

using testing::ExpectFields;
using testing::Link;
using testing::Shown;
using testing::With;

const std::u16string kMitelCall =
    With(std::u16string(140, u' '),
         {{1, u"\t  301"}, {18, u"10"}, {21, u"240304 08:02 00H03M12 00001"}, {61, u"   12"}, {67, u"0041448001122"}}) +
    u"\r\n";

const std::u16string kPanasonicCall =
    With(std::u16string(120, u' '), {{1, u"04/03/24 08:02     301 0001 0049-89-1234"}, {85, u"00:03'12 EUR00012.40"}}) +
    u"\r\n";

const std::u16string kAlgoralCall = With(std::u16string(300, u' '), {{10, u":  301   001"},
                                                                     {28, u"04 03 2024 08:02"},
                                                                     {73, u"  12"},
                                                                     {90, u" 0:03 :12"},
                                                                     {142, u"U"},
                                                                     {178, u" 0041448001122"},
                                                                     {247, u"0327771100"},
                                                                     {294, u"1234"}});

// In these tables a row has the texts that a call differs by, and the fields that it is read as.

// clang-format off
TEST(MitelRecord, ReadsItsColumns) {
    ExpectFields(u"TYPE10004", kMitelCall, {
        {{},                     "00001 301 0041448001122 0000 0/0/1 0012 00192 04.03.24 08:02 -"},
        {{{8, u"4711 "}},        "00001 301 0041448001122 4711 0/0/1 0012 00192 04.03.24 08:02 -"},
        {{{8, u"  7  "}},        "00001 301 0041448001122 0007 0/0/1 0012 00192 04.03.24 08:02 -"},
        {{{49, u" 0449990301"}}, "00001 301 0041448001122 0000 0/0/1 0012 00192 04.03.24 08:02 0449990301"},
        {{{34, u"xxHyyMzz"}},    "00001 301 0041448001122 0000 0/0/1 0012 00000 04.03.24 08:02 -"},
        {{{34, u"27H46M39"}},    "00001 301 0041448001122 0000 0/0/1 0012 99999 04.03.24 08:02 -"},
        {{{61, u"98765"}},       "00001 301 0041448001122 0000 0/0/1 8765 00192 04.03.24 08:02 -"},
    });
    EXPECT_EQ(Link(u"TYPE10016").Raw(With(kMitelCall, {{34, u"27H46M40"}})).size(), 82U) << "the duration does not fit";
}

TEST(AlcatelRecord, ReadsItsColumns) {
    const std::u16string call = With(std::u16string(143, u' '), {
        {9, u"  401-->  L01"}, {22, u"04/03/24 08:02 00:03:12    12"}, {61, u"0041448001......"}, {107, u"................"}});
    ExpectFields(u"TYPE10009", call, {
        {{},                                   "00L01 00401 0041448001 0000 0/0/1 0012 00192 04.03.24 08:02 -"},
        {{{14, u"<--"}},                       "00L01 00401 0041448001 0000 0/0/0 0012 00192 04.03.24 08:02 -"},
        {{{14, u"<--"}, {37, u"00:00:00"}},    "00L01 00401 0041448001 0000 0/0/7 0012 00000 04.03.24 08:02 -"},
        {{{14, u"CS-"}, {37, u"00:00:00"}},    "00L01 00401 0041448001 0000 0/0/1 0012 00000 04.03.24 08:02 -"},
        {{{107, u"............1234"}},         "00L01 00401 0041448001 1234 0/0/1 0012 00192 04.03.24 08:02 -"},
        {{{107, u"       .9.      "}},         "00L01 00401 0041448001 0009 0/0/1 0012 00192 04.03.24 08:02 -"},
        {{{46, u"  x12"}},                     "00L01 00401 0041448001 0000 0/0/1 0000 00192 04.03.24 08:02 -"},
    });
    Link link(u"TYPE10009");
    EXPECT_EQ(Shown(link.Raw(call).substr(11, 16)), "0041448001      ") << "dots become blanks, one for one";
    EXPECT_EQ(link.Raw(With(call, {{46, u"10000"}})).size(), 83U) << "units of five digits do not fit";
}

TEST(PanasonicRecord, ReadsItsColumnsAndMarks) {
    ExpectFields(u"TYPE10019", kPanasonicCall, {
        {{},                                              "00001 00301 0049 89 1234 0000 0/0/1 0012 00192 04.03.24 08:02 -"},
        {{{117, u"TR  "}},                                "00001 00301 0049 89 1234 0000 0/0/3 0012 00192 04.03.24 08:02 -"},
        {{{117, u"NA  "}},                                "00001 00301 0049 89 1234 0000 0/0/1 0012 00192 04.03.24 08:02 -"},
        {{{29, u"<I>0327771100"}},                        "00001 00301 0327771100 0000 0/0/0 0012 00192 04.03.24 08:02 -"},
        {{{29, u"<I>0327771100"}, {117, u"TR  "}},        "00001 00301 0327771100 0000 0/0/2 0012 00192 04.03.24 08:02 -"},
        {{{29, u"<I>0327771100"}, {117, u"NA  "}},        "00001 00301 0327771100 0000 0/0/7 0012 00192 04.03.24 08:02 -"},
        {{{29, u"<I>0327771100"}, {111, u"TR  \r\nNA  "}}, "00001 00301 0327771100 0000 0/0/7 0012 00192 04.03.24 08:02 -"},
        {{{29, u"<D>204<I>0756405412"}},                  "00001 00301 0756405412 0000 0/0/0 0012 00192 04.03.24 08:02 204"},
        {{{29, u"<D>12345678901234567<I>07"}},            "00001 00301 07 0000 0/0/0 0012 00192 04.03.24 08:02 1234567890123456"},
        {{{50, u"check out"}},                            "rejected"},
        {{{50, u"Check In"}},                             "rejected"},
        {{{50, u"Timed Reminder/Start"}},                 "rejected"},
        {{{50, u"CLEANED UP"}},                           "rejected"},
        {{{50, u"Not cleaned"}},                          "00001 00301 0049 89 1234 0000 0/0/1 0012 00192 04.03.24 08:02 -"},
        {{{117, u"CD  "}},                                "rejected"},
        {{{117, u"----"}},                                "rejected"},
        // No colon: minutes 04 and seconds 03 are evaluated as 04h 03m 03s. No currency: units at position 3.
        {{{87, u"."}},                                    "00001 00301 0049 89 1234 0000 0/0/1 0012 14583 04.03.24 08:02 -"},
        {{{94, u"CHF"}, {3, u"00034"}},                   "00001 00301 0049 89 1234 0000 0/0/1 0034 00192 04.00.44 08:02 -"},
    });
}

TEST(AlgoralRecord, TheLetterTellsTheKindOfTheCall) {
    ExpectFields(u"TYPE10010", kAlgoralCall, {
        {{},                             "00001 00301 0041448001122 1234 0/0/1 0012 00192 04.03.24 08:02 -"},
        {{{142, u"r"}},                  "00001 00301 0041448001122 1234 0/0/1 0012 00192 04.03.24 08:02 -"},
        {{{142, u"T"}},                  "00001 00301 0041448001122 1234 0/0/3 0012 00192 04.03.24 08:02 -"},
        {{{142, u"E"}},                  "00001 00301 0327771100 1234 0/0/0 0012 00192 04.03.24 08:02 -"},
        {{{142, u"o"}},                  "00001 00301 0327771100 1234 0/0/2 0012 00192 04.03.24 08:02 -"},
        {{{142, u"i"}},                  "00001 00301 0327771100 1234 0/0/7 0012 00192 04.03.24 08:02 -"},
        {{{142, u"I"}, {11, u"    0"}},  "00001 09999 0327771100 1234 0/0/7 0012 00192 04.03.24 08:02 -"},
        {{{142, u"E"}, {11, u"    0"}},  "00001 00000 0327771100 1234 0/0/0 0012 00192 04.03.24 08:02 -"},
        {{{90, u"  "}},                  "00001 00301 0041448001122 1234 0/0/1 0012 00192 04.03.24 08:02 -"},
        {{{90, u"12"}},                  "00001 00301 0041448001122 1234 0/0/1 0012 43392 04.03.24 08:02 -"},
    });
    EXPECT_EQ(Link(u"TYPE10010").Raw(With(kAlgoralCall, {{142, u"X"}})).size(), 71U) << "no number for an unknown kind";
}
// clang-format on

TEST(MitelRecord, CallTypeCodes) {
    const struct {
        const char16_t* codes;
        char16_t type;
    } rows[] = {{u"10 70 90 14 74 94 15 18 98", u'1'},
                {u"00 60 80 04 64 84 05 06 07 08 68 88", u'3'},
                {u"20", u'2'},
                {u"22 24", u'7'},
                {u"21 23 25 26 27 28 29", u'0'},
                {u"01 02 03 09 19 30 44 61 62 63 69 99 2x 0  7  ", u'1'}};
    Link link(u"TYPE10005");
    for (const auto& row : rows) {
        const std::u16string_view codes = row.codes;
        for (std::size_t i = 0; i < codes.size(); i += 3) {
            const std::u16string_view code = codes.substr(i, 2);
            EXPECT_EQ(link.Raw(With(kMitelCall, {{18, code}})).at(33), row.type) << Shown(code);
        }
    }
}

TEST(IntegralRecord, PassesTheExchangesOwnColumnsThrough) {
    Link link(u"TYPE10007");
    EXPECT_EQ(link.Convert(u"\x02"
                           u"00003002030041448001122   1234ABC0033 1920403240802\x03"),
              "00003 00203 0041448001122 1234 A/B/C 0033 00192 04.03.24 08:02 -");
    EXPECT_EQ(Shown(link.Raw(u"\x02"
                             u"00003")),
              "<STX>0000300000" + std::string(33, ' ') + "<ETX>")
        << "a short record leaves its columns empty";
}

TEST(Integral2Record, IsTheLineOf82CharactersThatEndsBehindPosition90) {
    const std::u16string line = With(std::u16string(82, u' '), {{6, u"  2010041448001122"},
                                                                {29, u"  1"},
                                                                {33, u" 1"},
                                                                {37, u"03/04/24 08:02"},
                                                                {54, u"  192"},
                                                                {63, u"   12"},
                                                                {81, u"\r\n"}});
    Link link(u"TYPE10003");
    EXPECT_EQ(link.Convert(std::u16string(38, u'#') + line + u"more\n"),
              "00001 00201 0041448001122 0000 0/0/1 0012 00192 04.03.24 08:02 -");
    EXPECT_EQ(Shown(link.caller_text), Shown(line));
    EXPECT_EQ(link.Convert(std::u16string(9, u'\n') + With(line, {{33, u" 0"}})),
              "00001 00201 0041448001122 0000 0/0/0 0012 00192 04.03.24 08:02 -")
        << "a line feed at position 91, and type 0";
    const std::u16string early = u"12345678" + line;
    EXPECT_EQ(link.Convert(early), "rejected") << "its only line feed stands at position 90";
    EXPECT_EQ(Shown(link.caller_text), Shown(early));
}

TEST(FiasPosting, ReadsItsFieldsByTheirKeys) {
    const struct {
        const char16_t* record;
        std::string fields;
    } rows[] = {
        {u"PS|RN102|DD0041223344|MP12|DU95|DA240131|TI1405|",
         "00001 00102 0041223344 0000 0/0/1 0012 00095 31.01.24 14:05 -"},
        {u"  PS|DA240131|TI140559|DU000345|MP8|DD 0041 |RN 7 |  ",
         "00001 00007 0041 0000 0/0/1 0008 00345 31.01.24 14:05 -"},
        {u"PS|RNsuite|DA240131|TI1405|", "00001 00000 - 0000 0/0/1 0000 00000 31.01.24 14:05 -"},
        {u"LD|DA240131|TI1405|IFPB|", "rejected"},
        {u"LR|RIPS|FLRNDD|", "rejected"},
        {u"PS|RNOLD|DA240131|", "rejected"},  // "LD|" anywhere
        {u"PS|RN102|DD004|DA240131|TI1405",
         "short: <STX>0000100102004             0000001000000000310124" + std::string(33, ' ') + "<ETX>"},
    };
    Link link(u"TYPE12000");
    for (const auto& row : rows) EXPECT_EQ(link.Convert(row.record), row.fields) << Shown(row.record);
}

TEST(AlgoralRecord, IsReadFromItsFirstColon) {
    Link link(u"TYPE10010");
    link.Raw(kAlgoralCall);
    EXPECT_EQ(Shown(link.caller_text), "*Term." + Shown(kAlgoralCall.substr(9, 288)));
    EXPECT_EQ(link.Convert(u"no colon"), "rejected");
    EXPECT_EQ(Shown(link.caller_text), "no colon");

    link.Raw(std::u16string(300, u'#') + u":123");
    EXPECT_EQ(Shown(link.caller_text), "*Term.:") << "position 301 is the last that counts";
    const std::u16string late = std::u16string(302, u'#') + u":";
    link.Raw(late);
    EXPECT_EQ(Shown(link.caller_text), Shown(late));
}

}  // namespace
}  // namespace vintrel::cdr
