// What all operations that answer from a per-model table have in common; a script asks for answers of each.
#include <gtest/gtest.h>

#include <type_traits>
#include <vector>

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

template <typename... Each>
std::vector<Operation> All(Each... each) {
    return {each...};
}

const std::vector<Operation> kOperations = All(
    OPERATION(server, ComPortReadyType), OPERATION(server, ComPortDTRTime), OPERATION(server, GetComEtxEndReadRxType),
    OPERATION(server, GetComMultiDurationReadRx), OPERATION(server, UseDataReadBuffer),
    OPERATION(server, GetPABXConnectionType), OPERATION(server, GetTCPIPWinsockAB),
    OPERATION(server, GetTCPIPConnectDirection), OPERATION(server, GetPABXTCPIPConnectionType),
    OPERATION(server, GetPABXTCPIPREConnection), OPERATION(server, GetPABXTCPIPIDRequest),
    OPERATION(server, GetPABXTCPIPIDConfirm), OPERATION(server, GetPABXTCPIPPWRequest),
    OPERATION(server, GetPABXTCPIPPWConfirm), OPERATION(server, GetPABXTCPIPIDRequest2),
    OPERATION(server, GetPABXTCPIPIDConfirm2), OPERATION(server, GetPABXTCPIPPWRequest2),
    OPERATION(server, GetPABXTCPIPPWConfirm2), OPERATION(server, GetPABXTCPIPDLCommand),
    OPERATION(server, GetCheckInType), OPERATION(server, GetINIEnabled), OPERATION(server, GetRoomStateEnabled),
    OPERATION(server, GetClockEnabled), OPERATION(server, GetClockCentral), OPERATION(server, GetCallListEnabled),
    OPERATION(server, GetCheckInOutEnabled), OPERATION(server, GetModifyNameEnabled),
    OPERATION(server, GetClockDateEnabled), OPERATION(server, GetRoomAlarmEnabled), OPERATION(tx, ComPortTxWaitConfirm),
    OPERATION(tx, ComPortTXIntervalWithWait), OPERATION(tx, ComPortTXInterval),
    OPERATION(tx, ComEventConfirmDataRecordTX), OPERATION(tx, ComEventErrorHandleTX),
    OPERATION(tx, ComEventRequestLogInTX), OPERATION(tx, ComEventConfirmLogInTX), OPERATION(tx, ComEventDtrRtsEnabled),
    OPERATION(tx, ComEventPrimaryTX), OPERATION(tx, ComEventAfterTX), OPERATION(rx, GetComLngEndReadRx),
    OPERATION(rx, GetComEtxEndReadRx), OPERATION(rx, GetComEtxEndReadRx2), OPERATION(rx, GetComACKRx),
    OPERATION(rx, GetRepeatErrorEventRX), OPERATION(rx, GetIPXComColumn), OPERATION(rx, GetIPXComSpace),
    OPERATION(rx, GetIPXComComma), OPERATION(rx, ComEventRequestLogInRX), OPERATION(rx, ComEventConfirmLogInRX));

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

}  // namespace
}  // namespace vintrel
