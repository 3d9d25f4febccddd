// Transfers to an outside line on the real clock.
#include <gtest/gtest.h>

#include "Vintrel.h"
#include "client.h"

namespace vintrel::testing {
namespace {

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
    Ref<_ComEventsRX> events;
    CoCreateInstance(CLSID_ComEventsRX, nullptr, CLSCTX_INPROC_SERVER, IID__ComEventsRX, events.OutVoid());
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

}  // namespace
}  // namespace vintrel::testing
