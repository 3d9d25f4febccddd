// TCP connections on non-blocking sockets.
#pragma once

#include <winsock2.h>

#include <ws2tcpip.h>

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/link/wire.h"

namespace vintrel::host {

class Winsock {
 public:
    Winsock();
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
    void Close();

 private:
    SOCKET handle_;
};

std::string SocketMessage(int error);
/// "192.0.2.7:5010", "[::1]:5010"; the address alone without a port.
std::string Shown(const sockaddr* address, int length, bool with_port);

/// One established connection: reads what is there, sends what it can.
class TcpStream {
 public:
    TcpStream(Socket socket, HANDLE event);

    /// @return the reason why the connection has ended
    std::optional<std::string> Read(std::vector<WireNews>& news);
    void Send(std::string_view bytes);

 private:
    std::optional<std::string> Flush();

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
    void ReadStream(std::vector<WireNews>& news);

    // The destructor closes the event last.
    Winsock winsock_;
    HANDLE event_;
    std::optional<TcpStream> stream_;
};

}  // namespace vintrel::host
