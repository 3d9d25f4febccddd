// A host process that gives orders to the server: each line of standard input names an operation and its arguments,
// separated by tabs, and comes out with its answer and the milliseconds that it took on standard output. "memory" asks
// for the most that the process ever held, in KiB; "during<TAB>milliseconds<TAB>order..." names an order to come during
// the one of the next line. Text is UTF-8. The server is loaded from the path given.
#include <windows.h>

#include <psapi.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "../com/client.h"
#include "Vintrel.h"

namespace {

using vintrel::testing::Ref;
using vintrel::testing::Variant;
using Words = std::vector<std::wstring>;

HMODULE server = nullptr;

template <typename Function>
Function Export(const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(server, name)));
}

Ref<IDispatch> Create(REFCLSID clsid) {
    const auto get = Export<HRESULT(WINAPI*)(REFCLSID, REFIID, void**)>("DllGetClassObject");
    Ref<IClassFactory> factory;
    Ref<IDispatch> object;
    if (get == nullptr || FAILED(get(clsid, IID_IClassFactory, factory.OutVoid())) ||
        FAILED(factory->CreateInstance(nullptr, IID_IDispatch, object.OutVoid()))) {
        std::cout << "no server" << std::endl;
        std::exit(3);
    }
    return object;
}

Words Split(const std::string& line) {
    std::wstring wide(line.size(), L'\0');
    wide.resize(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, line.data(), static_cast<int>(line.size()),
                                                             wide.data(), static_cast<int>(wide.size()))));
    Words words(1);
    for (const wchar_t c : wide) {
        if (c == L'\t')
            words.emplace_back();
        else
            words.back() += c;
    }
    return words;
}

std::string Utf8(const std::wstring& text) {
    const auto length = static_cast<int>(text.size());
    std::string bytes(text.size() * 3, '\0');
    bytes.resize(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(),
                                                              static_cast<int>(bytes.size()), nullptr, nullptr)));
    return bytes;
}

std::string Memory() {
    PROCESS_MEMORY_COUNTERS counters{};
    if (!GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters)) return "unknown";
    return std::to_string(counters.PeakWorkingSetSize / 1024);
}

std::string Do(const Words& words) {
    if (words[0] == L"memory") return Memory();
    std::vector<Variant> arguments;
    for (std::size_t i = 1; i < words.size(); ++i) arguments.emplace_back(words[i].c_str());
    vintrel::testing::Outcome outcome;
    for (const CLSID& clsid : {CLSID_ComEventsTX, CLSID_SetServerOptions}) {
        outcome = Call(Create(clsid).Get(), words[0].c_str(), arguments);
        if (outcome.result != DISP_E_UNKNOWNNAME) break;
    }
    if (FAILED(outcome.result)) return "failed " + std::to_string(outcome.result);
    VariantChangeType(&outcome.answer, &outcome.answer, 0, VT_BSTR);
    return Utf8(outcome.answer.Str());
}

Words interruption;
std::string interruption_answer;

/// Comes while another order is under way: only processed messages bring it.
void CALLBACK OnInterruption(HWND, UINT, UINT_PTR timer, DWORD) {
    KillTimer(nullptr, timer);
    interruption_answer += "during: " + Do(interruption) + "\t";
}

/// What goes to the debugger output comes out on the error output, where the script looks for secrets.
LONG CALLBACK ShowDebuggerOutput(EXCEPTION_POINTERS* pointers) {
    constexpr DWORD kNarrow = 0x40010006;
    constexpr DWORD kWide = 0x4001000A;
    const EXCEPTION_RECORD& record = *pointers->ExceptionRecord;
    if (record.ExceptionCode == kNarrow)
        std::fprintf(stderr, "%s\n", reinterpret_cast<const char*>(record.ExceptionInformation[1]));
    if (record.ExceptionCode == kWide)
        std::fprintf(stderr, "%ls\n", reinterpret_cast<const wchar_t*>(record.ExceptionInformation[1]));
    return EXCEPTION_CONTINUE_SEARCH;
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) return 2;
    CoInitialize(nullptr);
    AddVectoredExceptionHandler(1, ShowDebuggerOutput);
    OutputDebugStringA("narrow output is seen");
    OutputDebugStringW(L"wide output is seen");
    server = LoadLibraryA(arguments[1]);
    for (std::string line; std::getline(std::cin, line);) {
        if (line.ends_with('\r')) line.pop_back();
        Words words = Split(line);
        if (words[0] == L"during") {
            SetTimer(nullptr, 0, static_cast<UINT>(std::stoul(words.at(1))), OnInterruption);
            interruption.assign(words.begin() + 2, words.end());
            continue;
        }
        const ULONGLONG start = GetTickCount64();
        const std::string answer = Do(words);
        std::cout << std::exchange(interruption_answer, {}) << answer << '\t' << GetTickCount64() - start << std::endl;
    }
    const auto can_unload = Export<HRESULT(WINAPI*)()>("DllCanUnloadNow");
    std::cout << "unload: " << (can_unload() == S_OK ? "yes" : "no") << std::endl;
    CoUninitialize();
    return 0;
}
