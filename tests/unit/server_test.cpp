// What the server does without an exchange: its preparation and its waits.
#include <gtest/gtest.h>

#include <limits>

#include "order_fakes.h"
#include "printing.h"
#include "server/configuration.h"
#include "server/initialisation.h"
#include "server/operation_error.h"
#include "server/text.h"
#include "server/waits.h"

namespace vintrel::server {
namespace {

using testing::Shown;

const std::u16string kCfg = u"D:\\Documenti è 文\\Quindara.cfg";
const std::u16string kIni = u"D:\\Documenti è 文\\Vintrel.ini";

struct Md5ThatShowsItsInput : Md5 {
    std::u16string HashBytes(std::span<const std::byte> bytes) override {
        if (fails) throw OperationError(0x8004C332, u"Failed", u"MD5Hash");
        std::u16string shown = u"md5 of ";
        for (const std::byte b : bytes) shown += static_cast<char16_t>(b);
        return shown;
    }
    bool fails = false;
};

struct Initialisation : ::testing::Test {
    Initialisation() {
        SetAllUserCommonDocumentsDirA(u"D:\\Documenti è 文", settings);
        files.contents[kIni] = {};
    }

    std::int16_t Initialize(std::u16string code) { return InitializeServer(code, settings, platform); }

    /// A "Quindara.cfg" with these four records.
    void WriteCfg(const std::string& host, std::uint32_t port, const std::string& user, const std::string& password) {
        files.contents[kCfg].assign(std::size_t{160} * 624, std::byte{0xEE});
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
        std::byte* bytes = files.contents[kCfg].data() + (record - 1) * 624;
        for (; size > 0; --size, number >>= 8U) *bytes++ = static_cast<std::byte>(number);
        return bytes;
    }

    /// The number and description of the failed call, and whether any setting moved.
    std::string Failure(const std::u16string& code) {
        settings.PbxHost = u"before";
        settings.GsStateFlag = true;
        try {
            Initialize(code);
            return "no failure";
        } catch (const OperationError& error) {
            EXPECT_EQ(settings.PbxHost, u"before");
            EXPECT_TRUE(settings.GsStateFlag);
            return std::to_string(error.Result() & 0xFFFFU) + " " + Shown(error.Description());
        }
    }

