// The request engine: WinHTTP, asynchronous, one session for all requests. No proxy and no redirect: what is sent goes
// to the host of the request and nowhere else.
#pragma once

#include <windows.h>

#include <winhttp.h>

#include "platform/network.h"

namespace vintrel::win32 {

class RequestEngine : public platform::RequestEngine {
 public:
    RequestEngine() = default;
    RequestEngine(const RequestEngine&) = delete;
    RequestEngine& operator=(const RequestEngine&) = delete;

    bool Prepare() override;
    /// Null also for a text with a NUL in it: it would not reach the peer as it is.
    std::unique_ptr<platform::Transfer> Start(const platform::HttpRequest& request) override;

 private:
    HINTERNET session_ = nullptr;  ///< to the end of the process
};

}  // namespace vintrel::win32
