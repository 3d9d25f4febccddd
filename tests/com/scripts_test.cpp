// Script clients, run by the system's own script host.
#include <gtest/gtest.h>

#include "client.h"

namespace vintrel::testing {
namespace {

constexpr DWORD kLimitMilliseconds = 60'000;

/// What the script wrote; it is ended when it takes too long.
std::string Output(const std::wstring& script) {
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    const std::wstring log = script + L".log";
    HANDLE file =
        CreateFileW(log.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS, 0, nullptr);
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = file;
    startup.hStdError = file;
    PROCESS_INFORMATION process = {};
    std::wstring command = L"cscript.exe //nologo \"" + script + L"\"";
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &process)) {
        CloseHandle(file);
        return "no script host";
    }
    if (WaitForSingleObject(process.hProcess, kLimitMilliseconds) != WAIT_OBJECT_0)
        TerminateProcess(process.hProcess, 1);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);

    std::string output(GetFileSize(file, nullptr), '\0');
    DWORD read = 0;
    SetFilePointer(file, 0, nullptr, FILE_BEGIN);
    ReadFile(file, output.data(), static_cast<DWORD>(output.size()), &read, nullptr);
    CloseHandle(file);
    return output;
}

/// The script host reports no failure of its own: a script is passed when it wrote its last line and nothing else.
void ExpectPassed(const wchar_t* name) { EXPECT_EQ(Output(ProgramFolder() + L"\\scripts\\" + name), "END\r\n"); }

TEST(Scripts, UseTheEightClassesFromVBScript) { ExpectPassed(L"classes.vbs"); }
TEST(Scripts, UseTheEightClassesFromJScript) { ExpectPassed(L"classes.js"); }
TEST(Scripts, GetTheAnswersOfThePerModelTables) { ExpectPassed(L"per_model_answers.vbs"); }

}  // namespace
}  // namespace vintrel::testing
