// Telephone lines.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vintrel::platform {

/// The telephony service (TAPI): the server's line application, and requests on one line at a time. Handles are the
/// service's own, 0 for none.
class TelephonyService {
 public:
    virtual ~TelephonyService() = default;

    struct LineApplication {
        std::int32_t result = 0;  ///< 0 = success
        std::uint32_t handle = 0;
        std::uint32_t line_count = 0;
    };
    struct LineCapabilities {
        std::u16string name;  ///< as the service gives it, NUL and padding included
        std::uint32_t media_modes = 0;
    };
    struct LineOptions {
        std::uint32_t extension_version = 0;
        std::uint32_t callback_instance = 0;
        std::uint32_t privileges = 0;
        std::uint32_t media_modes = 0;
    };
    /// The three parameters of a line event. Called while messages are processed, or within a request.
    using EventHandler = std::function<void(std::uint32_t, std::int32_t, std::int32_t)>;

    virtual LineApplication Initialize(std::u16string_view application_name, EventHandler on_event) = 0;
    /// No event is delivered afterwards.
    virtual void Shutdown(std::uint32_t application) = 0;

    /// Nothing when the service refuses, here and in the two below.
    virtual std::optional<std::uint32_t> NegotiateVersion(std::uint32_t application, std::uint32_t device,
                                                          std::uint32_t lowest, std::uint32_t highest) = 0;
    virtual std::optional<LineCapabilities> Capabilities(std::uint32_t application, std::uint32_t device,
                                                         std::uint32_t version, std::size_t buffer_size) = 0;
    virtual std::optional<std::uint32_t> Open(std::uint32_t application, std::uint32_t device, std::uint32_t version,
                                              const LineOptions& options) = 0;
    /// The identifier of the request, whose reply comes as a line event; 0 or less when it is refused. The block
    /// belongs to the service until the reply or the closing of the line.
    virtual std::int32_t DeviceSpecific(std::uint32_t line, std::uint32_t address, std::uint32_t call,
                                        std::span<std::byte> block) = 0;
    virtual void Close(std::uint32_t line) = 0;
};

}  // namespace vintrel::platform
