// The one server of the process: the settings and tables that all objects share, and the platform behind them.
#pragma once

#include "cdr/convert.h"
#include "rx/external_transfer.h"
#include "server/ansi_text_win32.h"
#include "server/clock_win32.h"
#include "server/desktop_win32.h"
#include "server/files_win32.h"
#include "server/ini_win32.h"
#include "server/initialisation.h"
#include "server/message_loop_win32.h"
#include "server/platform.h"
#include "server/settings.h"
#include "server/support_list_win32.h"
#include "tx/driven_exchanges.h"
#include "tx/http_win32.h"
#include "tx/md5_win32.h"
#include "tx/tcp_win32.h"
#include "tx/telephony_win32.h"

namespace vintrel::com {

/// Whatever an operation needs is found here by its type: the server converts to it. A function that takes a clock and
/// the error report gets these two and sees no more.
class Server {
 public:
    Server() = default;
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    // NOLINTBEGIN(google-explicit-constructor): see above
    operator server::Settings&() { return settings_; }
    operator cdr::CallRecordState&() { return call_records_; }
    operator rx::PendingLeg&() { return pending_leg_; }
    operator const server::Clock&() { return clock_; }
    operator server::CriticalMessage&() { return message_; }
    operator server::MessageLoop&() { return loop_; }
    operator server::SupportListWindow&() { return support_list_; }
    operator server::HelpViewer&() { return help_viewer_; }
    operator server::TelephonyService&() { return telephony_; }
    operator server::InitialisationPlatform() {
        return {message_, files_, ini_, ansi_, md5_, engine_, telephony_, loop_};
    }
    operator tx::DrivenExchanges&() { return exchanges_; }
    // NOLINTEND(google-explicit-constructor)

    /// The hidden window and its timers go. The settings stay for the next object, the list window for the operator.
    void Close();
    /// Whether the system may still call into the server although no object is left.
    bool InUse() const { return settings_.TapiLineApp != 0 || support_list_.IsOpen(); }

 private:
    server::Settings settings_;
    cdr::CallRecordState call_records_;
    rx::PendingLeg pending_leg_;

    server::Win32Clock clock_;
    server::Win32CriticalMessage message_;
    server::Win32MessageLoop loop_;
    server::Win32SupportList support_list_;
    server::Win32HelpViewer help_viewer_;
    server::Win32Files files_;
    server::Win32Ini ini_;
    server::Win32AnsiText ansi_;
    tx::Win32Md5 md5_;
    tx::Win32RequestEngine engine_;
    tx::Win32TcpClient tcp_;
    tx::Win32Telephony telephony_;

    tx::DrivenExchanges exchanges_{loop_, clock_, settings_, {engine_, tcp_, telephony_, ini_, ansi_}};
};

extern Server the_server;

inline Server& TheServer() { return the_server; }

}  // namespace vintrel::com
