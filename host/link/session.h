// The protocol of a host on one link: it cuts, acknowledges, recognises and converts what comes, logs in, and sends its
// orders. It owns no connection and no clock, so a log replays through it as a live link does.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "host/call_record.h"
#include "host/link/event.h"
#include "host/link/frames.h"
#include "host/link/link_answers.h"
#include "host/link/login.h"
#include "host/link/recognition.h"
#include "host/link/sender.h"
#include "host/server.h"

namespace vintrel::host {

class Session {
 public:
    struct Outside {
        std::function<void(std::string_view)> send;
        /// Told besides the events that the bytes themselves bring: by the clock, or by the server's memory of the
        /// calls before. A replay gets them from its log.
        std::function<void(const Moment&, const Event&)> note;
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

    void Queue(std::string_view order) { sender_.Queue(order); }
    bool OrdersSent() const { return sender_.Idle(); }
    const LinkAnswers& Answers() const { return answers_; }

 private:
    void TakePiece(const FrameCutter::Piece& piece);
    void TakeFrame(std::string_view bytes);
    void TakeLoose(std::string_view bytes);
    void TakeCall(std::string_view bytes);
    void TakeOther(FrameKind kind, std::string_view bytes);
    bool TakeFiasRecord();
    void AnswerPosting();
    void CheckTransfer(std::u16string_view record);
    void Acknowledge(bool good);
    void Tell(const Event& event) { outside_.events->Write(moment_, event); }
    std::u16string Converted(HRESULT (STDMETHODCALLTYPE _ComEventsRX::*conversion)(BSTR*, BSTR*, BSTR*));
    std::string FiasField(std::u16string_view key);
    void SendFias(HRESULT (STDMETHODCALLTYPE _PMSEvents::*record)(BSTR*));

    const Server& server_;
    LinkAnswers answers_;
    const CallLayout& layout_;
    Outside outside_;
    Recognition recognition_;
    FrameCutter cutter_;
    Login login_;
    Sender sender_;
    std::u16string dle_;
    Bstr type_;
    Bstr frame_;

    Moment moment_;
    bool connected_ = false;
    bool logged_in_ = false;
    std::uint64_t connected_at_ = 0;
    std::uint64_t received_at_ = 0;
    std::uint64_t alive_at_ = 0;  ///< when the host last sent a sign of life
    unsigned damaged_ = 0;        ///< records in a row that were asked for again
};

}  // namespace vintrel::host
