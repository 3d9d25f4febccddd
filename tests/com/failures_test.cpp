// How failures reach the host: as failed calls with a description, or as the error report that the operator sees.
#include <gtest/gtest.h>

#include "Vintrel.h"
#include "client.h"
#include "message_box_watcher.h"

namespace vintrel::testing {
namespace {

constexpr HRESULT kInvalidArgument = static_cast<HRESULT>(0x800A0005);

TEST(Failures, CarryNumberSourceAndDescriptionToALateBoundClient) {
    const Ref<IDispatch> pms = Create(L"Vintrel.PMSEvents");
    Variant record(L"  GI|RN12  ");
    const Outcome outcome = Call(pms.Get(), L"GetPMS_ColumnData", {Variant::To(record), Variant(L"|RN")});
    EXPECT_EQ(outcome.result, DISP_E_EXCEPTION);
    EXPECT_EQ(outcome.failure, kInvalidArgument);
    EXPECT_EQ(outcome.source, L"Vintrel.PMSEvents");
    EXPECT_NE(outcome.description.find(L"|RN"), std::wstring::npos);
    EXPECT_EQ(outcome.answer.vt, VT_EMPTY);
    EXPECT_EQ(record.Str(), L"GI|RN12");  // what was done before the failure stays done
}

TEST(Failures, CarryTheSameToAnEarlyBoundClient) {
    Ref<_PMSEvents> pms;
    CoCreateInstance(CLSID_PMSEvents, nullptr, CLSCTX_INPROC_SERVER, IID__PMSEvents, pms.OutVoid());
    ASSERT_TRUE(pms);
    Text record(L"GI|RN12");
    Text column(L"|RN");
    Text answer;
    SetErrorInfo(0, nullptr);
    EXPECT_EQ(pms->GetPMS_ColumnData(record.Var(), column.Var(), answer.Var()), kInvalidArgument);
    Ref<IErrorInfo> information;
    ASSERT_EQ(GetErrorInfo(0, information.Out()), S_OK);
    Text source;
    Text description;
    information->GetSource(source.Var());
    information->GetDescription(description.Var());
    EXPECT_EQ(source.Str(), L"Vintrel.PMSEvents");
    EXPECT_FALSE(description.Str().empty());
    EXPECT_EQ(*answer.Var(), nullptr);
}

TEST(Failures, RefuseNullPointersWithoutTouchingAnything) {
    Ref<_ComEventsRX> events;
    CoCreateInstance(CLSID_ComEventsRX, nullptr, CLSCTX_INPROC_SERVER, IID__ComEventsRX, events.OutVoid());
    ASSERT_TRUE(events);
    Text type(L"type10001");
    Text record(L"x");
    Text answer;
    EXPECT_EQ(events->GetComConvertSetClockRX(nullptr, record.Var(), answer.Var()), E_POINTER);
    EXPECT_EQ(events->GetComConvertSetClockRX(type.Var(), nullptr, answer.Var()), E_POINTER);
    EXPECT_EQ(events->GetComConvertSetClockRX(type.Var(), record.Var(), nullptr), E_POINTER);
    EXPECT_EQ(type.Str(), L"type10001");
    short flag = 1;
    EXPECT_EQ(events->GetComIsRoomState(type.Var(), nullptr, &flag), E_POINTER);
    EXPECT_EQ(flag, 0);
}

TEST(ErrorReport, ShowsOneCriticalBoxForAnUnknownCodeAndTheCallAnswersItsDefault) {
    const struct {
        const wchar_t *prog_id, *operation;
        short number;
    } cases[] = {
        {L"Vintrel.ServiceEnabled", L"GetCallListEnabled", 0},
        {L"Vintrel.ComEventsRX", L"GetRepeatErrorEventRX", 1},
        {L"Vintrel.ComGdvFilter", L"GetGdvRealClockLen", 0},
    };
    MessageBoxWatcher watcher;
    for (const auto& each : cases) {
        const Ref<IDispatch> object = Create(each.prog_id);
        Variant type(L"type12345");
        const Outcome outcome = Call(object.Get(), each.operation, {Variant::To(type)});
        EXPECT_EQ(outcome.result, S_OK);
        EXPECT_EQ(outcome.answer.iVal, each.number);
        EXPECT_EQ(type.Str(), L"TYPE12345");
        const std::vector<SeenMessage> seen = watcher.Take();
        ASSERT_EQ(seen.size(), 1U) << each.operation;
        EXPECT_EQ(seen[0].title, L"QUINDARA PABX COM SERVER   0");
        EXPECT_EQ(seen[0].text, std::wstring(each.operation) + L": FATAL ERROR !");
        EXPECT_TRUE(seen[0].critical_icon);
        EXPECT_EQ(seen[0].buttons, 1);
    }
}

}  // namespace
}  // namespace vintrel::testing
