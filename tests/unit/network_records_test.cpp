// The converters of innovaphone, Grandstream and Wildix, and the readers of their records.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "cdr/convert.h"
#include "cdr/date_time.h"
#include "cdr/innovaphone_keys.h"
#include "cdr/quoted_fields.h"
#include "fakes.h"
#include "printing.h"

namespace vintrel::cdr {
namespace {

using testing::Shown;

using Fields = std::vector<GdvField>;
const Fields kAll{kLine,  kUser,  kNumber, kUserCode, kType,      kDurationS, kDateD,
                  kDateM, kDateY, kTimeH,  kTimeM,    kPTYNumber, kMacAddress};

/// The fields with blanks between them ("-" for a blank field), or what became of the record instead.
std::string Summary(std::u16string_view gdv, const Fields& fields) {
    if (gdv == u"\x10") return "rejected";
    if (gdv.size() != 87) return "length " + std::to_string(gdv.size());
    EXPECT_EQ(Shown(server::Mid(gdv, kSpare.start + 1, 2)), "00") << "spare and Info";
    EXPECT_EQ(Shown(server::Mid(gdv, kUnity.start + 1, 4)), "0000");
    std::string summary;
    for (const GdvField field : fields) {
        const auto value = server::Trim(server::Mid(gdv, field.start + 1, field.length));
        const bool joined = field.length == 2 && field.start != kDateD.start && field.start != kTimeH.start;
        summary += (summary.empty() || joined ? "" : " ") + (value.empty() ? "-" : Shown(value));
    }
    return summary;
}

struct Exchange {
    explicit Exchange(std::u16string_view code) : type(code) {}

    std::string Convert(std::u16string_view raw, const Fields& fields = kAll) {
        server::InOutText record(raw);
        const GdvRecord gdv = GetComConvertStringRX(type, record, state, settings, clock, message);
        EXPECT_FALSE(record.Replaced());
        return Summary(gdv, fields);
    }

