#include "server/initialisation.h"

#include <gtest/gtest.h>

#include "order_fakes.h"
#include "printing.h"
#include "server/configuration.h"
#include "server/operation_error.h"
#include "server/text.h"

namespace vintrel::server {
namespace {

using testing::Shown;

const std::u16string kCfg = u"D:\\Documenti è 文\\Quindara.cfg";
const std::u16string kIni = u"D:\\Documenti è 文\\Vintrel.ini";

class Md5ThatShowsItsInput : public Md5 {
 public:
    std::u16string HashBytes(std::span<const std::byte> bytes) override {
        if (fails) throw OperationError(0x8004C332, u"Failed", u"MD5Hash");
        std::u16string shown = u"md5 of ";
        for (const std::byte b : bytes) shown += static_cast<char16_t>(b);
        return shown;
    }
    bool fails = false;
};

class Initialisation : public ::testing::Test {
 protected:
    Initialisation() {
        SetAllUserCommonDocumentsDirA(u"D:\\Documenti è 文", settings);
        files.contents[kIni] = {};
    }

    std::int16_t Initialize(std::u16string code) { return InitializeServer(code, settings, platform); }

    /// A "Quindara.cfg" with these four records.
    void WriteCfg(std::string_view host, std::uint32_t port, std::string_view user, std::string_view password) {
        std::vector<std::byte>& file = files.contents[kCfg];
        file.assign(160 * 624, std::byte{0xEE});
        WriteText(156, host, host.size());
        for (std::size_t i = 0; i < 4; ++i) file[156 * 624 + i] = static_cast<std::byte>(port >> 8 * i);
        WriteText(158, user, user.size());
        WriteText(159, password, password.size());
    }
    void WriteText(std::size_t record, std::string_view text, std::size_t length) {
        std::vector<std::byte>& file = files.contents[kCfg];
        const std::size_t at = (record - 1) * 624;
        file[at] = static_cast<std::byte>(length);
        file[at + 1] = static_cast<std::byte>(length >> 8U);
        for (std::size_t i = 0; i < text.size(); ++i) file[at + 2 + i] = static_cast<std::byte>(text[i]);
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
    EXPECT_EQ(settings.FormCaptions[0], u"");
    EXPECT_EQ(settings.FormCaptions[1], u"Sistemi di comunicazione supportati:");
    SetHelpFilePage(u"  C:\\Hilfe für alle.chm ", u" Schemi ", settings);
    EXPECT_EQ(settings.HelpFile, u"C:\\Hilfe für alle.chm");
    EXPECT_EQ(settings.HelpIndex, u"Schemi");
    SetServerLanguage(u"Ger", settings);
    SetServerLanguage(u"ENG", settings);
    SetServerLanguage(u"ITA ", settings);
    EXPECT_EQ(Shown(settings.FormCaptions[0]), "Doppelklick um die Anschlu<U+00DF>pl<U+00E4>ne anzuzeigen");
    EXPECT_EQ(Shown(settings.FormCaptions[1]), "Unterst<U+00FC>tzte Kommunikationssysteme:");
    SetServerLanguage(u"ITA", settings);
    EXPECT_EQ(settings.FormCaptions[0], u"Doppio click per visualizzare gli schemi di collegamento");
}

TEST_F(Initialisation, UnknownCodesAreReportedAndAnswerZero) {
    EXPECT_EQ(Initialize(u"type99999"), 0);
    ASSERT_EQ(message.texts.size(), 1U);
    EXPECT_EQ(message.texts[0], u"InitializeServer: FATAL ERROR !");
    EXPECT_EQ(message.titles[0], u"QUINDARA PABX COM SERVER   0");
    std::u16string code = u"type99999";
    EXPECT_EQ(InitializeServerSec(code, settings, platform), 0);
    EXPECT_EQ(UnInitializeServer(code, settings, telephony), 0);
    EXPECT_EQ(message.texts.size(), 1U) << "only the first stage reports";
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
    EXPECT_EQ(settings.PbxHost, u"10.0.0.5");
    EXPECT_EQ(settings.PbxPort, 80);
    EXPECT_EQ(settings.PbxUser, u"üser");
    EXPECT_EQ(settings.PbxPassword, u"");
    EXPECT_EQ(settings.CallIncomingSrcIf, u"TEL1");
    EXPECT_EQ(settings.CallIncomingDstIf, u"");
    EXPECT_EQ(settings.RoomStatusInspectedOccupiedCdpn, u"A76");
    EXPECT_EQ(settings.WakeupResponseH323, u"Hotel One");
    EXPECT_EQ(settings.WakeupResponseFallback, u"Desk");
    EXPECT_TRUE(ini.written.empty()) << "an existing file is not completed";
}

TEST_F(Initialisation, MissingIniIsWrittenWithTheDefaultsOfTheModel) {
    files.contents.clear();
    Initialize(u"TYPE10012");
    EXPECT_EQ(ini.written.size(), 12U);
    EXPECT_EQ(settings.WakeupResponseH323, u"Hotel");
    ini.written.clear();
    Initialize(u"type10017");
    EXPECT_EQ(ini.written, (std::vector<std::u16string>{u"IP_OFFICE/host", u"IP_OFFICE/port",
                                                        u"IP_OFFICE/hotel_enabled", u"USERS/319"}));
    EXPECT_EQ(settings.IpOfficeHost, u"localhost");
    EXPECT_EQ(settings.IpOfficePort, 8085);
    EXPECT_TRUE(settings.HotelEnabled);
    EXPECT_EQ(GetIniUser(319, settings, ini), u"5b9e20c4f17a3d8e6c02b9f4a18d7e53");
    EXPECT_EQ(GetIniUser(320, settings, ini), u"");
    ini.written.clear();
    Initialize(u"TYPE10020");
    Initialize(u"TYPE10019");
    EXPECT_EQ(ini.written, std::vector<std::u16string>{u"PANASONIC/hotel_enabled"});
}

TEST_F(Initialisation, HotelFunctionsAreOnUnlessSwitchedOff) {
    const std::pair<const char16_t*, bool> kCases[] = {{u"false ", false}, {u"False", false}, {u"no", true},
                                                       {u"0", true},       {u"", true},       {u"true", true}};
    for (const auto& [text, on] : kCases) {
        for (const char16_t* section : {u"IP_OFFICE", u"PANASONIC"})
            ini.values[{kIni, section, u"hotel_enabled"}] = text;
        for (const char16_t* code : {u"TYPE10017", u"TYPE10019"}) {
            settings.HotelEnabled = !on;
            Initialize(code);
            EXPECT_EQ(settings.HotelEnabled, on) << Shown(code) << Shown(text);
        }
    }
}

TEST_F(Initialisation, IpOfficePortIsRoundedAndMustFit) {
    const std::tuple<std::u16string, std::int32_t> kCases[] = {
        {u"8085.6", 8086}, {u"abc", 0}, {u"2.5", 2}, {u"2147483647", 2147483647}, {u"-1", -1}};
    for (const auto& [text, port] : kCases) {
        ini.values[{kIni, u"IP_OFFICE", u"port"}] = text;
        Initialize(u"TYPE10017");
        EXPECT_EQ(settings.IpOfficePort, port) << Shown(text);
    }
    ini.values[{kIni, u"IP_OFFICE", u"port"}] = u"2147483648";
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

    WriteText(158, "", 623);
    EXPECT_EQ(Failure(u"TYPE10017"),
              "59 Record 158 of " + Shown(kCfg) + " is malformed: its text is longer than the record.");
    WriteText(158, "", 622);
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

TEST_F(Initialisation, SecondStageStartsTelephonyOnceAndOnlyWithHotelFunctions) {
    std::u16string code = u"type10019";
    InitializeServerSec(code, settings, platform);
    EXPECT_EQ(telephony.started, 0);
    settings.HotelEnabled = true;
    EXPECT_EQ(InitializeServerSec(code, settings, platform), 0);
    InitializeServerSec(code, settings, platform);
    EXPECT_EQ(telephony.started, 1);
    EXPECT_EQ(telephony.name, u"Vintrel");
    EXPECT_EQ(settings.TapiLineApp, 77U);
    EXPECT_EQ(settings.TapiLineCount, 3U);
    EXPECT_TRUE(settings.TapiReady);

    UnInitializeServer(code, settings, telephony);
    UnInitializeServer(code, settings, telephony);
    EXPECT_EQ(telephony.ended, std::vector<std::uint32_t>{77});
    EXPECT_EQ(settings.TapiLineApp, 0U);

    telephony.application = {.result = -1, .handle = 5, .line_count = 9};
    EXPECT_EQ(InitializeServerSec(code, settings, platform), 0) << "the outcome shows only in the settings";
    EXPECT_FALSE(settings.TapiReady);
    EXPECT_EQ(settings.TapiLineApp, 0U);
}

TEST_F(Initialisation, SecondStageInitialisesOtherModelsOnceMore) {
    std::u16string code = u"type10020";
    InitializeServerSec(code, settings, platform);
    EXPECT_EQ(request_engine.prepared, 1);
}

TEST_F(Initialisation, OnlyALineReplyIsRemembered) {
    std::u16string code = u"TYPE10019";
    settings.HotelEnabled = true;
    InitializeServerSec(code, settings, platform);
    telephony.on_event(1, 0, -1);
    telephony.on_event(2, 0, 0);
    telephony.on_event(2, 1, -1);
    telephony.on_event(0x80000002, 0, -1);
    EXPECT_EQ(settings.TapiLastReplyId, 0U);
    telephony.on_event(2, 0, -1);
    EXPECT_EQ(settings.TapiLastReplyId, 2U);
}

}  // namespace
}  // namespace vintrel::server
