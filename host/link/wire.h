// A connection to the exchange: bytes in, bytes out, and the news about it. Nothing here waits.
#pragma once

#include <winsock2.h>

#include <windows.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/link/address.h"
#include "host/link/line_settings.h"

namespace vintrel::host {

struct WireNews {
    enum class Kind : std::uint8_t {
        Listening,  ///< the address and the port
        Connected,
        Received,
        Lost,
        Refused,  ///< an attempt to connect has failed
        Knocked,  ///< another connection came, and does not get the link
    };
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
    LineSettings line;
    Handshake handshake = Handshake::None;
    bool raise_dtr_rts = false;
};

/// Connects, and again after `pause` milliseconds whenever the connection is refused or lost. Every address that the
/// name has is tried.
std::unique_ptr<Wire> ConnectTcp(const NetworkAddress& address, std::uint64_t pause);

struct ListenSettings {
    unsigned port = 0;
    bool any = false;       ///< not just this machine may connect
    std::string from = {};  ///< only this address may; "" for no such limit
};
/// Takes one connection at a time, and keeps it until it ends. @throws Failure when the port cannot be listened on
std::unique_ptr<Wire> ListenTcp(const ListenSettings& settings);

/// A port that is not there is tried again after `pause` milliseconds.
std::unique_ptr<Wire> OpenSerial(const SerialSettings& settings, std::uint64_t pause);

}  // namespace vintrel::host
