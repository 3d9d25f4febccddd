// What the driven exchanges have in common: the turn of an order, and the answer of a peer.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "server/network.h"
#include "server/platform.h"
#include "server/settings.h"

namespace vintrel::tx {

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

/// What every driven exchange needs of the server.
struct ExchangeAccess {
    server::MessageLoop& loop;
    const server::Clock& clock;
    server::Settings& settings;
    OrderGuard& guard;
};

/// The answer of a peer as it comes in. It never grows beyond its limit.
class Answer {
 public:
    static constexpr std::size_t kLimit = std::size_t{1} << 20;

    /// Takes what has arrived. False when no more will come: the peer has ended, or the limit is exceeded.
    bool Collect(server::Transfer& transfer);
    /// Whether the text stands in what the last Collect has taken; it may have begun before.
    bool Brought(std::string_view text) const;
    /// Whether the peer has ended its answer in order, within the limit.
    bool Whole() const { return whole_; }
    const std::string& Text() const { return text_; }

 private:
    std::string text_;
    std::size_t known_ = 0;
    bool whole_ = false;
};

}  // namespace vintrel::tx
