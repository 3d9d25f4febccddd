// How failures reach the host: as failed calls with a description, or as the error report that the operator sees.
#include <gtest/gtest.h>

#include <tuple>

#include "Vintrel.h"
#include "client.h"
#include "message_box_watcher.h"

namespace vintrel::testing {
namespace {

constexpr HRESULT kInvalidArgument = static_cast<HRESULT>(0x800A0005);

TEST(Failures, CarryNumberSourceAndDescriptionToLateAndEarlyBoundClients) {
    const Ref<IDispatch> pms = Create(L"Vintrel.PMSEvents");
    Variant variable(L"  GI|RN12  ");
    const Outcome late = Call(pms.Get(), L"GetPMS_ColumnData", {Variant::To(variable), Variant(L"|RN")});
    EXPECT_EQ(late.result, DISP_E_EXCEPTION);
    EXPECT_EQ(late.failure, kInvalidArgument);
    EXPECT_EQ(late.source, L"Vintrel.PMSEvents");
    EXPECT_NE(late.description.find(L"|RN"), std::wstring::npos);
    EXPECT_EQ(late.answer.vt, VT_EMPTY);
    EXPECT_EQ(variable.Str(), L"GI|RN12");  // what was done before the failure stays done

    Text record(L"GI|RN12");
    Text column(L"|RN");
    Text answer;
    Text source;
    Text description;
    SetErrorInfo(0, nullptr);
    EXPECT_EQ(pms.As<_PMSEvents>()->GetPMS_ColumnData(record.Var(), column.Var(), answer.Var()), kInvalidArgument);
    Ref<IErrorInfo> information;
    ASSERT_EQ(GetErrorInfo(0, information.Out()), S_OK);
    information->GetSource(source.Var());
    information->GetDescription(description.Var());
    EXPECT_EQ(source.Str(), late.source);
    EXPECT_EQ(description.Str(), late.description);
    EXPECT_EQ(*answer.Var(), nullptr);
}

TEST(Failures, RefuseNullPointersWithoutTouchingAnything) {
    const auto events = Create(L"Vintrel.ComEventsRX").As<_ComEventsRX>();
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
    const std::tuple<const wchar_t*, const wchar_t*, short> rows[] = {
        {L"Vintrel.ServiceEnabled", L"GetCallListEnabled", 0},
        {L"Vintrel.ComEventsRX", L"GetRepeatErrorEventRX", 1},
        {L"Vintrel.ComGdvFilter", L"GetGdvRealClockLen", 0},
    };
    MessageBoxWatcher watcher;
    for (const auto& [prog_id, operation, number] : rows) {
        Variant type(L"type12345");
        const Outcome outcome = Call(Create(prog_id).Get(), operation, {Variant::To(type)});
        EXPECT_EQ(outcome.result, S_OK);
        EXPECT_EQ(outcome.answer.iVal, number);
        EXPECT_EQ(type.Str(), L"TYPE12345");
        const std::vector<SeenMessage> seen = watcher.Take();
        ASSERT_EQ(seen.size(), 1U) << operation;
        EXPECT_EQ(seen[0].title, L"QUINDARA PABX COM SERVER   0");
        EXPECT_EQ(seen[0].text, std::wstring(operation) + L": FATAL ERROR !");
        EXPECT_TRUE(seen[0].critical_icon);
        EXPECT_EQ(seen[0].buttons, 1);
    }
}

}  // namespace
}  // namespace vintrel::testing
