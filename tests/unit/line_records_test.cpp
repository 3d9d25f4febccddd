// The Gdv record, and the converters of the exchanges that send lines.
#include <map>
#include <random>

#include "call_records.h"
#include "exchanges/innovaphone/reference_table.h"
#include "exchanges/ip_office/continuation_table.h"
#include "records/steps.h"
#include "text/comma_fields.h"
#include "text/dates.h"
#include "text/fields.h"

namespace vintrel::server {
namespace {

using namespace records;
using namespace text;

using exchanges::innovaphone::ReferenceTable;
using exchanges::ip_office::ContinuationTable;
using testing::ExpectFields;
using testing::Link;
using testing::Shown;
using testing::With;

TEST(GdvRecord, AValueThatDoesNotFitLeavesTheSlotAlone) {
    GdvRecord gdv;
    Assign<kUser>(gdv, u"00101");
    Assign<kUser>(gdv, u"123456");
    Assign<kUser>(gdv, text::ZeroPad(u"123456", 5));
    EXPECT_EQ(gdv.Slot<kUser>(), u"00101");
    Assign<kUser>(gdv, u"");
    EXPECT_EQ(gdv.Slot<kUser>(), u"");
}

TEST(GdvRecord, NumbersArePaddedInTheirDecimalForm) {
    for (const auto& [value, text] : std::map<double, const char*>{{345, "00345"},
                                                                   {99999, "99999"},
                                                                   {100000, ""},
                                                                   {12.5, "012.5"},
                                                                   {-7, "000-7"},
                                                                   {1e20, "1E+20"},
                                                                   {0.000012345, ""}}) {
        GdvRecord gdv;
        AssignNumber<kDurationS>(gdv, value);
        EXPECT_EQ(Shown(gdv.Slot<kDurationS>()), text) << value;
    }
}

TEST(GdvRecord, SecondsAreReadFromTheEndsOfTheText) {
    EXPECT_EQ(HoursMinutesSecondsToSeconds(u"010203"), 3723);
    EXPECT_EQ(HoursMinutesSecondsToSeconds(u"xx02y3"), 120);
    EXPECT_EQ(HoursMinutesSecondsToSeconds(u"0102"), 3600 + 120 + 2) << "the last two characters are the seconds";
    EXPECT_EQ(HoursMinutesSecondsToSeconds(u""), 0);
}

TEST(GdvRecord, ReplacingVisitsAsManyPositionsAsTheTrimmedTextHas) {
    GdvRecord gdv;
    for (const auto& [text, replaced] : std::map<std::u16string, const char*>{
             {u"1.2.", "1 2 "}, {u"  1.2.", "  1 2."}, {u"1.2..6789.123456", "1 2  6789 123456"}}) {
        AssignReplaced<kNumber>(gdv, text, u'.', u' ');
        EXPECT_EQ(Shown(gdv.Slot<kNumber>()), replaced);
    }
}

TEST(ReferenceTable, HoldsAtMost512AndFreesOneSlotPerRemoval) {
    ReferenceTable table;
    EXPECT_FALSE(table.Add(u"  "));
    for (std::size_t i = 0; i < ReferenceTable::kSlots; ++i) EXPECT_TRUE(table.Add(std::u16string(i / 2 + 1, u'r')));
    EXPECT_FALSE(table.Add(u"one more"));
    EXPECT_TRUE(table.Remove(u"rr"));
    EXPECT_TRUE(table.Find(u"rr")) << "it was held twice";
    EXPECT_TRUE(table.Remove(u"rr"));
    EXPECT_FALSE(table.Remove(u"rr"));
    EXPECT_TRUE(table.Add(u"one more"));
    EXPECT_TRUE(table.Find(u"one more"));
}

TEST(DateTime, RoundTripsOverLeapYearsAndRefusesWhatDoesNotExist) {
    using text::DateTime;
    const DateTime leap_end{.year = 2024, .month = 2, .day = 29, .hour = 23, .minute = 59, .second = 59};
    EXPECT_EQ(SecondsOf(leap_end), 1709251199);
    EXPECT_EQ(DateTimeOf(1709251199), leap_end);
    EXPECT_EQ(DateTimeOf(1709251200), (DateTime{.year = 2024, .month = 3, .day = 1}));
    EXPECT_EQ(DateTimeOf(-86400), (DateTime{.year = 1969, .month = 12, .day = 31}));
    EXPECT_EQ(SecondsOf({.year = 2023, .month = 2, .day = 29}), std::nullopt);
    EXPECT_EQ(SecondsOf({.year = 2024, .month = 1, .day = 1, .hour = 24}), std::nullopt);
}

TEST(GetComConvertStringRX, ALowerCaseCodeIsUnknown) {
    Link link(u"type10004");
    EXPECT_EQ(link.Raw(u"any"), u"");
    EXPECT_EQ(link.caller_text, u"any");
    EXPECT_EQ(link.message.texts, std::vector<std::u16string>{u"GetComConvertStringRX: FATAL ERROR !"});
    EXPECT_EQ(link.message.titles, std::vector<std::u16string>{u"QUINDARA PABX COM SERVER   0"});
}

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
        // What stands beside the fields is none of them.
        {{{7, u"9"}, {12, u"9"}, {20, u"9"}, {48, u"9"}, {60, u"9"}, {66, u"9"}, {83, u"9"}},
                                 "00001 301 0041448001122 0000 0/0/1 0012 00192 04.03.24 08:02 -"},
        {{{18, u"224"}},         "00001 301 0041448001122 0000 0/0/7 0012 00192 04.03.24 08:02 -"},
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
        {{{29, u"<I>0756405412<D>204"}},                  "short: <STX>00001003010756405412<D>20400000000012001920403240802                 <ETX>"},
        {{{50, u"check out"}},                            "rejected"},
        {{{50, u"Check In"}},                             "rejected"},
        {{{50, u"Timed Reminder/Start"}},                 "rejected"},
        {{{50, u"CLEANED UP"}},                           "rejected"},
        {{{50, u"Not cleaned"}},                          "00001 00301 0049 89 1234 0000 0/0/1 0012 00192 04.03.24 08:02 -"},
        {{{117, u"CD  "}},                                "rejected"},
        {{{117, u"----"}},                                "rejected"},
        // No colon: minutes 04 and seconds 03 are evaluated as 04h 03m 03s. No currency: units at position 3.
        {{{87, u"."}},                                    "00001 00301 0049 89 1234 0000 0/0/1 0012 14583 04.03.24 08:02 -"},
        // The first colon from column 30 on.
        {{{28, u"01:02'03"}},                             "00001 00301 1:02'03 1234 0000 0/0/1 0012 03723 04.03.24 08:02 -"},
        {{{29, u":02'03"}},                               "00001 00301 :02'039 1234 0000 0/0/1 0012 00192 04.03.24 08:02 -"},
        {{{94, u"CHF"}, {3, u"00034"}},                   "00001 00301 0049 89 1234 0000 0/0/1 0034 00192 04.00.44 08:02 -"},
    });
}

