// A connection to the exchange: bytes in, bytes out, and the news about it. Nothing here waits.
#pragma once

#include <winsock2.h>

#include <windows.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vintrel::host {

struct WireNews {
    enum class Kind : std::uint8_t { Connected, Received, Lost, Refused };
    Kind kind;
    std::string text;  ///< the bytes received, or words about the peer and the reason
};

class Wire {
 public:
    virtual ~Wire() = default;
    Wire() = default;
    Wire(const Wire&) = delete;
    Wire& operator=(const Wire&) = delete;

    /// Signalled when there may be news; null where the wire must be looked at every few milliseconds.
    virtual HANDLE Event() const = 0;
    virtual std::vector<WireNews> Poll(std::uint64_t now) = 0;
    /// What cannot be sent at once is kept and sent by a later Poll.
    virtual void Send(std::string_view bytes) = 0;
    /// Ends the connection, as a peer would that hangs up; a client connects again.
    virtual void Drop() = 0;
};

struct SerialSettings {
    std::string port;  ///< such as COM1
    std::string line;  ///< such as 9600,8,N,1
    bool raise_dtr_rts = false;
};

/// Connects to HOST:PORT, and again after `pause` milliseconds whenever the connection is refused or lost.
std::unique_ptr<Wire> ConnectTcp(const std::string& address, std::uint64_t pause);
/// Takes one connection at a time on the port, the newest. @param any_address  not just this machine may connect
std::unique_ptr<Wire> ListenTcp(unsigned port, bool any_address);
/// @throws Failure when the settings make no sense; a port that is not there is tried again.
std::unique_ptr<Wire> OpenSerial(const SerialSettings& settings, std::uint64_t pause);

}  // namespace vintrel::host
