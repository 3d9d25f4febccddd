#include "host_program.h"

#include <array>

#include "client.h"

namespace vintrel::testing {
namespace {

std::string ReadAll(HANDLE pipe) {
    std::string text;
    std::array<char, 4096> piece{};
    DWORD length = 0;
    while (ReadFile(pipe, piece.data(), piece.size(), &length, nullptr) && length > 0)
        text.append(piece.data(), length);
    return text;
}

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    for (std::size_t end = 0; (end = text.find('\n', start)) != std::string::npos; start = end + 1) {
        lines.push_back(text.substr(start, end - start));
        if (lines.back().ends_with('\r')) lines.back().pop_back();
    }
    return lines;
}

}  // namespace

HostRun RunHost(const std::wstring& arguments) {
    constexpr DWORD kLimit = 60'000;
    HostRun run;
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    HANDLE read = nullptr;
    HANDLE write = nullptr;
    if (!CreatePipe(&read, &write, &inherited, 0)) return run;
    SetHandleInformation(read, HANDLE_FLAG_INHERIT, 0);

    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = write;
    startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION process = {};
    const std::wstring folder = ProgramFolder();
    std::wstring line = L"\"" + folder + L"\\vintrel-host.exe\" " + arguments;
    const BOOL started =
        CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, folder.c_str(), &startup, &process);
    CloseHandle(write);  // so that the pipe ends with the program
    if (started) {
        run.lines = Lines(ReadAll(read));
        if (WaitForSingleObject(process.hProcess, kLimit) == WAIT_OBJECT_0)
            GetExitCodeProcess(process.hProcess, &run.exit_code);
        CloseHandle(process.hProcess);
        CloseHandle(process.hThread);
    }
    CloseHandle(read);
    return run;
}

}  // namespace vintrel::testing
