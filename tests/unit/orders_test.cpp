// Orders: those that the host transmits itself, and those that the server carries out over the network or on a
// telephony line.
#include <gtest/gtest.h>

#include "exchanges/grandstream/grandstream.h"
#include "server/orders.h"
#include "test_server.h"

namespace vintrel::server {
namespace {

using testing::FakeTelephony;
using testing::PeerScript;
using testing::Shown;
using WakeUpOrder = exchanges::WakeUpOrder;

/// A server whose exchanges are set up.
struct OrderBench : testing::TestServer {
    OrderBench() {
        settings.PbxHost = u"pbx.hotel";
        settings.PbxPort = 8089;
        Initialize(u"TYPE10020");
        Ini(u"IP_OFFICE", u"host") = u"ipo.hotel";
        Ini(u"IP_OFFICE", u"port") = u"8085";
        Ini(u"USERS", u"204") = u" 0a1b2c ";
        Initialize(u"TYPE10017");
        settings.PbxPort = 8080;
        settings.PbxUser = u"admin";
        settings.PbxPassword = u"secret";
    }

    // The four orders, as a host gives them: what they answer, in readable form.
    std::string WakeUp(std::u16string type, const WakeUpOrder& order) {
        return Shown(
            ComEventClockTX(type, order.room, order.time, order.date, order.mode, order.language, exchanges, message));
    }
    std::string CheckIn(std::u16string type, std::u16string_view name, std::int16_t language = 0,
                        std::int16_t change_name = 0, std::int32_t room = 204) {
        return Shown(ComEventCheckInTX(type, room, name, language, change_name, exchanges, message));
    }
    std::string CheckOut(std::u16string type, std::int16_t change_name = 0, std::int32_t room = 204) {
        return Shown(ComEventCheckOutTX(type, room, change_name, exchanges, message));
    }
    std::string UserName(std::u16string type, std::u16string_view given = u"Rossi", std::int32_t room = 204) {
        text::InOutText name(given);
        const std::u16string answer = ComEventUserNameTX(type, room, name, exchanges, message);
        caller_name = name.View();
        return Shown(answer);
    }
    std::u16string caller_name;  ///< the caller's variable after the last UserName
};

// --- commands that the host transmits --------------------------------------------------------------------------------

TEST(WakeUpCommand, IsWhatTheModelExpects) {
    const struct {
        const char16_t* type;
        WakeUpOrder order;
        std::string command;
    } cases[] = {
        {u"TYPE10001", {123, u"0730", u"1511", 0}, "<STX>070012307301<ETX>"},
        {u"type10002", {5, u"0630", u"1511", 1}, "<STX>070000506301<ETX>"},
        {u"TYPE10007", {123456, u"0630", u"1511", 7}, "<STX>0712345606301<ETX>"},
        {u"TYPE10004", {204, u"0715", u"1511", 0}, "h6<TAB>204<TAB>1<TAB>0715<CR>"},
        {u"TYPE10006", {204, u"0715", u"1511", 1}, "h6<TAB>204<TAB>0<TAB>0715<CR>"},
        {u"TYPE10016", {204, u"715", u"1511", 2}, "h6<TAB>204<TAB>2<TAB>715<CR>"},
        {u"TYPE10014", {204, u"0715", u"1511", 3}, ""},
        {u"TYPE10008", {204, u"0715", u"1511", -1}, ""},
        {u"TYPE12000", {123, u"0730", u"1511", 0}, "<STX>WR|RN123|DA261115|TI073000|<ETX>"},
        {u"TYPE12000", {123, u"0730", u"0101", 1}, "<STX>WC|RN123|DA260101|TI073000|<ETX>"},
        {u"TYPE12000", {123, u"0730", u"----", 0}, "<STX>WR|RN123|TI073000|<ETX>"},
        {u"TYPE12000", {123, u"0730", u"1511", 2}, ""},
        {u"TYPE10003", {123, u"0730", u"1511", 0}, ""},
        {u"TYPE10017", {123, u"0730", u"1511", 0}, ""},
    };
    OrderBench bench;
    for (const auto& [type, order, command] : cases)
        EXPECT_EQ(bench.WakeUp(type, order), command) << Shown(type) << " mode " << order.mode;
    EXPECT_TRUE(bench.message.texts.empty());
}

TEST(GuestCommand, IsWhatTheModelExpects) {
    const struct {
        std::u16string type;
        std::int32_t room;
        std::u16string name;
        std::int16_t language;
        std::string expected;  ///< check-in, check-out and name
    } cases[] = {
        {u"TYPE10001", 123, u" Rossi ", 0, "<STX>040012311<ETX> <STX>040012322<ETX> <STX>0600123 Rossi <ETX>"},
        {u"TYPE10001", 123456, u"", 0, "<STX>0412345611<ETX> <STX>0412345622<ETX> <STX>06123456<ETX>"},
        {u"TYPE10002", 305, u"   ", 0, "<STX>040030511<ETX> <STX>040030522<ETX> <STX>0600305305<ETX>"},
        {u"TYPE10007", 305, u"   ", 0, "<STX>040030511<ETX> <STX>040030522<ETX> <STX>0600305   <ETX>"},
        {u"TYPE10004", 204, u"Xi", 0, "h5<TAB>204<TAB>1<CR> h5<TAB>204<TAB>0<CR> h4<TAB>204<TAB>Xi<CR>"},
        {u"TYPE10016", 204, u"  ", 0, "h5<TAB>204<TAB>1<CR> h5<TAB>204<TAB>0<CR> h4<TAB>204<TAB>  <CR>"},
        {u"TYPE12000", 101, u" Xi ", 1, "<STX>GI|RN101|GNXi|GLIT|<ETX> <STX>GO|RN101|<ETX> <STX>GC|RN101|GNXi|<ETX>"},
        {u"TYPE12000", 101, u"", 9, "<STX>GI|RN101|<ETX> <STX>GO|RN101|<ETX> <STX>GC|RN101|GN|<ETX>"},
        {u"TYPE10018", 101, u"Rossi", 0, "  "},
    };
    OrderBench bench;
    for (const auto& [type, room, name, language, expected] : cases) {
        const std::string in = bench.CheckIn(type, name, language, 0, room);
        const std::string out = bench.CheckOut(type, 0, room);
        EXPECT_EQ(in + " " + out + " " + bench.UserName(type, name, room), expected);
        EXPECT_EQ(bench.caller_name, name);
    }
    EXPECT_TRUE(bench.message.texts.empty());
}

TEST(Language, HasAWordOfEachExchange) {
    const struct {
        std::string fias, innovaphone, grandstream;
    } words[] = {{"GLGE|", "de", "DE"},
                 {"GLIT|", "it", "IT"},
                 {"GLEA|", "en", "EN"},
                 {"GLFR|", "fr", "FR"},
                 {"GLSP|", "sp", "ES_ES"}};
    for (std::int16_t language = 0; language < 5; ++language) {
        OrderBench bench;
        const auto& word = words[language];
        EXPECT_EQ(bench.CheckIn(u"TYPE12000", u"", language), "<STX>GI|RN204|" + word.fias + "<ETX>");
        bench.network.scripts.resize(2);
        bench.WakeUp(u"TYPE10012", {.room = 204, .time = u"0730", .mode = 0, .language = language});
        bench.CheckIn(u"TYPE10020", u"", language);
        EXPECT_NE(bench.network.requests.at(0).find("wakeup-moh-" + word.innovaphone + "&"), std::string::npos);
        EXPECT_NE(bench.network.requests.at(1).find("<language>" + word.grandstream + "<"), std::string::npos);
    }
}

TEST(GuestCommand, ReplacesAnEmptyOrNumericMitelNameInTheCallersVariable) {
    OrderBench bench;
    for (const std::u16string_view given : {u"", u" ", u"12", u" 1,5 "}) {
        EXPECT_EQ(bench.UserName(u"TYPE10008", given), "h4<TAB>204<TAB>I204<CR>");
        EXPECT_EQ(Shown(bench.caller_name), "I204");
    }
}

TEST(Order, OfAnUnknownModelIsReportedUnderItsName) {
    OrderBench bench;
    std::u16string type = u"type10099";
    text::InOutText name(u"Rossi");
    EXPECT_EQ(ComEventUserNameTX(type, 1, name, bench.exchanges, bench.message), u"");
    EXPECT_EQ(type, u"TYPE10099");
    EXPECT_FALSE(name.Replaced());
    for (const std::string& answer : {bench.WakeUp(type, {}), bench.CheckIn(type, u"Rossi"), bench.CheckOut(type)})
        EXPECT_EQ(answer, "");
    std::u16string reports;
    for (const std::u16string& text : bench.message.texts) reports += text;
    EXPECT_EQ(Shown(reports),
              "ComEventUserNameTX: FATAL ERROR !ComEventClockTX: FATAL ERROR !"
              "ComEventCheckInTX: FATAL ERROR !ComEventCheckOutTX: FATAL ERROR !");
}

// --- over the network ------------------------------------------------------------------------------------------------

constexpr char kShowOk[] = "<show state=\"ok\"/>";
constexpr char kTransferred[] = "&lt;ConfigTransferred&gt;True&lt;/ConfigTransferred&gt;";

class NetworkOrders : public ::testing::Test, protected OrderBench {
 protected:
    /// Requests with the same start and end.
    void ExpectRequests(const std::string& start, const std::vector<std::string>& middles, const std::string& end) {
        ASSERT_EQ(network.requests.size(), middles.size());
        for (std::size_t i = 0; i < middles.size(); ++i) EXPECT_EQ(network.requests[i], start + middles[i] + end);
    }
    /// The order against each faulty peer, and how long it takes: all leave nothing open and let the next order work.
    /// @param cut  an answer before the connection fails
    void ExpectErrors(const std::u16string& type, const std::string& good_answer, const std::string& cut,
                      const std::vector<std::pair<PeerScript, std::uint64_t>>& others = {}) {
        constexpr int kNever = PeerScript::kNever;
        constexpr auto kFailed = platform::TransferState::Failed;
        std::vector<std::pair<PeerScript, std::uint64_t>> faults{
            {{.open_at = kNever, .end_at = 1, .end = kFailed}, 1},                    // refuses
            {{.open_at = kNever}, 10000},                                             // is absent
            {{}, 10000},                                                              // is silent
            {{.pieces = {{30, cut}}, .end_at = 30, .end = kFailed}, 30},              // is cut off
            {Piecemeal("<response>" + good_answer, 1000), 10000},                     // drips a byte a second
            {Piecemeal(std::string(std::size_t{3000} * 1024, 'x'), 1, 1024), 1025}};  // never ends
        faults.insert(faults.end(), others.begin(), others.end());
        for (const auto& [script, milliseconds] : faults) {
            const std::uint64_t before = clock.milliseconds;
            network.scripts = {script};
            EXPECT_EQ(CheckOut(type), "<ERROR>") << "fault that takes " << milliseconds;
            EXPECT_EQ(clock.milliseconds - before, milliseconds);
            EXPECT_EQ(network.alive, 0);
            network.scripts = {PeerScript::Answering(good_answer)};
            EXPECT_EQ(CheckOut(type), "<OK>") << "the next order";
        }
    }
    /// Some bytes every few milliseconds.
    static PeerScript Piecemeal(const std::string& text, int every, std::size_t size = 1) {
        PeerScript script;
        for (int at = every; script.pieces.size() * size < text.size(); at += every)
            script.pieces.emplace_back(at, text.substr(script.pieces.size() * size, size));
        return script;
    }
};

// --- innovaphone -----------------------------------------------------------------------------------------------------

TEST_F(NetworkOrders, InnovaphoneRequestsArePathsOfTheAdministrationPages) {
    Ini(u"WAKEUP_RESPONSE", u"Fallback") = u"0123";
    Initialize(u"TYPE10012");
    const std::u16string type = u"TYPE10012";
    const auto wake_up = [&](std::int16_t mode, std::int16_t language) {
        return WakeUp(type, {.room = 201, .time = u"0730", .date = u"1511", .mode = mode, .language = language});
    };
    network.scripts.assign(8, PeerScript::Answering(kShowOk));
    for (const std::string& verdict :
         {wake_up(0, 4), wake_up(2, 7), wake_up(1, 3), CheckIn(type, u"M&M Rossi", 0, 1), CheckIn(type, u"Rossi", 0, 2),
          CheckOut(type, 1), CheckOut(type, -1), UserName(type)})
        EXPECT_EQ(verdict, "<OK>");
    const std::string wake = "submit-wakeup&cn=201&name=wakeup-moh-";
    const std::string guest = "submit-object&cfnr=15&busy-out=1&cn=204";
    ExpectRequests(
        "GET http://pbx.hotel:8080/PBX0/ADMIN/mod_cmd_login.xml?cmd=",
        {wake + "sp&num=&h=07&m=30&s=00&retry=2&to=300&fallback=123&wakeup=",
         wake + "en&num=&h=07&m=30&s=00&retry=2&mult=on&to=300&fallback=123&wakeup=",
         wake + "fr&num=&h=&m=&s=&retry=2&wakeup=", guest + "&dn=M&M Rossi&filter=checkin", guest + "&filter=checkin",
         guest + "&dn=&filter=checkout", guest + "&filter=checkout", guest + "&dn=Rossi"},
        "&guid=*\n\nadmin:secret 0");
}

TEST_F(NetworkOrders, InnovaphoneRepeatsItsLastRequestForAnUnknownWakeUpMode) {
    const WakeUpOrder unknown{.room = 9, .time = u"0730", .date = u"1511", .mode = 3};
    network.scripts.assign(2, PeerScript::Answering(kShowOk));
    EXPECT_EQ(WakeUp(u"TYPE10012", unknown), "<ERROR>");
    EXPECT_TRUE(network.requests.empty());
    EXPECT_EQ(CheckOut(u"TYPE10012"), "<OK>");
    EXPECT_EQ(WakeUp(u"TYPE10012", unknown), "<OK>");
    EXPECT_EQ(network.requests.at(0), network.requests.at(1));
}

TEST_F(NetworkOrders, InnovaphoneConfirmsWithExactlyOneElementAndFaultsEndWithinTenSeconds) {
    for (const auto& [answer, verdict] : std::map<std::string, std::string>{
             {"  <show state=\"ok\"/> ", "<OK>"}, {"<show state=\"ok\"/>\r\n", "<ERROR>"}, {"", "<ERROR>"}}) {
        network.scripts = {PeerScript::Answering(answer)};
        EXPECT_EQ(CheckOut(u"TYPE10012"), verdict) << answer;
    }
    ExpectErrors(u"TYPE10012", kShowOk, kShowOk);
    network.scripts.clear();
    EXPECT_EQ(CheckOut(u"TYPE10012"), "<ERROR>");
}

// --- Grandstream -----------------------------------------------------------------------------------------------------

TEST_F(NetworkOrders, GrandstreamRequestsCarryTheirDocumentInTheQuery) {
    const std::u16string type = u"TYPE10020";
    network.scripts.assign(7, PeerScript::Answering("<r>SUCCESS</r>"));
    for (std::int16_t mode = 0; mode <= 3; ++mode)
        EXPECT_EQ(WakeUp(type, {.room = 204, .time = u"0730", .date = u"1511", .mode = mode}), "<OK>");
    EXPECT_EQ(CheckIn(type, u"Anna & Co", 4, 0), "<OK>");
    EXPECT_EQ(CheckIn(type, u"", 5, 1), "<OK>");
    EXPECT_EQ(CheckOut(type, 1), "<OK>");
    EXPECT_EQ(UserName(type), "");
    const std::string wake_up = "<wakeup><address>204</address><room>204</room>";
    const std::string at = "<w_time>0730</w_time><w_date>20261115</w_date></wakeup>";
    const std::string check_in = "<checkin><address>204</address><room>204</room><account>204</account><language>";
    const std::string until =
        "</firstname><lastname></lastname><datein>20261115 00:01</datein><dateout>23991231 23:59</dateout>"
        "<cos>4</cos></checkin>";
    ExpectRequests(
        "POST https://pbx.hotel:8089/pmsapi?token=&format=xml&data=<pms_data_request>",
        {wake_up + "<w_action>1</w_action><w_mode>1</w_mode>" + at,
         wake_up + "<w_action>0</w_action><w_mode>1</w_mode>" + at,
         wake_up + "<w_action>1</w_action><w_mode>2</w_mode>" + at, wake_up + at,
         check_in + "ES_ES</language><firstname>Anna & Co" + until, check_in + "</language><firstname>" + until,
         "<checkout><address>10</address><room>10</room><firstname></firstname><lastname></lastname></checkout>"},
        "</pms_data_request>\nformat: xml\nadmin:secret 13056");
}

TEST(GrandstreamDate, IsTodayOrLater) {
    const text::DateTime today{.year = 2026, .month = 11, .day = 15, .hour = 23, .minute = 59, .second = 59};
    const text::DateTime leap{.year = 2028, .month = 3, .day = 1};
    const std::tuple<text::DateTime, std::u16string, std::string> cases[] = {
        {today, u"1511", "20261115"}, {today, u"1411", "20271114"}, {today, u"3112", "20261231"},
        {today, u"0101", "20270101"}, {today, u"3002", "20260230"}, {leap, u"2902", "20290229"},
        {today, u"----", "2026----"}, {today, u"1513", "20261315"}, {today, u"", "2026"},
    };
    for (const auto& [now, given, date] : cases)
        EXPECT_EQ(Shown(exchanges::grandstream::WakeUpDate({.date = given}, now)), date) << date;
}

TEST_F(NetworkOrders, GrandstreamConfirmsWithTheSuccessWordAnywhereAndFaultsEndWithinTenSecondsInEachPhase) {
    // Split over two reads, and the peer never ends its answer: the word is enough.
    network.scripts = {{.pieces = {{10, "<a>SUCC"}, {4000, "ESS and"}}}};
    EXPECT_EQ(CheckOut(u"TYPE10020"), "<OK>");
    EXPECT_EQ(Elapsed(), 4000U);
    network.scripts = {PeerScript::Answering("<a>success</a>")};
    EXPECT_EQ(CheckOut(u"TYPE10020"), "<ERROR>");
    ExpectErrors(u"TYPE10020", "SUCCESS", "SUCCES", {{{.open_at = 9000}, 19000}});
}

TEST_F(NetworkOrders, GrandstreamSendsNothingToAnAddressThatIsNone) {
    network.scripts = {PeerScript::Answering("SUCCESS")};
    testing::TestServer fresh;
    std::u16string type = u"TYPE10020";
    fresh.network.scripts = network.scripts;
    EXPECT_EQ(ComEventCheckOutTX(type, 204, 0, fresh.exchanges, message), u"<ERROR>") << "never initialised";
    EXPECT_TRUE(fresh.network.requests.empty());
    const auto address = [&](std::u16string_view host, std::int32_t port) {
        settings.PbxHost = host;
        settings.PbxPort = port;
        Initialize(type);
    };
    for (const auto& [host, port] : {std::pair(u"", 8089), {u"pbx", 0}, {u"pbx", 65536}, {u"pbx", -1}, {u"a/b", 80}}) {
        address(host, port);
        EXPECT_EQ(CheckOut(type), "<ERROR>") << Shown(host) << port;
    }
    EXPECT_TRUE(network.requests.empty());
    address(u"[fe80::1]", 443);
    EXPECT_EQ(CheckOut(u"TYPE10020"), "<OK>");
    EXPECT_EQ(network.requests[0].substr(0, 36), "POST https://[fe80::1]:443/pmsapi?to");
}

// --- IP Office -------------------------------------------------------------------------------------------------------

TEST_F(NetworkOrders, IpOfficeTextBeyondAsciiGoesAsNumbersWhenHotelFunctionsAreOn) {
    network.scripts = {PeerScript::Answering(kTransferred)};
    EXPECT_EQ(
        CheckIn(u"TYPE10017", u"Ren\u00E9 <\U0001F600\U0010FFFF\U00010000>\uD7FF\uE000 & \xDC00\xDFFF \xD800", 0, 1),
        "<OK>");
    EXPECT_NE(network.sent.find("&lt;FullName&gt;Ren&#233; &lt;&#128512;&#1114111;&#65536;&gt;&#55295;&#57344; & "
                                "&#65533;&#65533; &#65533;&lt;/FullName&gt;"),
              std::string::npos);
    settings.HotelEnabled = false;
    EXPECT_EQ(CheckOut(u"TYPE10017", 1), "<OK>");
    EXPECT_EQ(network.called, std::vector<std::string>{"ipo.hotel:8085"}) << "without hotel functions it sends nothing";
}

TEST_F(NetworkOrders, IpOfficeTakesAnUpdateOfTheUserInAnEnvelope) {
    network.scripts = {PeerScript::Answering(kTransferred)};
    EXPECT_EQ(CheckOut(u"TYPE10017", 2), "<OK>");
    const std::string declaration = R"(<?xml version="1.0" encoding="utf-8"?>)";
    const std::string body =
        declaration + R"(<soap:Envelope xmlns:soap="http://schemas.xmlsoap.org/soap/envelope/")" +
        R"( xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" xmlns:xsd="http://www.w3.org/2001/XMLSchema">)" +
        R"(<soap:Body><SetUnitConfiguration xmlns="http://www.avaya.com/ipoconfiguration/2007/01">)" +
        "<unitIPAddress>pbx.hotel</unitIPAddress><portNumber>8080</portNumber><accountName>admin</accountName>"
        "<accountPassword>secret</accountPassword><configurationData>&lt;?xml version=\"1.0\" encoding=\"utf-8\"?&gt;"
        "&lt;AvayaIPOConfiguration Version=\"1.0\"&gt;&lt;Users&gt;&lt;User Guid=\"0a1b2c\" Opp=\"Update\"&gt;"
        "&lt;UserRights&gt;CheckOut&lt;/UserRights&gt;&lt;/User&gt;&lt;/Users&gt;&lt;/AvayaIPOConfiguration&gt;"
        "</configurationData><batchTransaction>true</batchTransaction></SetUnitConfiguration></soap:Body></"
        "soap:Envelope>";
    EXPECT_EQ(network.sent,
              "POST /IPOConfigurationService HTTP/1.1\r\n"
              "User-Agent: Mozilla/4.0 (compatible; MSIE 6.0; MS Web Services Client Protocol 4.0.30319.42000)\r\n"
              "Content-Type: text/xml; charset=utf-8\r\n"
              "SOAPAction: \"http://www.avaya.com/ipoconfiguration/2007/01/IPOConfigService/SetUnitConfiguration\"\r\n"
              "Host: ipo.hotel:8085\r\nContent-Length: " +
                  std::to_string(body.size()) + "\r\nExpect: 100-continue\r\n\r\n" + body);
}

TEST_F(NetworkOrders, IpOfficeFaultsEndWithinTenSecondsOfConnectingAndTenOfAnswering) {
    const std::string answer = "HTTP/1.1 100 Continue\r\n\r\n" + std::string(kTransferred);
    network.scripts = {Piecemeal(answer, 1)};
    EXPECT_EQ(CheckOut(u"TYPE10017"), "<OK>") << "recognised across reads";
    EXPECT_EQ(Elapsed(), answer.size());
    ExpectErrors(u"TYPE10017", kTransferred, "&lt;ConfigTransferred&gt;True",
                 {{{.open_at = 9000}, 19000},
                  {{.pieces = {{40, "HTTP/1.1 500 Internal Server Error\r\n"}}}, 40},
                  {{.pieces = {{30, "&lt;ConfigTransferred&gt;False"}}, .end_at = 30}, 30}});
}

// --- all -------------------------------------------------------------------------------------------------------------

TEST_F(NetworkOrders, AnOrderDuringAnotherIsRefusedAndDisturbsNothing) {
    std::vector<std::string> verdicts;
    loop.Schedule(100, [&] {
        for (const auto* type : {u"TYPE10012", u"TYPE10017", u"TYPE10019", u"TYPE10020", u"TYPE12000"})
            verdicts.push_back(CheckOut(type));
    });
    network.scripts = {{.pieces = {{2000, kShowOk}}, .end_at = 2000}};
    EXPECT_EQ(CheckIn(u"TYPE10012", u"Rossi", 0, 1), "<OK>");
    EXPECT_EQ(verdicts, (std::vector<std::string>{"<ERROR>", "<ERROR>", "<ERROR>", "<ERROR>", "<STX>GO|RN204|<ETX>"}));
    EXPECT_EQ(network.requests.size() + network.called.size(), 1U);
    EXPECT_TRUE(telephony.opened.empty());
}

// --- Panasonic: on a telephony line ----------------------------------------------------------------------------------

using Values = std::vector<std::uint32_t>;

class PanasonicOrders : public ::testing::Test, protected OrderBench {
 protected:
    PanasonicOrders() {
        telephony.lines = {{u"EXT00101"}, {std::u16string(u" ext00204 \0rest", 15)}, {u"EXT123456"}};
        StartTelephony();
    }
    void StartTelephony() {
        std::u16string type = kType;
        UnInitializeServer(type, exchanges);
        telephony.application.line_count = static_cast<std::uint32_t>(telephony.lines.size());
        InitializeServerSec(type, exchanges);
    }
    std::string WakeUp(std::int32_t room, std::u16string_view time, std::int16_t mode) {
        return OrderBench::WakeUp(kType, {.room = room, .time = time, .date = u"1511", .mode = mode});
    }
    /// Some words of a request, of four bytes each.
    Values Words(std::size_t request, const std::vector<std::size_t>& positions) const {
        Values words;
        for (const std::size_t position : positions) {
            std::uint32_t& word = words.emplace_back(0);
            for (std::size_t i = 4; i-- > 0;)
                word = word << 8U | static_cast<unsigned char>(telephony.blocks.at(request).at(position + i));
        }
        return words;
    }
    std::string NameBytes(std::size_t block) const { return telephony.blocks[block].substr(36); }

