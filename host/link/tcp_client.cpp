// A link that this host opens.
#include "host/console.h"
#include "host/link/tcp_stream.h"

namespace vintrel::host {
namespace {

/// What one address may take while there are others.
constexpr std::uint64_t kPatience = 5000;

class Client : public TcpWire {
 public:
    Client(NetworkAddress address, std::uint64_t pause) : address_(std::move(address)), pause_(pause) {
        const bool brackets = address_.host.find(':') != std::string::npos;
        name_ = (brackets ? "[" + address_.host + "]" : address_.host) + ":" + std::to_string(address_.port);
    }
    ~Client() override { Forget(); }
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;

    void Drop() override {
        TcpWire::Drop();
        attempt_.Close();
        Forget();
    }

    std::vector<WireNews> Poll(std::uint64_t now) override {
        WSAResetEvent(event_);
        std::vector<WireNews> news;
        if (stream_) {
            ReadStream(news);
            next_ = now + pause_;
        } else if (attempt_.Valid()) {
            Look(now, news);
        } else if (now >= next_) {
            Resolve(now, news);
        }
        return news;
    }

 private:
    void Forget() {
        if (found_) FreeAddrInfoW(found_);
        found_ = nullptr;
        trying_ = nullptr;
    }

    void Refuse(std::uint64_t now, int error, std::vector<WireNews>& news) {
        Forget();
        next_ = now + pause_;
        news.push_back({WireNews::Kind::Refused, name_ + ": " + SocketMessage(error)});
    }

    void Resolve(std::uint64_t now, std::vector<WireNews>& news) {
        addrinfoW hints{};
        hints.ai_socktype = SOCK_STREAM;
        // The names of exchanges are addresses as a rule; a real name takes as long as the system takes.
        const std::wstring port = ToWide(std::to_string(address_.port));
        const int error = GetAddrInfoW(ToWide(address_.host).c_str(), port.c_str(), &hints, &found_);
        if (error != 0) {
            found_ = nullptr;
            return Refuse(now, error, news);
        }
        Try(found_, now, news);
    }

    /// Begins to connect to an address, or to one behind it.
    void Try(const addrinfoW* address, std::uint64_t now, std::vector<WireNews>& news) {
        int error = WSAEHOSTUNREACH;
        for (trying_ = address; trying_; trying_ = trying_->ai_next) {
            attempt_ = Socket(socket(trying_->ai_family, SOCK_STREAM, IPPROTO_TCP));
            WSAEventSelect(attempt_.Get(), event_, FD_CONNECT);
            tried_at_ = now;
            if (connect(attempt_.Get(), trying_->ai_addr, static_cast<int>(trying_->ai_addrlen)) == 0) return;
            error = WSAGetLastError();
            if (error == WSAEWOULDBLOCK) return;
            attempt_.Close();
        }
        Refuse(now, error, news);
    }

    void Look(std::uint64_t now, std::vector<WireNews>& news) {
        WSANETWORKEVENTS events{};
        WSAEnumNetworkEvents(attempt_.Get(), nullptr, &events);
        const bool answered = (events.lNetworkEvents & FD_CONNECT) != 0;
        const bool slow = trying_ && trying_->ai_next && now - tried_at_ >= kPatience;
        if (!answered && !slow) return;
        const int error = answered ? events.iErrorCode[FD_CONNECT_BIT] : WSAETIMEDOUT;
        if (error != 0) {
            attempt_.Close();
            if (trying_ && trying_->ai_next) return Try(trying_->ai_next, now, news);
            return Refuse(now, error, news);
        }
        news.push_back({WireNews::Kind::Connected, name_});
        stream_.emplace(std::move(attempt_), event_);
        attempt_ = Socket();
        Forget();
        ReadStream(news);
    }

    NetworkAddress address_;
    std::string name_;
    std::uint64_t pause_;
    std::uint64_t next_ = 0;
    Socket attempt_;
    addrinfoW* found_ = nullptr;
    const addrinfoW* trying_ = nullptr;
    std::uint64_t tried_at_ = 0;
};

}  // namespace

std::unique_ptr<Wire> ConnectTcp(const NetworkAddress& address, std::uint64_t pause) {
    return std::make_unique<Client>(address, pause);
}

}  // namespace vintrel::host
