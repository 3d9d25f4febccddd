// What the server does without an exchange: its preparation and its waits.
#include <gtest/gtest.h>

#include <limits>

#include "platform/operation_error.h"
#include "platform/vintrel_ini.h"
#include "platform/waits.h"
#include "printing.h"
#include "server/initialisation.h"
#include "server/orders.h"
#include "test_server.h"

namespace vintrel::server {
namespace {

using testing::Shown;

struct Initialisation : ::testing::Test, testing::TestServer {
    std::string CheckOut(std::u16string code, std::int32_t room = 319) {
        return Shown(ComEventCheckOutTX(code, room, 0, exchanges, message));
    }

    /// A "Quindara.cfg" with these four records.
    void WriteCfg(const std::string& host, std::uint32_t port, const std::string& user, const std::string& password) {
        files.contents[CfgPath()].assign(std::size_t{160} * 624, std::byte{0xEE});
        WriteText(156, host.size(), host);
        WriteNumber(157, 4, port);
        WriteText(158, user.size(), user);
        WriteText(159, password.size(), password);
    }
    void WriteText(std::size_t record, std::size_t length, const std::string& text = "") {
        std::byte* const bytes = WriteNumber(record, 2, static_cast<std::uint32_t>(length));
        std::transform(text.begin(), text.end(), bytes, [](char c) { return static_cast<std::byte>(c); });
    }
    std::byte* WriteNumber(std::size_t record, std::size_t size, std::uint32_t number) {
        std::byte* bytes = files.contents[CfgPath()].data() + (record - 1) * 624;
        for (; size > 0; --size, number >>= 8U) *bytes++ = static_cast<std::byte>(number);
        return bytes;
    }

