// A simulated exchange: it answers the login and the orders of a host and plays a scenario. It owns no connection and
// no clock.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "host/exchange/records.h"
#include "host/exchange/scenario.h"
#include "host/link/frames.h"
#include "host/link/link_answers.h"

namespace vintrel::host {

class Exchange {
 public:
    struct Outside {
        std::function<void(std::string_view)> send;
        std::function<void()> disconnect;
        std::function<void(std::string_view)> tell;  ///< what a person should know
        std::function<CivilTime()> time;
    };
    /// @param pause  milliseconds between two steps
    Exchange(std::string_view code, const LinkAnswers& answers, std::vector<Step> steps, std::uint64_t pause,
             Outside outside);

    void Connected(std::uint64_t now);
    void Received(std::string_view bytes);
    void Disconnected() { connected_ = false; }
    void Tick(std::uint64_t now);
    /// The scenario has been played to its end, and the last frame was acknowledged or has waited long enough.
    bool Finished() const { return next_ == steps_.size() && !unacknowledged_; }
    void Restart() { next_ = 0; }

    /// The bytes of a step; "" for one that sends none, or that the model has no words for.
    std::string BytesOf(const Step& step);

 private:
    enum class Login : std::uint8_t { Open, User, Password, Done };

    void TakeFrame(std::string_view frame);
    void TakeTyped();
    void Order(std::string_view bytes);
    void Play(const Step& step, std::uint64_t now);
    void SendFrame(const std::string& bytes, std::uint64_t now);
    bool Busy(std::uint64_t now);

    const LinkAnswers& answers_;
    ExchangeRecords records_;
    std::vector<Step> steps_;
    std::uint64_t pause_;
    Outside outside_;
    FrameCutter cutter_;

    bool connected_ = false;
    Login login_ = Login::Open;
    std::uint64_t connected_at_ = 0;
    std::uint64_t due_ = 0;  ///< when the next step may be played
    std::size_t next_ = 0;
    bool unacknowledged_ = false;
    bool awaiting_order_ = false;
    std::uint64_t sent_at_ = 0;
};

}  // namespace vintrel::host
