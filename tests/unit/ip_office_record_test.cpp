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
        for (const char16_t* field :
             {start, connected, u"5",  caller,  direction, called,  dialled, account,    internal,
              call,  continued, first, u"Room", second,    u"Line", u"0",    u"0",       u"",
              u"",   u"",       u"",   u"",     u"",       units,   u"",     u"10.0.0.5"})
            line.append(field).append(u",");
        return line + u"end\r\n";
    }
};

TEST(IpOfficeRecord, ReadsItsFields) {
    const struct {
        int line;
        Leg leg;
        const char* fields;
    } rows[] = {
        {__LINE__, {}, "00002 00302 0327771100 0000 0/0/0 0000 00090 04.03.24 08:02 0449990302"},
        {__LINE__, {.internal = u"1"}, "rejected"},
        {__LINE__, {.called = u"302", .dialled = u"302"}, "rejected"},
        {__LINE__,
         {.caller = u"0327@10.0.0.7", .dialled = u"0449@gw"},
         "00002 00302 0327 0000 0/0/0 0000 00090 04.03.24 08:02 0449"},
        {__LINE__,
         {.account = u" 12", .units = u"33"},
         "00002 00302 0327771100 0012 0/0/0 0033 00090 04.03.24 08:02 0449990302"},
        {__LINE__,
         {.caller = u"201",
          .direction = u"O",
          .called = u"0041@x",
          .dialled = u"0041",
          .first = u"E201",
          .second = u"T9005"},
         "00005 00201 0041 0000 0/0/1 0000 00090 04.03.24 08:02 -"},
        {__LINE__,  // the same number twice is normal for an outgoing call
         {.caller = u"0201",
          .direction = u"O",
          .called = u"0041",
          .dialled = u"0041",
          .first = u"T9000",
          .second = u"V8000"},
         "00001 00201 0041 0000 0/0/1 0000 00090 04.03.24 08:02 -"},
        {__LINE__,
         {.connected = u"00:00:00"},
         "00002 00302 0327771100 0000 0/0/7 0000 00000 04.03.24 08:02 0449990302"},
        {__LINE__,
         {.connected = u"00:00:00", .called = u"00444", .first = u"V9503", .second = u"V8000"},
         "00503 00444 0327771100 0000 0/0/7 0000 00000 04.03.24 08:02 0449990302"},
        {__LINE__,
         {.connected = u"00:00:00", .caller = u"201", .direction = u"O", .called = u"0041"},
         "00002 00302 0041 0000 0/0/1 0000 00000 04.03.24 08:02 -"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Link(u"TYPE10017").Convert(row.leg.Line()), row.fields) << "row in line " << row.line;
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
    Link link(u"TYPE10017");
    const Leg first{.direction = u"O", .called = u"0041", .continued = u"1"};
    EXPECT_EQ(link.Convert(first.Line()), "00002 00302 0041 0000 0/0/1 0000 00090 04.03.24 08:02 -");
    EXPECT_EQ(link.Convert(first.Line()), "00002 00302 0041 0000 0/0/3 0000 00090 04.03.24 08:03 -");
    EXPECT_EQ(link.Convert(Leg{.call = u"1000202"}.Line()),
              "00002 00302 0327771100 0000 0/0/0 0000 00090 04.03.24 08:02 0449990302")
        << "another call";
    EXPECT_EQ(link.Convert(Leg{.direction = u"O", .called = u"0041"}.Line()),
              "00002 00302 0041 0000 0/0/3 0000 00090 04.03.24 08:05 -");
    EXPECT_EQ(link.Convert(Leg{.direction = u"O", .called = u"0041"}.Line()),
              "00002 00302 0041 0000 0/0/1 0000 00090 04.03.24 08:02 -")
        << "the call has ended";
}

TEST(IpOfficeRecord, AnIdentifierOutOfRangeTakesNoPartInContinuation) {
    for (const auto* call : {u"4000000", u"1000014155", u"-1", u"1.5", u"12a", u""}) {
        Link link(u"TYPE10017");
        link.Raw(Leg{.call = call, .continued = u"1"}.Line());
        EXPECT_EQ(link.Convert(Leg{.call = call}.Line()),
                  "00002 00302 0327771100 0000 0/0/0 0000 00090 04.03.24 08:02 0449990302")
            << Shown(call);
    }
    Link link(u"TYPE10017");
    link.Raw(Leg{.call = u"3999999", .continued = u"1"}.Line());
    EXPECT_EQ(link.Raw(Leg{.call = u"3999999"}.Line()).at(33), u'2');
}

TEST(IpOfficeRecord, ValuesThatDoNotFitMakeTheRecordShorter) {
    Link link(u"TYPE10017");
    EXPECT_EQ(link.Raw(Leg{.first = u"E123456"}.Line()).size(), 82U);
    EXPECT_EQ(link.Raw(Leg{.caller = u"12345678901234567"}.Line()).size(), 71U);
    EXPECT_EQ(link.Raw(Leg{.dialled = u"12345678901234567"}.Line()).size(), 71U);
    EXPECT_EQ(link.Raw(Leg{.account = u"12345"}.Line()).size(), 83U);
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
