#include "host/link/sender.h"

#include <utility>

namespace vintrel::host {

Sender::Sender(const LinkAnswers& answers, Transmit transmit, Told told)
    : answers_(answers), transmit_(std::move(transmit)), told_(std::move(told)) {}

void Sender::SendNow(std::string_view bytes) {
    if (!bytes.empty()) transmit_(bytes);
}

void Sender::Queue(const QueuedOrder& order) { queue_.push_back(order); }

std::vector<std::string_view> Sender::Parts(const QueuedOrder& order) const {
    std::vector<std::string_view> parts;
    for (const std::string* part : {&answers_.before_order, &order.bytes, &answers_.after_order})
        if (!part->empty()) parts.emplace_back(*part);
    return parts;
}

void Sender::Finish(Fate fate) {
    const QueuedOrder order = std::move(queue_.front());
    queue_.pop_front();
    part_ = 0;
    attempts_ = 0;
    told_(order, fate);
}

void Sender::PartDone() {
    attempts_ = 0;
    if (++part_ == Parts(queue_.front()).size()) Finish(answers_.wait_for_confirmation ? Fate::Confirmed : Fate::Sent);
}

void Sender::Confirmed() {
    if (std::exchange(waiting_, false)) PartDone();
}

void Sender::Refused() { waiting_ = false; }

void Sender::Disconnected() {
    waiting_ = false;
    part_ = 0;
    attempts_ = 0;
}

void Sender::Tick(std::uint64_t now) {
    if (waiting_ && now - last_ >= answers_.confirmation_time) waiting_ = false;
    if (waiting_ || queue_.empty() || (last_ != 0 && now - last_ < answers_.pause)) return;
    // The first transmission counts as an attempt: a model that repeats once is asked twice.
    if (attempts_ > answers_.repeat_errors) return Finish(Fate::GivenUp);
    ++attempts_;
    last_ = now;
    transmit_(Parts(queue_.front())[part_]);
    waiting_ = answers_.wait_for_confirmation;
    if (!waiting_) PartDone();
}

}  // namespace vintrel::host
