// What the host sends: answers at once, orders one after the other at the pace that the exchange keeps up with.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <string_view>

#include "host/link/link_answers.h"

namespace vintrel::host {

class Sender {
 public:
    using Transmit = std::function<void(std::string_view)>;
    Sender(const LinkAnswers& answers, Transmit transmit);

    /// An acknowledgement or an answer that the exchange waits for.
    void SendNow(std::string_view bytes);
    /// An order, with what the model wants before and after it.
    void Queue(std::string_view order);

    /// The exchange confirmed, or refused, the last transmission; without one under way nothing happens.
    void Confirmed();
    void Refused();

    /// Sends what is due. @return an order that was given up, "" for none
    std::string Tick(std::uint64_t now);

    /// The connection is gone: what was under way is sent again on the next one.
    void Disconnected() { waiting_ = false; }
    bool Idle() const { return queue_.empty() && !waiting_; }

 private:
    const LinkAnswers& answers_;
    Transmit transmit_;
    std::deque<std::string> queue_;  ///< the front is under way while `waiting_`
    bool waiting_ = false;
    unsigned attempts_ = 0;
    std::uint64_t last_ = 0;
    std::uint64_t now_ = 0;
};

}  // namespace vintrel::host
