#include "host/link/tcp_stream.h"

#include <mstcpip.h>

#include "host/console.h"
#include "host/failure.h"

namespace vintrel::host {
namespace {

/// What a peer that does not read may leave unsent before it is given up.
constexpr std::size_t kMostUnsent = 1024 * 1024;

/// A quiet link is the rule at night: the system asks whether the other side is still there, and soon enough for an
/// exchange that has been switched off and on to find the link free.
void KeepAlive(SOCKET handle) {
    tcp_keepalive settings{.onoff = 1, .keepalivetime = 10'000, .keepaliveinterval = 2000};
    DWORD length = 0;
    if (WSAIoctl(handle, SIO_KEEPALIVE_VALS, &settings, sizeof settings, nullptr, 0, &length, nullptr, nullptr) == 0)
        return;
    const BOOL on = TRUE;
    setsockopt(handle, SOL_SOCKET, SO_KEEPALIVE, reinterpret_cast<const char*>(&on), sizeof on);
}

}  // namespace

Winsock::Winsock() {
    WSADATA data{};
    if (WSAStartup(MAKEWORD(2, 2), &data) != 0) throw Failure(ExitCode::Failed, "the network cannot be used");
}

void Socket::Close() {
    if (Valid()) closesocket(handle_);
    handle_ = INVALID_SOCKET;
}

std::string SocketMessage(int error) { return SystemMessage(static_cast<DWORD>(error)); }

std::string Shown(const sockaddr* address, int length, bool with_port) {
    char host[NI_MAXHOST] = "";
    char port[NI_MAXSERV] = "";
    getnameinfo(address, static_cast<socklen_t>(length), host, sizeof host, port, sizeof port,
                NI_NUMERICHOST | NI_NUMERICSERV);
    if (!with_port) return host;
    const std::string name = address->sa_family == AF_INET6 ? "[" + std::string(host) + "]" : std::string(host);
    return name + ":" + port;
}

TcpStream::TcpStream(Socket socket, HANDLE event) : socket_(std::move(socket)) {
    WSAEventSelect(socket_.Get(), event, FD_READ | FD_WRITE | FD_CLOSE);
    KeepAlive(socket_.Get());
}

std::optional<std::string> TcpStream::Read(std::vector<WireNews>& news) {
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
        return SocketMessage(error);
    }
    return Flush();
}

void TcpStream::Send(std::string_view bytes) {
    unsent_.append(bytes);
    failure_ = Flush();
}

std::optional<std::string> TcpStream::Flush() {
    if (failure_) return failure_;
    while (!unsent_.empty()) {
        const int count = send(socket_.Get(), unsent_.data(), static_cast<int>(unsent_.size()), 0);
        if (count < 0) {
            const int error = WSAGetLastError();
            if (error != WSAEWOULDBLOCK) return SocketMessage(error);
            if (unsent_.size() > kMostUnsent) return "the peer does not read";
            return std::nullopt;
        }
        unsent_.erase(0, static_cast<std::size_t>(count));
    }
    return std::nullopt;
}

void TcpWire::ReadStream(std::vector<WireNews>& news) {
    if (!stream_) return;
    if (const std::optional<std::string> reason = stream_->Read(news)) {
        stream_.reset();
        news.push_back({WireNews::Kind::Lost, *reason});
    }
}

}  // namespace vintrel::host
