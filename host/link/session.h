// The protocol of a host on one link: it cuts, recognises, converts and acknowledges what comes, logs in, and sends its
// orders. It owns no connection and no clock, so a log replays through it as a live link does.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "host/calls/call_layout.h"
#include "host/link/event.h"
#include "host/link/interpreter.h"
#include "host/link/link_answers.h"
#include "host/link/link_counts.h"
#include "host/link/link_reader.h"
#include "host/link/sender.h"
#include "host/server.h"

namespace vintrel::host {

class Session {
 public:
    struct Outside {
        /// @param secret  it is a password
        std::function<void(std::string_view bytes, bool secret)> send;
        /// Told besides the events that the bytes themselves bring: by the clock, or by the server's memory of the
        /// calls before. A replay gets them from its log.
        std::function<void(const Moment&, const Event&)> note;
        /// Whether all that has been told is written where the user wants it. What is not is not acknowledged.
        std::function<bool()> keep;
        EventWriter* events;
        bool live;
    };
    struct Credentials {
        std::string user;
        std::string password;
    };

    Session(const Server& server, const Model& model, const CallLayout& layout, const Credentials& credentials,
            Outside outside);

    void Connected(const Moment& moment);
    void Received(const Moment& moment, std::string_view bytes);
    void Disconnected(const Moment& moment);
    /// To be called often: pacing, the login's patience, the link's sign of life.
    void Tick(const Moment& moment);
    /// What has come of a frame is given up. @return the bytes, "" for none
    std::string DropHalfFrame();
    /// The host ends the link: what it says before.
    void SayGoodbye();

    void Queue(const QueuedOrder& order) { sender_.Queue(order); }
    bool OrdersSent() const { return sender_.Idle(); }
    /// Orders that are not confirmed, or not sent at all.
    std::vector<Event> OrdersLeft() const;
    bool OrderFailed() const { return order_failed_; }
    const LinkAnswers& Answers() const { return answers_; }
    LinkCounts& Counts() { return counts_; }

 private:
    void TakePiece(const LinkReader::Piece& piece);
    void TakeLogin(const Login::Reply& reply);
    void TakeFrame(std::string_view bytes);
    bool Tell(const Reading& reading, std::string_view bytes);
    bool TellRecord(FrameKind kind);
    void Answer(const Reading& reading);
    void AnswerLinkRecord();
    void AnswerPosting();
    void CheckTransfer(std::u16string_view record);
    void Acknowledge(bool good);
    void TellFate(const QueuedOrder& order, Sender::Fate fate);
    void TellHalfFrame(std::string_view half);
    void Write(const Event& event) { outside_.events->Write(moment_, event); }
    std::string FiasType();
    std::string FiasField(std::u16string_view key);
    void SendFias(HRESULT (STDMETHODCALLTYPE _PMSEvents::*record)(BSTR*), const char* expects_answer = nullptr);
    void WatchSigns();
    void Heard();

    const Server& server_;
    LinkAnswers answers_;
    const CallLayout& layout_;
    Outside outside_;
    Interpreter interpreter_;
    LinkReader reader_;
    Sender sender_;
    Bstr type_;
    LinkCounts counts_;

    Moment moment_;
    bool connected_ = false;
    bool logged_in_ = false;
    bool login_told_ = false;  ///< that nobody answers it
    std::uint64_t connected_at_ = 0;
    std::uint64_t received_at_ = 0;
    std::uint64_t alive_at_ = 0;          ///< when the host last sent a sign of life
    const char* unanswered_ = nullptr;    ///< what the host has said that no answer has come to
    std::uint64_t unanswered_since_ = 0;  ///< and when
    bool unanswered_told_ = false;
    unsigned damaged_ = 0;  ///< records in a row that were asked for again
    std::string unkept_;    ///< the frame that was told, but not written: its repetition is not told again
    bool order_failed_ = false;
};

}  // namespace vintrel::host