TEST(AlgoralRecord, TheLetterTellsTheKindOfTheCall) {
    ExpectFields(u"TYPE10010", kAlgoralCall, {
        {{},                             "00001 00301 0041448001122 1234 0/0/1 0012 00192 04.03.24 08:02 -"},
        {{{142, u"r"}, {16, u"9"}, {22, u"9"}, {77, u"9"}, {95, u"9"}, {99, u"9"}, {194, u"9"}, {298, u"9"}},
                                         "00001 00301 0041448001122 1234 0/0/1 0012 00192 04.03.24 08:02 -"},
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
    const std::pair<char16_t, std::u16string_view> rows[] = {
        {u'1', u"10 70 90 14 74 94 15 18 98 01 02 03 09 19 30 44 61 62 63 69 99 2x 0  7  "},
        {u'3', u"00 60 80 04 64 84 05 06 07 08 68 88"},
        {u'2', u"20"},
        {u'7', u"22 24"},
        {u'0', u"21 23 25 26 27 28 29"}};
    for (const auto& [type, codes] : rows)
        for (std::size_t i = 0; i < codes.size(); i += 3)
            EXPECT_EQ(Link(u"TYPE10005").Raw(With(kMitelCall, {{18, codes.substr(i, 2)}})).at(33), type) << i;
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

TEST(CommaFields, AreThoseOfGetCommaField) {
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        std::u16string text(random() % 12, u'x');
        for (char16_t& character : text) character = u",ab"[random() % 3];
        const CommaFields<4> fields(text);
        EXPECT_EQ(fields.Field<1>(), text::GetCommaField(text, 1)) << Shown(text);
        EXPECT_EQ(fields.Field<3>(), text::GetCommaField(text, 3)) << Shown(text);
        EXPECT_EQ(fields.Field<4>(), text::GetCommaField(text, 4)) << Shown(text);
    }
}

/// A leg's line from the fields that vary.
struct Leg {
    using Field = const char16_t*;
    Field start = u"2024/03/04 08:02:11", connected = u"00:01:30", caller = u"0327771100", direction = u"I";
    Field called = u"302", dialled = u"0449990302", account = u"", internal = u"0", call = u"1000201";
    Field continued = u"0", first = u"E302", second = u"T9002", units = u"";

    std::u16string Line() const {
        std::u16string line;
        for (const char16_t* field : {start, connected, u"5", caller, direction, called, dialled, account, internal,
                                      call, continued, first, u"Room", second, u"Line", u"0,0,,,,,,", units})
            line.append(field).append(u",");
        return line + u",10.0.0.5,end\r\n";
    }
};

TEST(IpOfficeRecord, ReadsItsFields) {
    const char16_t* const kNever = u"00:00:00";
    const std::string when = " 04.03.24 08:02 ";
    const std::pair<Leg, std::string> rows[] = {
        // clang-format off
        {{},                                        "00002 00302 0327771100 0000 0/0/0 0000 00090" + when + "0449990302"},
        {{.account = u" 12", .units = u"33"},       "00002 00302 0327771100 0012 0/0/0 0033 00090" + when + "0449990302"},
        {{.caller = u"0327@x", .dialled = u"04@y"}, "00002 00302 0327 0000 0/0/0 0000 00090" + when + "04"},
        {{.connected = kNever, .called = u"303"},   "00002 00302 0327771100 0000 0/0/7 0000 00000" + when + "0449990302"},
        {{.connected = kNever, .continued = u"1"},  "00002 00302 0327771100 0000 0/0/0 0000 00000" + when + "0449990302"},
        {{.direction = u"X"},                       "short: <STX>0000000000000900403240802" + std::string(17, ' ') + "<ETX>"},
        {{.connected = kNever, .called = u"44x", .first = u"V9503", .second = u"V8000"},
                                                    "00503 00044 0327771100 0000 0/0/7 0000 00000" + when + "0449990302"},
        {{.connected = kNever, .caller = u"201", .direction = u"O", .called = u"0041"},
                                                    "00002 00302 0041 0000 0/0/1 0000 00000" + when + "-"},
        {{.caller = u"201", .direction = u"O", .called = u"0041@x", .dialled = u"0041", .first = u"E201", .second = u"T9005"},
                                                    "00005 00201 0041 0000 0/0/1 0000 00090" + when + "-"},
        {{.internal = u"1"},                        "rejected"},
        // The same number twice is normal for an outgoing call alone.
        {{.called = u"302", .dialled = u"302"},     "rejected"},
        {{.caller = u"0201", .direction = u"O", .called = u"0041", .dialled = u"0041", .first = u"T9000", .second = u"V8000"},
                                                    "00001 00201 0041 0000 0/0/1 0000 00090" + when + "-"},
        // clang-format on
    };
    for (const auto& [leg, fields] : rows)
        EXPECT_EQ(Link(u"TYPE10017").Convert(leg.Line()), fields) << Shown(leg.Line());
}

TEST(IpOfficeRecord, ALaterLegIsMovedByTheLegsBeforeIt) {
    const std::tuple<const char16_t*, const char16_t*, std::string> rows[] = {
        // start, duration, moved start
        {u"2024/01/31 23:59:00", u"00:01:30", "01.02.24 00:00"},
        {u"2024/12/31 23:59:59", u"00:00:01", "01.01.25 00:00"},
        {u"2024/02/28 23:50:00", u"00:10:00", "29.02.24 00:00"},
        {u"2024/02/29 12:00:00", u"36:00:00", "02.03.24 00:00"},
        {u"1999/12/31 23:00:00", u"01:00:00", "01.01.00 00:00"},
        {u"2024/02/30 23:59:00", u"00:01:30", "30.02.24 23:59"},
    };
    for (const auto& [start, duration, moved] : rows) {
        Link link(u"TYPE10017");
        link.Raw(Leg{.start = start, .connected = duration, .continued = u"1"}.Line());
        EXPECT_EQ(link.Convert(Leg{.start = start}.Line()),
                  "00002 00302 0327771100 0000 0/0/2 0000 00090 " + moved + " 0449990302");
    }
}

TEST(IpOfficeRecord, LegsAddUpUntilTheLastOne) {
    const Leg first{.direction = u"O", .called = u"0041", .continued = u"1"};
    const Leg last{.direction = u"O", .called = u"0041"};
    const std::string outgoing = "00002 00302 0041 0000 0/0/";
    Link link(u"TYPE10017");
    EXPECT_EQ(link.Convert(first.Line()), outgoing + "1 0000 00090 04.03.24 08:02 -");
    EXPECT_EQ(link.Convert(first.Line()), outgoing + "3 0000 00090 04.03.24 08:03 -");
    EXPECT_EQ(link.Raw(Leg{.call = u"1000202"}.Line()).at(33), u'0') << "another call";
    EXPECT_EQ(link.Convert(last.Line()), outgoing + "3 0000 00090 04.03.24 08:05 -");
    EXPECT_EQ(link.Convert(last.Line()), outgoing + "1 0000 00090 04.03.24 08:02 -") << "the call has ended";
}

TEST(IpOfficeRecord, OnlyAnIdentifierInRangeTakesPartInContinuation) {
    for (const char16_t* call : {u"3999999", u"4000000", u"1000014155", u"-1", u"1.5", u"12a", u""}) {
        const char16_t type = std::u16string_view(call) == u"3999999" ? u'2' : u'0';
        Link link(u"TYPE10017");
        link.Raw(Leg{.call = call, .continued = u"1"}.Line());
        EXPECT_EQ(link.Raw(Leg{.call = call}.Line()).at(33), type) << Shown(call);
    }
}

TEST(IpOfficeRecord, LegsWithoutDurationKeepNoOpenCallFromGoingOn) {
    Link link(u"TYPE10017");
    link.Raw(Leg{.call = u"7", .continued = u"1"}.Line());
    for (std::int32_t call = 100; call < 100 + static_cast<std::int32_t>(ContinuationTable::kOpenCalls); ++call) {
        const std::u16string number = DecimalText(call);
        link.Raw(Leg{.connected = u"00:00:00", .call = number.c_str(), .continued = u"1"}.Line());
    }
    EXPECT_EQ(link.Raw(Leg{.call = u"7"}.Line()).at(33), u'2');
}

TEST(IpOfficeRecord, ValuesThatDoNotFitMakeTheRecordShorter) {
    const std::pair<Leg, std::size_t> rows[] = {{{.first = u"E123456"}, 82},
                                                {{.caller = u"12345678901234567"}, 71},
                                                {{.dialled = u"12345678901234567"}, 71},
                                                {{.account = u"12345"}, 83}};
    for (const auto& [leg, size] : rows) EXPECT_EQ(Link(u"TYPE10017").Raw(leg.Line()).size(), size);
}

TEST(ContinuationTable, DropsTheOldestCallBeyondItsBound) {
    ContinuationTable table;
    constexpr auto kBound = static_cast<std::int32_t>(ContinuationTable::kOpenCalls);
    for (std::int32_t call = 0; call < kBound; ++call) table.Add(call, 10);
    table.Add(0, 5);
    table.Reset(7);
    table.Add(kBound, 1);
    EXPECT_EQ(table.Seconds(0), 15) << "there was room";
    table.Add(kBound + 1, 1);
    EXPECT_EQ(table.Seconds(0), 0) << "opened first";
    EXPECT_EQ(table.Seconds(1), 10);
    EXPECT_EQ(table.Seconds(kBound + 1), 1);
}

}  // namespace
}  // namespace vintrel::server