    testing::FakeMessage message;
    testing::FakeFiles files;
    testing::FakeIni ini;
    testing::FakeAnsi ansi;
    Md5ThatShowsItsInput md5;
    testing::FakeClock clock;
    testing::FakeLoop loop{clock};
    Settings settings;
    testing::FakeNetwork request_engine{loop, clock};
    testing::FakeTelephony telephony{loop, settings};
    InitialisationPlatform platform{message, files, ini, ansi, md5, request_engine, telephony, loop};
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
    EXPECT_EQ(InitializeServerSec(code, settings, platform), 0);
    EXPECT_EQ(UnInitializeServer(code, settings, telephony), 0);
    EXPECT_TRUE(message.texts.empty());
    EXPECT_EQ(Initialize(code), 0);
    EXPECT_EQ(message.texts, std::vector<std::u16string>{u"InitializeServer: FATAL ERROR !"});
}

TEST_F(Initialisation, InnovaphoneReadsAccessInterfacesAndNumbers) {
    WriteCfg("10.0.0.5", 80, "\xFCser", "");
    ini.values = {{{kIni, u"CALL_INCOMING", u"src_if"}, u"  tel1 "},
                  {{kIni, u"ROOMSTATUS_INSPECTED_OCCUPIED", u"dst_cdpn"}, u"a76"},
                  {{kIni, u"WAKEUP_RESPONSE", u"h323"}, u"Hotel One"},
                  {{kIni, u"WAKEUP_RESPONSE", u"Fallback"}, std::u16string(u"Desk \0garbage", 13)}};
    std::u16string code = u"type10012";
    EXPECT_EQ(InitializeServer(code, settings, platform), 0);
    EXPECT_EQ(code, u"TYPE10012");
    EXPECT_EQ(settings.PbxHost + u"|" + settings.PbxUser + u"|" + settings.PbxPassword, u"10.0.0.5|üser|");
    EXPECT_EQ(settings.PbxPort, 80);
    EXPECT_EQ(settings.CallIncomingSrcIf + u"|" + settings.CallIncomingDstIf, u"TEL1|");
    EXPECT_EQ(settings.RoomStatusInspectedOccupiedCdpn, u"A76");
    EXPECT_EQ(settings.WakeupResponseH323 + u"|" + settings.WakeupResponseFallback, u"Hotel One|Desk");
    EXPECT_TRUE(ini.written.empty()) << "an existing file is not completed";
}

TEST_F(Initialisation, MissingIniIsWrittenWithTheDefaultsOfTheModel) {
    files.contents.clear();
    Initialize(u"TYPE10020");
    Initialize(u"TYPE10019");
    Initialize(u"type10017");
    EXPECT_EQ(ini.written, (std::vector<std::u16string>{u"PANASONIC/hotel_enabled", u"IP_OFFICE/host",
                                                        u"IP_OFFICE/port", u"IP_OFFICE/hotel_enabled", u"USERS/319"}));
    EXPECT_EQ(settings.IpOfficeHost, u"localhost");
    EXPECT_EQ(settings.IpOfficePort, 8085);
    EXPECT_TRUE(settings.HotelEnabled);
    EXPECT_EQ(GetIniUser(319, settings, ini), u"5b9e20c4f17a3d8e6c02b9f4a18d7e53");
    EXPECT_EQ(GetIniUser(320, settings, ini), u"");
    Initialize(u"TYPE10012");
    EXPECT_EQ(settings.WakeupResponseH323, u"Hotel");
}

TEST_F(Initialisation, InnovaphoneReadsEachKeyIntoItsSetting) {
    const std::tuple<const char16_t*, const char16_t*, std::u16string Settings::*> keys[] = {
        {u"CALL_INCOMING", u"src_if", &Settings::CallIncomingSrcIf},
        {u"CALL_INCOMING", u"dst_if", &Settings::CallIncomingDstIf},
        {u"CALL_OUTGOING", u"src_if", &Settings::CallOutgoingSrcIf},
        {u"CALL_OUTGOING", u"dst_if", &Settings::CallOutgoingDstIf},
        {u"ROOMSTATUS_CLEAN", u"dst_cdpn", &Settings::RoomStatusCleanCdpn},
        {u"ROOMSTATUS_CLEAN_OCCUPIED", u"dst_cdpn", &Settings::RoomStatusCleanOccupiedCdpn},
        {u"ROOMSTATUS_NOTCLEAN", u"dst_cdpn", &Settings::RoomStatusNotCleanCdpn},
        {u"ROOMSTATUS_NOTCLEAN_OCCUPIED", u"dst_cdpn", &Settings::RoomStatusNotCleanOccupiedCdpn},
        {u"ROOMSTATUS_ALARM", u"dst_cdpn", &Settings::RoomStatusAlarmCdpn},
        {u"ROOMSTATUS_INSPECTED_OCCUPIED", u"dst_cdpn", &Settings::RoomStatusInspectedOccupiedCdpn},
        {u"WAKEUP_RESPONSE", u"h323", &Settings::WakeupResponseH323},
        {u"WAKEUP_RESPONSE", u"Fallback", &Settings::WakeupResponseFallback}};
    for (const auto& [section, key, setting] : keys) {
        ini.values = {{{kIni, section, key}, u"7"}};
        Initialize(u"TYPE10012");
        for (const auto& [other_section, other_key, other] : keys)
            EXPECT_EQ(settings.*other, other == setting ? u"7" : u"") << Shown(section) << "/" << Shown(other_key);
    }
    files.contents.clear();
    ini.values.clear();
    Initialize(u"TYPE10012");
    ASSERT_EQ(ini.written.size(), std::size(keys)) << "written with the same names";
    for (std::size_t i = 0; i < std::size(keys); ++i)
        EXPECT_EQ(Shown(ini.written[i]), Shown(std::get<0>(keys[i])) + "/" + Shown(std::get<1>(keys[i])));
}

TEST_F(Initialisation, HotelFunctionsAreOnUnlessSwitchedOff) {
    for (const auto& [text, on] : std::map<std::u16string, bool>{
             {u"false ", false}, {u"False", false}, {u"no", true}, {u"0", true}, {u"", true}})
        for (const auto& [code, section] : {std::pair(u"TYPE10017", u"IP_OFFICE"), {u"TYPE10019", u"PANASONIC"}}) {
            ini.values = {{{kIni, section, u"hotel_enabled"}, text}};
            settings.HotelEnabled = !on;
            Initialize(code);
            EXPECT_EQ(settings.HotelEnabled, on) << Shown(section) << Shown(text);
        }
}

TEST_F(Initialisation, IpOfficePortIsRoundedAndMustFit) {
    std::u16string& port = ini.values[{kIni, u"IP_OFFICE", u"port"}];
    for (const auto& [text, number] : std::map<std::u16string, std::int32_t>{
             {u"8085.6", 8086}, {u"abc", 0}, {u"2147483647", 2147483647}, {u"-1", -1}}) {
        port = text;
        Initialize(u"TYPE10017");
        EXPECT_EQ(settings.IpOfficePort, number) << Shown(text);
    }
    port = u"2147483648";
    EXPECT_EQ(Failure(u"TYPE10017").substr(0, 2), "6 ");
}

TEST_F(Initialisation, GrandstreamFormsTokenAndBaseUrl) {
    WriteCfg("10.0.0.5", 8089, "admin", "p\xE4ss");
    settings.GsStateFlag = true;
    settings.GsSession.fill(u"old");
    EXPECT_EQ(Initialize(u"TYPE10020"), 0);
    EXPECT_EQ(settings.GsToken, u"md5 of adminpäss");
    EXPECT_EQ(settings.GsBaseUrl, u"https://10.0.0.5:8089/pmsapi?token=md5 of adminpäss&format=xml&data=");
    EXPECT_FALSE(settings.GsStateFlag);
    EXPECT_EQ(settings.GsSession[8], u"");
    EXPECT_EQ(request_engine.prepared, 1);

    files.contents.erase(kCfg);  // everything stays, the session begins anew
    settings.GsToken = u"abc";
    Initialize(u"TYPE10020");
    EXPECT_EQ(settings.GsBaseUrl, u"https://10.0.0.5:8089/pmsapi?token=abc&format=xml&data=");
}

TEST_F(Initialisation, FailuresAreFailedCallsAndLeaveTheSettings) {
    WriteCfg("host", 65536, "user", "password");
    EXPECT_EQ(Failure(u"TYPE10012"), "6 The port of the exchange in Quindara.cfg is outside 0 to 65535: 65536");
    EXPECT_EQ(Failure(u"TYPE10017"), "no failure") << "only innovaphone opens this port";

    request_engine.available = false;
    EXPECT_EQ(Failure(u"TYPE10020"), "429 The system's HTTP request engine cannot be prepared.");
    md5.fails = true;
    EXPECT_EQ(Failure(u"TYPE10020"), std::to_string(0xC332) + " Failed");

    WriteText(158, 623);
    EXPECT_EQ(Failure(u"TYPE10017"),
              "59 Record 158 of " + Shown(kCfg) + " is malformed: its text is longer than the record.");
    WriteText(158, 622);
    EXPECT_EQ(Failure(u"TYPE10017"), "no failure") << "a text that fills its record";

    WriteCfg("host", 1, "user", "password");
    files.contents[kCfg].resize(158 * 624 + 2 + 8);
    EXPECT_EQ(Failure(u"TYPE10017"), "no failure") << "the last record may end with its text";
    files.contents[kCfg].resize(158 * 624 + 2 + 7);
    EXPECT_EQ(Failure(u"TYPE10017"),
              "62 Record 159 of " + Shown(kCfg) + " is incomplete: the file ends before it does.");
    files.contents[kCfg].resize(156 * 624 + 3);
    EXPECT_EQ(Failure(u"TYPE10020").substr(0, 13), "62 Record 157");
    files.contents[kCfg].clear();
    EXPECT_EQ(Failure(u"TYPE10012").substr(0, 13), "62 Record 156");
    files.locked = true;
    EXPECT_EQ(Failure(u"TYPE10012"),
              "75 The configuration file cannot be read; another program may hold it locked: " + Shown(kCfg));
    EXPECT_EQ(Failure(u"TYPE10018"), "no failure") << "a model without preparation touches no file";
}

TEST_F(Initialisation, SecondStageStartsTelephonyOnceWithHotelFunctionsAndOtherModelsAgain) {
    std::u16string code = u"type10019";
    InitializeServerSec(code, settings, platform);
    EXPECT_EQ(telephony.started, 0);
    settings.HotelEnabled = true;
    EXPECT_EQ(InitializeServerSec(code, settings, platform), 0);
    InitializeServerSec(code, settings, platform);
    EXPECT_EQ(telephony.started, 1);
    EXPECT_EQ(telephony.name, u"Vintrel");
    EXPECT_TRUE(settings.TapiReady && settings.TapiLineApp == 77 && settings.TapiLineCount == 3);

    telephony.on_event(2, 0, -1);
    EXPECT_EQ(settings.TapiLastReplyId, 2U);
    telephony.on_event(1, 0, -1);  // none of these is a line's reply
    telephony.on_event(3, 0, 0);
    telephony.on_event(3, 1, -1);
    telephony.on_event(0x80000002, 0, -1);
    EXPECT_EQ(settings.TapiLastReplyId, 2U);

    UnInitializeServer(code, settings, telephony);
    UnInitializeServer(code, settings, telephony);
    EXPECT_EQ(telephony.ended, std::vector<std::uint32_t>{77});
    EXPECT_EQ(settings.TapiLineApp, 0U);

    telephony.application = {.result = -1, .handle = 5, .line_count = 9};
    EXPECT_EQ(InitializeServerSec(code, settings, platform), 0) << "the outcome shows only in the settings";
    EXPECT_TRUE(!settings.TapiReady && settings.TapiLineApp == 0);
    InitializeServerSec(code = u"type10020", settings, platform);
    EXPECT_EQ(request_engine.prepared, 1) << "other models are initialised once more";
}

struct Waits : ::testing::Test {
    std::uint64_t Elapsed() const { return clock.milliseconds - 1000; }

