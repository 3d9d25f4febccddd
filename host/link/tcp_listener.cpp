// A link that the exchange opens.
#include "host/console.h"
#include "host/failure.h"
#include "host/link/tcp_stream.h"

namespace vintrel::host {
namespace {

sockaddr_in AddressOf(const std::string& text) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    int length = sizeof address;
    if (WSAStringToAddressW(ToWide(text).data(), AF_INET, nullptr, reinterpret_cast<sockaddr*>(&address), &length) !=
            0 ||
        address.sin_port != 0)
        throw Failure(ExitCode::Usage, "--from takes an address such as 192.0.2.7, not \"" + text + "\"");
    return address;
}

class Listener : public TcpWire {
 public:
    explicit Listener(const ListenSettings& settings) : from_(settings.from) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(static_cast<u_short>(settings.port));
        if (!from_.empty()) from_ = Text(AddressOf(from_), false);
        const bool others = settings.any || !from_.empty();
        address.sin_addr.s_addr = htonl(others ? INADDR_ANY : INADDR_LOOPBACK);
        socket_ = Socket(::socket(AF_INET, SOCK_STREAM, IPPROTO_TCP));
        const BOOL exclusive = TRUE;
        setsockopt(socket_.Get(), SOL_SOCKET, SO_EXCLUSIVEADDRUSE, reinterpret_cast<const char*>(&exclusive),
                   sizeof exclusive);
        if (bind(socket_.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
            listen(socket_.Get(), SOMAXCONN) != 0)
            throw Failure(ExitCode::Failed, "port " + std::to_string(settings.port) +
                                                " cannot be listened on: " + SocketMessage(WSAGetLastError()));
        WSAEventSelect(socket_.Get(), event_, FD_ACCEPT);
        listening_ = Text(address, true);
    }

    std::vector<WireNews> Poll(std::uint64_t /*now*/) override {
        WSAResetEvent(event_);
        std::vector<WireNews> news;
        if (!listening_.empty()) news.push_back({WireNews::Kind::Listening, std::exchange(listening_, {})});
        ReadStream(news);
        Accept(news);
        if (waiting_.Valid() && HasLeft(waiting_)) waiting_.Close();
        if (!stream_ && waiting_.Valid()) Take(std::move(waiting_), waiting_peer_, news);
        return news;
    }

 private:
    static std::string Text(const sockaddr_in& address, bool with_port) {
        return Shown(reinterpret_cast<const sockaddr*>(&address), sizeof address, with_port);
    }

    /// Whether the other side has closed the connection without a word.
    static bool HasLeft(const Socket& socket) {
        char byte = 0;
        const int count = recv(socket.Get(), &byte, 1, MSG_PEEK);
        return count == 0 || (count < 0 && WSAGetLastError() != WSAEWOULDBLOCK);
    }

    void Take(Socket socket, const std::string& peer, std::vector<WireNews>& news) {
        peer_ = peer;
        news.push_back({WireNews::Kind::Connected, peer});
        stream_.emplace(std::move(socket), event_);
        ReadStream(news);
    }

    void Accept(std::vector<WireNews>& news) {
        for (int turn = 0; turn < SOMAXCONN; ++turn) {
            sockaddr_in peer{};
            int length = sizeof peer;
            Socket accepted(accept(socket_.Get(), reinterpret_cast<sockaddr*>(&peer), &length));
            if (!accepted.Valid()) return;
            const std::string name = Text(peer, true);
            if (!from_.empty() && Text(peer, false) != from_) {
                news.push_back({WireNews::Kind::Knocked, name + " is not " + from_});
            } else if (!stream_) {
                Take(std::move(accepted), name, news);
            } else {
                // It may be the exchange itself, back again while its old connection has not been found to be dead:
                // it waits for that. Anybody else waits for nothing.
                news.push_back({WireNews::Kind::Knocked, name + " waits; the link stays with " + peer_});
                waiting_ = std::move(accepted);
                waiting_peer_ = name;
            }
        }
    }

    Socket socket_;
    std::string from_;
    std::string listening_;  ///< to be told
    std::string peer_;
    Socket waiting_;
    std::string waiting_peer_;
};

}  // namespace

std::unique_ptr<Wire> ListenTcp(const ListenSettings& settings) { return std::make_unique<Listener>(settings); }

}  // namespace vintrel::host