    const std::u16string kType = u"TYPE10019";
    const FakeTelephony::Reply second{.identifier = 51, .after = 20, .replied_identifier = 51};
};

TEST_F(PanasonicOrders, AWakeUpCallPacksItsTimeAndKeepsTheWordsThatItDoesNotSet) {
    telephony.replies = {{}, {}, {}, {}};
    EXPECT_EQ(WakeUp(204, u"0730", 2), "<OK>");
    EXPECT_EQ(WakeUp(204, u"2359", -4), "<OK>");  // a negative mode sets, and keeps the repeat word
    EXPECT_EQ(WakeUp(204, u"0101", 1), "<OK>");   // clearing keeps both
    EXPECT_EQ(WakeUp(204, u"0500", 0), "<OK>");
    EXPECT_EQ(WakeUp(204, u"0500", 3), "");
    const std::vector<std::size_t> positions{0, 12, 16, 24};  // size, request, time, repeat
    EXPECT_EQ(Words(0, positions), (Values{61, 6, 7 * 2048 + 30 * 32, 1}));
    EXPECT_EQ(Words(1, positions), (Values{61, 6, 23 * 2048 + 59 * 32, 1}));
    EXPECT_EQ(Words(2, positions), (Values{61, 16, 23 * 2048 + 59 * 32, 1}));
    EXPECT_EQ(Words(3, positions), (Values{61, 6, 5 * 2048, 0}));
    EXPECT_EQ(telephony.blocks.size(), 4U);
    for (const std::string& block : telephony.blocks) EXPECT_EQ(block.size(), 61U);
    EXPECT_EQ(telephony.opened, (Values{1, 1, 1, 1}));
    EXPECT_EQ(telephony.closed, (Values{901, 901, 901, 901}));
    EXPECT_EQ(Elapsed(), 4 * 220U);  // reply after 20, then the pause of 200
}

TEST_F(PanasonicOrders, ACheckInSetsTheNameInASecondRequest) {
    telephony.replies = {{}, second, {}, second, {}, second};
    EXPECT_EQ(CheckIn(kType, u" Ren\u00E9 "), "<OK>");
    EXPECT_EQ(CheckIn(kType, u"Maximilian Hubertus von Tal"), "<OK>");
    EXPECT_EQ(CheckIn(kType, u"  "), "<OK>");
    ASSERT_EQ(telephony.blocks.size(), 6U);
    for (std::size_t i = 0; i < 6; i += 2) EXPECT_EQ(Words(i, {12}), Values{63});
    EXPECT_EQ(Words(1, {12, 28, 32}), (Values{13, 5, 56}));
    EXPECT_EQ(Words(3, {12, 28, 32}), (Values{13, 28, 33}));
    EXPECT_EQ(Words(5, {12, 28, 32}), (Values{13, 0, 0}));
    EXPECT_EQ(NameBytes(1), "Ren\xE9" + std::string(21, '\0'));
    EXPECT_EQ(NameBytes(3), "Maximilian Hubertus von T");
    EXPECT_EQ(NameBytes(5), "Maximilian Hubertus von T");
}

TEST_F(PanasonicOrders, CheckOutClearsTheNameOnlyWhenAskedAndARenameAlwaysDoes) {
    telephony.replies = {{}, {}, {}, {}};
    EXPECT_EQ(CheckOut(kType), "<OK>");
    EXPECT_EQ(CheckOut(kType, 1), "<OK>");
    EXPECT_EQ(UserName(kType), "<OK>");
    ASSERT_EQ(telephony.blocks.size(), 4U);
    for (const std::size_t check_out : {0U, 1U}) EXPECT_EQ(Words(check_out, {12}), Values{64});
    for (const std::size_t rename : {2U, 3U}) EXPECT_EQ(Words(rename, {12, 28}), (Values{13, 0}));
}

TEST_F(PanasonicOrders, TheLineIsTheFirstVoiceLineOfThatNameThatAnswers) {
    telephony.lines = {{.name = u"EXT00204", .media_modes = 8},
                       {.name = u"EXT00204", .negotiates = false},
                       {.name = u"EXT00204", .has_capabilities = false},
                       {.name = u"EXT00204", .media_modes = 0x1C},
                       {.name = u"EXT00204"},
                       {.name = u"EXT123456"}};
    StartTelephony();
    telephony.replies = {{}, {}};
    EXPECT_EQ(CheckOut(kType), "<OK>");
    EXPECT_EQ(WakeUp(123456, u"0730", 0), "<OK>");
    EXPECT_EQ(telephony.opened, (Values{3, 5}));
    EXPECT_EQ(WakeUp(12345, u"0730", 0), "<ERROR>");
    telephony.lines[3].opens = false;
    EXPECT_EQ(CheckOut(kType), "<ERROR>");
    EXPECT_EQ(telephony.blocks.size(), 2U);
}

TEST_F(PanasonicOrders, OnlyTheReplyToItsOwnRequestConfirms) {
    constexpr int kNoReply = FakeTelephony::kNoReply;
    const struct {
        FakeTelephony::Reply reply;
        std::string verdict;
        std::uint64_t milliseconds;
    } cases[] = {
        {{.identifier = 50, .after = 0}, "<OK>", 200},  // before the request has returned
        {{.identifier = 50, .after = 2990}, "<OK>", 3190},
        {{.identifier = 50, .after = 3100}, "<OK>", 3200},  // within the pause
        {{.identifier = 50, .after = kNoReply}, "<ERROR>", 3200},
        {{.identifier = 50, .after = 20, .replied_identifier = 51}, "<ERROR>", 3200},
        {{.identifier = 0, .after = kNoReply}, "<ERROR>", 0},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE("reply after " + std::to_string(row.reply.after));
        const std::uint64_t before = clock.milliseconds;
        telephony.replies = {row.reply};
        EXPECT_EQ(CheckOut(kType), row.verdict);
        EXPECT_EQ(clock.milliseconds - before, row.milliseconds);
        telephony.replies = {{}};
        EXPECT_EQ(CheckOut(kType), "<OK>") << "the next order";
    }
    EXPECT_EQ(telephony.closed.size(), telephony.opened.size());
}

TEST_F(PanasonicOrders, AFailedFirstRequestSendsNoSecondAndAStaleReplyConfirmsNone) {
    telephony.replies = {{.identifier = 50, .after = FakeTelephony::kNoReply}, {}};
    EXPECT_EQ(CheckIn(kType, u"Rossi"), "<ERROR>");
    EXPECT_EQ(telephony.blocks.size(), 1U);
    telephony.replies = {{}, {.identifier = 50, .after = FakeTelephony::kNoReply}};
    EXPECT_EQ(CheckIn(kType, u"Rossi"), "<ERROR>");
    telephony.replies = {{.identifier = 50, .after = 3300}, second};
    EXPECT_EQ(CheckOut(kType), "<ERROR>");
    EXPECT_EQ(CheckOut(kType), "<OK>") << "the belated reply takes no confirmation back";
}

TEST_F(PanasonicOrders, NeedTheServiceOnlyWhenHotelFunctionsAreOn) {
    std::u16string type = kType;
    UnInitializeServer(type, exchanges);
    telephony.application.result = -1;
    InitializeServerSec(type, exchanges);
    EXPECT_EQ(WakeUp(204, u"0730", 0), "<ERROR>");
    EXPECT_EQ(UserName(kType), "<ERROR>");
    settings.HotelEnabled = false;
    EXPECT_EQ(WakeUp(204, u"0730", 3), "<OK>");
    EXPECT_EQ(CheckIn(kType, u"Rossi"), "<OK>");
    EXPECT_TRUE(telephony.opened.empty());
}

}  // namespace
}  // namespace vintrel::server
