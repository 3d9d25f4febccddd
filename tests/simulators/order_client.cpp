// A host that does what it is told: one tab-separated order per line on standard input, one line with its answer and
// the milliseconds that it took on standard output. Text is UTF-8. The server is loaded from the path given.
#include <windows.h>

#include <oleauto.h>
#include <psapi.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "../com/client.h"
#include "Vintrel.h"

namespace {

using vintrel::testing::Ref;
using vintrel::testing::Text;
using Words = std::vector<std::wstring>;

[[noreturn]] void Stop(const char* what, long code) {
    std::printf("cannot %s: %08lx\n", what, static_cast<unsigned long>(code));
    std::fflush(stdout);
    ExitProcess(3);
}

template <typename Interface>
Ref<Interface> Create(HMODULE server, REFCLSID clsid) {
    using GetClassObject = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
    const auto get =
        reinterpret_cast<GetClassObject>(reinterpret_cast<void*>(GetProcAddress(server, "DllGetClassObject")));
    if (get == nullptr) Stop("find the class objects", static_cast<long>(GetLastError()));
    Ref<IClassFactory> factory;
    Ref<Interface> object;
    HRESULT result = get(clsid, IID_IClassFactory, factory.OutVoid());
    if (SUCCEEDED(result)) result = factory->CreateInstance(nullptr, __uuidof(Interface), object.OutVoid());
    if (FAILED(result)) Stop("create a class", result);
    return object;
}

std::wstring Wide(const std::string& text) {
    std::wstring wide(text.size(), L'\0');
    wide.resize(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                                             wide.data(), static_cast<int>(wide.size()))));
    return wide;
}

std::string Utf8(BSTR text) {
    const int length = static_cast<int>(SysStringLen(text));
    std::string bytes(static_cast<std::size_t>(length) * 3, '\0');
    bytes.resize(static_cast<std::size_t>(
        WideCharToMultiByte(CP_UTF8, 0, text, length, bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr)));
    return bytes;
}

class Host {
 public:
    explicit Host(HMODULE server)
        : setup_(Create<_SetServerOptions>(server, CLSID_SetServerOptions)),
          orders_(Create<_ComEventsTX>(server, CLSID_ComEventsTX)) {}

    std::string Do(const Words& words) {
        const std::wstring& what = words[0];
        if (what == L"wakeup" || what == L"checkin" || what == L"checkout" || what == L"name") return Order(words);
        if (what == L"memory") return Memory();
        short zero = 0;
        VARIANT nothing;
        VariantInit(&nothing);
        Text word(words.at(1));
        HRESULT result = E_INVALIDARG;
        if (what == L"documents") result = setup_->SetAllUserCommonDocumentsDirA(word.Var(), &nothing);
        if (what == L"initialize") {
            result = setup_->InitializeServer(word.Var(), &zero);
            if (SUCCEEDED(result)) result = setup_->InitializeServerSec(word.Var(), &zero);
        }
        if (what == L"uninitialize") result = setup_->UnInitializeServer(word.Var(), &zero);
        return SUCCEEDED(result) ? "done" : "failed " + std::to_string(result);
    }

    std::string Order(const Words& words) {
        Text type(words.at(1));
        long room = std::wcstol(words.at(2).c_str(), nullptr, 10);
        const auto number = [&](std::size_t i) {
            return static_cast<short>(std::wcstol(words.at(i).c_str(), nullptr, 10));
        };
        Text answer;
        HRESULT result = E_INVALIDARG;
        if (words[0] == L"wakeup") {
            Text time(words.at(3));
            Text date(words.at(4));
            short mode = number(5);
            short language = number(6);
            result =
                orders_->ComEventClockTX(type.Var(), &room, time.Var(), date.Var(), &mode, &language, answer.Var());
        } else if (words[0] == L"checkin") {
            Text name(words.at(3));
            short language = number(4);
            short change = number(5);
            result = orders_->ComEventCheckInTX(type.Var(), &room, name.Var(), &language, &change, answer.Var());
        } else if (words[0] == L"checkout") {
            short change = number(3);
            result = orders_->ComEventCheckOutTX(type.Var(), &room, &change, answer.Var());
        } else {
            Text name(words.at(3));
            result = orders_->ComEventUserNameTX(type.Var(), &room, name.Var(), answer.Var());
        }
        return SUCCEEDED(result) ? Utf8(*answer.Var()) : "failed " + std::to_string(result);
    }

 private:
    /// The most that the process ever held, in KiB.
    static std::string Memory() {
        PROCESS_MEMORY_COUNTERS counters{};
        counters.cb = sizeof counters;
        if (!GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters)) return "unknown";
        return std::to_string(counters.PeakWorkingSetSize / 1024);
    }

    Ref<_SetServerOptions> setup_;
    Ref<_ComEventsTX> orders_;
};

Host* the_host = nullptr;
Words interruption;
std::string interruption_answer;

/// Comes while another order is under way: only processed messages bring it.
void CALLBACK OnInterruption(HWND, UINT, UINT_PTR timer, DWORD) {
    KillTimer(nullptr, timer);
    interruption_answer += "during: " + the_host->Order(interruption) + "\t";
}

Words Split(const std::string& line) {
    Words words(1);
    for (const wchar_t c : Wide(line)) {
        if (c == L'\t')
            words.emplace_back();
        else
            words.back() += c;
    }
    return words;
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

/// "during<TAB>milliseconds<TAB>order..." names an order to come during the one of the next line.
void Prepare(Words words) {
    const UINT after = static_cast<UINT>(std::wcstol(words.at(1).c_str(), nullptr, 10));
    words.erase(words.begin(), words.begin() + 2);
    interruption = std::move(words);
    SetTimer(nullptr, 0, after, OnInterruption);
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) return 2;
    CoInitialize(nullptr);
    AddVectoredExceptionHandler(1, ShowDebuggerOutput);
    OutputDebugStringA("narrow output is seen");
    OutputDebugStringW(L"wide output is seen");
    HMODULE server = LoadLibraryA(arguments[1]);
    if (server == nullptr) Stop("load the server", static_cast<long>(GetLastError()));
    {
        Host host(server);
        the_host = &host;
        char buffer[4096];
        while (std::fgets(buffer, sizeof buffer, stdin) != nullptr) {
            std::string line(buffer);
            while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) line.pop_back();
            const Words words = Split(line);
            if (words[0] == L"during") {
                Prepare(words);
                continue;
            }
            const ULONGLONG start = GetTickCount64();
            const std::string answer = host.Do(words);
            std::printf("%s%s\t%llu\n", std::exchange(interruption_answer, {}).c_str(), answer.c_str(),
                        GetTickCount64() - start);
            std::fflush(stdout);
        }
    }
    using CanUnload = HRESULT(WINAPI*)();
    const auto can_unload =
        reinterpret_cast<CanUnload>(reinterpret_cast<void*>(GetProcAddress(server, "DllCanUnloadNow")));
    std::printf("unload: %s\n", can_unload() == S_OK ? "yes" : "no");
    std::fflush(stdout);
    CoUninitialize();
    return 0;
}
