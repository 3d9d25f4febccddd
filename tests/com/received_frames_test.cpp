// Received frames and FIAS records through COM: what no exchange should send, transfers on the real clock, failed
// calls.
#include <gtest/gtest.h>

#include <string>

#include "Vintrel.h"
#include "client.h"

namespace vintrel::testing {
namespace {

Ref<_ComEventsRX> ReceiveEvents() {
    Ref<_ComEventsRX> events;
    CoCreateInstance(CLSID_ComEventsRX, nullptr, CLSCTX_INPROC_SERVER, IID__ComEventsRX, events.OutVoid());
    return events;
}

std::vector<std::wstring> AllCodes() {
    std::vector<std::wstring> codes;
    for (int number = 10001; number <= 10020; ++number) codes.push_back(L"TYPE" + std::to_wstring(number));
    codes.emplace_back(L"TYPE12000");
    return codes;
}

using Question = HRESULT (STDMETHODCALLTYPE _ComEventsRX::*)(BSTR*, BSTR*, short*);
using Conversion = HRESULT (STDMETHODCALLTYPE _ComEventsRX::*)(BSTR*, BSTR*, BSTR*);

constexpr Question kQuestions[] = {&_ComEventsRX::GetComIsRoomState, &_ComEventsRX::GetComIsRoomAlarm,
                                   &_ComEventsRX::GetComIsConfirmClock, &_ComEventsRX::GetComIsSetClock};
constexpr Conversion kConversions[] = {&_ComEventsRX::GetComConvertRoomStateRX, &_ComEventsRX::GetComConvertRoomAlarmRX,
                                       &_ComEventsRX::GetComConvertConfirmClockRX};

TEST(ReceivedFrames, WhatIsNoFrameIsOfNoKindAndHasNoFormForEveryModel) {
    const Ref<_ComEventsRX> events = ReceiveEvents();
    ASSERT_TRUE(events);
    const std::wstring frames[] = {L"",
                                   L"x",
                                   L"\x02",
                                   L"\x03",
                                   L"\x0C",
                                   L",",
                                   L"\x02\x03",
                                   std::wstring(1, L'\0'),
                                   L"\x0416\x4E2D\xD83D",
                                   std::wstring(1'000'000, L','),
                                   std::wstring(1'000'000, L'\x0416')};
    for (const std::wstring& code : AllCodes()) {
        Text type(code);
        for (const std::wstring& content : frames) {
            SCOPED_TRACE(::testing::Message() << code << ", a frame of " << content.size());
            Text frame(content);
            for (const Question question : kQuestions) {
                short answer = -1;
                EXPECT_EQ((events.Get()->*question)(type.Var(), frame.Var(), &answer), S_OK);
                EXPECT_EQ(answer, 0);
            }
            for (const Conversion conversion : kConversions) {
                Text form;
                EXPECT_EQ((events.Get()->*conversion)(type.Var(), frame.Var(), form.Var()), S_OK);
                EXPECT_EQ(form.Str(), L"");
            }
            Text setting;
            EXPECT_EQ(events->GetComConvertSetClockRX(type.Var(), frame.Var(), setting.Var()), S_OK);
            EXPECT_LE(setting.Str().size(), 32U);
            EXPECT_EQ(frame.Str(), content);
        }
        Text nothing;
        short answer = -1;
        EXPECT_EQ(events->GetComIsRoomState(type.Var(), nothing.Var(), &answer), S_OK);
        EXPECT_EQ(answer, 0);
    }
}

/// Processes messages for a while, as a host does that waits for the exchange.
void PumpMessages(DWORD milliseconds) {
    const ULONGLONG end = GetTickCount64() + milliseconds;
    for (ULONGLONG now = GetTickCount64(); now < end; now = GetTickCount64()) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    }
}

TEST(ExternalTransfer, PairsTwoLegsWithinFourSecondsAndForgetsALoneOne) {
    const Ref<_ComEventsRX> events = ReceiveEvents();
    ASSERT_TRUE(events);
    Text type(L"TYPE10017");
    Text date(L"15.11.26");
    Text time(L"07:30");
    Text condition(L"1111");
    long user = 204;
    long duration = 60;
    const auto check = [&](const wchar_t* direction) {
        Text text(direction);
        short answer = -1;
        EXPECT_EQ(events->CheckExternalTransfert(&user, date.Var(), time.Var(), &duration, text.Var(), condition.Var(),
                                                 type.Var(), &answer),
                  S_OK);
        return answer;
    };
    EXPECT_EQ(check(L"0"), 0);
    PumpMessages(1500);
    EXPECT_EQ(check(L"1"), 1);
    EXPECT_EQ(check(L"0"), 0);
    PumpMessages(4300);
    EXPECT_EQ(check(L"1"), 0) << "the leg has expired";
    EXPECT_EQ(check(L"0"), 1) << "and the late one has taken its place";
}

TEST(FiasRecords, APostingIsAnsweredAndTrimmedInTheCallersVariable) {
    const Ref<IDispatch> pms = Create(L"Vintrel.PMSEvents");
    Variant posting(L"  PS|RN102|PTC|DA240131|TI1405|P#77|  ");
    const Outcome answered = Call(pms.Get(), L"GetPMS_PSConfirm", {Variant::To(posting)});
    EXPECT_EQ(answered.result, S_OK);
    EXPECT_EQ(answered.answer.Str(), L"\x02PA|RN102|ASOK|DA240131|TI1405|P#77|\x03");
    EXPECT_EQ(posting.Str(), L"PS|RN102|PTC|DA240131|TI1405|P#77|");

    Variant open(L"PS|RN102|DA240131|TI1405|P#77");
    const Outcome failed = Call(pms.Get(), L"GetPMS_PSConfirm", {Variant::To(open)});
    EXPECT_EQ(failed.result, DISP_E_EXCEPTION);
    EXPECT_EQ(failed.failure, static_cast<HRESULT>(0x800A0005));
    EXPECT_NE(failed.description.find(L"P#"), std::wstring::npos);
}

}  // namespace
}  // namespace vintrel::testing
