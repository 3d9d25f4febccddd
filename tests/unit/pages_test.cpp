// The pages of docs/ are what the server does: the examples of frames and call records, and for each model every answer
// that is the code's alone.
#include <fstream>
#include <functional>
#include <type_traits>

#include "call_records.h"
#include "server/framing.h"
#include "server/link.h"
#include "server/login.h"
#include "server/pacing.h"
#include "server/received_frames.h"
#include "server/server_info.h"
#include "server/services.h"

namespace vintrel::server {
namespace {

/// "kind: form" as the page writes it, asked in the page's order.
std::string KindAndForm(std::u16string code, const std::u16string& frame) {
    testing::TestServer server;
    server.Ini(u"ROOMSTATUS_NOTCLEAN", u"dst_cdpn") = u"91";
    server.Ini(u"WAKEUP_RESPONSE", u"h323") = u"Hotel";
    server.Initialize(u"TYPE10012");
    const TypeCode type(code);
    const auto form = [&](auto conversion) {
        return testing::Shown(conversion(type, frame, server.exchanges, server.message));
    };
    if (GetComIsRoomAlarm(type, frame, server.exchanges) == 1) return "room alarm: " + form(GetComConvertRoomAlarmRX);
    if (GetComIsRoomState(type, frame, server.exchanges) == 1) return "room state: " + form(GetComConvertRoomStateRX);
    if (GetComIsConfirmClock(type, frame, server.exchanges) != 0)
        return "wake-up confirmation: " + form(GetComConvertConfirmClockRX);
    if (GetComIsSetClock(type, frame, server.exchanges) == 1) return "set-clock: " + form(GetComConvertSetClockRX);
    return "other";
}

/// Compares every second line of the blocks that begin with such a fence with what becomes of the line before.
/// @return how many there are
int ExpectExamples(const char* page, const std::string& fence,
                   const std::function<std::string(std::u16string, std::u16string)>& shown) {
    std::ifstream file(std::string(VINTREL_SOURCE_DIR "/docs/") + page);
    int examples = 0;
    for (std::string line; std::getline(file, line);) {
        if (!line.starts_with(fence)) continue;
        const std::u16string code(line.begin() + static_cast<std::ptrdiff_t>(fence.size()), line.end());
        for (std::string expected; std::getline(file, line) && line != "```" && std::getline(file, expected);
             ++examples)
            EXPECT_EQ(shown(code, testing::Raw(line)), expected) << line;
    }
    return examples;
}

TEST(Pages, ShowTheFormsOfFramesAndCallRecords) {
    EXPECT_GE(ExpectExamples("frames.md", "```frames ", KindAndForm), 20);
    const auto gdv = [](const std::u16string& code, const std::u16string& record) {
        return testing::Shown(testing::Link(code).Raw(record));
    };
    EXPECT_GE(ExpectExamples("call-records.md", "```gdv ", gdv), 9);
}

/// An operation that a host asks with a code alone.
struct Operation {
    const char* name;
    std::string (*answer)(TypeCode, platform::CriticalMessage&);
};

std::string OnPage(std::int32_t answer) { return std::to_string(answer); }

/// In quotes; a character above the letters by its number, "<xFB>".
std::string OnPage(std::u16string_view answer) {
    std::string shown = testing::Shown(answer);
    for (std::size_t at = 0; (at = shown.find("<U+00", at)) != std::string::npos;) shown.replace(at, 5, "<x");
    return '"' + shown + '"';
}

template <auto Ask>
std::string Answer(TypeCode type, platform::CriticalMessage& message) {
    if constexpr (std::is_invocable_v<decltype(Ask), TypeCode>)
        return OnPage(Ask(type));
    else
        return OnPage(Ask(type, message));
}

#define VINTREL_ASK(name) \
    { #name, Answer < name> }
// clang-format off
constexpr Operation kOperations[] = {
    VINTREL_ASK(GetPabxActiveType), VINTREL_ASK(GetPabxTypeName),  // the first two report no unknown code
    VINTREL_ASK(ComPortReadyType), VINTREL_ASK(ComPortDTRTime), VINTREL_ASK(GetComEtxEndReadRxType),
    VINTREL_ASK(GetComMultiDurationReadRx), VINTREL_ASK(UseDataReadBuffer), VINTREL_ASK(GetPABXConnectionType),
    VINTREL_ASK(GetTCPIPWinsockAB), VINTREL_ASK(GetTCPIPConnectDirection), VINTREL_ASK(GetPABXTCPIPConnectionType),
    VINTREL_ASK(GetPABXTCPIPREConnection), VINTREL_ASK(GetPABXTCPIPIDRequest), VINTREL_ASK(GetPABXTCPIPIDConfirm),
    VINTREL_ASK(GetPABXTCPIPPWRequest), VINTREL_ASK(GetPABXTCPIPPWConfirm), VINTREL_ASK(GetPABXTCPIPIDRequest2),
    VINTREL_ASK(GetPABXTCPIPIDConfirm2), VINTREL_ASK(GetPABXTCPIPPWRequest2), VINTREL_ASK(GetPABXTCPIPPWConfirm2),
    VINTREL_ASK(GetPABXTCPIPDLCommand), VINTREL_ASK(GetCheckInType), VINTREL_ASK(GetINIEnabled),
    VINTREL_ASK(GetRoomStateEnabled), VINTREL_ASK(GetClockEnabled), VINTREL_ASK(GetClockCentral),
    VINTREL_ASK(GetCallListEnabled), VINTREL_ASK(GetCheckInOutEnabled), VINTREL_ASK(GetModifyNameEnabled),
    VINTREL_ASK(GetClockDateEnabled), VINTREL_ASK(GetRoomAlarmEnabled), VINTREL_ASK(ComPortTxWaitConfirm),
    VINTREL_ASK(ComPortTXIntervalWithWait), VINTREL_ASK(ComPortTXInterval), VINTREL_ASK(ComEventConfirmDataRecordTX),
    VINTREL_ASK(ComEventErrorHandleTX), VINTREL_ASK(ComEventRequestLogInTX), VINTREL_ASK(ComEventConfirmLogInTX),
    VINTREL_ASK(ComEventDtrRtsEnabled), VINTREL_ASK(ComEventPrimaryTX), VINTREL_ASK(ComEventAfterTX),
    VINTREL_ASK(GetComLngEndReadRx), VINTREL_ASK(GetComEtxEndReadRx), VINTREL_ASK(GetComEtxEndReadRx2),
    VINTREL_ASK(GetComACKRx), VINTREL_ASK(GetRepeatErrorEventRX), VINTREL_ASK(GetIPXComColumn),
    VINTREL_ASK(GetIPXComSpace), VINTREL_ASK(GetIPXComComma), VINTREL_ASK(ComEventRequestLogInRX),
    VINTREL_ASK(ComEventConfirmLogInRX), VINTREL_ASK(GetGdvRealClockLen),
};
// clang-format on
#undef VINTREL_ASK

TEST(Pages, ShowEveryAnswerOfEachModel) {
    for (const exchanges::Model* model : exchanges::Models()) {
        const std::string page = "/docs/models/" + testing::Shown(model->code) + ".md";
        std::ifstream file(VINTREL_SOURCE_DIR + page);
        std::vector<std::string> shown;
        for (std::string line; std::getline(file, line);)
            if (line.starts_with("  Get") || line.starts_with("  Com") || line.starts_with("  Use"))
                shown.push_back(line.substr(2));
        ASSERT_EQ(shown.size(), std::size(kOperations)) << page;
        testing::FakeMessage message;
        for (std::size_t i = 0; i < shown.size(); ++i) {
            std::u16string code(model->code);
            std::string line = kOperations[i].name;
            line.resize(29, ' ');
            EXPECT_EQ(line + kOperations[i].answer(code, message), shown[i]) << page;
        }
        EXPECT_TRUE(message.texts.empty()) << page;
    }
}

TEST(Operations, ReportAnUnknownCodeUnderTheirNames) {
    for (const Operation& operation : std::span(kOperations).subspan(2)) {
        const std::string name = operation.name;
        std::u16string code = u"type99999";
        testing::FakeMessage message;
        const std::string answer = operation.answer(code, message);
        EXPECT_TRUE(answer == "\"\"" || answer == (name == "GetRepeatErrorEventRX" ? "1" : "0")) << name << answer;
        EXPECT_EQ(code, u"TYPE99999") << name;
        ASSERT_EQ(message.texts.size(), 1U) << name;
        // The report of one operation lacks its last letter.
        EXPECT_EQ(testing::Shown(message.texts[0]),
                  (name == "GetComLngEndReadRx" ? "GetComLngEndReadR" : name) + ": FATAL ERROR !");
    }
}

}  // namespace
}  // namespace vintrel::server
