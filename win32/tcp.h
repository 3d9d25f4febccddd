// TCP connections by Winsock. Nothing blocks: the socket wakes the message loop, and names are looked up on a thread.
#pragma once

#include "platform/network.h"

namespace vintrel::win32 {

class TcpClient : public platform::TcpClient {
 public:
    std::unique_ptr<platform::TcpConnection> Connect(std::u16string_view host, std::int32_t port) override;
};

}  // namespace vintrel::win32
