// What the orders need of the network: HTTP requests and a TCP client. Nothing here blocks: a transfer makes progress
// while the message loop runs, and whoever waits for it sets the limit.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace vintrel::platform {

enum class TransferState : std::uint8_t {
    Starting,  ///< the name is looked up, the peer called, the request sent
    Open,      ///< TCP: connected; HTTP: the request is sent, the answer awaited or coming in
    Finished,  ///< the peer has ended its answer in order, and all of it has been received
    Failed     ///< there will be no more of it; what has been received stays valid
};

/// A conversation with one peer. Destroying it ends it at once, in whatever state it is.
class Transfer {
 public:
    virtual ~Transfer() = default;
    virtual TransferState State() = 0;
    /// Appends what has arrived, at most `limit` bytes of it; what is not taken stays with the system. Never waits.
    virtual void Receive(std::string& answer, std::size_t limit) = 0;
};

/// The views are read while the request is started, not later.
struct HttpRequest {
    std::u16string_view method = {};
    std::u16string_view host = {};
    std::int32_t port = 0;            ///< 0: the scheme's own
    std::u16string_view target = {};  ///< path and query, handed over as built
    std::u16string_view header = {};  ///< one line without its end, or empty
    std::u16string_view user = {};    ///< for the host alone: redirects are not followed
    std::u16string_view password = {};
    bool secure = false;
    std::uint32_t ignored_certificate_errors = 0;  ///< the system's flags
};

/// The request engine: one session for all requests.
class RequestEngine {
 public:
    virtual ~RequestEngine() = default;
    /// Makes the engine ready for requests; false when the system has none.
    virtual bool Prepare() = 0;
    /// Null when the request cannot even be started.
    virtual std::unique_ptr<Transfer> Start(const HttpRequest& request) = 0;
};

class TcpConnection : public Transfer {
 public:
    /// Hands bytes over; they leave while messages are processed. Only after the state was Open.
    virtual void Send(std::string_view bytes) = 0;
};

class TcpClient {
 public:
    virtual ~TcpClient() = default;
    /// Null when the call cannot even be started, as with a port outside 1 to 65535.
    virtual std::unique_ptr<TcpConnection> Connect(std::u16string_view host, std::int32_t port) = 0;
};

}  // namespace vintrel::platform
