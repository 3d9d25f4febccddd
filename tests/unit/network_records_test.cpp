// The converters of innovaphone, Grandstream and Wildix, and the readers of their records.
#include <gtest/gtest.h>

#include <map>
#include <string>

#include "call_records.h"
#include "exchanges/innovaphone/record_keys.h"
#include "text/quoted_fields.h"

namespace vintrel::server {
namespace {

using namespace text;

using exchanges::innovaphone::RecordKey;
using exchanges::innovaphone::RecordKeys;
using testing::Link;
using testing::Shown;

/// "length 77" for a record with a field that did not fit.
std::string Convert(Link& link, std::u16string_view raw) {
    const std::u16string record = link.Raw(raw);
    EXPECT_EQ(Shown(link.caller_text), Shown(raw));
    const bool is_short = record != u"\x10" && record.size() != 87;
    return is_short ? "length " + std::to_string(record.size()) : testing::Fields(record);
}
std::string Convert(std::u16string_view type, std::u16string_view raw) {
    Link link(type);
    return Convert(link, raw);
}

/// A call of an exchange that reports when it began, from its line, user and number.
std::string Call(const std::string& parties, char type, const std::string& seconds = "00060",
                 const std::string& pty = "-") {
    return parties + " 0000 0/0/" + type + " 0000 " + seconds + " 15.06.26 09:10 " + pty;
}

template <QuoteStyle Style>
std::string Split(std::u16string_view record) {
    const QuotedFields<Style, 5> fields(record);
    EXPECT_EQ(Shown(fields[0]) + Shown(fields[fields.Count() + 1]), "") << "there is no such column";
    std::string shown = Shown(fields[1]);
    for (std::size_t column = 2; column <= fields.Count(); ++column) shown += "|" + Shown(fields[column]);
    return shown;
}

TEST(QuotedFields, SplitsWhereTheQuotesSay) {
    constexpr auto kSingle = Split<QuoteStyle{.quote = u'\'', .doubled = false}>;
    constexpr auto kDouble = Split<QuoteStyle{.quote = u'"', .doubled = true}>;
    const struct {
        std::string (*split)(std::u16string_view);
        const char16_t* record;
        std::string fields;
    } rows[] = {
        {kSingle, u"'1','a,b','','c'\r\n", "1|a,b||c"},
        {kSingle, u"'D'Arco','O'','x'", "D'Arco|O'|x"},
        {kSingle, u"1, a b ,'c'd,e'", "1| a b |c'd,e"},
        {kSingle, u"'open,1,2", "open,1,2"},
        {kSingle, u"',',2", ",|2"},
        {kSingle, u"'1',", "1|"},
        {kSingle, u"'1','2','3','4','5','6'", "1|2|3|4|5"},  // five wanted
        {kSingle, u"", ""},
        {kDouble, u"\n\"a\r\nb\",,12,\"\"", "a<CR><LF>b||12|"},
        {kDouble, u"\"say \"\"yes\"\", Ann\",\"\"\"\",b", R"(say ""yes"", Ann|""|b)"},
        {kDouble, u"1,2,3,4,5,6", "1|2|3|4|5"},
    };
    for (const auto& row : rows) EXPECT_EQ(row.split(row.record), row.fields) << Shown(row.record);
}

TEST(InnovaphoneKeys, AKeyCountsAtTheStartAndBehindAmpersandOrBlank) {
    using Key = RecordKey;
    const std::tuple<const char16_t*, Key, std::string> rows[] = {
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
    for (const auto& [record, key, value] : rows) EXPECT_EQ(Shown(RecordKeys(record)[key]), value) << Shown(record);
}

const std::u16string kTimes = u"&connect_time=1781514009&disc_time=1781514084&srv_id=02-00-5e-10-20-30\r\n";
const std::u16string kIn = u"event=A:Rel&date=20260615-090125&ref=77&src_if=TEL1&dst_if=GW1";
const std::u16string kOut = u"event=A:Rel&date=20260615-090125&ref=77&src_if=GW1&dst_if=TEL1";

TEST(Innovaphone, PartiesDirectionAndTimesOfALeg) {
    const std::string when = " 0000 00075 15.06.26 11:00 ";  // 09:00 UTC
    const std::string unanswered = " 0000 0/0/7 0000 00000 15.06.26 11:01 -";
    const std::pair<std::u16string, std::string> rows[] = {
        {kIn + u"&src_cgpn=016&src_cdpn=101&dst_cdpn=101" + kTimes,
         "00051 00101 016 0000 0/0/0" + when + "- 02-00-5e-10-20-30"},
        {kIn + u"&src_cgpn=016&src_cdpn=00&dst_cdpn=0077" + kTimes + u"&x",
         "00051 00077 016 0000 0/0/0" + when + "00 02-00-5e-10-20-30"},
        {kIn + u"&src_cgpn=+16+9&src_cdpn=000&dst_cdpn=01234567890123456+7" + kTimes,
         "00051 09999 16 9 0000 0/0/0" + when + "0123456789012345 02-00-5e-10-20-30"},
        {kIn + u"&src_cdpn=101&connect_time=0&disc_time=5", "00051 00101 -" + unanswered},
        {kIn + u"&src_cdpn=101&connect_time=1781514009.0&disc_time=1781514009",
         "00051 00101 - 0000 0/0/0 0000 00000 15.06.26 11:00 -"},
        {kIn + u"&src_cdpn=101&connect_time=1781514009", "00051 00101 - 0000 0/0/0 0000 00000 15.06.26 11:00 -"},
        {kIn + u"&src_cdpn=101&connect_time=1781514009&disc_time=1791514009",
         "00051 00101 - 0000 0/0/0 0000 99999 15.06.26 11:00 -"},
        {u"event=A:Rel&date=20261340-256199&src_if=TEL1&dst_if=GW1",
         "00051 09999 - 0000 0/0/7 0000 00000 40.13.26 25:61 -"},
        {u"event=A:Rel&date=20260615-090160&src_if=TEL1&dst_if=GW1",  // no such second: the digits stay
         "00051 09999 - 0000 0/0/7 0000 00000 15.06.26 09:01 -"},
        {kIn + u"&src_cdpn=101&srv_id=02-00-5e-10-20-30-40", "length 70"},
        {u"event=A:Rel&date=today&src_if=TEL1&dst_if=GW1", "length 77"},
        {u"event=a:rel" + kIn.substr(11) + u"&src_cdpn=5", "00051 00005 -" + unanswered},
        {kOut + u"&src_cgpn=104&dst_cdpn=077&srv_id=1" + kTimes, "00051 00104 077 0000 0/0/1" + when + "- 1"},
        {kOut + u"&src_cgpn=0016&src_dgpn=105&src_cdpn=077&srv_id=1" + kTimes,
         "00051 00105 077 0000 0/0/3" + when + "0016 1"},
        {kOut + u"&src_cgpn=001632960&dst_cgpn=10&dst_cdpn=077&srv_id=1" + kTimes,
         "00051 00010 077 0000 0/0/1" + when + "001632960 1"},
        {kOut + u"&src_cgpn=104&dst_cdpn=077&disc_time=9", "rejected"},
        {kIn + u"</cdr>" + kTimes, "rejected"},
        {u"log STARTED&" + kIn + kTimes, "rejected"},
        {u"event=B:Rel" + kIn.substr(11) + kTimes, "rejected"},
        {kIn.substr(12) + kTimes, "rejected"},
        {u"event=A:Rel&src_if=SIP1&dst_if=sip2" + kTimes, "rejected"},
        {u"event=A:Rel&src_if=TEL1&dst_if=TONE" + kTimes, "rejected"},
        {u"event=A:Rel&src_if=tone2&dst_if=TEL1&src_cgpn=104&dst_cdpn=077" + kTimes, "rejected"},
        {u"event=A:Rel&src_if=TEL1" + kTimes, "rejected"},
        {u"event=A:Rel&src_if=GW1&dst_if=GW2" + kTimes, "rejected"},
    };
    for (const auto& [record, fields] : rows) EXPECT_EQ(Convert(u"TYPE10012", record), fields) << Shown(record);
}

/// The type of the call, or what became of the record instead.
std::string TypeOf(Link& link, const std::u16string& record) {
    const std::u16string converted = link.Raw(record);
    return converted.size() == 87 ? Shown(converted.substr(33, 1)) : Shown(converted);
}

TEST(Innovaphone, InterfacesTellTheDirectionAndAConfiguredOneDecidesAlone) {
    Link link(u"TYPE10012");
    const auto type_of = [&](const std::u16string& interfaces) {
        return TypeOf(link, u"event=A:Rel&src_cgpn=104&src_cdpn=077&dst_cdpn=077" + interfaces + kTimes);
    };
    const auto configure = [&](std::u16string_view section, std::u16string_view key, std::u16string_view value) {
        link.Ini(section, key) = value;
        link.Initialize(u"TYPE10012");
    };
    for (const auto* line : {u"BRI1", u"pri2", u"TEL4", u"ppp0", u"SIP3"}) {
        EXPECT_EQ(type_of(std::u16string(u"&dst_if=RT1&src_if=") + line), "0") << Shown(line);
        EXPECT_EQ(type_of(std::u16string(u"&src_if=RB1&dst_if=") + line), "1") << Shown(line);
    }
    configure(u"CALL_INCOMING", u"src_if", u"R");
    EXPECT_EQ(type_of(u"&src_if=RB1&dst_if=rt2"), "0");
    EXPECT_EQ(type_of(u"&src_if=RB1&dst_if=rb2") + type_of(u"&src_if=RT1&dst_if=RT2"), "<DLE><DLE>") << "stays inside";

    configure(u"CALL_INCOMING", u"src_if", u" sip3 ");
    configure(u"CALL_OUTGOING", u"dst_if", u"PRI");
    EXPECT_EQ(type_of(u"&src_if=sip31&dst_if=GW1"), "0");
    EXPECT_EQ(type_of(u"&src_if=GW1&dst_if=PRI2"), "1");
    EXPECT_EQ(type_of(u"&src_if=TEL1&dst_if=GW1"), "<DLE>");
    configure(u"CALL_INCOMING", u"dst_if", u"GW2");
    EXPECT_EQ(type_of(u"&src_if=SIP3&dst_if=GW1"), "<DLE>") << "both ends are configured";
    configure(u"CALL_OUTGOING", u"src_if", u"GW9");
    EXPECT_EQ(type_of(u"&src_if=GW1&dst_if=PRI2") + type_of(u"&src_if=GW9&dst_if=PRI2"), "<DLE>1");
}

TEST(Innovaphone, LegsAfterATransferredOneAreContinuedUntilTheCallIsReleased) {
    const std::u16string unreferenced = u"&src_cdpn=10&src_cgpn=016&src_if=TEL1&dst_if=GW1";
    const std::u16string in = unreferenced + u"&ref=1";
    const std::pair<std::u16string, const char*> steps[] = {
        {u"event=B:X" + in, "<DLE>"},  // never connected
        {u"event=B:X" + in + kTimes, "0"},
        {u"event=B:X" + in + kTimes, "2"},
        {u"event=A:Rel" + in + kTimes, "2"},
        {u"event=A:Rel" + in + kTimes, "0"},  // held once, and released
        {u"event=A:X" + in + kTimes, "0"},
        {u"event=A:Rel&src_if=TEL1&ref=1", "<DLE>"},
        {u"event=A:Rel" + in + kTimes, "0"},  // a rejected release releases too
        {u"event=B:X" + unreferenced + kTimes, "0"},
        {u"event=A:Rel" + unreferenced + kTimes, "0"},  // no reference is never found
    };
    Link link(u"TYPE10012");
    for (const auto& [record, type] : steps) EXPECT_EQ(TypeOf(link, record), type) << Shown(record);
}

using Columns = std::map<std::size_t, std::u16string>;

/// A record of an outgoing call with other texts in some of its 32 columns, counted from 1.
std::u16string Row(const Columns& changes) {
    std::u16string_view rest =
        u"1||1001|0391|outbound-route-1|\"Room\" <1001>|PJSIP/1001-1|PJSIP/trunk_1-2|Dial|a,b,c|2026-06-15 "
        u"09:10:00|||70|"
        u"60|ANSWERED|DOCUMENTATION|1.1|Outbound|1001|trunk_1|s||||||1|1001|DIAL||Line";
    std::u16string record;
    for (std::size_t column = 1; column <= 32; ++column) {
        const std::size_t end = std::min(rest.find(u'|'), rest.size());
        const auto change = changes.find(column);
        record += column == 1 ? u"'" : u",'";
        record += change == changes.end() ? rest.substr(0, end) : change->second;
        record += u"'";
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return record;
}

TEST(Grandstream, DirectionPartiesAndTypeOfARow) {
    const std::pair<Columns, std::string> outgoing[] = {
        {{}, Call("00001 01001 0391", '1')},
        {{{2, u"12"}, {15, u"123456"}}, "00001 01001 0391 0012 0/0/1 0000 99999 15.06.26 09:10 -"},
        {{{2, u"12345"}, {15, u""}}, Call("00001 01001 0391", '1', "00000")},
        {{{15, u" 65 "}}, Call("00001 01001 0391", '1', "00065")},
        {{{15, u"65.0"}}, Call("00001 01001 0391", '1', "00065")},
        {{{15, u"6E1"}}, Call("00001 01001 0391", '1')},
        {{{15, u"65.5"}}, Call("00001 01001 0391", '1', "00000")},
        {{{3, u"Bar d'Or"}, {4, u"12345678901234567a"}},
         Call("00001 01001 1234567890123456", '1', "00060", "BAR D'OR")},
        {{{3, u"x"}, {20, u"y"}, {29, u"12"}, {4, u"a#"}}, Call("00001 00012 A#", '1', "00060", "X")},
        {{{3, u"x"}, {20, u"1007"}, {29, u"12"}}, Call("00001 01007 0391", '1', "00060", "X")},
        {{{3, u""}, {20, u""}, {29, u"123456"}}, Call("00001 00000 0391", '1')},
        {{{11, u"15/06/2026"}}, "length 77"},
        {{{4, u"xfer-0391"}}, Call("00001 01001 XFER-0391", '3')},
        {{{5, u"from-internal-xfer-1"}}, Call("00001 01001 0391", '3')},
        {{{5, u"Transfer"}}, Call("00001 01001 0391", '3')},
        {{{5, u"callforward"}}, Call("00001 01001 0391", '3')},
        {{{30, u"CALLFORWARD_BUSY"}}, Call("00001 01001 0391", '3')},
        {{{30, u"TRANSFER"}}, Call("00001 01001 0391", '3')},
        {{{30, u"NO_CALL-FORWARD"}}, Call("00001 01001 0391", '3')},
        {{{19, u"External"}}, Call("00001 01001 0391", '3')},
        {{{19, u""}, {20, u"trunk_2"}}, Call("00001 01001 0391", '3')},
        {{{19, u"Other"}, {21, u"1005"}}, Call("00001 01001 0391", '1')},  // the context tells
        {{{19, u""}, {5, u"x"}}, Call("00001 01001 0391", '1')},           // the trunk tells
        {{{4, u"s"}}, Call("00001 01001 S", '1')},
        {{{4, u"P"}, {9, u"queue"}}, Call("00001 01001 P", '1')},
        {{{9, u"ForkCDR"}}, Call("00001 01001 0391", '1')},
    };
    for (const auto& [changes, fields] : outgoing)
        EXPECT_EQ(Convert(u"TYPE10020", Row(changes)), fields) << Shown(Row(changes));

    const Columns rejected[] = {{{1, u"AcctId"}},
                                {{4, u"s"}, {9, u"Playback"}},
                                {{4, u"P"}, {9, u"Playback"}},
                                {{5, u"pms-status"}},
                                {{6, u"\"Wake Up Call\" <7>"}},
                                {{9, u"ForkCDR"}, {10, u"ae"}},
                                {{9, u"FORKCDR"}, {10, u"Are"}},
                                {{16, u"NO ANSWER"}},
                                {{16, u"ANSWERED ELSEWHERE"}},
                                {{17, u"BILLING"}},
                                {{19, u"Internal"}},
                                {{19, u""}, {21, u"1005"}, {5, u"from-internal"}}};
    for (const Columns& changes : rejected)
        EXPECT_EQ(Convert(u"TYPE10020", Row(changes)), "rejected") << Shown(Row(changes));
    EXPECT_EQ(Convert(u"TYPE10020", u"'1','','1001'"), "rejected");

    const std::pair<Columns, std::string> incoming[] = {
        {{}, Call("00001 01004 01632", '0')},
        {{{25, u"1005"}}, Call("00001 01005 01632", '0', "00060", "1004")},
        {{{21, u"1009"}}, Call("00001 01009 01632", '0', "00060", "1004")},
        {{{21, u"group"}}, Call("00001 01004 01632", '0')},
        {{{19, u""}}, Call("00001 01004 01632", '0')},  // the trunk tells
        {{{30, u"TRANSFER"}}, Call("00001 01004 01632", '2')},
        {{{15, u"0"}}, Call("00001 01004 01632", '7', "00000")},
        {{{16, u"NO ANSWER"}}, Call("00001 01004 01632", '7')},
        {{{30, u"RINGGROUP[6400]"}}, Call("00001 01004 01632", '0')},
        {{{30, u"RINGGROUP[6400]"}, {15, u"0"}}, "rejected"},
        {{{30, u"QUEUE[6500]"}, {16, u"NO ANSWER"}}, "rejected"},
        {{{30, u"ext-group 6400"}, {16, u"NO ANSWER"}}, "rejected"},
        {{{5, u"ext-group"}, {16, u"NO ANSWER"}}, "rejected"},
        {{{9, u"GosubIf"}, {21, u""}, {16, u"NO ANSWER"}}, "rejected"},
        {{{9, u"Queue"}, {21, u""}, {16, u"NO ANSWER"}}, "rejected"},
        {{{9, u"Queue"}, {16, u"NO ANSWER"}}, Call("00001 01004 01632", '7')},
    };
    for (auto [changes, fields] : incoming) {
        changes.insert({{3, u"01632"}, {4, u"1004"}, {5, u"ext-did-1"}, {19, u"Inbound"}});
        changes.insert({{20, u"trunk_1"}, {21, u"1004"}, {29, u""}});
        EXPECT_EQ(Convert(u"TYPE10020", Row(changes)), fields) << Shown(Row(changes));
    }
}

TEST(Wildix, SidesOfACallTellItsDirectionLineAndUser) {
    const std::u16string kAnswered = u"60,ANSWERED";
    const struct {
        std::u16string parties;  // src, dst, dcontext, clid, channel, dstchannel, lastapp, lastdata
        std::u16string outcome;  // billsec, disposition
        std::string fields;
    } rows[] = {
        {u"201,0391,users,,SIP/201-1,SIP/BRW3-2,Playback,x", kAnswered, Call("00003 00201 0391", '1')},
        {u"201,0391,users,,SIP/201-1,,NoOp,Finish if-if-dial-using-gateway-trunk", kAnswered,
         Call("00001 00201 0391", '1')},
        {u"0163,204,main,,Local/204@m-1,,NoOp,Finish if-lookup-cidname-in-phonebook", kAnswered,
         Call("00001 00204 0163", '0')},
        {u"0163,204,main,,SIP/PRI-1,,Dial,fax received", kAnswered, Call("00001 00204 0163", '0')},
        {u"0711,0391,users,,DEVICE/209-1,SIP/W01PRI-15-2,Dial,x", kAnswered, Call("00015 00711 0391", '1')},
        {u"071155,0391,users,,COM/209@x-1,IAX2/b-2,Dial,x", u"100000,ANSWERED", Call("00001 00209 0391", '1', "99999")},
        {u"201,0391,users,,SIP/201-1,SIP/BRI3-2,Dial,x", u"0,ANSWERED", "rejected"},
        {u"201,0391,users,,SIP/201-1,SIP/BRI3-2,Dial,x", u"60,BUSY", "rejected"},
        {u"201,0391,macro-outgoing-call,,Local/0391@u-1;2,SIP/c-2,Dial,x", kAnswered, Call("00001 00201 0391", '3')},
        {u"201,0391,users,,SIP/201-1,,NoOp,Finish while-outgoing-call", kAnswered, Call("00001 00201 0391", '1')},
        {u"x,0391,users,,DEVICE/abc-1,SIP/BRI3-2,Dial,x", kAnswered, Call("00003 00000 0391", '1')},
        {u"201,0391,users,,SIP/201-1,,NoOp,Dial", kAnswered, "rejected"},
        {u"0163,204,main,,SIP/PRI-1,SIP/204-2,Dial,x", kAnswered, Call("00001 00204 0163", '0')},
        {u"0163,10,main,,SIP/FXO1234567-1,SIP/204-2,Dial,x", u"60,answered",
         Call("34567 00204 0163", '0', "00060", "10")},
        {u"0163,204,main,,SIP/PRI-1,SIP/204-2,Dial,x", u"0,NO ANSWER", Call("00001 00204 0163", '7', "00000")},
        {u"ANONYMOUS,204,main,,SIP/PRI-1,SIP/204-2,Dial,x", u"0,BUSY", Call("00001 00204 -", '7', "00000")},
        {u"0163,020123,main,,GSM/gsm2-1,Local/204@u-2,Dial,x", kAnswered,
         Call("00002 00000 0163", '2', "00060", "020123")},
        {u"0163,204,main,,SIP/PRI-1,SIP/BRI-2,Dial,x", kAnswered, Call("00001 00204 0163", '0')},
        {u"+163296,204,main,,Local/204@m-1,,NoOp,Finish if-simple-call", kAnswered, Call("00001 00204 +163296", '0')},
        {u"201,204,main,,Local/204@m-1,,NoOp,Finish if-simple-call", kAnswered, "rejected"},
        {u"206,207,macro-outgoing-call,,SIP/206-1,SIP/207-2,Dial,x", kAnswered, "rejected"},
        {u"0163,204,main,,SIP/BRI-1,SIP/204-2,MYSQL,x", kAnswered, Call("00001 00204 0163", '0')},
        {u"0163,204,main,,SIP/PRI-1,SIP/204-2,Dial,x", u"60,FAILED", "rejected"},
    };
    for (const auto& row : rows) {
        const std::u16string record = u"," + row.parties + u",2026-06-15 09:10:00,,,70," + row.outcome;
        EXPECT_EQ(Convert(u"TYPE10013", record), row.fields) << Shown(record);
    }
    for (const auto* leg : {u"RxFAX,x", u"TXFAX,x", u"MacroExit,x", u"Read,x", u"Playback,x", u"VoiceMail,x",
                            u"MYSQL,x", u"BackTicks,x", u"Dial,Fax received"})
        EXPECT_EQ(Convert(u"TYPE10013", std::u16string(u",0163,204,main,,SIP/BRI-1,,") + leg +
                                            u",2026-06-15 09:10:00,,,70,60,ANSWERED"),
                  "rejected")
            << Shown(leg);
    EXPECT_EQ(Convert(u"TYPE10013", u"\"98\",1,2,,,SIP/BRI-1,,,,2026-06-15 09:10:00,,,1,1,ANSWERED"),
              "00001 00002 1 0098 0/0/0 0000 00001 15.06.26 09:10 -");
    for (const auto* record : {u"\"1234\",\"2\",\"3\"",
                               u",src,dst,dcontext,clid,channel,dstchannel,lastapp,lastdata,"
                               u"start,answer,end,duration,billsec,ANSWERED"})
        EXPECT_EQ(Convert(u"TYPE10013", record), "rejected");
}

}  // namespace
}  // namespace vintrel::server
