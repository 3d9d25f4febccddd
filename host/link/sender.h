// What the host sends: answers at once, orders one after the other at the pace that the exchange keeps up with.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "host/link/link_answers.h"

namespace vintrel::host {

/// An order on its way.
struct QueuedOrder {
    std::string room;
    std::string words;  ///< for people: "wakeup 0730 2412"
    std::string bytes;
};

class Sender {
 public:
    using Transmit = std::function<void(std::string_view)>;
    enum class Fate : std::uint8_t {
        Confirmed,  ///< by the exchange
        Sent,       ///< to an exchange that confirms nothing
        GivenUp,    ///< after all repeats
    };
    using Told = std::function<void(const QueuedOrder& order, Fate fate)>;
    /// @param answers  must outlive the sender
    Sender(const LinkAnswers& answers, Transmit transmit, Told told);

    /// An acknowledgement or an answer that the exchange waits for.
    void SendNow(std::string_view bytes);
    /// An order, with what the model wants before and after it.
    void Queue(const QueuedOrder& order);

    /// The exchange confirmed, or refused, the last transmission; without one under way nothing happens.
    void Confirmed();
    void Refused();

    /// Sends what is due.
    void Tick(std::uint64_t now);

    /// The connection is gone: what was under way is sent again on the next one, from its beginning.
    void Disconnected();
    bool Idle() const { return queue_.empty(); }
    /// Whether some of the first has been sent.
    bool UnderWay() const { return part_ > 0 || attempts_ > 0; }
    /// What has not met its fate yet.
    std::vector<QueuedOrder> Unsent() const { return {queue_.begin(), queue_.end()}; }

 private:
    std::vector<std::string_view> Parts(const QueuedOrder& order) const;
    void PartDone();
    void Finish(Fate fate);

    const LinkAnswers& answers_;
    Transmit transmit_;
    Told told_;
    std::deque<QueuedOrder> queue_;
    std::size_t part_ = 0;  ///< of the front, which is next
    bool waiting_ = false;  ///< for the confirmation of that part
    unsigned attempts_ = 0;
    std::uint64_t last_ = 0;
};

}  // namespace vintrel::host
