#include <random>

#include "call_records.h"
#include "cdr/comma_fields.h"

namespace vintrel::cdr {
namespace {

using testing::Link;
using testing::Shown;

TEST(CommaFields, AreThoseOfGetCommaField) {
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        std::u16string text(random() % 12, u'x');
        for (char16_t& character : text) character = u",ab"[random() % 3];
        const CommaFields<4> fields(text);
        EXPECT_EQ(fields.Field<1>(), server::GetCommaField(text, 1)) << Shown(text);
        EXPECT_EQ(fields.Field<3>(), server::GetCommaField(text, 3)) << Shown(text);
        EXPECT_EQ(fields.Field<4>(), server::GetCommaField(text, 4)) << Shown(text);
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
        {{.connected = kNever},                     "00002 00302 0327771100 0000 0/0/7 0000 00000" + when + "0449990302"},
        {{.connected = kNever, .called = u"00444", .first = u"V9503", .second = u"V8000"},
                                                    "00503 00444 0327771100 0000 0/0/7 0000 00000" + when + "0449990302"},
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
    const struct {
        const char16_t *start, *earlier;  // how long the first leg lasted
        const char* moved;
    } rows[] = {
        {u"2024/01/31 23:59:00", u"00:01:30", "01.02.24 00:00"},
        {u"2024/12/31 23:59:59", u"00:00:01", "01.01.25 00:00"},
        {u"2024/02/28 23:50:00", u"00:10:00", "29.02.24 00:00"},
        {u"2024/02/29 12:00:00", u"36:00:00", "02.03.24 00:00"},
        {u"1999/12/31 23:00:00", u"01:00:00", "01.01.00 00:00"},
        {u"2024/03/04 08:02:59", u"00:00:01", "04.03.24 08:03"},
        {u"2024/02/30 23:59:00", u"00:01:30", "30.02.24 23:59"},
    };
    for (const auto& row : rows) {
        Link link(u"TYPE10017");
        link.Raw(Leg{.start = row.start, .connected = row.earlier, .continued = u"1"}.Line());
        EXPECT_EQ(link.Convert(Leg{.start = row.start}.Line()),
                  std::string("00002 00302 0327771100 0000 0/0/2 0000 00090 ") + row.moved + " 0449990302")
            << Shown(row.start);
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
    for (const auto& [call, type] : {std::pair(u"3999999", u'2'),
                                     {u"4000000", u'0'},
                                     {u"1000014155", u'0'},
                                     {u"-1", u'0'},
                                     {u"1.5", u'0'},
                                     {u"12a", u'0'},
                                     {u"", u'0'}}) {
        Link link(u"TYPE10017");
        link.Raw(Leg{.call = call, .continued = u"1"}.Line());
        EXPECT_EQ(link.Raw(Leg{.call = call}.Line()).at(33), type) << Shown(call);
    }
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
}  // namespace vintrel::cdr
