// Scripted peers for the orders: what the network and the telephony service would do, on virtual time.
#pragma once

#include <deque>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "fakes.h"
#include "printing.h"
#include "platform/settings.h"
#include "tx/driven_exchanges.h"
#include "tx/guests.h"
#include "tx/wake_up.h"

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

    FakeTelephony(FakeLoop& loop, platform::Settings& settings) : loop_(loop), settings_(settings) {}

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
    platform::Settings& settings_;
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

    // The four orders, as a host gives them: what they answer, in readable form.
    std::string WakeUp(std::u16string type, const tx::WakeUpOrder& order) {
        return Shown(tx::ComEventClockTX(type, order.room, order.time, order.date, order.mode, order.language, message,
                                         clock, exchanges));
    }
    std::string CheckIn(std::u16string type, std::u16string_view name, std::int16_t language = 0,
                        std::int16_t change_name = 0, std::int32_t room = 204) {
        return Shown(tx::ComEventCheckInTX(type, room, name, language, change_name, message, exchanges));
    }
    std::string CheckOut(std::u16string type, std::int16_t change_name = 0, std::int32_t room = 204) {
        return Shown(tx::ComEventCheckOutTX(type, room, change_name, message, exchanges));
    }
    std::string UserName(std::u16string type, std::u16string_view given = u"Rossi", std::int32_t room = 204) {
        text::InOutText name(given);
        const std::u16string answer = tx::ComEventUserNameTX(type, room, name, message, exchanges);
        caller_name = name.View();
        return Shown(answer);
    }
    std::u16string caller_name;  ///< the caller's variable after the last UserName

    FakeMessage message;
    FakeClock clock;
    FakeLoop loop{clock};
    platform::Settings settings;
    FakeIni ini;
    FakeAnsi ansi;
    FakeNetwork network{loop, clock};
    FakeTelephony telephony{loop, settings};
    tx::DrivenExchanges exchanges{loop, clock, settings, {network, network, telephony, ini, ansi}};
};

}  // namespace vintrel::testing
