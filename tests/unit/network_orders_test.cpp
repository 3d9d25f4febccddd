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
    /// The order against each faulty peer, and how long it takes: all leave nothing open and let the next order work.
    /// @param cut  an answer before the connection fails
    void ExpectErrors(const std::u16string& type, const std::string& good_answer, const std::string& cut,
                      const std::vector<std::pair<PeerScript, std::uint64_t>>& others = {}) {
        std::vector<std::pair<PeerScript, std::uint64_t>> faults{{PeerScript::Refusing(), 1},
                                                                 {PeerScript::Absent(), 10000},
                                                                 {PeerScript::Silent(), 10000},
                                                                 {EndingAt(30, server::TransferState::Failed, cut), 30},
                                                                 {Dripping("<response>" + good_answer), 10000},
                                                                 {Endless(), 1025}};
        faults.insert(faults.end(), others.begin(), others.end());
        for (std::size_t i = 0; i < faults.size(); ++i) {
            const std::uint64_t before = clock.milliseconds;
            network.scripts = {faults[i].first};
            EXPECT_EQ(CheckOut(type, false), "<ERROR>") << "fault " << i;
            EXPECT_EQ(clock.milliseconds - before, faults[i].second) << "fault " << i;
            EXPECT_EQ(network.alive, 0) << "fault " << i;
            network.scripts = {PeerScript::Answering(good_answer)};
            EXPECT_EQ(CheckOut(type, false), "<OK>") << "after fault " << i;
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
    const std::u16string type = u"TYPE10012";
    const auto wake_up = [&](std::int16_t mode, std::int16_t language) {
        return WakeUp(type, {.room = 201, .time = u"0730", .date = u"1511", .mode = mode, .language = language});
    };
    network.scripts.assign(8, PeerScript::Answering(kShowOk));
    for (const std::string& verdict :
         {wake_up(0, 4), wake_up(2, 7), wake_up(1, 3), CheckIn(type, u"M&M Rossi", 0, true),
          CheckIn(type, u"Rossi", 0, false), CheckOut(type, true), CheckOut(type, false), UserName(type, u"Rossi")})
        EXPECT_EQ(verdict, "<OK>");
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
    for (const auto& [answer, verdict] : std::map<std::string, std::string>{
             {"  <show state=\"ok\"/> ", "<OK>"}, {"<show state=\"ok\"/>\r\n", "<ERROR>"}, {"", "<ERROR>"}}) {
        network.scripts = {PeerScript::Answering(answer)};
        EXPECT_EQ(CheckOut(u"TYPE10012", false), verdict) << answer;
    }
}

TEST_F(NetworkOrders, InnovaphoneFaultsEndWithinTenSeconds) {
    ExpectErrors(u"TYPE10012", kShowOk, kShowOk);
    network.scripts.clear();
    EXPECT_EQ(CheckOut(u"TYPE10012", false), "<ERROR>");
}

// --- Grandstream -----------------------------------------------------------------------------------------------------

constexpr char kPmsPage[] = "POST https://pbx.hotel:8089/pmsapi?token=ABC&format=xml&data=<pms_data_request>";

TEST_F(NetworkOrders, GrandstreamRequestsCarryTheirDocumentInTheQuery) {
    const std::u16string type = u"TYPE10020";
    network.scripts.assign(7, PeerScript::Answering("<r>SUCCESS</r>"));
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
    const server::DateTime today{.year = 2026, .month = 11, .day = 15, .hour = 23, .minute = 59, .second = 59};
    const server::DateTime leap{.year = 2028, .month = 3, .day = 1};
    const std::tuple<server::DateTime, std::u16string, std::string> cases[] = {
        {today, u"1511", "20261115"}, {today, u"1411", "20271114"}, {today, u"3112", "20261231"},
        {today, u"0101", "20270101"}, {today, u"3002", "20260230"}, {leap, u"2902", "20290229"},
        {today, u"----", "2026----"}, {today, u"1513", "20261315"}, {today, u"", "2026"},
    };
    for (const auto& [now, given, date] : cases) EXPECT_EQ(Shown(WakeUpDate({.date = given}, now)), date) << date;
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
    ExpectErrors(u"TYPE10020", "SUCCESS", "SUCCES", {{{.open_at = 9000}, 19000}});
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

TEST_F(NetworkOrders, IpOfficeTextBeyondAsciiGoesAsNumbers) {
    network.scripts = {PeerScript::Answering(kTransferred)};
    EXPECT_EQ(CheckIn(u"TYPE10017", u"Ren\u00E9 <\U0001F600> & \xD800", 0, true), "<OK>");
    EXPECT_NE(network.sent.find("Ren&#233; &lt;&#128512;&gt; & &#65533;&lt;/FullName&gt;"), std::string::npos);
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
    ExpectErrors(u"TYPE10017", kTransferred, "&lt;ConfigTransferred&gt;True",
                 {{{.open_at = 9000}, 19000},
                  {{.pieces = {{40, "HTTP/1.1 500 Internal Server Error\r\n"}}}, 40},
                  {EndingAt(30, server::TransferState::Finished, "&lt;ConfigTransferred&gt;False"), 30}});
}

// --- all -------------------------------------------------------------------------------------------------------------

TEST_F(NetworkOrders, AnOrderDuringAnotherIsRefusedAndDisturbsNothing) {
    std::vector<std::string> verdicts;
    loop.Schedule(100, [&] {
        for (const auto* type : {u"TYPE10012", u"TYPE10017", u"TYPE10019", u"TYPE10020", u"TYPE12000"})
            verdicts.push_back(CheckOut(type, false));
    });
    network.scripts = {{.pieces = {{2000, kShowOk}}, .end_at = 2000}};
    EXPECT_EQ(CheckIn(u"TYPE10012", u"Rossi", 0, true), "<OK>");
    EXPECT_EQ(verdicts, (std::vector<std::string>{"<ERROR>", "<ERROR>", "<ERROR>", "<ERROR>", "<STX>GO|RN204|<ETX>"}));
    EXPECT_EQ(network.requests.size() + network.called.size(), 1U);
    EXPECT_TRUE(telephony.opened.empty());
}

}  // namespace
}  // namespace vintrel::tx
