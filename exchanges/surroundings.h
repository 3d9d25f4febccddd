// What a server gives to its exchanges: the settings that they share, the turn of their orders, and the platform.
#pragma once

#include "platform/ansi_text.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/md5.h"
#include "platform/message_loop.h"
#include "platform/network.h"
#include "platform/settings.h"
#include "platform/telephony.h"

namespace vintrel::exchanges {

/// One order at a time. Waits process messages, so the host can call in with another order meanwhile: it gets no turn.
class OrderGuard {
 public:
    class Turn {
     public:
        explicit Turn(OrderGuard& guard) : guard_(guard), taken_(!guard.busy_) { guard.busy_ = true; }
        ~Turn() {
            if (taken_) guard_.busy_ = false;
        }
        Turn(const Turn&) = delete;
        Turn& operator=(const Turn&) = delete;
        explicit operator bool() const { return taken_; }

     private:
        OrderGuard& guard_;
        bool taken_;
    };

 private:
    bool busy_ = false;
};

struct Surroundings {
    platform::Settings& settings;
    OrderGuard& guard;
    platform::MessageLoop& loop;
    const platform::Clock& clock;
    const platform::Files& files;
    platform::IniStore& ini;
    const platform::AnsiText& ansi;
    platform::Md5& md5;
    platform::RequestEngine& request_engine;
    platform::TcpClient& tcp;
    platform::TelephonyService& telephony;
};

}  // namespace vintrel::exchanges
