// Stands in for the telephony service of a Panasonic exchange. Every call is a line in the file that the environment
// variable VINTREL_TAPI_LOG names; how the service behaves is read from the file VINTREL_TAPI_BEHAVIOUR at each call,
// as lines "key=value":
//   lines=EXT00101,EXT00204   the voice lines, in device order; a name that begins with "-" is no voice line
//   initialize, negotiate, capabilities, open, request=fail   that call fails (the second and third: of device 0)
//   reply=none | other | early | late         none, for another request, before the call returns, after 3.5 s
#include <windows.h>

#include <tapi.h>

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#undef lineOpen

namespace {

constexpr LONG kFailed = static_cast<LONG>(0x80000048);

LINECALLBACK callback = nullptr;
DWORD next_request = 0x10000;
DWORD open_lines = 0;

std::map<UINT_PTR, std::function<void()>> replies;  // by their timers

void Log(const char* format, ...) {  // NOLINT(cert-dcl50-cpp): a line as printf writes it
    FILE* const file = std::fopen(std::getenv("VINTREL_TAPI_LOG"), "a");
    if (file == nullptr) return;
    va_list arguments;  // NOLINT(cppcoreguidelines-init-variables): by the next line
    va_start(arguments, format);
    std::vfprintf(file, format, arguments);
    va_end(arguments);
    std::fclose(file);
}

std::string Behaviour(const std::string& key) {
    std::ifstream file(std::getenv("VINTREL_TAPI_BEHAVIOUR"));
    for (std::string line; std::getline(file, line);)
        if (line.starts_with(key + "=")) return line.substr(key.size() + 1);
    return {};
}

std::vector<std::string> Lines() {
    std::vector<std::string> lines;
    std::istringstream names(Behaviour("lines"));
    for (std::string name; std::getline(names, name, ',');) lines.push_back(name);
    return lines;
}

/// What the exchange's service gives with a reply: the request, 0 for success, and a negative number.
void Deliver(DWORD line, DWORD_PTR instance, DWORD request) {
    constexpr DWORD kLineReply = 12;
    callback(line, kLineReply, instance, request, 0, 0xFFFFFFFF);
}

void CALLBACK OnReply(HWND, UINT, UINT_PTR timer, DWORD) {
    KillTimer(nullptr, timer);
    if (const auto reply = replies.extract(timer)) reply.mapped()();
}

}  // namespace

extern "C" {

LONG WINAPI lineInitializeExA(LPHLINEAPP application, HINSTANCE module, LINECALLBACK on_event, LPCSTR name,
                              LPDWORD devices, LPDWORD version, LPLINEINITIALIZEEXPARAMS parameters) {
    Log("lineInitializeExA module=%d name=%s version=%lx size=%lu options=%lu\n", module != nullptr ? 1 : 0, name,
        *version, parameters->dwTotalSize, parameters->dwOptions);
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
    const bool voice = !name.starts_with('-');
    if (!voice) name.erase(0, 1);
    capabilities->dwMediaModes = voice ? 0x14 : 0x10;
    capabilities->dwLineNameOffset = sizeof(LINEDEVCAPS);
    capabilities->dwLineNameSize = static_cast<DWORD>(name.size()) + 1;
    capabilities->dwUsedSize = capabilities->dwNeededSize =
        capabilities->dwLineNameOffset + capabilities->dwLineNameSize;
    if (capabilities->dwUsedSize > capabilities->dwTotalSize) return kFailed;
    std::memcpy(reinterpret_cast<char*>(capabilities) + capabilities->dwLineNameOffset, name.c_str(), name.size() + 1);
    return 0;
}

LONG WINAPI lineOpen(HLINEAPP application, DWORD device, LPHLINE line, DWORD version, DWORD extension,
                     DWORD_PTR instance, DWORD privileges, DWORD media_modes,
                     LPLINECALLPARAMS const parameters) {  // NOLINT(misc-misplaced-const): as the system declares it
    Log("lineOpen application=%lx device=%lu version=%lx extension=%lu instance=%lx privileges=%lu media=%lu "
        "parameters=%d\n",
        application, device, version, extension, static_cast<unsigned long>(instance), privileges, media_modes,
        parameters != nullptr ? 1 : 0);
    if (Behaviour("open") == "fail") return kFailed;
    *line = 0xB0 + device;
    ++open_lines;
    return 0;
}

LONG WINAPI lineDevSpecific(HLINE line, DWORD address, HCALL call, LPVOID block, DWORD size) {
    Log("lineDevSpecific line=%lx address=%lx call=%lx size=%lu block=", line, address, call, size);
    for (DWORD i = 0; i < size; ++i) Log("%02x", static_cast<const unsigned char*>(block)[i]);
    Log("\n");
    if (Behaviour("request") == "fail") return kFailed;
    const DWORD request = ++next_request;
    const std::string reply = Behaviour("reply");
    const auto deliver = [=] { Deliver(line, address, reply == "other" ? request + 1000 : request); };
    if (reply == "early")
        deliver();
    else if (reply != "none")
        replies[SetTimer(nullptr, 0, reply == "late" ? 3500 : 30, OnReply)] = deliver;
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
