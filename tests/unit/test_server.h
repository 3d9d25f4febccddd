// A server of fakes: scripted peers, which do what the network and the telephony service would do, on virtual time; and
// the exchanges of a server among them.
#pragma once

#include <deque>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "exchanges/catalogue.h"
#include "fakes.h"
#include "platform/operation_error.h"
#include "printing.h"
#include "server/initialisation.h"

namespace vintrel::testing {

/// What a peer does, in milliseconds from the start of the transfer.
struct PeerScript {
    static constexpr int kNever = -1;

    int open_at = 0;
    std::deque<std::pair<int, std::string>> pieces = {};
    int end_at = kNever;
    platform::TransferState end = platform::TransferState::Finished;

    static PeerScript Answering(std::string answer) { return {.pieces = {{5, std::move(answer)}}, .end_at = 6}; }
};

/// What the peers of one test have been sent, and how many transfers are not closed yet.
struct Traffic {
    std::string sent;
    int alive = 0;
};

struct FakeTransfer : platform::TcpConnection {
    FakeTransfer(FakeLoop& loop, FakeClock& clock, PeerScript script, Traffic& traffic)
        : clock_(clock), script_(std::move(script)), traffic_(traffic) {
        ++traffic_.alive;
        std::vector<int> times{script_.open_at, script_.end_at};
        for (const auto& piece : script_.pieces) times.push_back(piece.first);
        for (const int at : times)
            if (at >= 0) loop.Schedule(at, [] {});
    }
    ~FakeTransfer() override { --traffic_.alive; }
    FakeTransfer(const FakeTransfer&) = delete;
    FakeTransfer& operator=(const FakeTransfer&) = delete;

    platform::TransferState State() override {
        if (Reached(script_.end_at) && script_.pieces.empty()) return script_.end;
        return Reached(script_.open_at) ? platform::TransferState::Open : platform::TransferState::Starting;
    }
    void Receive(std::string& answer, std::size_t limit) override {
        while (!script_.pieces.empty() && Reached(script_.pieces.front().first)) {
            std::string& piece = script_.pieces.front().second;
            const std::size_t taken = std::min(limit, piece.size());
            answer.append(piece, 0, taken);
            limit -= taken;
            piece.erase(0, taken);
            if (!piece.empty()) return;
            script_.pieces.pop_front();
        }
    }
    void Send(std::string_view bytes) override { traffic_.sent += bytes; }

 private:
    bool Reached(int at) const { return at >= 0 && clock_.milliseconds >= start_ + static_cast<std::uint64_t>(at); }

    FakeClock& clock_;
    PeerScript script_;
    Traffic& traffic_;
    std::uint64_t start_ = clock_.milliseconds;
};

/// Request engine and TCP client in one: both answer with the next script, and with nothing when there is none.
struct FakeNetwork : platform::RequestEngine, platform::TcpClient, Traffic {
    FakeNetwork(FakeLoop& loop, FakeClock& clock) : loop_(loop), clock_(clock) {}

    bool Prepare() override {
        ++prepared;
        return available;
    }
    std::unique_ptr<platform::Transfer> Start(const platform::HttpRequest& request) override {
        requests.push_back(Ascii(request.method) + (request.secure ? " https://" : " http://") + Ascii(request.host) +
                           ":" + std::to_string(request.port) + Ascii(request.target) + "\n" + Ascii(request.header) +
                           "\n" + Ascii(request.user) + ":" + Ascii(request.password) + " " +
                           std::to_string(request.ignored_certificate_errors));
        return Next();
    }
    std::unique_ptr<platform::TcpConnection> Connect(std::u16string_view host, std::int32_t port) override {
        called.push_back(Ascii(host) + ":" + std::to_string(port));
        return Next();
    }

    std::deque<PeerScript> scripts;
    /// "GET http://host:port/target", the header, and "user:password" with the certificate errors that do not matter.
    std::vector<std::string> requests;
    std::vector<std::string> called;
    int prepared = 0;
    bool available = true;

 private:
    static std::string Ascii(std::u16string_view text) { return {text.begin(), text.end()}; }
    std::unique_ptr<FakeTransfer> Next() {
        sent.clear();
        if (scripts.empty()) return nullptr;
        PeerScript script = std::move(scripts.front());
        scripts.pop_front();
        return std::make_unique<FakeTransfer>(loop_, clock_, std::move(script), *this);
    }

