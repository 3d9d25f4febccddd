// Serial ports. Reads return at once with what is there, so the port is looked at every few milliseconds.
#include <array>
#include <utility>

#include "host/console.h"
#include "host/failure.h"
#include "host/link/wire.h"

namespace vintrel::host {
namespace {

Handle OpenPort(const std::string& name, DWORD access) {
    const std::wstring device = L"\\\\.\\" + ToWide(name);
    return Handle(CreateFileW(device.c_str(), access, 0, nullptr, OPEN_EXISTING, 0, nullptr));
}

bool IsMissing(DWORD error) { return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND; }

/// The names of this machine's serial ports, in use or not.
std::string ExistingPorts() {
    constexpr int kMost = 256;
    std::string names;
    for (int number = 1; number <= kMost; ++number) {
        const std::string name = "COM" + std::to_string(number);
        if (OpenPort(name, 0).Valid() || !IsMissing(GetLastError()))
            names.append(names.empty() ? "" : ", ").append(name);
    }
    return names;
}

DCB ControlBlock(const SerialSettings& settings) {
    DCB block{};
    block.DCBlength = sizeof block;
    const LineSettings& line = settings.line;
    const std::string definition = "baud=" + std::to_string(line.baud) + " data=" + std::to_string(line.bits) +
                                   " parity=" + line.parity + " stop=" + line.stop;
    if (BuildCommDCBW(ToWide(definition).c_str(), &block) == 0)
        throw Failure(ExitCode::Usage, "no serial port can be set to " + definition);
    const bool hardware = settings.handshake == Handshake::Hardware;
    const bool software = settings.handshake == Handshake::Software;
    block.fBinary = TRUE;
    block.fAbortOnError = FALSE;
    block.fDtrControl = settings.raise_dtr_rts ? DTR_CONTROL_ENABLE : DTR_CONTROL_DISABLE;
    block.fRtsControl = settings.raise_dtr_rts ? RTS_CONTROL_ENABLE : RTS_CONTROL_DISABLE;
    if (hardware) block.fRtsControl = RTS_CONTROL_HANDSHAKE;
    block.fOutxCtsFlow = hardware ? TRUE : FALSE;
    block.fOutX = software ? TRUE : FALSE;
    block.fInX = software ? TRUE : FALSE;
    constexpr char kXon = 0x11;
    constexpr char kXoff = 0x13;
    constexpr WORD kRoom = 512;
    block.XonChar = kXon;
    block.XoffChar = kXoff;
    block.XonLim = kRoom;
    block.XoffLim = kRoom;
    return block;
}

class Serial : public Wire {
 public:
    Serial(SerialSettings settings, std::uint64_t pause)
        : settings_(std::move(settings)), pause_(pause), line_(ControlBlock(settings_)) {}

    HANDLE Event() const override { return nullptr; }

    std::vector<WireNews> Poll(std::uint64_t now) override {
        std::vector<WireNews> news;
        if (!port_.Valid()) {
            if (now < next_) return news;
            next_ = now + pause_;
            if (!Open()) {
                news.push_back({WireNews::Kind::Refused, settings_.port + ": " + WhyNot(GetLastError())});
                return news;
            }
            news.push_back({WireNews::Kind::Connected, settings_.port});
        }
        std::array<char, 4096> buffer{};
        DWORD count = 0;
        while (ReadFile(port_.Get(), buffer.data(), static_cast<DWORD>(buffer.size()), &count, nullptr) != 0 &&
               count > 0)
            news.push_back({WireNews::Kind::Received, std::string(buffer.data(), count)});
        DWORD errors = 0;
        COMSTAT state{};
        if (ClearCommError(port_.Get(), &errors, &state) == 0) Lose(now, news);
        return news;
    }

    void Send(std::string_view bytes) override {
        DWORD written = 0;
        if (port_.Valid()) WriteFile(port_.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    }

    void Drop() override { port_.Close(); }

 private:
    bool Open() {
        port_ = OpenPort(settings_.port, GENERIC_READ | GENERIC_WRITE);
        if (!port_.Valid()) return false;
        COMMTIMEOUTS timeouts{};
        timeouts.ReadIntervalTimeout = MAXDWORD;    // a read takes what is there
        timeouts.WriteTotalTimeoutConstant = 1000;  // and a write does not wait for an exchange that is off
        DCB line{};
        line.DCBlength = sizeof line;
        bool ready = GetCommState(port_.Get(), &line) != 0;  // a port of this name that is no serial port has none
        line = line_;
        ready = ready && SetCommState(port_.Get(), &line) != 0 && SetCommTimeouts(port_.Get(), &timeouts) != 0;
        const DWORD error = GetLastError();
        if (!ready) port_.Close();
        SetLastError(error);
        return ready;
    }

    static std::string WhyNot(DWORD error) {
        if (!IsMissing(error)) return SystemMessage(error);
        const std::string ports = ExistingPorts();
        return ports.empty() ? "there is no serial port on this machine" : "there is no such port, but " + ports;
    }

    void Lose(std::uint64_t now, std::vector<WireNews>& news) {
        news.push_back({WireNews::Kind::Lost, settings_.port + ": " + SystemMessage(GetLastError())});
        port_.Close();
        next_ = now + pause_;
    }

    SerialSettings settings_;
    std::uint64_t pause_;
    std::uint64_t next_ = 0;
    DCB line_{};
    Handle port_;
};

}  // namespace

std::unique_ptr<Wire> OpenSerial(const SerialSettings& settings, std::uint64_t pause) {
    return std::make_unique<Serial>(settings, pause);
}

}  // namespace vintrel::host
