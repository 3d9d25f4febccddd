// Orders that the server carries out over the network: innovaphone, Grandstream, IP Office.
#include <gtest/gtest.h>

#include "order_fakes.h"
#include "printing.h"
#include "tx/guests.h"
#include "tx/wake_up.h"

namespace vintrel::tx {
namespace {

using testing::PeerScript;
using testing::Shown;

constexpr char kShowOk[] = "<show state=\"ok\"/>";
constexpr char kTransferred[] = "&lt;ConfigTransferred&gt;True&lt;/ConfigTransferred&gt;";

class NetworkOrders : public ::testing::Test, protected testing::OrderBench {
 protected:
    std::string WakeUp(std::u16string type, const WakeUpOrder& order) {
        return Shown(ComEventClockTX(type, order.room, order.time, order.date, order.mode, order.language, message,
                                     clock, exchanges));
    }
    std::string CheckIn(std::u16string type, std::u16string_view name, std::int16_t language, bool change_name) {
        return Shown(ComEventCheckInTX(type, 204, name, language, change_name ? 1 : 0, message, exchanges));
    }
    std::string CheckOut(std::u16string type, bool change_name) {
        return Shown(ComEventCheckOutTX(type, 204, change_name ? 1 : 0, message, exchanges));
    }
    std::string UserName(std::u16string type, std::u16string_view given) {
        server::InOutText name(given);
        return Shown(ComEventUserNameTX(type, 204, name, message, exchanges));
    }
    /// Carries out the same order against each peer; all must end in time, leave nothing open and let the next work.
    void ExpectErrors(const std::u16string& type, std::vector<std::pair<PeerScript, std::uint64_t>> faults,
                      const std::string& good_answer) {
        int row = 0;
        for (auto& [script, limit] : faults) {
            const std::uint64_t before = clock.milliseconds;
            network.scripts = {std::move(script)};
            EXPECT_EQ(CheckOut(type, false), "<ERROR>") << "fault " << row;
            EXPECT_EQ(clock.milliseconds - before, limit) << "fault " << row;
            EXPECT_EQ(network.alive, 0) << "fault " << row;
            network.scripts = {PeerScript::Answering(good_answer)};
            EXPECT_EQ(CheckOut(type, false), "<OK>") << "after fault " << row;
            ++row;
        }
    }
    static PeerScript EndingAt(int at, server::TransferState end, std::string piece) {
        return {.pieces = {{at, std::move(piece)}}, .end_at = at, .end = end};
    }
    /// One byte a second, for ever.
    static PeerScript Dripping(const std::string& text) {
        PeerScript script;
        for (std::size_t i = 0; i < text.size(); ++i)
            script.pieces.emplace_back(1000 * static_cast<int>(i + 1), text.substr(i, 1));
        return script;
    }
    static PeerScript Endless() {
        PeerScript script;
        for (int i = 1; i < 3000; ++i) script.pieces.emplace_back(i, std::string(1024, 'x'));
        return script;
    }
};

// --- innovaphone -----------------------------------------------------------------------------------------------------

constexpr char kPage[] = "GET http://pbx.hotel:8080/PBX0/ADMIN/mod_cmd_login.xml?cmd=";

TEST_F(NetworkOrders, InnovaphoneRequestsArePathsOfTheAdministrationPages) {
    settings.WakeupResponseFallback = u"0123";
    const WakeUpOrder order{.room = 201, .time = u"0730", .date = u"1511", .mode = 0, .language = 4};
    const auto with = [&](std::int16_t mode, std::int16_t language) {
        WakeUpOrder changed = order;
        changed.mode = mode;
        changed.language = language;
        return changed;
    };
    const std::u16string type = u"TYPE10012";
    for (int i = 0; i < 8; ++i) network.scripts.push_back(PeerScript::Answering(kShowOk));
    EXPECT_EQ(WakeUp(type, with(0, 4)), "<OK>");
    EXPECT_EQ(WakeUp(type, with(2, 7)), "<OK>");
    EXPECT_EQ(WakeUp(type, with(1, 3)), "<OK>");
    EXPECT_EQ(CheckIn(type, u"M&M Rossi", 0, true), "<OK>");
    EXPECT_EQ(CheckIn(type, u"Rossi", 0, false), "<OK>");
    EXPECT_EQ(CheckOut(type, true), "<OK>");
    EXPECT_EQ(CheckOut(type, false), "<OK>");
    EXPECT_EQ(UserName(type, u"Rossi"), "<OK>");
    const std::vector<std::string> expected{
        "submit-wakeup&cn=201&name=wakeup-moh-sp&num=&h=07&m=30&s=00&retry=2&to=300&fallback=123&wakeup=&guid=*",
        "submit-wakeup&cn=201&name=wakeup-moh-en&num=&h=07&m=30&s=00&retry=2&mult=on&to=300&fallback=123&wakeup=&guid="
        "*",
        "submit-wakeup&cn=201&name=wakeup-moh-fr&num=&h=&m=&s=&retry=2&wakeup=&guid=*",
        "submit-object&cfnr=15&busy-out=1&cn=204&dn=M&M Rossi&filter=checkin&guid=*",
        "submit-object&cfnr=15&busy-out=1&cn=204&filter=checkin&guid=*",
        "submit-object&cfnr=15&busy-out=1&cn=204&dn=&filter=checkout&guid=*",
        "submit-object&cfnr=15&busy-out=1&cn=204&filter=checkout&guid=*",
        "submit-object&cfnr=15&busy-out=1&cn=204&dn=Rossi&guid=*"};
    ASSERT_EQ(network.requests.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(network.requests[i].line, kPage + expected[i]);
        EXPECT_EQ(network.requests[i].credentials, "admin:secret");
        EXPECT_EQ(network.requests[i].header, "");
    }
}

TEST_F(NetworkOrders, InnovaphoneRepeatsItsLastRequestForAnUnknownWakeUpMode) {
    const WakeUpOrder unknown{.room = 9, .time = u"0730", .date = u"1511", .mode = 3};
    network.scripts = {PeerScript::Answering(kShowOk)};
    EXPECT_EQ(WakeUp(u"TYPE10012", unknown), "<ERROR>");
    EXPECT_TRUE(network.requests.empty());
    EXPECT_EQ(CheckOut(u"TYPE10012", false), "<OK>");
    network.scripts = {PeerScript::Answering(kShowOk)};
    EXPECT_EQ(WakeUp(u"TYPE10012", unknown), "<OK>");
    ASSERT_EQ(network.requests.size(), 2U);
    EXPECT_EQ(network.requests[0].line, network.requests[1].line);
}

TEST_F(NetworkOrders, InnovaphoneConfirmsWithExactlyOneElement) {
    const std::pair<std::string, std::string> cases[] = {
        {"  <show state=\"ok\"/> ", "<OK>"},
        {"<show state=\"ok\"/>\r\n", "<ERROR>"},
        {"<show state=\"ok\" x=\"1\"/>", "<ERROR>"},
        {"<show state=\"failed\"/>", "<ERROR>"},
        {"", "<ERROR>"},
    };
    for (const auto& [answer, verdict] : cases) {
        network.scripts = {PeerScript::Answering(answer)};
        EXPECT_EQ(CheckOut(u"TYPE10012", false), verdict) << answer;
    }
}

TEST_F(NetworkOrders, InnovaphoneFaultsEndWithinTenSeconds) {
    ExpectErrors(u"TYPE10012",
                 {{PeerScript::Refusing(), 1},
                  {PeerScript::Absent(), 10000},
                  {PeerScript::Silent(), 10000},
                  {EndingAt(30, server::TransferState::Failed, kShowOk), 30},
                  {Dripping(kShowOk), 10000},
                  {Endless(), 1025}},
                 kShowOk);
    network.scripts.clear();
    EXPECT_EQ(CheckOut(u"TYPE10012", false), "<ERROR>");
}

// --- Grandstream -----------------------------------------------------------------------------------------------------

constexpr char kPmsPage[] = "POST https://pbx.hotel:8089/pmsapi?token=ABC&format=xml&data=<pms_data_request>";

TEST_F(NetworkOrders, GrandstreamRequestsCarryTheirDocumentInTheQuery) {
    const std::u16string type = u"TYPE10020";
    for (int i = 0; i < 7; ++i) network.scripts.push_back(PeerScript::Answering("<r>SUCCESS</r>"));
    for (std::int16_t mode = 0; mode <= 3; ++mode)
        EXPECT_EQ(WakeUp(type, {.room = 204, .time = u"0730", .date = u"1511", .mode = mode}), "<OK>");
    EXPECT_EQ(CheckIn(type, u"Anna & Co", 4, false), "<OK>");
    EXPECT_EQ(CheckIn(type, u"", 5, true), "<OK>");
    EXPECT_EQ(CheckOut(type, true), "<OK>");
    EXPECT_EQ(UserName(type, u"Rossi"), "");
    const std::string wake_up = "<wakeup><address>204</address><room>204</room>";
    const std::string at = "<w_time>0730</w_time><w_date>20261115</w_date></wakeup>";
    const std::string check_in = "<checkin><address>204</address><room>204</room><account>204</account>";
    const std::string until =
        "<lastname></lastname><datein>20261115 00:01</datein><dateout>23991231 23:59</dateout>"
        "<cos>4</cos></checkin>";
    const std::vector<std::string> expected{
        wake_up + "<w_action>1</w_action><w_mode>1</w_mode>" + at,
        wake_up + "<w_action>0</w_action><w_mode>1</w_mode>" + at,
        wake_up + "<w_action>1</w_action><w_mode>2</w_mode>" + at,
        wake_up + at,
        check_in + "<language>ES_ES</language><firstname>Anna & Co</firstname>" + until,
        check_in + "<language></language><firstname></firstname>" + until,
        "<checkout><address>10</address><room>10</room><firstname></firstname><lastname></lastname></checkout>"};
    ASSERT_EQ(network.requests.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(network.requests[i].line, kPmsPage + expected[i] + "</pms_data_request>");
        EXPECT_EQ(network.requests[i].header, "format: xml");
        EXPECT_EQ(network.requests[i].credentials, "admin:secret");
        EXPECT_EQ(network.requests[i].ignored_certificate_errors, 13056U);
    }
}

TEST(GrandstreamDate, IsTodayOrLater) {
    struct Case {
        int line;
        server::DateTime today;
        std::u16string given;
        std::string date;
    };
    const server::DateTime today{.year = 2026, .month = 11, .day = 15, .hour = 23, .minute = 59, .second = 59};
    const server::DateTime leap{.year = 2028, .month = 3, .day = 1};
    const Case cases[] = {
        {__LINE__, today, u"1511", "20261115"}, {__LINE__, today, u"1411", "20271114"},
        {__LINE__, today, u"3112", "20261231"}, {__LINE__, today, u"0101", "20270101"},
        {__LINE__, today, u"3002", "20260230"}, {__LINE__, today, u"2902", "20260229"},
        {__LINE__, leap, u"2902", "20290229"},  {__LINE__, today, u"----", "2026----"},
        {__LINE__, today, u"1513", "20261315"}, {__LINE__, today, u"", "2026"},
    };
    for (const Case& row : cases)
        EXPECT_EQ(Shown(WakeUpDate({.date = row.given}, row.today)), row.date) << "case in line " << row.line;
}

TEST_F(NetworkOrders, GrandstreamConfirmsWithTheSuccessWordAnywhere) {
    // Split over two reads, and the peer never ends its answer: the word is enough.
    network.scripts = {{.pieces = {{10, "<a>SUCC"}, {4000, "ESS and"}}}};
    EXPECT_EQ(CheckOut(u"TYPE10020", false), "<OK>");
    EXPECT_EQ(Elapsed(), 4000U);
    network.scripts = {PeerScript::Answering("<a>success</a>")};
    EXPECT_EQ(CheckOut(u"TYPE10020", false), "<ERROR>");
}

TEST_F(NetworkOrders, GrandstreamFaultsEndWithinTenSecondsInEachPhase) {
    ExpectErrors(u"TYPE10020",
                 {{PeerScript::Refusing(), 1},
                  {PeerScript::Absent(), 10000},
                  {PeerScript::Silent(), 10000},
                  {{.open_at = 9000}, 19000},
                  {EndingAt(30, server::TransferState::Failed, "SUCCES"), 30},
                  {Dripping("<response>SUCCESS"), 10000},
                  {Endless(), 1025}},
                 "SUCCESS");
}

TEST_F(NetworkOrders, GrandstreamSendsNothingToAnAddressThatIsNone) {
    for (const std::u16string_view url :
         {u"", u"https://:8089/pmsapi?", u"https://pbx:0/pmsapi?", u"https://pbx:65536/p", u"https://pbx:-1/p",
          u"https://pbx/p", u"http://pbx:80/p", u"https://pbx:80"}) {
        settings.GsBaseUrl = url;
        network.scripts = {PeerScript::Answering("SUCCESS")};
        EXPECT_EQ(CheckOut(u"TYPE10020", false), "<ERROR>") << Shown(url);
    }
    EXPECT_TRUE(network.requests.empty());
    settings.GsBaseUrl = u"https://[fe80::1]:443/pmsapi?data=";
    EXPECT_EQ(CheckOut(u"TYPE10020", false), "<OK>");
    EXPECT_EQ(network.requests[0].line.substr(0, 36), "POST https://[fe80::1]:443/pmsapi?da");
}

// --- IP Office -------------------------------------------------------------------------------------------------------

/// The configuration document inside the last request.
std::string SentConfiguration(const std::string& sent) {
    const std::string start = "<configurationData>";
    const std::size_t from = sent.find(start) + start.size();
    return sent.substr(from, sent.find("</configurationData>") - from);
}

TEST_F(NetworkOrders, IpOfficeRequestIsAHeaderAndABodyWhoseLengthItTells) {
    network.scripts = {PeerScript::Answering(kTransferred)};
    EXPECT_EQ(CheckOut(u"TYPE10017", false), "<OK>");
    EXPECT_EQ(network.called, std::vector<std::string>{"ipo.hotel:8085"});
    const std::size_t end = network.sent.find("\r\n\r\n");
    ASSERT_NE(end, std::string::npos);
    const std::string body = network.sent.substr(end + 4);
    const std::string header = network.sent.substr(0, end + 4);
    EXPECT_TRUE(header.starts_with(
        "POST /IPOConfigurationService HTTP/1.1\r\nUser-Agent: Mozilla/4.0 (compatible; MSIE 6.0; MS Web Services "
        "Client Protocol 4.0.30319.42000)\r\nContent-Type: text/xml; charset=utf-8\r\nSOAPAction: \""))
        << header;
    EXPECT_TRUE(
        header.ends_with("/IPOConfigService/SetUnitConfiguration\"\r\nHost: ipo.hotel:8085\r\nContent-Length: " +
                         std::to_string(body.size()) + "\r\nExpect: 100-continue\r\n\r\n"))
        << header;
    EXPECT_NE(body.find("\"><unitIPAddress>pbx.hotel</unitIPAddress><portNumber>8080</portNumber>"
                        "<accountName>admin</accountName><accountPassword>secret</accountPassword>"),
              std::string::npos);
    EXPECT_TRUE(
        body.ends_with("<batchTransaction>true</batchTransaction></SetUnitConfiguration></soap:Body>"
                       "</soap:Envelope>"));
}

TEST_F(NetworkOrders, IpOfficeConfigurationNamesTheUserOfTheRoom) {
    const std::string head =
        "&lt;?xml version=\"1.0\" encoding=\"utf-8\"?&gt;&lt;AvayaIPOConfiguration Version=\"1.0\"&gt;"
        "&lt;Users&gt;&lt;User Guid=\"0a1b2c\" Opp=\"Update\"&gt;";
    const std::string tail = "&lt;/User&gt;&lt;/Users&gt;&lt;/AvayaIPOConfiguration&gt;";
    const auto sent = [&] {
        network.scripts = {PeerScript::Answering(kTransferred)};
        return SentConfiguration(network.sent);
    };
    network.scripts = {PeerScript::Answering(kTransferred)};
    EXPECT_EQ(CheckIn(u"TYPE10017", u"Ren\u00E9 <\U0001F600> & \xD800", 0, true), "<OK>");
    EXPECT_EQ(sent(), head +
                          "&lt;UserRights&gt;CheckIn&lt;/UserRights&gt;&lt;FullName&gt;"
                          "Ren&#233; &lt;&#128512;&gt; & &#65533;&lt;/FullName&gt;" +
                          tail);
    EXPECT_EQ(CheckIn(u"TYPE10017", u"Rossi", 0, false), "<OK>");
    EXPECT_EQ(sent(), head + "&lt;UserRights&gt;CheckIn&lt;/UserRights&gt;" + tail);
    EXPECT_EQ(CheckOut(u"TYPE10017", true), "<OK>");
    EXPECT_EQ(sent(), head + "&lt;UserRights&gt;CheckOut&lt;/UserRights&gt;&lt;FullName&gt;&lt;/FullName&gt;" + tail);
    EXPECT_EQ(UserName(u"TYPE10017", u"Rossi"), "<OK>");
    EXPECT_EQ(sent(), head + "&lt;FullName&gt;Rossi&lt;/FullName&gt;" + tail);
}

TEST_F(NetworkOrders, IpOfficeWithoutHotelFunctionsSendsNothing) {
    settings.HotelEnabled = false;
    EXPECT_EQ(CheckOut(u"TYPE10017", true), "<OK>");
    EXPECT_TRUE(network.called.empty());
}

TEST_F(NetworkOrders, IpOfficeAnswerIsRecognisedAcrossReads) {
    const std::string answer = "HTTP/1.1 100 Continue\r\n\r\n" + std::string(kTransferred);
    PeerScript script;
    for (std::size_t i = 0; i < answer.size(); ++i)
        script.pieces.emplace_back(static_cast<int>(i) + 10, answer.substr(i, 1));
    network.scripts = {script};
    EXPECT_EQ(CheckOut(u"TYPE10017", false), "<OK>");
    EXPECT_EQ(Elapsed(), answer.size() + 9);
}

TEST_F(NetworkOrders, IpOfficeFaultsEndWithinTenSecondsOfConnectingAndTenOfAnswering) {
    ExpectErrors(u"TYPE10017",
                 {{PeerScript::Refusing(), 1},
                  {PeerScript::Absent(), 10000},
                  {PeerScript::Silent(), 10000},
                  {{.open_at = 9000}, 19000},
                  {{.pieces = {{40, "HTTP/1.1 500 Internal Server Error\r\n"}}}, 40},
                  {EndingAt(30, server::TransferState::Failed, "&lt;ConfigTransferred&gt;True"), 30},
                  {EndingAt(30, server::TransferState::Finished, "&lt;ConfigTransferred&gt;False"), 30},
                  {Dripping(kTransferred), 10000},
                  {Endless(), 1025}},
                 kTransferred);
}

// --- all -------------------------------------------------------------------------------------------------------------

TEST_F(NetworkOrders, AnOrderDuringAnotherIsRefusedAndDisturbsNothing) {
    std::vector<std::string> verdicts;
    loop.Schedule(100, [&] {
        verdicts.push_back(CheckOut(u"TYPE10012", false));
        verdicts.push_back(CheckOut(u"TYPE10017", false));
        verdicts.push_back(CheckOut(u"TYPE10019", false));
        verdicts.push_back(CheckOut(u"TYPE10020", false));
        verdicts.push_back(CheckOut(u"TYPE12000", false));
    });
    network.scripts = {{.pieces = {{2000, kShowOk}}, .end_at = 2000}};
    EXPECT_EQ(CheckIn(u"TYPE10012", u"Rossi", 0, true), "<OK>");
    EXPECT_EQ(verdicts, (std::vector<std::string>{"<ERROR>", "<ERROR>", "<ERROR>", "<ERROR>", "<STX>GO|RN204|<ETX>"}));
    EXPECT_EQ(network.requests.size() + network.called.size(), 1U);
    EXPECT_TRUE(telephony.opened.empty());
}

}  // namespace
}  // namespace vintrel::tx