    FakeLoop& loop_;
    FakeClock& clock_;
};

struct FakeTelephony : platform::TelephonyService {
    static constexpr int kNoReply = -1;
    struct Line {
        std::u16string name;
        std::uint32_t media_modes = 4;
        bool negotiates = true, has_capabilities = true, opens = true;
    };
    struct Reply {
        std::int32_t identifier = 50;  ///< what the request answers
        int after = 20;                ///< 0: before the request has returned
        std::uint32_t replied_identifier = 50;
    };

    explicit FakeTelephony(FakeLoop& loop) : loop_(loop) {}

    LineApplication Initialize(std::u16string_view application_name, EventHandler handler) override {
        ++started;
        name = application_name;
        on_event = std::move(handler);
        return application;
    }
    void Shutdown(std::uint32_t handle) override { ended.push_back(handle); }
    std::optional<std::uint32_t> NegotiateVersion(std::uint32_t, std::uint32_t device, std::uint32_t lowest,
                                                  std::uint32_t highest) override {
        const bool agreed = lowest == 0x10003 && highest == 0x30000 && lines[device].negotiates;
        return agreed ? std::optional(0x20000 + device) : std::nullopt;
    }
    std::optional<LineCapabilities> Capabilities(std::uint32_t, std::uint32_t device, std::uint32_t version,
                                                 std::size_t buffer_size) override {
        if (version != 0x20000 + device || buffer_size != 2301 || !lines[device].has_capabilities) return std::nullopt;
        return LineCapabilities{lines[device].name, lines[device].media_modes};
    }
    std::optional<std::uint32_t> Open(std::uint32_t, std::uint32_t device, std::uint32_t,
                                      const LineOptions& options) override {
        if (!lines[device].opens || options.privileges != 6 || options.media_modes != 4) return std::nullopt;
        opened.push_back(device);
        return 900 + device;
    }
    std::int32_t DeviceSpecific(std::uint32_t, std::uint32_t, std::uint32_t, std::span<std::byte> block) override {
        blocks.emplace_back(reinterpret_cast<const char*>(block.data()), block.size());
        if (replies.empty()) return 0;
        const Reply reply = replies.front();
        replies.pop_front();
        const auto record = [this, reply] { on_event(reply.replied_identifier, 0, -1); };
        if (reply.after == 0) record();
        if (reply.after > 0) loop_.Schedule(reply.after, record);
        return reply.identifier;
    }
    void Close(std::uint32_t line) override { closed.push_back(line); }

    LineApplication application{.result = 0, .handle = 77, .line_count = 3};
    int started = 0;
    std::u16string name;
    EventHandler on_event;
    std::vector<Line> lines;
    std::deque<Reply> replies;
    std::vector<std::uint32_t> opened, closed, ended;
    std::vector<std::string> blocks;

 private:
    FakeLoop& loop_;
};

struct FakeMd5 : platform::Md5 {
    std::u16string HashBytes(std::span<const std::byte> bytes) override {
        if (fails) throw platform::OperationError(0x8004C332, u"Failed", u"MD5Hash");
        std::u16string shown = u"md5 of ";
        for (const std::byte b : bytes) shown += static_cast<char16_t>(b);
        return shown;
    }
    bool fails = false;
};

struct TestServer {
    TestServer() {
        settings.DocumentsDir = u"D:\\Documenti \u00E8 \u6587";
        files.contents[IniPath()] = {};
    }

    std::u16string CfgPath() const { return settings.DocumentsDir + u"\\Quindara.cfg"; }
    std::u16string IniPath() const { return settings.DocumentsDir + u"\\Vintrel.ini"; }
    std::u16string& Ini(std::u16string_view section, std::u16string_view key) {
        return ini.values[{IniPath(), std::u16string(section), std::u16string(key)}];
    }
    std::int16_t Initialize(std::u16string code) { return server::InitializeServer(code, exchanges, message); }
    std::uint64_t Elapsed() const { return clock.milliseconds - 1000; }

    FakeMessage message;
    FakeClock clock;
    FakeLoop loop{clock};
    platform::Settings settings;
    FakeFiles files;
    FakeIni ini;
    FakeAnsi ansi;
    FakeMd5 md5;
    FakeNetwork network{loop, clock};
    FakeTelephony telephony{loop};
    exchanges::OrderGuard guard;
    const exchanges::Surroundings surroundings{settings, guard, loop,    clock,   files,    ini,
                                               ansi,     md5,   network, network, telephony};
    const exchanges::Exchanges exchanges{surroundings};
};

}  // namespace vintrel::testing
