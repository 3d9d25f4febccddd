// The four exchanges that the server drives itself, and the one turn that their orders share.
#pragma once

#include "tx/grandstream.h"
#include "tx/innovaphone.h"
#include "tx/ip_office.h"
#include "tx/panasonic.h"

namespace vintrel::tx {

/// What the driven exchanges reach the world by.
struct ExchangeLinks {
    server::RequestEngine& engine;
    server::TcpClient& tcp;
    server::TelephonyService& telephony;
    server::IniStore& ini;
    const server::AnsiText& ansi;
};

/// One per server process.
class DrivenExchanges {
 public:
    DrivenExchanges(server::MessageLoop& loop, const server::Clock& clock, server::Settings& settings,
                    ExchangeLinks links)
        : innovaphone({loop, clock, settings, guard_}, links.engine),
          grandstream({loop, clock, settings, guard_}, links.engine),
          ip_office({loop, clock, settings, guard_}, links.ini, links.tcp),
          panasonic({loop, clock, settings, guard_}, links.ansi, links.telephony) {}
    DrivenExchanges(const DrivenExchanges&) = delete;
    DrivenExchanges& operator=(const DrivenExchanges&) = delete;

 private:
    OrderGuard guard_;

 public:
    Innovaphone innovaphone;
    Grandstream grandstream;
    IpOffice ip_office;
    Panasonic panasonic;
};

}  // namespace vintrel::tx
