// What the core needs of the platform. Each interface is implemented by one *_win32 file, and by a fake in the tests.
// An implementation holds no rule of the system: no type code and no protocol text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "server/network.h"

namespace vintrel::server {

struct DateTime {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;

    auto operator<=>(const DateTime&) const = default;
};

class Clock {
 public:
    virtual ~Clock() = default;
    virtual DateTime LocalNow() const = 0;
    /// The seconds that local time is ahead of UTC, with the time-zone bias in force now.
    virtual std::int32_t AheadOfUtc() const = 0;
    /// Milliseconds of a clock that is never set back.
    virtual std::uint64_t Milliseconds() const = 0;
};

/// The one-shot timers of the hidden window.
enum class Timer : std::uint8_t { TspTimer, SleepTimer, CheckExtTranfertTimer };
inline constexpr std::size_t kTimerCount = 3;

/// The message loop of the host's thread. Timers tick, and everything that arrives for the server is delivered, only
/// while messages are processed.
class MessageLoop {
 public:
    virtual ~MessageLoop() = default;
    /// Dispatches the messages that wait now, and returns.
    virtual void ProcessPending() = 0;
    /// Sleeps until a message arrives, at most `milliseconds`, then dispatches what waits.
    virtual void WaitAndProcess(std::int32_t milliseconds) = 0;

    /// Starts the timer, anew when it runs. It ticks once: it stops, then `on_tick` is called (which may be empty).
    virtual void StartTimer(Timer timer, std::int32_t milliseconds, std::function<void()> on_tick) = 0;
    virtual void StopTimer(Timer timer) = 0;
    virtual bool TimerRunning(Timer timer) const = 0;

 private:
    friend class WaitScope;
    virtual void BeginWait() {}
    virtual void EndWait() {}
};

/// Held by whoever waits in a loop. The order to end the host's thread, when it arrives during a wait, is kept back and
/// passed on after the outermost one; without a scope it comes back at every turn of the loop.
class WaitScope {
 public:
    explicit WaitScope(MessageLoop& loop) : loop_(loop) { loop_.BeginWait(); }
    ~WaitScope() { loop_.EndWait(); }
    WaitScope(const WaitScope&) = delete;
    WaitScope& operator=(const WaitScope&) = delete;

 private:
    MessageLoop& loop_;
};

/// A modal message box with the critical icon and one OK button; returns when the operator has closed it.
class CriticalMessage {
 public:
    virtual ~CriticalMessage() = default;
    virtual void Show(std::u16string_view text, std::u16string_view title) = 0;
};

class Files {
 public:
    virtual ~Files() = default;
    virtual bool Exists(std::u16string_view path) const = 0;
    /// The bytes from `offset`, at most `count`, fewer where the file ends. Nothing when it cannot be opened or read.
    virtual std::optional<std::vector<std::byte>> Read(std::u16string_view path, std::uint64_t offset,
                                                       std::size_t count) const = 0;
};

class IniStore {
 public:
    virtual ~IniStore() = default;
    /// At most 255 characters, as the system gives them; "" for what is missing.
    virtual std::u16string Read(std::u16string_view path, std::u16string_view section, std::u16string_view key) = 0;
    virtual void Write(std::u16string_view path, std::u16string_view section, std::u16string_view key,
                       std::u16string_view value) = 0;
};

/// The system's single-byte code page.
class AnsiText {
 public:
    virtual ~AnsiText() = default;
    virtual std::string FromText(std::u16string_view text) const = 0;
    virtual std::u16string ToText(std::string_view bytes) const = 0;
};

class Md5 {
 public:
    virtual ~Md5() = default;
    /// 32 upper-case hexadecimal digits.
    /// @throws OperationError with the numbers of MD5Hash.
    virtual std::u16string HashBytes(std::span<const std::byte> bytes) = 0;
};

/// What the list window shows.
struct SupportListContent {
    std::u16string caption;
    std::u16string heading;
    std::u16string tool_tip;
    std::vector<std::u16string> lines;
    bool clickable = false;  ///< the pointer over the list says so
    std::function<void()> on_double_click;
};

class SupportListWindow {
 public:
    virtual ~SupportListWindow() = default;
    /// Shows the one window, modeless, built anew when it is already open. Does nothing without a desktop.
    virtual void Show(SupportListContent content) = 0;
};

class HelpViewer {
 public:
    virtual ~HelpViewer() = default;
    /// Starts a program in a normal, focused window; failures are ignored.
    virtual void Start(std::u16string_view program, std::u16string_view arguments) = 0;
};

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

}  // namespace vintrel::server
