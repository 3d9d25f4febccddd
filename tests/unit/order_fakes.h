// Scripted peers for the orders: what the network and the telephony service would do, on virtual time.
#pragma once

#include <deque>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "fakes.h"
#include "server/settings.h"
#include "tx/driven_exchanges.h"

namespace vintrel::testing {

/// What a peer does, in milliseconds from the start of the transfer.
struct PeerScript {
    static constexpr int kNever = -1;

    int open_at = 0;
    std::vector<std::pair<int, std::string>> pieces = {};
    int end_at = kNever;
    server::TransferState end = server::TransferState::Finished;

    static PeerScript Answering(std::string answer) { return {.pieces = {{5, std::move(answer)}}, .end_at = 6}; }
    static PeerScript Silent() { return {}; }
    static PeerScript Refusing() { return {.open_at = kNever, .end_at = 1, .end = server::TransferState::Failed}; }
    static PeerScript Absent() { return {.open_at = kNever}; }
};

class FakeTransfer : public server::TcpConnection {
 public:
    FakeTransfer(FakeLoop& loop, FakeClock& clock, PeerScript script, int& alive, std::string& sent)
        : clock_(clock), script_(std::move(script)), start_(clock.milliseconds), alive_(alive), sent_(sent) {
        ++alive_;
        const auto wake = [&](int at) { loop.Schedule(at, [] {}); };
        if (script_.open_at >= 0) wake(script_.open_at);
        for (const auto& piece : script_.pieces) wake(piece.first);
        if (script_.end_at >= 0) wake(script_.end_at);
    }
    ~FakeTransfer() override { --alive_; }
    FakeTransfer(const FakeTransfer&) = delete;
    FakeTransfer& operator=(const FakeTransfer&) = delete;

    server::TransferState State() override {
        if (Reached(script_.end_at) && next_ == script_.pieces.size()) return script_.end;
        return Reached(script_.open_at) ? server::TransferState::Open : server::TransferState::Starting;
    }
    void Receive(std::string& answer, std::size_t limit) override {
        while (next_ < script_.pieces.size() && Reached(script_.pieces[next_].first)) {
            std::string& piece = script_.pieces[next_].second;
            const std::size_t taken = std::min(limit, piece.size());
            answer.append(piece, 0, taken);
            limit -= taken;
            piece.erase(0, taken);
            if (!piece.empty()) return;
            ++next_;
        }
    }
    void Send(std::string_view bytes) override { sent_ += bytes; }

 private:
    bool Reached(int at) const { return at >= 0 && clock_.milliseconds >= start_ + static_cast<std::uint64_t>(at); }

    FakeClock& clock_;
    PeerScript script_;
    std::uint64_t start_;
    int& alive_;
    std::string& sent_;
    std::size_t next_ = 0;
};

/// Request engine and TCP client in one: both answer with the next script, and with nothing when there is none.
class FakeNetwork : public server::RequestEngine, public server::TcpClient {
 public:
    FakeNetwork(FakeLoop& loop, FakeClock& clock) : loop_(loop), clock_(clock) {}

    struct Request {
        std::string line;  ///< "GET http://host:port/target"
        std::string header;
        std::string credentials;  ///< "user:password"
        std::uint32_t ignored_certificate_errors = 0;
    };

    bool Prepare() override {
        ++prepared;
        return available;
    }
    std::unique_ptr<server::Transfer> Start(const server::HttpRequest& request) override {
        requests.push_back({.line = Ascii(request.method) + (request.secure ? " https://" : " http://") +
                                    Ascii(request.host) + ":" + std::to_string(request.port) + Ascii(request.target),
                            .header = Ascii(request.header),
                            .credentials = Ascii(request.user) + ":" + Ascii(request.password),
                            .ignored_certificate_errors = request.ignored_certificate_errors});
        return Next();
    }
    std::unique_ptr<server::TcpConnection> Connect(std::u16string_view host, std::int32_t port) override {
        called.push_back(Ascii(host) + ":" + std::to_string(port));
        return Next();
    }

