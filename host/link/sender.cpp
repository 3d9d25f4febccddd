#include "host/link/sender.h"

#include <utility>

namespace vintrel::host {

Sender::Sender(const LinkAnswers& answers, Transmit transmit) : answers_(answers), transmit_(std::move(transmit)) {}

void Sender::SendNow(std::string_view bytes) {
    if (!bytes.empty()) transmit_(bytes);
}

void Sender::Queue(std::string_view order) {
    for (const std::string_view part :
         {std::string_view(answers_.before_order), order, std::string_view(answers_.after_order)})
        if (!part.empty()) queue_.emplace_back(part);
}

void Sender::Confirmed() {
    if (!std::exchange(waiting_, false)) return;
    queue_.pop_front();
    attempts_ = 0;
}

void Sender::Refused() { waiting_ = false; }

std::string Sender::Tick(std::uint64_t now) {
    now_ = now;
    if (waiting_ && now - last_ >= answers_.confirmation_time) waiting_ = false;
    if (waiting_ || queue_.empty() || (last_ != 0 && now - last_ < answers_.pause)) return {};
    // The first transmission counts as an attempt: a model that repeats once is asked twice.
    if (attempts_ > answers_.repeat_errors) {
        attempts_ = 0;
        std::string lost = std::move(queue_.front());
        queue_.pop_front();
        return lost;
    }
    ++attempts_;
    last_ = now;
    transmit_(queue_.front());
    waiting_ = answers_.wait_for_confirmation;
    if (!waiting_) {
        queue_.pop_front();
        attempts_ = 0;
    }
    return {};
}

}  // namespace vintrel::host
