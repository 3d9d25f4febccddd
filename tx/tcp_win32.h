// TCP connections by Winsock. Nothing blocks: the socket wakes the message loop, and names are looked up on a thread.
#pragma once

#include "server/network.h"

namespace vintrel::tx {

class Win32TcpClient : public server::TcpClient {
 public:
    std::unique_ptr<server::TcpConnection> Connect(std::u16string_view host, std::int32_t port) override;
};

}  // namespace vintrel::tx