    std::u16string_view type;
    CallRecordState state;
    server::Settings settings;
    testing::FakeClock clock;
    testing::FakeMessage message;
};

TEST(QuotedFields, SplitsWhereTheQuotesSay) {
    constexpr QuoteStyle kSingle{u'\'', false};
    constexpr QuoteStyle kDouble{u'"', true};
    const struct {
        QuoteStyle style;
        const char16_t* record;
        std::string fields;
    } rows[] = {
        {kSingle, u"'1','a,b','','c'\r\n", "1|a,b||c"},
        {kSingle, u"'D'Arco','O'','x'", "D'Arco|O'|x"},
        {kSingle, u"1, a b ,'c'd,e'", "1| a b |c'd,e"},
        {kSingle, u"'open,1,2", "open,1,2"},
        {kSingle, u"'1',", "1|"},
        {kSingle, u"", ""},
        {kDouble, u"\n\"a\r\nb\",,12,\"\"", "a<CR><LF>b||12|"},
        {kDouble, u"\"say \"\"yes\"\", Ann\",\"\"\"\",b", "say \"\"yes\"\", Ann|\"\"|b"},
        {kDouble, u"1,2,3,4,5,6", "1|2|3|4|5"},  // five wanted
    };
    for (const auto& row : rows) {
        const QuotedFields fields(row.record, row.style, 5);
        std::string shown = Shown(fields[1]);
        for (std::size_t column = 2; column <= fields.Count(); ++column) shown += "|" + Shown(fields[column]);
        EXPECT_EQ(shown, row.fields) << Shown(row.record);
        EXPECT_EQ(Shown(fields[0]) + Shown(fields[fields.Count() + 1]), "") << "there is no such column";
    }
}

TEST(InnovaphoneKeys, AKeyCountsAtTheStartAndBehindAmpersandOrBlank) {
    using Key = InnovaphoneKey;
    const struct {
        const char16_t* record;
        Key key;
        std::string value;
    } rows[] = {
        {u"event=A:Rel&ref=1", Key::Event, "A:Rel"},
        {u"<14>Jan 1 box event=A:Rel&ref=1", Key::Event, "A:Rel"},
        {u"dst_name=x;src_cdpn=7&src_cdpn=8", Key::SrcCdpn, "8"},
        {u"src_cdpn=&src_cdpn=8", Key::SrcCdpn, ""},
        {u"ref=1&srv_id=00-11\r\n", Key::SrvId, "00-11"},
        {u"ref=1\r\nref=2&date=3", Key::Date, "3"},
        {u"src_cgpn=+39+06+&", Key::SrcCgpn, "39+06"},
        {u"src_cgpn=+++", Key::SrcCgpn, ""},
        {u"src_cgpn&=1&ref", Key::SrcCgpn, ""},
    };
    for (const auto& row : rows) EXPECT_EQ(Shown(InnovaphoneKeys(row.record)[row.key]), row.value) << Shown(row.record);
}

const std::u16string kTimes = u"&connect_time=1781514009&disc_time=1781514084&srv_id=02-00-5e-10-20-30\r\n";
const std::u16string kIn = u"event=A:Rel&date=20260615-090125&ref=77&src_if=TEL1&dst_if=GW1";
const std::u16string kOut = u"event=A:Rel&date=20260615-090125&ref=77&src_if=GW1&dst_if=TEL1";

TEST(Innovaphone, PartiesDirectionAndTimesOfALeg) {
    const std::string when = " 150626 1100 ";  // 09:00 UTC
    const struct {
        std::u16string record;
        std::string summary;
    } rows[] = {
        {kIn + u"&src_cgpn=016&src_cdpn=101&dst_cdpn=101" + kTimes,
         "00051 00101 016 0000 0 00075" + when + "- 02-00-5e-10-20-30"},
        {kIn + u"&src_cgpn=016&src_cdpn=10&dst_cdpn=0123" + kTimes,
         "00051 00123 016 0000 0 00075" + when + "10 02-00-5e-10-20-30"},
        {kIn + u"&src_cgpn=016&src_cdpn=00&dst_cdpn=0077" + kTimes + u"&x",
         "00051 00077 016 0000 0 00075" + when + "00 02-00-5e-10-20-30"},
        {kIn + u"&src_cgpn=+16+9&src_cdpn=000&dst_cdpn=01234567890123456+7" + kTimes,
         "00051 09999 16 9 0000 0 00075" + when + "0123456789012345 02-00-5e-10-20-30"},
        {kIn + u"&src_cdpn=101", "00051 00101 - 0000 7 00000 150626 1101 - -"},
        {kIn + u"&src_cdpn=101&connect_time=0&disc_time=5", "00051 00101 - 0000 7 00000 150626 1101 - -"},
        {kIn + u"&src_cdpn=101&connect_time=1781514009", "00051 00101 - 0000 0 00000" + when + "- -"},
        {kIn + u"&src_cdpn=101&connect_time=1781514009&disc_time=1791514009",
         "00051 00101 - 0000 0 99999" + when + "- -"},
        {u"event=A:Rel&date=20261340-256199&src_if=TEL1&dst_if=GW1", "00051 09999 - 0000 7 00000 401326 2561 - -"},
        {kIn + u"&src_cdpn=101&srv_id=02-00-5e-10-20-30-40", "length 70"},
        {u"event=A:Rel&date=today&src_if=TEL1&dst_if=GW1", "length 77"},
        {u"event=a:rel" + kIn.substr(11) + u"&src_cdpn=5", "00051 00005 - 0000 7 00000 150626 1101 - -"},
        {kOut + u"&src_cgpn=104&dst_cdpn=077" + kTimes, "00051 00104 077 0000 1 00075" + when + "- 02-00-5e-10-20-30"},
        {kOut + u"&src_cgpn=0016&src_dgpn=105&src_cdpn=077" + kTimes,
         "00051 00105 077 0000 3 00075" + when + "0016 02-00-5e-10-20-30"},
        {kOut + u"&src_cgpn=001632960&dst_cgpn=10&dst_cdpn=077" + kTimes,
         "00051 00010 077 0000 1 00075" + when + "001632960 02-00-5e-10-20-30"},
        {kOut + u"&src_cgpn=104&dst_cdpn=077&disc_time=9", "rejected"},
        {kIn + u"</cdr>" + kTimes, "rejected"},
        {u"log STARTED&" + kIn + kTimes, "rejected"},
        {u"event=B:Rel" + kIn.substr(11) + kTimes, "rejected"},
        {kIn.substr(12) + kTimes, "rejected"},
        {u"event=A:Rel&src_if=SIP1&dst_if=sip2" + kTimes, "rejected"},
        {u"event=A:Rel&src_if=TEL1&dst_if=TONE" + kTimes, "rejected"},
        {u"event=A:Rel&src_if=TEL1" + kTimes, "rejected"},
        {u"event=A:Rel&src_if=GW1&dst_if=GW2" + kTimes, "rejected"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Exchange(u"TYPE10012").Convert(row.record), row.summary) << Shown(row.record);
}

TEST(Innovaphone, AConfiguredInterfaceDecidesAloneAndShutsOutAllOthers) {
    Exchange exchange(u"TYPE10012");
    exchange.settings.CallIncomingSrcIf = u"SIP3";
    exchange.settings.CallOutgoingDstIf = u"PRI";
    const std::u16string parties = u"&src_cgpn=104&src_cdpn=077&dst_cdpn=077" + kTimes;
    const auto type_of = [&](const char16_t* interfaces) {
        return exchange.Convert(u"event=A:Rel" + (interfaces + parties), {kType});
    };
    EXPECT_EQ(type_of(u"&src_if=sip31&dst_if=GW1"), "0");
    EXPECT_EQ(type_of(u"&src_if=GW1&dst_if=PRI2"), "1");
    EXPECT_EQ(type_of(u"&src_if=TEL1&dst_if=GW1"), "rejected");
    exchange.settings.CallIncomingDstIf = u"GW2";
    EXPECT_EQ(type_of(u"&src_if=SIP3&dst_if=GW1"), "rejected") << "both ends are configured";
}

TEST(Innovaphone, LegsAfterATransferredOneAreContinuedUntilTheCallIsReleased) {
    Exchange exchange(u"TYPE10012");
    const auto type_of = [&](const char16_t* event, const std::u16string& rest) {
        return exchange.Convert(std::u16string(u"event=") + event + u"&src_cdpn=10&src_cgpn=016" + rest, {kType});
    };
    const std::u16string in = u"&src_if=TEL1&dst_if=GW1&ref=1";
    const std::u16string times = in + kTimes;
    EXPECT_EQ(type_of(u"B:X", in), "rejected") << "never connected";
    EXPECT_EQ(type_of(u"B:X", times), "0");
    EXPECT_EQ(type_of(u"B:X", times), "2");
    EXPECT_EQ(type_of(u"A:Rel", times), "2");
    EXPECT_EQ(type_of(u"A:Rel", times), "0") << "held once, and released";
    EXPECT_EQ(type_of(u"A:X", times), "0");
    EXPECT_EQ(type_of(u"A:Rel", u"&src_if=TEL1&ref=1"), "rejected");
    EXPECT_EQ(type_of(u"A:Rel", times), "0") << "a rejected release releases too";
    EXPECT_EQ(type_of(u"B:X", u"&src_if=TEL1&dst_if=GW1" + kTimes), "0");
    EXPECT_EQ(type_of(u"A:Rel", u"&src_if=TEL1&dst_if=GW1" + kTimes), "0") << "no reference is never found";
}

/// A record of 32 columns that tests change by column number.
std::u16string Row(std::map<std::size_t, std::u16string> changes) {
    static const std::vector<std::u16string> kOutgoing{u"1",
                                                       u"",
                                                       u"1001",
                                                       u"0391",
                                                       u"outbound-route-1",
                                                       u"\"Room\" <1001>",
                                                       u"PJSIP/1001-1",
                                                       u"PJSIP/trunk_1-2",
                                                       u"Dial",
                                                       u"a,b,c",
                                                       u"2026-06-15 09:10:00",
                                                       u"",
                                                       u"",
                                                       u"70",
                                                       u"60",
                                                       u"ANSWERED",
                                                       u"DOCUMENTATION",
                                                       u"1.1",
                                                       u"Outbound",
                                                       u"1001",
                                                       u"trunk_1",
                                                       u"s",
                                                       u"",
                                                       u"",
                                                       u"",
                                                       u"",
                                                       u"",
                                                       u"1",
                                                       u"1001",
                                                       u"DIAL",
                                                       u"",
                                                       u"Line"};
    std::u16string record;
    for (std::size_t i = 0; i < kOutgoing.size(); ++i) {
        const auto change = changes.find(i + 1);
        record += (i == 0 ? u"'" : u",'") + (change == changes.end() ? kOutgoing[i] : change->second) + u"'";
    }
    return record;
}

TEST(Grandstream, DirectionPartiesAndTypeOfARow) {
    const std::map<std::size_t, std::u16string> in{{3, u"01632"},    {4, u"1004"},  {5, u"ext-did-1"}, {19, u"Inbound"},
                                                   {20, u"trunk_1"}, {21, u"1004"}, {29, u""}};
    const auto incoming = [&](std::map<std::size_t, std::u16string> changes) {
        changes.insert(in.begin(), in.end());
        return Row(changes);
    };
    const std::string when = " 150626 0910 ";
    const struct {
        std::u16string record;
        std::string summary;
    } rows[] = {
        {Row({}), "00001 01001 0391 0000 1 00060" + when + "- -"},
        {Row({{2, u"12"}, {15, u"123456"}}), "00001 01001 0391 0012 1 99999" + when + "- -"},
        {Row({{2, u"12345"}, {15, u""}}), "00001 01001 0391 0000 1 00000" + when + "- -"},
        {Row({{3, u"Bar d'Or"}, {4, u"12345678901234567a"}}),
         "00001 01001 1234567890123456 0000 1 00060" + when + "BAR D'OR -"},
        {Row({{3, u"x"}, {20, u"y"}, {29, u"12"}, {4, u"a#"}}), "00001 00012 A# 0000 1 00060" + when + "X -"},
        {Row({{3, u""}, {20, u""}, {29, u"123456"}}), "00001 00000 0391 0000 1 00060" + when + "- -"},
        {Row({{11, u"15/06/2026"}}), "length 77"},
        {Row({{4, u"xfer-0391"}}), "00001 01001 XFER-0391 0000 3 00060" + when + "- -"},
        {Row({{5, u"from-internal-xfer-1"}}), "00001 01001 0391 0000 3 00060" + when + "- -"},
        {Row({{30, u"CALLFORWARD_BUSY"}}), "00001 01001 0391 0000 3 00060" + when + "- -"},
        {Row({{19, u"External"}}), "00001 01001 0391 0000 3 00060" + when + "- -"},
        {Row({{19, u""}, {20, u"trunk_2"}}), "00001 01001 0391 0000 3 00060" + when + "- -"},
        {Row({{19, u"Other"}, {21, u"1005"}}), "00001 01001 0391 0000 1 00060" + when + "- -"},  // the context tells
        {Row({{19, u""}, {21, u"1005"}, {5, u"from-internal"}}), "rejected"},
        {Row({{16, u"NO ANSWER"}}), "rejected"},
        {Row({{16, u"BUSY"}}), "rejected"},
        {Row({{16, u"ANSWERED ELSEWHERE"}}), "rejected"},
        {Row({{17, u"BILLING"}}), "rejected"},
        {Row({{19, u"Internal"}}), "rejected"},
        {Row({{6, u"\"Wake Up Call\" <7>"}}), "rejected"},
        {Row({{5, u"pms-status"}}), "rejected"},
        {Row({{9, u"ForkCDR"}, {10, u"ae"}}), "rejected"},
        {Row({{4, u"s"}, {9, u"Playback"}}), "rejected"},
        {Row({{4, u"s"}}), "00001 01001 S 0000 1 00060" + when + "- -"},
        {Row({{1, u"AcctId"}}), "rejected"},
        {u"'1','','1001'", "rejected"},
        {incoming({}), "00001 01004 01632 0000 0 00060" + when + "- -"},
        {incoming({{25, u"1005"}}), "00001 01005 01632 0000 0 00060" + when + "1004 -"},
        {incoming({{30, u"TRANSFER"}}), "00001 01004 01632 0000 2 00060" + when + "- -"},
        {incoming({{15, u"0"}}), "00001 01004 01632 0000 7 00000" + when + "- -"},
        {incoming({{16, u"NO ANSWER"}}), "00001 01004 01632 0000 7 00060" + when + "- -"},
        {incoming({{30, u"RINGGROUP[6400]"}}), "00001 01004 01632 0000 0 00060" + when + "- -"},
        {incoming({{30, u"RINGGROUP[6400]"}, {15, u"0"}}), "rejected"},
        {incoming({{30, u"QUEUE[6500]"}, {16, u"NO ANSWER"}}), "rejected"},
        {incoming({{5, u"ext-group"}, {16, u"NO ANSWER"}}), "rejected"},
        {incoming({{9, u"Queue"}, {21, u""}, {16, u"NO ANSWER"}}), "rejected"},
        {incoming({{9, u"Queue"}, {16, u"NO ANSWER"}}), "00001 01004 01632 0000 7 00060" + when + "- -"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Exchange(u"TYPE10020").Convert(row.record), row.summary) << Shown(row.record);
}

TEST(Wildix, SidesOfACallTellItsDirectionLineAndUser) {
    const struct {
        std::u16string parties;  // src, dst, dcontext, clid, channel, dstchannel, lastapp, lastdata
        std::u16string outcome;  // duration, billsec, disposition
        std::string summary;
    } rows[] = {
        {u"201,0391,users,,SIP/201-1,SIP/BRI3-2,Dial,x", u"70,60,ANSWERED", "00003 00201 0391 1 00060 -"},
        {u"0711,0391,users,,DEVICE/209-1,SIP/W01PRI-15-2,Dial,x", u"70,60,ANSWERED", "00015 00711 0391 1 00060 -"},
        {u"071155,0391,users,,COM/209@x-1,IAX2/b-2,Dial,x", u"70,100000,ANSWERED", "00001 00209 0391 1 99999 -"},
        {u"201,0391,users,,SIP/201-1,SIP/BRI3-2,Dial,x", u"70,0,ANSWERED", "rejected"},
        {u"201,0391,users,,SIP/201-1,SIP/BRI3-2,Dial,x", u"70,60,BUSY", "rejected"},
        {u"201,0391,macro-outgoing-call,,Local/0391@u-1;2,SIP/c-2,Dial,x", u"70,60,ANSWERED",
         "00001 00201 0391 3 00060 -"},
        {u"201,0391,users,,SIP/201-1,,NoOp,Finish while-outgoing-call", u"70,60,ANSWERED",
         "00001 00201 0391 1 00060 -"},
        {u"201,0391,users,,SIP/201-1,,NoOp,Dial", u"70,60,ANSWERED", "rejected"},
        {u"0163,204,main,,SIP/PRI-1,SIP/204-2,Dial,x", u"70,60,ANSWERED", "00001 00204 0163 0 00060 -"},
        {u"0163,10,main,,SIP/FXO1234567-1,SIP/204-2,Dial,x", u"70,60,answered", "34567 00204 0163 0 00060 10"},
        {u"0163,204,main,,SIP/PRI-1,SIP/204-2,Dial,x", u"70,0,NO ANSWER", "00001 00204 0163 7 00000 -"},
        {u"ANONYMOUS,204,main,,SIP/PRI-1,SIP/204-2,Dial,x", u"70,0,BUSY", "00001 00204 - 7 00000 -"},
        {u"0163,020123,main,,GSM/gsm2-1,Local/204@u-2,Dial,x", u"70,60,ANSWERED", "00002 00000 0163 2 00060 020123"},
        {u"0163,204,main,,SIP/PRI-1,SIP/BRI-2,Dial,x", u"70,60,ANSWERED", "00001 00204 0163 0 00060 -"},
        {u"+163296,204,main,,Local/204@m-1,,NoOp,Finish if-simple-call", u"70,60,ANSWERED",
         "00001 00204 +163296 0 00060 -"},
        {u"201,204,main,,Local/204@m-1,,NoOp,Finish if-simple-call", u"70,60,ANSWERED", "rejected"},
        {u"206,207,macro-outgoing-call,,SIP/206-1,SIP/207-2,Dial,x", u"70,60,ANSWERED", "rejected"},
        {u"0163,800,main,,SIP/BRI-1,,RxFAX,x", u"70,60,ANSWERED", "rejected"},
        {u"0163,204,main,,SIP/BRI-1,SIP/204-2,MYSQL,x", u"70,60,ANSWERED", "00001 00204 0163 0 00060 -"},
        {u"0163,204,main,,SIP/PRI-1,SIP/204-2,Dial,x", u"70,60,FAILED", "rejected"},
        {u"src,dst,dcontext,clid,channel,dstchannel,lastapp,lastdata", u"duration,billsec,ANSWERED", "rejected"},
    };
    for (const auto& row : rows) {
        const std::u16string record = u"," + row.parties + u",2026-06-15 09:10:00,,," + row.outcome;
        const Fields shown{kLine, kUser, kNumber, kType, kDurationS, kPTYNumber};
        EXPECT_EQ(Exchange(u"TYPE10013").Convert(record, shown), row.summary) << Shown(record);
    }
    EXPECT_EQ(Exchange(u"TYPE10013").Convert(u"\"98\",1,2,,,SIP/BRI-1,,,,2026-06-15 09:10:00,,,1,1,ANSWERED"),
              "00001 00002 1 0098 0 00001 150626 0910 - -");
    EXPECT_EQ(Exchange(u"TYPE10013").Convert(u"\"1234\",\"2\",\"3\""), "rejected");
}

TEST(CallRecordsPage, ItsExamplesAreTrue) {
    std::ifstream page(std::filesystem::path(VINTREL_SOURCE_DIR) / "docs/call-records.md");
    const std::string fence = "```gdv ";
    int examples = 0;
    for (std::string line, raw, gdv; std::getline(page, line);) {
        if (!line.starts_with(fence)) continue;
        ASSERT_TRUE(std::getline(page, raw) && std::getline(page, gdv));
        const std::u16string type(line.begin() + static_cast<std::ptrdiff_t>(fence.size()), line.end());
        const std::u16string text = testing::Raw(raw);
        Exchange exchange(type);
        server::InOutText record(text);
        EXPECT_EQ(Shown(GetComConvertStringRX(type, record, exchange.state, {}, exchange.clock, exchange.message)), gdv)
            << raw;
        ++examples;
    }
    EXPECT_GE(examples, 9);
}

}  // namespace
}  // namespace vintrel::cdr
