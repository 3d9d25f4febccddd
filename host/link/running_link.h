// A link in operation: the wire, the protocol on it, the orders for it, and the watch over all of them.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "host/link/link_journal.h"
#include "host/link/order_file.h"
#include "host/link/session.h"
#include "host/link/wire.h"
#include "host/stop.h"

namespace vintrel::host {

class RunningLink {
 public:
    struct Settings {
        Session::Credentials credentials;
        bool once = false;           ///< ends when the connection is lost
        std::uint64_t silent = 0;    ///< milliseconds without a byte that are told; 0 none
        std::uint64_t status = 0;    ///< milliseconds between two status events; 0 none
        std::uint64_t duration = 0;  ///< ends by itself; 0 does not
    };
    RunningLink(const Server& server, const Model& model, const CallLayout& layout, const Settings& settings,
                LinkJournal& journal, OrderFile orders, std::unique_ptr<Wire> wire);

    /// Until the end. @return whether all was well: connected, orders confirmed, nothing lost
    bool Run();

 private:
    void WaitAndPump(const StopSignal& stop) const;
    void Take(const WireNews& news);
    void TakeKnock(const std::string& words);
    void Send(std::string_view bytes, bool secret);
    void Note(const Event& event) { journal_.Note(moment_, event); }
    void WatchSilence();
    void WatchModel();
    void ShowStatus();
    bool End();

    const Server& server_;
    std::u16string code_;
    Settings settings_;
    LinkJournal& journal_;
    Session session_;
    OrderFile orders_;
    std::unique_ptr<Wire> wire_;

    Moment moment_ = Now();  ///< of this turn: what comes of one piece of news happens at one time
    std::uint64_t begin_ = moment_.milliseconds;
    bool connected_ = false;
    bool ever_connected_ = false;
    bool lost_ = false;
    bool refused_told_ = false;
    std::uint64_t heard_at_ = begin_;
    bool silence_told_ = false;
    std::uint64_t knocked_at_ = 0;
    std::string knocked_last_;  ///< by the machine of this address
    std::uint64_t knocks_untold_ = 0;
    std::uint64_t status_line_at_ = 0;
    std::uint64_t status_event_at_ = begin_;
    bool model_doubted_ = true;        ///< nothing of what came could be used yet
    std::string first_bytes_;          ///< of what came meanwhile
    std::uint64_t look_again_at_ = 0;  ///< bytes
};

}  // namespace vintrel::host
