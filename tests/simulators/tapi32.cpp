// Stands in for the telephony service of a Panasonic exchange. Every call is a line in the file that the environment
// variable VINTREL_TAPI_LOG names; how the service behaves is read from the file VINTREL_TAPI_BEHAVIOUR at each call,
// as lines "key=value":
//   lines=EXT00101,EXT00204   the voice lines, in device order; a name that begins with "-" is no voice line
//   initialize, negotiate, capabilities, open, request=fail    that call fails (negotiate and capabilities: of device
//   0) reply=none | other | early | late                          none, for another request, before the call
//   returns, 3.5 s
#include <windows.h>

#include <tapi.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#undef lineOpen

namespace {

constexpr LONG kFailed = static_cast<LONG>(0x80000048);

LINECALLBACK callback = nullptr;
DWORD next_request = 0x10000;
DWORD open_lines = 0;

struct Reply {
    UINT_PTR timer;
    DWORD line;
    DWORD_PTR instance;
    DWORD request;
};
std::vector<Reply> waiting;

void Log(const char* format, ...) {
    FILE* const file = std::fopen(std::getenv("VINTREL_TAPI_LOG"), "a");
    if (file == nullptr) return;
    va_list arguments;
    va_start(arguments, format);
    std::vfprintf(file, format, arguments);
    va_end(arguments);
    std::fclose(file);
}

std::string Behaviour(const std::string& key) {
    FILE* const file = std::fopen(std::getenv("VINTREL_TAPI_BEHAVIOUR"), "r");
    if (file == nullptr) return {};
    std::string value;
    char buffer[1024];
    while (std::fgets(buffer, sizeof buffer, file) != nullptr) {
        std::string line(buffer, std::strcspn(buffer, "\r\n"));
        if (line.rfind(key + "=", 0) == 0) value = line.substr(key.size() + 1);
    }
    std::fclose(file);
    return value;
}

std::vector<std::string> Lines() {
    std::vector<std::string> lines(1);
    for (const char c : Behaviour("lines")) {
        if (c == ',')
            lines.emplace_back();
        else
            lines.back() += c;
    }
    return lines;
}

/// What the exchange's service gives with a reply: the request, 0 for success, and a negative number.
void Deliver(DWORD line, DWORD_PTR instance, DWORD request) {
    constexpr DWORD kLineReply = 12;
    if (callback != nullptr) callback(line, kLineReply, instance, request, 0, 0xFFFFFFFF);
}

void CALLBACK OnReply(HWND, UINT, UINT_PTR timer, DWORD) {
    KillTimer(nullptr, timer);
    const auto reply = std::find_if(waiting.begin(), waiting.end(), [&](const Reply& r) { return r.timer == timer; });
    if (reply == waiting.end()) return;
    const Reply due = *reply;
    waiting.erase(reply);
    Deliver(due.line, due.instance, due.request);
}

}  // namespace

extern "C" {

LONG WINAPI lineInitializeExA(LPHLINEAPP application, HINSTANCE module, LINECALLBACK on_event, LPCSTR name,
                              LPDWORD devices, LPDWORD version, LPLINEINITIALIZEEXPARAMS parameters) {
    Log("lineInitializeExA module=%d name=%s version=%lx size=%lu options=%lu\n", module != nullptr, name, *version,
        parameters->dwTotalSize, parameters->dwOptions);
    if (Behaviour("initialize") == "fail") return kFailed;
    callback = on_event;
    *application = 0xA0;
    *devices = static_cast<DWORD>(Lines().size());
    *version = 0x20002;
    return 0;
}

LONG WINAPI lineNegotiateAPIVersion(HLINEAPP application, DWORD device, DWORD low, DWORD high, LPDWORD version,
                                    LPLINEEXTENSIONID extension) {
    Log("lineNegotiateAPIVersion application=%lx device=%lu low=%lx high=%lx\n", application, device, low, high);
    if (Behaviour("negotiate") == "fail" && device == 0) return kFailed;
    if (extension == nullptr) return kFailed;
    *version = 0x20000 + device;
    return 0;
}

LONG WINAPI lineGetDevCapsA(HLINEAPP application, DWORD device, DWORD version, DWORD extension,
                            LPLINEDEVCAPS capabilities) {
    Log("lineGetDevCapsA application=%lx device=%lu version=%lx extension=%lu size=%lu\n", application, device, version,
        extension, capabilities->dwTotalSize);
    if (Behaviour("capabilities") == "fail" && device == 0) return kFailed;
    const std::vector<std::string> lines = Lines();
    if (device >= lines.size()) return kFailed;
    std::string name = lines[device];
    const bool voice = name.rfind("-", 0) != 0;
    if (!voice) name.erase(0, 1);
    capabilities->dwMediaModes = voice ? 0x14 : 0x10;
    capabilities->dwLineNameOffset = sizeof(LINEDEVCAPS);
    capabilities->dwLineNameSize = static_cast<DWORD>(name.size() + 1);
    capabilities->dwUsedSize = capabilities->dwNeededSize =
        capabilities->dwLineNameOffset + capabilities->dwLineNameSize;
    if (capabilities->dwUsedSize > capabilities->dwTotalSize) return kFailed;
    std::memcpy(reinterpret_cast<char*>(capabilities) + capabilities->dwLineNameOffset, name.c_str(), name.size() + 1);
    return 0;
}

LONG WINAPI lineOpen(HLINEAPP application, DWORD device, LPHLINE line, DWORD version, DWORD extension,
                     DWORD_PTR instance, DWORD privileges, DWORD media_modes, LPLINECALLPARAMS const parameters) {
    Log("lineOpen application=%lx device=%lu version=%lx extension=%lu instance=%lx privileges=%lu media=%lu "
        "parameters=%d\n",
        application, device, version, extension, static_cast<unsigned long>(instance), privileges, media_modes,
        parameters != nullptr);
    if (Behaviour("open") == "fail") return kFailed;
    *line = 0xB0 + device;
    ++open_lines;
    return 0;
}

LONG WINAPI lineDevSpecific(HLINE line, DWORD address, HCALL call, LPVOID block, DWORD size) {
    std::string hex;
    for (DWORD i = 0; i < size; ++i) {
        char digits[3];
        std::snprintf(digits, sizeof digits, "%02x", static_cast<const unsigned char*>(block)[i]);
        hex += digits;
    }
    Log("lineDevSpecific line=%lx address=%lx call=%lx size=%lu block=%s\n", line, address, call, size, hex.c_str());
    if (Behaviour("request") == "fail") return kFailed;
    const DWORD request = ++next_request;
    const std::string reply = Behaviour("reply");
    if (reply == "none") return static_cast<LONG>(request);
    if (reply == "early") {
        Deliver(line, address, request);
        return static_cast<LONG>(request);
    }
    const DWORD replied = reply == "other" ? request + 1000 : request;
    waiting.push_back({SetTimer(nullptr, 0, reply == "late" ? 3500 : 30, OnReply), line, address, replied});
    return static_cast<LONG>(request);
}

LONG WINAPI lineClose(HLINE line) {
    Log("lineClose line=%lx\n", line);
    if (open_lines == 0) return kFailed;
    --open_lines;
    return 0;
}

LONG WINAPI lineShutdown(HLINEAPP application) {
    Log("lineShutdown application=%lx open=%lu\n", application, open_lines);
    return 0;  // the callback stays known: late replies come all the same
}

}  // extern "C"
