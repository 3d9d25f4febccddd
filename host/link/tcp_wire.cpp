// TCP connections, as client and as listener, on non-blocking sockets.
#include <winsock2.h>

#include <ws2tcpip.h>

#include <optional>
#include <utility>

#include "host/console.h"
#include "host/failure.h"
#include "host/link/wire.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

/// What a peer that does not read may leave unsent before it is given up.
constexpr std::size_t kMostUnsent = 1024 * 1024;

class Winsock {
 public:
    Winsock() {
        WSADATA data{};
        if (WSAStartup(MAKEWORD(2, 2), &data) != 0) throw Failure(ExitCode::Failed, "the network cannot be used");
    }
    ~Winsock() { WSACleanup(); }
    Winsock(const Winsock&) = delete;
    Winsock& operator=(const Winsock&) = delete;
};

class Socket {
 public:
    explicit Socket(SOCKET handle = INVALID_SOCKET) : handle_(handle) {}
    ~Socket() { Close(); }
    Socket(Socket&& other) noexcept : handle_(std::exchange(other.handle_, INVALID_SOCKET)) {}
    Socket& operator=(Socket&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;
    SOCKET Get() const { return handle_; }
    bool Valid() const { return handle_ != INVALID_SOCKET; }
    void Close() {
        if (Valid()) closesocket(handle_);
        handle_ = INVALID_SOCKET;
    }

 private:
    SOCKET handle_;
};

struct Address {
    sockaddr_storage bytes{};
    int length = 0;
};

std::string Shown(const sockaddr* address, int length) {
    char host[NI_MAXHOST] = "";
    char port[NI_MAXSERV] = "";
    getnameinfo(address, static_cast<socklen_t>(length), host, sizeof host, port, sizeof port,
                NI_NUMERICHOST | NI_NUMERICSERV);
    return std::string(host) + ":" + port;
}

/// One established connection: reads what is there, sends what it can.
class Stream {
 public:
    Stream(Socket socket, HANDLE event) : socket_(std::move(socket)) {
        WSAEventSelect(socket_.Get(), event, FD_READ | FD_WRITE | FD_CLOSE);
        // A quiet link is the rule at night: the system finds out whether the other side is still there.
        const BOOL on = TRUE;
        setsockopt(socket_.Get(), SOL_SOCKET, SO_KEEPALIVE, reinterpret_cast<const char*>(&on), sizeof on);
    }

    /// @return the reason why the connection has ended
    std::optional<std::string> Read(std::vector<WireNews>& news) {
        char buffer[16 * 1024];
        // A flood must not keep the host from everything else: the rest stays for the next turn.
        for (int turn = 0; turn < 16; ++turn) {
            const int count = recv(socket_.Get(), buffer, sizeof buffer, 0);
            if (count > 0) {
                news.push_back({WireNews::Kind::Received, std::string(buffer, static_cast<std::size_t>(count))});
                continue;
            }
            if (count == 0) return "closed by the peer";
            const int error = WSAGetLastError();
            if (error == WSAEWOULDBLOCK) break;
            return SystemMessage(static_cast<DWORD>(error));
        }
        return Flush();
    }

    void Send(std::string_view bytes) {
        unsent_.append(bytes);
        failure_ = Flush();
    }

 private:
    std::optional<std::string> Flush() {
        if (failure_) return failure_;
        while (!unsent_.empty()) {
            const int count = send(socket_.Get(), unsent_.data(), static_cast<int>(unsent_.size()), 0);
            if (count < 0) {
                const int error = WSAGetLastError();
                if (error != WSAEWOULDBLOCK) return SystemMessage(static_cast<DWORD>(error));
                if (unsent_.size() > kMostUnsent) return "the peer does not read";
                return std::nullopt;
            }
            unsent_.erase(0, static_cast<std::size_t>(count));
        }
        return std::nullopt;
    }

    Socket socket_;
    std::string unsent_;
    std::optional<std::string> failure_;
};

class TcpWire : public Wire {
 public:
    TcpWire() : event_(WSACreateEvent()) {}
    ~TcpWire() override { WSACloseEvent(event_); }
    TcpWire(const TcpWire&) = delete;
    TcpWire& operator=(const TcpWire&) = delete;

    HANDLE Event() const override { return event_; }
    void Send(std::string_view bytes) override {
        if (stream_) stream_->Send(bytes);
    }
    void Drop() override { stream_.reset(); }

 protected:
    void ReadStream(std::vector<WireNews>& news) {
        if (!stream_) return;
        if (const std::optional<std::string> reason = stream_->Read(news)) {
            stream_.reset();
            news.push_back({WireNews::Kind::Lost, *reason});
        }
    }

