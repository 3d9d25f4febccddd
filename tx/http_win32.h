// The request engine: WinHTTP, asynchronous, one session for all requests. No proxy and no redirect: what is sent goes
// to the host of the request and nowhere else.
#pragma once

#include <windows.h>

#include <winhttp.h>

#include "server/network.h"

namespace vintrel::tx {

class Win32RequestEngine : public server::RequestEngine {
 public:
    Win32RequestEngine() = default;
    Win32RequestEngine(const Win32RequestEngine&) = delete;
    Win32RequestEngine& operator=(const Win32RequestEngine&) = delete;

    bool Prepare() override;
    /// Null also for a text with a NUL in it: it would not reach the peer as it is.
    std::unique_ptr<server::Transfer> Start(const server::HttpRequest& request) override;

 private:
    HINTERNET session_ = nullptr;  ///< to the end of the process
};

}  // namespace vintrel::tx