    std::deque<PeerScript> scripts;
    std::vector<Request> requests;
    std::vector<std::string> called;
    std::string sent;
    int alive = 0;
    int prepared = 0;
    bool available = true;

 private:
    static std::string Ascii(std::u16string_view text) { return {text.begin(), text.end()}; }
    std::unique_ptr<FakeTransfer> Next() {
        sent.clear();
        if (scripts.empty()) return nullptr;
        PeerScript script = std::move(scripts.front());
        scripts.pop_front();
        return std::make_unique<FakeTransfer>(loop_, clock_, std::move(script), alive, sent);
    }

    FakeLoop& loop_;
    FakeClock& clock_;
};

class FakeTelephony : public server::TelephonyService {
 public:
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

    FakeTelephony(FakeLoop& loop, server::Settings& settings) : loop_(loop), settings_(settings) {}

    LineApplication Initialize(std::u16string_view application_name, EventHandler handler) override {
        ++started;
        name = application_name;
        on_event = std::move(handler);
        return application;
    }
    void Shutdown(std::uint32_t handle) override { ended.push_back(handle); }
    std::optional<std::uint32_t> NegotiateVersion(std::uint32_t, std::uint32_t device, std::uint32_t lowest,
                                                  std::uint32_t highest) override {
        if (lowest != 0x10003 || highest != 0x30000 || !lines[device].negotiates) return std::nullopt;
        return 0x20000 + device;
    }
    std::optional<LineCapabilities> Capabilities(std::uint32_t, std::uint32_t device, std::uint32_t version,
                                                 std::size_t buffer_size) override {
        if (version != 0x20000 + device || buffer_size != 2301 || !lines[device].has_capabilities) return std::nullopt;
        return LineCapabilities{lines[device].name, lines[device].media_modes};
    }
    std::optional<std::uint32_t> Open(std::uint32_t, std::uint32_t device, std::uint32_t,
                                      const LineOptions& options) override {
        if (!lines[device].opens) return std::nullopt;
        EXPECT_EQ(options.privileges, 6U);
        EXPECT_EQ(options.media_modes, 4U);
        opened.push_back(device);
        return 900 + device;
    }
    std::int32_t DeviceSpecific(std::uint32_t, std::uint32_t, std::uint32_t, std::span<std::byte> block) override {
        blocks.emplace_back(reinterpret_cast<const char*>(block.data()), block.size());
        if (replies.empty()) return 0;
        const Reply reply = replies.front();
        replies.pop_front();
        const auto record = [this, reply] { settings_.TapiLastReplyId = reply.replied_identifier; };
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
    server::Settings& settings_;
};

/// A server as far as orders go, with exchanges that are set up.
struct OrderBench {
    OrderBench() {
        settings.DocumentsDir = u"C:\\docs";
        settings.PbxHost = u"pbx.hotel";
        settings.PbxPort = 8080;
        settings.PbxUser = u"admin";
        settings.PbxPassword = u"secret";
        settings.GsBaseUrl = u"https://pbx.hotel:8089/pmsapi?token=ABC&format=xml&data=";
        settings.IpOfficeHost = u"ipo.hotel";
        settings.IpOfficePort = 8085;
        settings.HotelEnabled = true;
        settings.TapiReady = true;
        settings.TapiLineApp = 7;
        ini.values[{u"C:\\docs\\Vintrel.ini", u"USERS", u"204"}] = u" 0a1b2c ";
    }
    std::uint64_t Elapsed() const { return clock.milliseconds - 1000; }

    FakeMessage message;
    FakeClock clock;
    FakeLoop loop{clock};
    server::Settings settings;
    FakeIni ini;
    FakeAnsi ansi;
    FakeNetwork network{loop, clock};
    FakeTelephony telephony{loop, settings};
    tx::DrivenExchanges exchanges{loop, clock, settings, {network, network, telephony, ini, ansi}};
};

}  // namespace vintrel::testing