    /// The number and description of the failed call, and whether any setting moved.
    std::string Failure(const std::u16string& code) {
        settings.PbxHost = u"before";
        try {
            Initialize(code);
            return "no failure";
        } catch (const platform::OperationError& error) {
            EXPECT_EQ(settings.PbxHost, u"before");
            return std::to_string(error.Result() & 0xFFFFU) + " " + Shown(error.Description());
        }
    }
};

TEST_F(Initialisation, TextsFollowLanguageAndHelpFile) {
    SetServerLanguage(u"ita", settings);
    EXPECT_EQ(settings.FormCaptions[0], u"") << "no help file";
    EXPECT_EQ(settings.FormCaptions[1], u"Sistemi di comunicazione supportati:");
    SetHelpFilePage(u"  C:\\Hilfe für alle.chm ", u" Schemi ", settings);
    EXPECT_EQ(settings.HelpFile + u"|" + settings.HelpIndex, u"C:\\Hilfe für alle.chm|Schemi");
    for (const auto* language : {u"Ger", u"ENG", u"ITA "}) SetServerLanguage(language, settings);
    EXPECT_EQ(settings.FormCaptions[0], u"Doppelklick um die Anschlußpläne anzuzeigen");
    EXPECT_EQ(settings.FormCaptions[1], u"Unterstützte Kommunikationssysteme:");
    SetServerLanguage(u"ITA", settings);
    EXPECT_EQ(settings.FormCaptions[0], u"Doppio click per visualizzare gli schemi di collegamento");
}

TEST_F(Initialisation, AnUnknownCodeIsReportedByTheFirstStageAlone) {
    std::u16string code = u"type99999";
    EXPECT_EQ(InitializeServerSec(code, exchanges), 0);
    EXPECT_EQ(UnInitializeServer(code, exchanges), 0);
    EXPECT_TRUE(message.texts.empty());
    EXPECT_EQ(Initialize(code), 0);
    EXPECT_EQ(message.texts, std::vector<std::u16string>{u"InitializeServer: FATAL ERROR !"});
}

TEST_F(Initialisation, InnovaphoneReadsAccessAndItsOwnValues) {
    WriteCfg("10.0.0.5", 80, "\xFCser", "");
    Ini(u"WAKEUP_RESPONSE", u"h323") = std::u16string(u" Desk \0garbage", 14);
    std::u16string code = u"type10012";
    EXPECT_EQ(InitializeServer(code, exchanges, message), 0);
    EXPECT_EQ(code, u"TYPE10012");
    EXPECT_EQ(settings.PbxHost + u"|" + settings.PbxUser + u"|" + settings.PbxPassword, u"10.0.0.5|\u00FCser|");
    EXPECT_EQ(settings.PbxPort, 80);
    EXPECT_EQ(platform::ReadIniValue(ini, IniPath(), u"WAKEUP_RESPONSE", u"h323"), u"Desk");
    EXPECT_TRUE(ini.written.empty()) << "an existing file is not completed";
}

TEST_F(Initialisation, MissingIniIsWrittenWithTheDefaultsOfTheModel) {
    files.contents.clear();
    Initialize(u"TYPE10020");
    Initialize(u"TYPE10019");
    Initialize(u"type10017");
    EXPECT_EQ(ini.written, (std::vector<std::u16string>{u"PANASONIC/hotel_enabled", u"IP_OFFICE/host",
                                                        u"IP_OFFICE/port", u"IP_OFFICE/hotel_enabled", u"USERS/319"}));
    EXPECT_TRUE(settings.HotelEnabled);
    for (const auto& [room, user] : {std::pair(319, "5b9e20c4f17a3d8e6c02b9f4a18d7e53"), {320, ""}, {0, ""}}) {
        network.scripts.resize(1);
        CheckOut(u"TYPE10017", room);
        EXPECT_NE(network.sent.find("Guid=\"" + std::string(user) + "\""), std::string::npos) << room;
    }
    EXPECT_EQ(network.called, std::vector<std::string>(3, "localhost:8085"));
    ini.written.clear();
    Initialize(u"TYPE10012");
    EXPECT_EQ(ini.written,
              (std::vector<std::u16string>{
                  u"CALL_INCOMING/src_if", u"CALL_INCOMING/dst_if", u"CALL_OUTGOING/src_if", u"CALL_OUTGOING/dst_if",
                  u"ROOMSTATUS_CLEAN/dst_cdpn", u"ROOMSTATUS_CLEAN_OCCUPIED/dst_cdpn", u"ROOMSTATUS_NOTCLEAN/dst_cdpn",
                  u"ROOMSTATUS_NOTCLEAN_OCCUPIED/dst_cdpn", u"ROOMSTATUS_ALARM/dst_cdpn",
                  u"ROOMSTATUS_INSPECTED_OCCUPIED/dst_cdpn", u"WAKEUP_RESPONSE/h323", u"WAKEUP_RESPONSE/Fallback"}));
    EXPECT_EQ(Ini(u"WAKEUP_RESPONSE", u"h323"), u"Hotel");
}

TEST_F(Initialisation, HotelFunctionsAreOnUnlessSwitchedOff) {
    for (const auto& [text, on] : std::map<std::u16string, bool>{
             {u"false ", false}, {u"False", false}, {u"no", true}, {u"0", true}, {u"", true}})
        for (const auto& [code, section] : {std::pair(u"TYPE10017", u"IP_OFFICE"), {u"TYPE10019", u"PANASONIC"}}) {
            ini.values = {{{IniPath(), section, u"hotel_enabled"}, text}};
            settings.HotelEnabled = !on;
            Initialize(code);
            EXPECT_EQ(settings.HotelEnabled, on) << Shown(section) << Shown(text);
        }
}

TEST_F(Initialisation, IpOfficePortIsRoundedAndMustFit) {
    Ini(u"IP_OFFICE", u"host") = u"IPO.Hotel ";
    std::u16string& port = Ini(u"IP_OFFICE", u"port");
    for (const auto& [text, number] : std::map<std::u16string, std::string>{
             {u"8085.6", "8086"}, {u"abc", "0"}, {u"2147483647", "2147483647"}, {u"-1", "-1"}}) {
        port = text;
        Initialize(u"TYPE10017");
        CheckOut(u"TYPE10017");
        EXPECT_EQ(network.called.back(), "ipo.hotel:" + number) << Shown(text);
    }
    port = u"2147483648";
    EXPECT_EQ(Failure(u"TYPE10017").substr(0, 2), "6 ");
}

TEST_F(Initialisation, GrandstreamFormsTokenAndBaseUrl) {
    WriteCfg("10.0.0.5", 8089, "admin", "pass");
    EXPECT_EQ(Initialize(u"TYPE10020"), 0);
    EXPECT_EQ(network.prepared, 1);
    files.contents.erase(CfgPath());
    Initialize(u"TYPE10020");  // everything stays
    CheckOut(u"TYPE10020");
    const std::string expected = "POST https://10.0.0.5:8089/pmsapi?token=md5 of adminpass&format=xml&data=<";
    EXPECT_EQ(network.requests.at(0).substr(0, expected.size()), expected);
}

TEST_F(Initialisation, FailuresAreFailedCallsAndLeaveTheSettings) {
    WriteCfg("host", 65536, "user", "password");
    EXPECT_EQ(Failure(u"TYPE10012"), "6 The port of the exchange in Quindara.cfg is outside 0 to 65535: 65536");
    EXPECT_EQ(Failure(u"TYPE10017"), "no failure") << "only innovaphone opens this port";

    network.available = false;
    EXPECT_EQ(Failure(u"TYPE10020"), "429 The system's HTTP request engine cannot be prepared.");
    md5.fails = true;
    EXPECT_EQ(Failure(u"TYPE10020"), std::to_string(0xC332) + " Failed");

    WriteText(158, 623);
    EXPECT_EQ(Failure(u"TYPE10017"),
              "59 Record 158 of " + Shown(CfgPath()) + " is malformed: its text is longer than the record.");
    WriteText(158, 622);
    EXPECT_EQ(Failure(u"TYPE10017"), "no failure") << "a text that fills its record";

    WriteCfg("host", 1, "user", "password");
    files.contents[CfgPath()].resize(158 * 624 + 2 + 8);
    EXPECT_EQ(Failure(u"TYPE10017"), "no failure") << "the last record may end with its text";
    files.contents[CfgPath()].resize(158 * 624 + 2 + 7);
    EXPECT_EQ(Failure(u"TYPE10017"),
              "62 Record 159 of " + Shown(CfgPath()) + " is incomplete: the file ends before it does.");
    files.contents[CfgPath()].resize(156 * 624 + 3);
    EXPECT_EQ(Failure(u"TYPE10020").substr(0, 13), "62 Record 157");
    files.contents[CfgPath()].clear();
    EXPECT_EQ(Failure(u"TYPE10012").substr(0, 13), "62 Record 156");
    files.locked = true;
    EXPECT_EQ(Failure(u"TYPE10012"),
              "75 The configuration file cannot be read; another program may hold it locked: " + Shown(CfgPath()));
    EXPECT_EQ(Failure(u"TYPE10018"), "no failure") << "a model without preparation touches no file";
}

TEST_F(Initialisation, SecondStageStartsTelephonyOnceWithHotelFunctionsAndOtherModelsAgain) {
    std::u16string code = u"type10019";
    InitializeServerSec(code, exchanges);
    EXPECT_EQ(telephony.started, 0);
    settings.HotelEnabled = true;
    EXPECT_EQ(InitializeServerSec(code, exchanges), 0);
    InitializeServerSec(code, exchanges);
    EXPECT_EQ(telephony.started, 1);
    EXPECT_EQ(telephony.name, u"Vintrel");

    telephony.lines = {{u"EXT00319"}, {}, {}};
    const auto verdict_with = [&](std::uint32_t first, std::int32_t second, std::int32_t third) {
        telephony.replies = {
            {.identifier = static_cast<std::int32_t>(first), .after = testing::FakeTelephony::kNoReply}};
        loop.Schedule(20, [=, this] { telephony.on_event(first, second, third); });
        return CheckOut(code);
    };
    EXPECT_EQ(verdict_with(2, 0, -1), "<OK>");
    EXPECT_EQ(verdict_with(1, 0, -1), "<ERROR>");  // none of these is a line's reply
    EXPECT_EQ(verdict_with(3, 0, 0), "<ERROR>");
    EXPECT_EQ(verdict_with(3, 1, -1), "<ERROR>");

    EXPECT_TRUE(exchanges.InUse());
    UnInitializeServer(code, exchanges);
    UnInitializeServer(code, exchanges);
    EXPECT_EQ(telephony.ended, std::vector<std::uint32_t>{77});
    EXPECT_FALSE(exchanges.InUse());

    telephony.application = {.result = -1, .handle = 5, .line_count = 9};
    EXPECT_EQ(InitializeServerSec(code, exchanges), 0) << "the outcome shows only in the orders";
    EXPECT_EQ(CheckOut(code), "<ERROR>");
    EXPECT_FALSE(exchanges.InUse());
    InitializeServerSec(code = u"type10020", exchanges);
    EXPECT_EQ(network.prepared, 1) << "other models are initialised once more";
}

struct Waits : ::testing::Test {
    std::uint64_t Elapsed() const { return clock.milliseconds - 1000; }

