// The operations that answer from the per-model tables. The tables themselves are not restated here: one regular row
// per group, the rows that break a pattern, and what all these operations have in common.
#include <gtest/gtest.h>

#include <type_traits>

#include "fakes.h"
#include "printing.h"
#include "rx/framing.h"
#include "rx/login.h"
#include "server/capabilities.h"
#include "server/link_parameters.h"
#include "tx/pacing.h"

namespace vintrel {
namespace {

using testing::FakeMessage;
using testing::Shown;

struct Operation {
    const char* name;
    std::string (*ask)(server::TypeCode, server::CriticalMessage&);
};

template <auto kFunction>
std::string AsText(server::TypeCode type, server::CriticalMessage& message) {
    const auto answer = kFunction(type, message);
    if constexpr (std::is_integral_v<decltype(answer)>) {
        return std::to_string(answer);
    } else {
        return Shown(answer);
    }
}

#define OPERATION(room, function) \
    Operation { #function, &AsText < room::function> }

const Operation kOperations[] = {
    OPERATION(server, ComPortReadyType),
    OPERATION(server, ComPortDTRTime),
    OPERATION(server, GetComEtxEndReadRxType),
    OPERATION(server, GetComMultiDurationReadRx),
    OPERATION(server, UseDataReadBuffer),
    OPERATION(server, GetPABXConnectionType),
    OPERATION(server, GetTCPIPWinsockAB),
    OPERATION(server, GetTCPIPConnectDirection),
    OPERATION(server, GetPABXTCPIPConnectionType),
    OPERATION(server, GetPABXTCPIPREConnection),
    OPERATION(server, GetPABXTCPIPIDRequest),
    OPERATION(server, GetPABXTCPIPIDConfirm),
    OPERATION(server, GetPABXTCPIPPWRequest),
    OPERATION(server, GetPABXTCPIPPWConfirm),
    OPERATION(server, GetPABXTCPIPIDRequest2),
    OPERATION(server, GetPABXTCPIPIDConfirm2),
    OPERATION(server, GetPABXTCPIPPWRequest2),
    OPERATION(server, GetPABXTCPIPPWConfirm2),
    OPERATION(server, GetPABXTCPIPDLCommand),
    OPERATION(server, GetCheckInType),
    OPERATION(server, GetINIEnabled),
    OPERATION(server, GetRoomStateEnabled),
    OPERATION(server, GetClockEnabled),
    OPERATION(server, GetClockCentral),
    OPERATION(server, GetCallListEnabled),
    OPERATION(server, GetCheckInOutEnabled),
    OPERATION(server, GetModifyNameEnabled),
    OPERATION(server, GetClockDateEnabled),
    OPERATION(server, GetRoomAlarmEnabled),
    OPERATION(tx, ComPortTxWaitConfirm),
    OPERATION(tx, ComPortTXIntervalWithWait),
    OPERATION(tx, ComPortTXInterval),
    OPERATION(tx, ComEventConfirmDataRecordTX),
    OPERATION(tx, ComEventErrorHandleTX),
    OPERATION(tx, ComEventRequestLogInTX),
    OPERATION(tx, ComEventConfirmLogInTX),
    OPERATION(tx, ComEventDtrRtsEnabled),
    OPERATION(tx, ComEventPrimaryTX),
    OPERATION(tx, ComEventAfterTX),
    OPERATION(rx, GetComLngEndReadRx),
    OPERATION(rx, GetComEtxEndReadRx),
    OPERATION(rx, GetComEtxEndReadRx2),
    OPERATION(rx, GetComACKRx),
    OPERATION(rx, GetRepeatErrorEventRX),
    OPERATION(rx, GetIPXComColumn),
    OPERATION(rx, GetIPXComSpace),
    OPERATION(rx, GetIPXComComma),
    OPERATION(rx, ComEventRequestLogInRX),
    OPERATION(rx, ComEventConfirmLogInRX),
};

TEST(PerModelAnswers, AnUnknownCodeIsReportedOnceUnderTheOperationsName) {
    for (const Operation& operation : kOperations) {
        for (const std::u16string_view unknown : {u"type10099", u"", u"TYPE10001 "}) {
            const std::string name = operation.name;
            FakeMessage message;
            std::u16string type(unknown);
            const std::string answer = operation.ask(type, message);

            // The report of one operation lacks its last letter, and one has a default of its own.
            const std::string reported = name == "GetComLngEndReadRx" ? "GetComLngEndReadR" : name;
            ASSERT_EQ(message.texts.size(), 1U) << name;
            EXPECT_EQ(Shown(message.texts[0]), reported + ": FATAL ERROR !");
            EXPECT_EQ(Shown(message.titles[0]), "QUINDARA PABX COM SERVER   0");
            if (name == "GetRepeatErrorEventRX") {
                EXPECT_EQ(answer, "1");
            } else {
                EXPECT_TRUE(answer == "0" || answer.empty()) << name << " answered " << answer;
            }
            EXPECT_EQ(type, unknown == u"type10099" ? u"TYPE10099" : unknown);
        }
    }
}

TEST(PerModelAnswers, TheCallersCodeComesBackInUpperCaseWithoutAReport) {
    for (const Operation& operation : kOperations) {
        FakeMessage message;
        std::u16string lower = u"type10019";
        std::u16string upper = u"TYPE10019";
        EXPECT_EQ(operation.ask(lower, message), operation.ask(upper, message)) << operation.name;
        EXPECT_EQ(lower, upper);
        EXPECT_TRUE(message.texts.empty()) << operation.name;
    }
}

struct Answer {
    Operation operation;
    std::u16string_view type;
    const char* expected;
};

TEST(PerModelAnswers, AreThoseOfTheModel) {
    const Answer answers[] = {
        // Link parameters: one serial, one network, one driven model, then what breaks the pattern.
        {OPERATION(server, GetPABXConnectionType), u"TYPE10008", "0"},
        {OPERATION(server, GetPABXConnectionType), u"TYPE10015", "2"},
        {OPERATION(server, GetTCPIPWinsockAB), u"TYPE10012", "2"},
        {OPERATION(server, GetPABXConnectionType), u"TYPE10013", "1"},
        {OPERATION(server, ComPortReadyType), u"TYPE10007", "0"},
        {OPERATION(server, ComPortDTRTime), u"TYPE10003", "1"},
        {OPERATION(server, GetComEtxEndReadRxType), u"TYPE12000", "1"},
        {OPERATION(server, GetComEtxEndReadRxType), u"TYPE10019", "2"},
        {OPERATION(server, GetComMultiDurationReadRx), u"TYPE10001", "0"},
        {OPERATION(server, GetComMultiDurationReadRx), u"TYPE10002", "1"},
        {OPERATION(server, UseDataReadBuffer), u"TYPE10018", "1"},
        {OPERATION(server, UseDataReadBuffer), u"TYPE10019", "0"},
        {OPERATION(server, GetTCPIPWinsockAB), u"TYPE12000", "1"},
        {OPERATION(server, GetTCPIPConnectDirection), u"TYPE10019", "1"},
        {OPERATION(server, GetPABXTCPIPConnectionType), u"TYPE10012", "0"},
        {OPERATION(server, GetPABXTCPIPConnectionType), u"TYPE10020", "1"},
        {OPERATION(server, GetPABXTCPIPREConnection), u"TYPE10016", "1"},
        {OPERATION(server, GetPABXTCPIPREConnection), u"TYPE10019", "65500"},
        {OPERATION(server, GetCheckInType), u"TYPE12000", "1"},
        {OPERATION(server, GetINIEnabled), u"TYPE12000", "0"},
        {OPERATION(server, GetPABXTCPIPIDRequest), u"TYPE10019", "-"},
        {OPERATION(server, GetPABXTCPIPPWConfirm), u"TYPE10019", "*<CR>"},
        {OPERATION(server, GetPABXTCPIPIDRequest2), u"TYPE10014", "Username: "},
        {OPERATION(server, GetPABXTCPIPPWRequest2), u"TYPE10016", "Password: "},
        {OPERATION(server, GetPABXTCPIPPWConfirm2), u"TYPE10016", "I"},
        {OPERATION(server, GetPABXTCPIPIDRequest2), u"TYPE10020", "HTTP"},
        {OPERATION(server, GetPABXTCPIPPWRequest2), u"TYPE10017", "VINTREL"},
        // Services.
        {OPERATION(server, GetRoomStateEnabled), u"TYPE10004", "0"},
        {OPERATION(server, GetRoomStateEnabled), u"TYPE10008", "1"},
        {OPERATION(server, GetClockEnabled), u"TYPE10017", "0"},
        {OPERATION(server, GetClockCentral), u"TYPE10007", "0"},
        {OPERATION(server, GetClockCentral), u"TYPE10003", "1"},
        {OPERATION(server, GetCallListEnabled), u"TYPE10007", "0"},
        {OPERATION(server, GetCheckInOutEnabled), u"TYPE10020", "1"},
        {OPERATION(server, GetModifyNameEnabled), u"TYPE10020", "0"},
        {OPERATION(server, GetClockDateEnabled), u"TYPE10001", "1"},
        {OPERATION(server, GetClockDateEnabled), u"TYPE10012", "2"},
        {OPERATION(server, GetRoomAlarmEnabled), u"TYPE10011", "1"},
        // Pacing and control strings.
        {OPERATION(tx, ComPortTxWaitConfirm), u"TYPE10007", "1"},
        {OPERATION(tx, ComPortTXInterval), u"TYPE10008", "130"},
        {OPERATION(tx, ComPortTXInterval), u"TYPE10013", "0"},
        {OPERATION(tx, ComPortTXIntervalWithWait), u"TYPE10013", "10"},
        {OPERATION(tx, ComPortTXIntervalWithWait), u"TYPE10019", "30"},
        {OPERATION(tx, ComEventDtrRtsEnabled), u"TYPE10007", "1"},
        {OPERATION(tx, ComEventConfirmDataRecordTX), u"TYPE12000", "<ACK>"},
        {OPERATION(tx, ComEventErrorHandleTX), u"TYPE12000", ""},
        {OPERATION(tx, ComEventErrorHandleTX), u"TYPE10002", "<NAK>"},
        {OPERATION(tx, ComEventRequestLogInTX), u"TYPE10002", "<STX><ETX>"},
        {OPERATION(tx, ComEventConfirmLogInTX), u"TYPE10002", "<NAK>"},
        {OPERATION(tx, ComEventConfirmLogInTX), u"TYPE10014", "<U+00FF><U+00FD><SOH>"},
        {OPERATION(tx, ComEventRequestLogInTX), u"TYPE10006", "<CR>i3mode<CR><CR><CR>"},
        {OPERATION(tx, ComEventRequestLogInTX), u"TYPE10019", "<CR><LF>"},
        {OPERATION(tx, ComEventPrimaryTX), u"TYPE10004", "h<CR>h<CR>"},
        {OPERATION(tx, ComEventPrimaryTX), u"TYPE10005", "<CR>h"},
        {OPERATION(tx, ComEventAfterTX), u"TYPE10006", "h<CR>"},
        {OPERATION(tx, ComEventAfterTX), u"TYPE10014", ""},
        // Framing and the exchange's login.
        {OPERATION(rx, GetComLngEndReadRx), u"TYPE10010", "292"},
        {OPERATION(rx, GetComLngEndReadRx), u"TYPE12000", "0"},
        {OPERATION(rx, GetComEtxEndReadRx), u"TYPE10009", "<CR><LF>"},
        {OPERATION(rx, GetComEtxEndReadRx), u"TYPE10020", "<LF>"},
        {OPERATION(rx, GetComEtxEndReadRx), u"TYPE12000", "<ETX>"},
        {OPERATION(rx, GetComACKRx), u"TYPE10001", "<ACK>"},
        {OPERATION(rx, GetComACKRx), u"TYPE10011", "@"},
        {OPERATION(rx, GetComACKRx), u"TYPE10014", "<CR><LF>"},
        {OPERATION(rx, GetComACKRx), u"TYPE10017", "<U+00A3>"},
        {OPERATION(rx, GetRepeatErrorEventRX), u"TYPE10007", "8"},
        {OPERATION(rx, GetRepeatErrorEventRX), u"TYPE12000", "1"},
        {OPERATION(rx, GetIPXComColumn), u"TYPE10013", "25"},
        {OPERATION(rx, GetIPXComComma), u"TYPE10013", "1"},
        {OPERATION(rx, GetIPXComComma), u"TYPE10017", "0"},
        {OPERATION(rx, ComEventRequestLogInRX), u"TYPE10007", "<ENQ>"},
        {OPERATION(rx, ComEventRequestLogInRX), u"TYPE10016", "<U+00FF><U+00FB><ETX>"},
        {OPERATION(rx, ComEventRequestLogInRX), u"TYPE12000", "@"},
        {OPERATION(rx, ComEventRequestLogInRX), u"TYPE10012", "<U+00A3>"},
        {OPERATION(rx, ComEventConfirmLogInRX), u"TYPE12000", "<ACK>"},
        {OPERATION(rx, ComEventConfirmLogInRX), u"TYPE10016", ""},
    };
    for (const Answer& answer : answers) {
        FakeMessage message;
        std::u16string type(answer.type);
        EXPECT_EQ(answer.operation.ask(type, message), answer.expected)
            << answer.operation.name << " of " << Shown(answer.type);
    }
}

TEST(PerModelAnswers, FrameCharactersDependOnNoModel) {
    EXPECT_EQ(Shown(server::GetComSTXRx()), "<STX>");
    EXPECT_EQ(Shown(server::GetComETXRx()), "<ETX>");
    EXPECT_EQ(Shown(server::GetComDLERx()), "<DLE>");
}

}  // namespace
}  // namespace vintrel
