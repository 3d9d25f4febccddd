// What comes on a link, told apart: frames, the login dialogue, answers to what the host has sent, and the rest.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/link/frames.h"
#include "host/link/link_answers.h"
#include "host/link/login.h"

namespace vintrel::host {

class LinkReader {
 public:
    enum class Kind {
        Frame,      ///< with its framing characters
        Empty,      ///< one that is nothing but its end
        Login,      ///< of the login dialogue; Reply says what the host answers
        Confirmed,  ///< the exchange's confirmation of an order
        Refused,    ///< and its refusal
        Loose,      ///< belongs to no frame: check characters, noise
        Broken,     ///< the beginning of a frame that the peer never ended
        Overlong,   ///< a frame that was given up at the limit
    };
    struct Piece {
        Kind kind;
        std::string_view bytes;  ///< valid until the next Push
    };

    /// @param answers  must outlive the reader
    LinkReader(const LinkAnswers& answers, const std::string& user, const std::string& password);

    /// A connection begins. @return what the host sends first, "" for nothing
    std::string Begin();
    void Push(std::string_view bytes) { cutter_.Push(bytes); }
    /// The next piece, in the order of the bytes; nothing when what is left may still become one.
    std::optional<Piece> Next();

    /// To the last piece of the login; its answer is "" for nothing.
    const Login::Reply& Reply() const { return reply_; }

    /// Whether a frame has begun that has not ended.
    bool Waiting() const { return !cutter_.Rest().empty() || !rest_.empty(); }
    /// Gives up what has come of a frame. @return its bytes, "" for none worth telling
    std::string DropHalfFrame();

 private:
    std::optional<Piece> NextInFrame();
    std::optional<Piece> NextLoose();
    Piece TakeLogin(Login::Reply reply);
    bool MeansSomething(std::string_view bytes) const;

    const LinkAnswers& answers_;
    Login login_;
    FrameCutter cutter_;
    std::string_view rest_;  ///< of a frame, or of bytes between frames, that is being taken apart
    bool rest_is_frame_ = false;
    Login::Reply reply_;
};

}  // namespace vintrel::host
