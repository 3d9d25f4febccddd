#include "win32/telephony.h"

#include <cstring>
#include <utility>
#include <vector>

#include "win32/ansi_text.h"
#include "win32/module.h"

namespace vintrel::win32 {
namespace {

constexpr DWORD kApiVersion = 0x30000;

template <typename Function>
bool Find(HMODULE library, const char* name, Function*& function) {
    FARPROC found = GetProcAddress(library, name);
    std::memcpy(&function, &found, sizeof function);
    return function != nullptr;
}

}  // namespace

Telephony::EventHandler Telephony::on_event_;

bool Telephony::Load() {
    if (library_ != nullptr) return shutdown_ != nullptr;
    library_ = LoadLibraryW(L"tapi32.dll");
    return library_ != nullptr && Find(library_, "lineInitializeExA", initialize_) &&
           Find(library_, "lineNegotiateAPIVersion", negotiate_) && Find(library_, "lineGetDevCapsA", capabilities_) &&
           Find(library_, "lineOpen", open_) && Find(library_, "lineDevSpecific", device_specific_) &&
           Find(library_, "lineClose", close_) && Find(library_, "lineShutdown", shutdown_);
}

void CALLBACK Telephony::OnLineEvent(DWORD /*device*/, DWORD /*message*/, DWORD_PTR /*instance*/, DWORD_PTR first,
                                     DWORD_PTR second, DWORD_PTR third) noexcept {
    Fenced([&] {
        const EventHandler handler = on_event_;  // a copy: the event may lead to the shut-down
        if (handler)
            handler(static_cast<std::uint32_t>(first), static_cast<std::int32_t>(second),
                    static_cast<std::int32_t>(third));
    });
}

platform::TelephonyService::LineApplication Telephony::Initialize(std::u16string_view application_name,
                                                                  EventHandler on_event) {
    if (!Load()) return {.result = -1};
    on_event_ = std::move(on_event);
    const std::string name = AnsiText().FromText(application_name);
    LINEINITIALIZEEXPARAMS parameters{};
    parameters.dwTotalSize = sizeof parameters;
    HLINEAPP application = 0;
    DWORD lines = 0;
    DWORD version = kApiVersion;
    const LONG result =
        initialize_(&application, ThisModule(), OnLineEvent, name.c_str(), &lines, &version, &parameters);
    if (result != 0) {
        on_event_ = nullptr;
        return {.result = static_cast<std::int32_t>(result)};
    }
    if (application != 0 && this_module_ == nullptr)
        GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS, reinterpret_cast<const wchar_t*>(&OnLineEvent),
                           &this_module_);
    return {.result = 0, .handle = application, .line_count = lines};
}

void Telephony::Shutdown(std::uint32_t application) {
    on_event_ = nullptr;
    if (Load()) shutdown_(application);
    if (this_module_ != nullptr) FreeLibrary(std::exchange(this_module_, nullptr));
}

std::optional<std::uint32_t> Telephony::NegotiateVersion(std::uint32_t application, std::uint32_t device,
                                                         std::uint32_t lowest, std::uint32_t highest) {
    DWORD version = 0;
    LINEEXTENSIONID extension{};
    if (!Load() || negotiate_(application, device, lowest, highest, &version, &extension) != 0) return std::nullopt;
    return version;
}

std::optional<platform::TelephonyService::LineCapabilities> Telephony::Capabilities(std::uint32_t application,
                                                                                    std::uint32_t device,
                                                                                    std::uint32_t version,
                                                                                    std::size_t buffer_size) {
    std::vector<DWORD> buffer((std::max(buffer_size, sizeof(LINEDEVCAPS)) + sizeof(DWORD) - 1) / sizeof(DWORD));
    auto* const found = reinterpret_cast<LINEDEVCAPS*>(buffer.data());
    found->dwTotalSize = static_cast<DWORD>(buffer_size);
    if (!Load() || capabilities_(application, device, version, 0, found) != 0) return std::nullopt;

    LineCapabilities capabilities;
    capabilities.media_modes = found->dwMediaModes;
    const std::size_t offset = found->dwLineNameOffset;
    if (offset < buffer_size) {
        const std::size_t size = std::min<std::size_t>(found->dwLineNameSize, buffer_size - offset);
        capabilities.name = AnsiText().ToText({reinterpret_cast<const char*>(buffer.data()) + offset, size});
    }
    return capabilities;
}

std::optional<std::uint32_t> Telephony::Open(std::uint32_t application, std::uint32_t device, std::uint32_t version,
                                             const LineOptions& options) {
    HLINE line = 0;
    if (!Load() || open_(application, device, &line, version, options.extension_version, options.callback_instance,
                         options.privileges, options.media_modes, nullptr) != 0)
        return std::nullopt;
    return line;
}

std::int32_t Telephony::DeviceSpecific(std::uint32_t line, std::uint32_t address, std::uint32_t call,
                                       std::span<std::byte> block) {
    if (!Load()) return -1;
    return static_cast<std::int32_t>(
        device_specific_(line, address, call, block.data(), static_cast<DWORD>(block.size())));
}

void Telephony::Close(std::uint32_t line) {
    if (Load()) close_(line);
}

}  // namespace vintrel::win32
