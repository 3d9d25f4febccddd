// Serial ports. Reads return at once with what is there, so the port is looked at every few milliseconds.
#include <array>
#include <utility>

#include "host/console.h"
#include "host/failure.h"
#include "host/link/wire.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

class Serial : public Wire {
 public:
    Serial(SerialSettings settings, std::uint64_t pause) : settings_(std::move(settings)), pause_(pause) {
        line_.DCBlength = sizeof line_;
        if (BuildCommDCBW(ToWide(Definition()).c_str(), &line_) == 0)
            throw Failure(ExitCode::Usage,
                          "--line takes BAUD,BITS,PARITY,STOP such as 9600,8,N,1, not \"" + settings_.line + "\"");
        line_.fBinary = TRUE;
        line_.fDtrControl = settings_.raise_dtr_rts ? DTR_CONTROL_ENABLE : DTR_CONTROL_DISABLE;
        line_.fRtsControl = settings_.raise_dtr_rts ? RTS_CONTROL_ENABLE : RTS_CONTROL_DISABLE;
        line_.fAbortOnError = FALSE;
    }

    HANDLE Event() const override { return nullptr; }

    std::vector<WireNews> Poll(std::uint64_t now) override {
        std::vector<WireNews> news;
        if (!port_.Valid()) {
            if (now < next_) return news;
            next_ = now + pause_;
            if (!Open()) {
                news.push_back({WireNews::Kind::Refused, settings_.port + ": " + SystemMessage(GetLastError())});
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
    std::string Definition() const {
        std::array<std::string, 4> parts{"9600", "8", "N", "1"};
        std::size_t at = 0;
        for (std::size_t part = 0; part < parts.size() && at <= settings_.line.size(); ++part) {
            const std::size_t comma = std::min(settings_.line.find(',', at), settings_.line.size());
            if (comma > at) parts[part] = settings_.line.substr(at, comma - at);
            at = comma + 1;
        }
        return "baud=" + parts[0] + " data=" + parts[1] + " parity=" + parts[2] + " stop=" + parts[3];
    }

    bool Open() {
        const std::wstring name = L"\\\\.\\" + ToWide(settings_.port);
        port_ = Handle(CreateFileW(name.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
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
