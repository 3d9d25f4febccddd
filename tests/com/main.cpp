// Registers the server that stands beside this program, runs the tests, and unregisters it.
#include <gtest/gtest.h>

#include <cstdio>

#include "client.h"

namespace {

/// Every test leaves the server idle: what it created is released, and the server has closed its windows.
class LeakCheck : public testing::EmptyTestEventListener {
    void OnTestEnd(const testing::TestInfo&) override {
        EXPECT_TRUE(vintrel::testing::ServerIsIdle()) << "the test left an object, a lock or a window";
    }
};

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new LeakCheck);
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    if (vintrel::testing::CallExport("DllRegisterServer") != S_OK) {
        std::fputs("the server could not be registered\n", stderr);
        return 1;
    }
    const int code = RUN_ALL_TESTS();
    vintrel::testing::CallExport("DllUnregisterServer");
    CoUninitialize();
    return code;
}
