#include "win32/message_loop.h"

#include <gtest/gtest.h>

#include <new>
#include <thread>

#include "platform/waits.h"
#include "win32/clock.h"

namespace vintrel::win32 {

using namespace platform;  // what these implement

namespace {

class HiddenWindow : public ::testing::Test {
 protected:
    std::uint64_t Elapsed() const { return clock.Milliseconds() - start; }

    MessageLoop loop;
    Clock clock;
    std::uint64_t start = clock.Milliseconds();
};

TEST_F(HiddenWindow, IsMadeOnFirstUseAndCanBeTakenAway) {
    loop.ProcessPending();
    EXPECT_FALSE(loop.HasWindow());
    bool ticked = false;
    loop.StartTimer(Timer::CheckExtTranfertTimer, 20, [&] { ticked = true; });
    EXPECT_NE(FindWindowExW(HWND_MESSAGE, nullptr, L"InvisibleFrm", nullptr), nullptr);
    loop.DestroyHiddenWindow();
    EXPECT_EQ(FindWindowExW(HWND_MESSAGE, nullptr, L"InvisibleFrm", nullptr), nullptr);
    WaitMilliseconds(loop, 60);
    EXPECT_FALSE(ticked);
}

TEST_F(HiddenWindow, TimersTickOnceInTheHostsOwnMessageLoop) {
    int ticks = 0;
    loop.StartTimer(Timer::TspTimer, 1, [&] { ++ticks; });
    MSG message{};
    while (loop.TimerRunning(Timer::TspTimer) && GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    WaitMilliseconds(loop, 50);
    EXPECT_EQ(ticks, 1);
}

TEST_F(HiddenWindow, IsMadeAnewWhenItsThreadHasEnded) {
    std::thread([this] { loop.StartTimer(Timer::SleepTimer, 10000, {}); }).join();
    EXPECT_FALSE(loop.HasWindow());
    loop.StartTimer(Timer::SleepTimer, 1, {});
    EXPECT_TRUE(loop.HasWindow());
    WaitMilliseconds(loop, 20);
    EXPECT_LT(Elapsed(), 2000U);
}

/// A window that sends itself a message for every one that it gets.
LRESULT CALLBACK Flood(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_APP) PostMessageW(window, WM_APP, 0, 0);
    return DefWindowProcW(window, message, wparam, lparam);
}

TEST_F(HiddenWindow, AFloodOfMessagesDoesNotHoldAWait) {
    WNDCLASSW flood{};
    flood.lpszClassName = L"VintrelFlood";
    flood.lpfnWndProc = Flood;
    RegisterClassW(&flood);
    HWND window =
        CreateWindowExW(0, flood.lpszClassName, nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    ASSERT_NE(window, nullptr);
    PostMessageW(window, WM_APP, 0, 0);
    WaitMilliseconds(loop, 100);
    EXPECT_GE(Elapsed(), 84U) << "one step of the tick count less";
    EXPECT_LT(Elapsed(), 2000U);
    DestroyWindow(window);
}

TEST_F(HiddenWindow, TheOrderToEndTheThreadIsPassedOnAfterTheOutermostWait) {
    loop.StartTimer(Timer::TspTimer, 20, [&] { loop.WaitAndProcess(1); });
    PostQuitMessage(17);
    MSG message{};
    {
        const WaitScope outer(loop);
        WaitMilliseconds(loop, 80);
        EXPECT_GE(Elapsed(), 64U);
        EXPECT_FALSE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    }
    ASSERT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(message.wParam, 17U);
}

TEST_F(HiddenWindow, AnExceptionInATickEndsThere) {
    loop.StartTimer(Timer::TspTimer, 1, [] { throw std::bad_alloc(); });
    WaitMilliseconds(loop, 40);
    EXPECT_FALSE(loop.TimerRunning(Timer::TspTimer));
}

}  // namespace
}  // namespace vintrel::win32