    testing::FakeClock clock;
    testing::FakeLoop loop{clock};
};

TEST_F(Waits, LastAsLongAsTheIntervalAndKeepTheHostAlive) {
    int host_events = 0;
    for (const int at : {100, 299, 301}) loop.Schedule(at, [&] { ++host_events; });
    WaitMilliseconds(loop, 300);
    EXPECT_EQ(Elapsed(), 300U);
    EXPECT_EQ(host_events, 2);
    for (const std::int32_t interval : {0, -1, std::numeric_limits<std::int32_t>::min()}) {
        loop.processed = 0;
        WaitMilliseconds(loop, interval);
        EXPECT_EQ(loop.processed, 1) << interval;
        EXPECT_FALSE(loop.TimerRunning(Timer::SleepTimer)) << interval;
    }
    EXPECT_EQ(Elapsed(), 300U);
}

TEST_F(Waits, ThatNestEndTogetherAndAllEndWhenTheTimerIsTakenAway) {
    loop.Schedule(50, [&] { WaitMilliseconds(loop, 100); });
    WaitMilliseconds(loop, 60);
    EXPECT_EQ(Elapsed(), 150U);
    loop.Schedule(10, [&] { loop.StopTimer(Timer::SleepTimer); });
    WaitMilliseconds(loop, 1000);
    EXPECT_EQ(Elapsed(), 160U);
}

TEST_F(Waits, UntilAnAnswerEndWithItOrAtTheLimit) {
    bool answered = false;
    const auto done = [&] { return answered; };
    loop.Schedule(400, [&] { answered = true; });
    EXPECT_FALSE(WaitUntil(loop, clock, 300, done));
    EXPECT_EQ(Elapsed(), 300U);
    EXPECT_TRUE(WaitUntil(loop, clock, 300, done));
    EXPECT_EQ(Elapsed(), 400U);
    answered = false;
    EXPECT_FALSE(WaitUntil(loop, clock, -5, done));
    EXPECT_EQ(Elapsed(), 400U);
}

}  // namespace
}  // namespace vintrel::server
