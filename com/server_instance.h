// The one server of the process: the settings and tables that all objects share, and the platform behind them.
#pragma once

#include "exchanges/catalogue.h"
#include "platform/settings.h"
#include "server/external_transfer.h"
#include "win32/ansi_text.h"
#include "win32/clock.h"
#include "win32/desktop.h"
#include "win32/files.h"
#include "win32/http.h"
#include "win32/ini.h"
#include "win32/md5.h"
#include "win32/message_loop.h"
#include "win32/support_list.h"
#include "win32/tcp.h"
#include "win32/telephony.h"

namespace vintrel::com {

/// Whatever an operation needs is found here by its type: the server converts to it. A function that takes a clock and
/// the error report gets these two and sees no more.
class Server {
 public:
    Server() = default;
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    // NOLINTBEGIN(google-explicit-constructor): see above
    operator platform::Settings&() { return settings_; }
    operator const exchanges::Exchanges&() { return exchanges_; }
    operator server::PendingLeg&() { return pending_leg_; }
    operator const platform::Clock&() { return clock_; }
    operator platform::CriticalMessage&() { return message_; }
    operator platform::MessageLoop&() { return loop_; }
    operator platform::SupportListWindow&() { return support_list_; }
    operator platform::HelpViewer&() { return help_viewer_; }
    // NOLINTEND(google-explicit-constructor)

    /// The hidden window and its timers go. The settings stay for the next object, the list window for the operator.
    void Close();
    /// Whether the system may still call into the server although no object is left.
    bool InUse() const { return exchanges_.InUse() || support_list_.IsOpen(); }

 private:
    platform::Settings settings_;
    server::PendingLeg pending_leg_;

    win32::Clock clock_;
    win32::CriticalMessage message_;
    win32::MessageLoop loop_;
    win32::SupportList support_list_;
    win32::HelpViewer help_viewer_;
    win32::Files files_;
    win32::Ini ini_;
    win32::AnsiText ansi_;
    win32::Md5 md5_;
    win32::RequestEngine engine_;
    win32::TcpClient tcp_;
    win32::Telephony telephony_;

    exchanges::OrderGuard guard_;
    const exchanges::Surroundings surroundings_{settings_, guard_, loop_,   clock_, files_,    ini_,
                                                ansi_,     md5_,   engine_, tcp_,   telephony_};
    const exchanges::Exchanges exchanges_{surroundings_};
};

extern Server the_server;

inline Server& TheServer() { return the_server; }

}  // namespace vintrel::com