    // The destructor closes the event last.
    Winsock winsock_;
    HANDLE event_;
    std::optional<Stream> stream_;
};

class Client : public TcpWire {
 public:
    Client(const std::string& address, std::uint64_t pause) : name_(address), pause_(pause) {
        const std::size_t colon = address.rfind(':');
        if (colon == std::string::npos || colon == 0 || !ParseNumber(address.substr(colon + 1)))
            throw Failure(ExitCode::Usage, "--connect takes HOST:PORT, not \"" + address + "\"");
        host_ = address.substr(0, colon);
        port_ = address.substr(colon + 1);
    }

    void Drop() override {
        TcpWire::Drop();
        attempt_.Close();
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
            Begin(now, news);
        }
        return news;
    }

 private:
    void Refuse(std::uint64_t now, int error, std::vector<WireNews>& news) {
        attempt_.Close();
        next_ = now + pause_;
        news.push_back({WireNews::Kind::Refused, name_ + ": " + SystemMessage(static_cast<DWORD>(error))});
    }

    void Begin(std::uint64_t now, std::vector<WireNews>& news) {
        addrinfoW hints{};
        hints.ai_socktype = SOCK_STREAM;
        addrinfoW* found = nullptr;
        // The names of exchanges are addresses as a rule; a real name takes as long as the system takes.
        const int error = GetAddrInfoW(ToWide(host_).c_str(), ToWide(port_).c_str(), &hints, &found);
        if (error != 0) return Refuse(now, error, news);
        attempt_ = Socket(socket(found->ai_family, SOCK_STREAM, IPPROTO_TCP));
        WSAEventSelect(attempt_.Get(), event_, FD_CONNECT);
        const int result = connect(attempt_.Get(), found->ai_addr, static_cast<int>(found->ai_addrlen));
        const int reason = WSAGetLastError();
        FreeAddrInfoW(found);
        if (result != 0 && reason != WSAEWOULDBLOCK) Refuse(now, reason, news);
    }

    void Look(std::uint64_t now, std::vector<WireNews>& news) {
        WSANETWORKEVENTS events{};
        WSAEnumNetworkEvents(attempt_.Get(), nullptr, &events);
        if ((events.lNetworkEvents & FD_CONNECT) == 0) return;
        const int error = events.iErrorCode[FD_CONNECT_BIT];
        if (error != 0) return Refuse(now, error, news);
        news.push_back({WireNews::Kind::Connected, name_});
        stream_.emplace(std::move(attempt_), event_);
        attempt_ = Socket();
        ReadStream(news);
    }

    std::string name_;
    std::string host_;
    std::string port_;
    std::uint64_t pause_;
    std::uint64_t next_ = 0;
    Socket attempt_;
};

class Listener : public TcpWire {
 public:
    Listener(unsigned port, bool any_address) : socket_(::socket(AF_INET, SOCK_STREAM, IPPROTO_TCP)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(static_cast<u_short>(port));
        address.sin_addr.s_addr = htonl(any_address ? INADDR_ANY : INADDR_LOOPBACK);
        const BOOL exclusive = TRUE;
        setsockopt(socket_.Get(), SOL_SOCKET, SO_EXCLUSIVEADDRUSE, reinterpret_cast<const char*>(&exclusive),
                   sizeof exclusive);
        if (bind(socket_.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
            listen(socket_.Get(), SOMAXCONN) != 0)
            throw Failure(ExitCode::Failed, "port " + std::to_string(port) + " cannot be listened on: " +
                                                SystemMessage(static_cast<DWORD>(WSAGetLastError())));
        WSAEventSelect(socket_.Get(), event_, FD_ACCEPT);
    }

    std::vector<WireNews> Poll(std::uint64_t /*now*/) override {
        WSAResetEvent(event_);
        std::vector<WireNews> news;
        ReadStream(news);
        for (int turn = 0; turn < SOMAXCONN; ++turn) {
            sockaddr_storage peer{};
            int length = sizeof peer;
            Socket accepted(accept(socket_.Get(), reinterpret_cast<sockaddr*>(&peer), &length));
            if (!accepted.Valid()) break;
            // An exchange that connects anew has given up its old connection, whether it could say so or not.
            if (stream_) news.push_back({WireNews::Kind::Lost, "replaced by a new connection"});
            news.push_back({WireNews::Kind::Connected, Shown(reinterpret_cast<const sockaddr*>(&peer), length)});
            stream_.emplace(std::move(accepted), event_);
            ReadStream(news);
        }
        return news;
    }

 private:
    Socket socket_;
};

}  // namespace

std::unique_ptr<Wire> ConnectTcp(const std::string& address, std::uint64_t pause) {
    return std::make_unique<Client>(address, pause);
}

std::unique_ptr<Wire> ListenTcp(unsigned port, bool any_address) {
    return std::make_unique<Listener>(port, any_address);
}

}  // namespace vintrel::host