    testing::FakeClock clock;
    testing::FakeLoop loop{clock};
};

TEST_F(Waits, LastAsLongAsTheIntervalAndKeepTheHostAlive) {
    int host_events = 0;
    for (const int at : {100, 299, 301}) loop.Schedule(at, [&] { ++host_events; });
    platform::WaitMilliseconds(loop, 300);
    EXPECT_EQ(Elapsed(), 300U);
    EXPECT_EQ(host_events, 2);
    for (const std::int32_t interval : {0, -1, std::numeric_limits<std::int32_t>::min()}) {
        loop.processed = 0;
        platform::WaitMilliseconds(loop, interval);
        EXPECT_EQ(loop.processed, 1) << interval;
        EXPECT_FALSE(loop.TimerRunning(platform::Timer::SleepTimer)) << interval;
    }
    EXPECT_EQ(Elapsed(), 300U);
}

TEST_F(Waits, ThatNestEndTogetherAndAllEndWhenTheTimerIsTakenAway) {
    loop.Schedule(50, [&] { platform::WaitMilliseconds(loop, 100); });
    platform::WaitMilliseconds(loop, 60);
    EXPECT_EQ(Elapsed(), 150U);
    loop.Schedule(10, [&] { loop.StopTimer(platform::Timer::SleepTimer); });
    platform::WaitMilliseconds(loop, 1000);
    EXPECT_EQ(Elapsed(), 160U);
}

TEST_F(Waits, UntilAnAnswerEndWithItOrAtTheLimit) {
    bool answered = false;
    const auto done = [&] { return answered; };
    loop.Schedule(400, [&] { answered = true; });
    EXPECT_FALSE(platform::WaitUntil(loop, clock, 300, done));
    EXPECT_EQ(Elapsed(), 300U);
    EXPECT_TRUE(platform::WaitUntil(loop, clock, 300, done));
    EXPECT_EQ(Elapsed(), 400U);
    answered = false;
    EXPECT_FALSE(platform::WaitUntil(loop, clock, -5, done));
    EXPECT_EQ(Elapsed(), 400U);
}

}  // namespace
}  // namespace vintrel::server
