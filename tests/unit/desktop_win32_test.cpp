#include "win32/desktop.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <string>

#include "server/error_report.h"
#include "win32/support_list.h"

namespace vintrel::win32 {
namespace {

/// A service's surroundings: a window station that nobody sees. What goes to the debugger output is collected.
class WithoutDesktop : public ::testing::Test {
 protected:
    WithoutDesktop() {
        debug_output.clear();
        SetProcessWindowStation(service_station);
        listener = AddVectoredExceptionHandler(1, Listen);
    }
    ~WithoutDesktop() override {
        RemoveVectoredExceptionHandler(listener);
        SetProcessWindowStation(former_station);
        CloseWindowStation(service_station);
    }

    /// The system raises the text as an exception, wide or narrow, which a debugger takes.
    static LONG CALLBACK Listen(EXCEPTION_POINTERS* exception) {
        constexpr DWORD kPrintNarrow = 0x40010006;
        constexpr DWORD kPrintWide = 0x4001000A;
        const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
        const ULONG_PTR text = record.ExceptionInformation[1];
        if (record.ExceptionCode == kPrintWide) {
            for (const auto* c = reinterpret_cast<const wchar_t*>(text); *c != 0; ++c)
                debug_output += static_cast<char>(*c);
        } else if (record.ExceptionCode == kPrintNarrow) {
            debug_output += reinterpret_cast<const char*>(text);
        } else {
            return EXCEPTION_CONTINUE_SEARCH;
        }
        return EXCEPTION_CONTINUE_EXECUTION;
    }

    static std::string debug_output;
    HWINSTA former_station = GetProcessWindowStation();
    HWINSTA service_station = CreateWindowStationW(nullptr, 0, WINSTA_ALL_ACCESS, nullptr);
    void* listener = nullptr;
};

std::string WithoutDesktop::debug_output;

TEST_F(WithoutDesktop, TheErrorReportGoesToTheDebuggerOutput) {
    ASSERT_NE(service_station, nullptr);
    EXPECT_FALSE(HasDesktop());
    CriticalMessage message;
    server::ErrorReport(message, 0, u"InitializeServer");
    EXPECT_EQ(debug_output, "QUINDARA PABX COM SERVER   0: InitializeServer: FATAL ERROR !\n");
}

TEST_F(WithoutDesktop, TheListWindowDoesNotOpen) {
    SupportList list;
    list.Show({.caption = u"caption", .heading = {}, .tool_tip = {}, .lines = {u"line"}, .on_double_click = {}});
    EXPECT_FALSE(list.IsOpen());
}

}  // namespace
}  // namespace vintrel::win32
