// The telephony service: tapi32, loaded by name when the server first needs it.
#pragma once

#include <windows.h>

#include <tapi.h>

#include "platform/telephony.h"

namespace vintrel::win32 {

/// One per process: the callback of the service names no object. While a line application runs the service may call
/// back, so this module is kept loaded; tapi32 itself stays to the end of the process.
class Telephony : public platform::TelephonyService {
 public:
    Telephony() = default;
    Telephony(const Telephony&) = delete;
    Telephony& operator=(const Telephony&) = delete;

    LineApplication Initialize(std::u16string_view application_name, EventHandler on_event) override;
    void Shutdown(std::uint32_t application) override;
    std::optional<std::uint32_t> NegotiateVersion(std::uint32_t application, std::uint32_t device, std::uint32_t lowest,
                                                  std::uint32_t highest) override;
    std::optional<LineCapabilities> Capabilities(std::uint32_t application, std::uint32_t device, std::uint32_t version,
                                                 std::size_t buffer_size) override;
    std::optional<std::uint32_t> Open(std::uint32_t application, std::uint32_t device, std::uint32_t version,
                                      const LineOptions& options) override;
    std::int32_t DeviceSpecific(std::uint32_t line, std::uint32_t address, std::uint32_t call,
                                std::span<std::byte> block) override;
    void Close(std::uint32_t line) override;

 private:
    static void CALLBACK OnLineEvent(DWORD device, DWORD message, DWORD_PTR instance, DWORD_PTR first, DWORD_PTR second,
                                     DWORD_PTR third) noexcept;
    bool Load();

    static EventHandler on_event_;  ///< empty while no line application runs: late events go nowhere

    HMODULE library_ = nullptr;
    HMODULE this_module_ = nullptr;  ///< held while a line application runs
    decltype(&lineInitializeExA) initialize_ = nullptr;
    decltype(&lineNegotiateAPIVersion) negotiate_ = nullptr;
    decltype(&lineGetDevCapsA) capabilities_ = nullptr;
    decltype(&lineOpenA) open_ = nullptr;
    decltype(&lineDevSpecific) device_specific_ = nullptr;
    decltype(&lineClose) close_ = nullptr;
    decltype(&lineShutdown) shutdown_ = nullptr;
};

}  // namespace vintrel::win32
