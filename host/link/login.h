// The login dialogue on a link, as the server's answers describe it.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "host/link/link_answers.h"

namespace vintrel::host {

class Login {
 public:
    /// @param user, password  the operator's; "" leaves the answers to the server's
    Login(const LinkAnswers& answers, std::string user, std::string password);

    /// A connection begins. @return what the host sends first, "" for nothing
    std::string Begin();

    struct Reply {
        std::size_t taken = 0;    ///< bytes of the exchange that belong to the dialogue
        std::string answer = {};  ///< "" for none
        bool finished = false;    ///< with this the link is logged in
        bool secret = false;      ///< the answer is a password: it is shown to nobody
    };
    /// Bytes between frames, or of a frame that has not ended. Nothing when they are no part of the dialogue.
    std::optional<Reply> Hear(std::string_view bytes);
    /// The same for the front of a line, on links without framing characters: the dialogue ends no line of its own, so
    /// a negotiation, or a prompt with what was typed, stands before the first record where all came at once.
    std::optional<Reply> HearInLine(std::string_view line);

    /// Whether a line is the echo of the dialogue: what was typed as the name, or the password, its stars, or what
    /// stands for it in a log.
    bool IsEcho(std::string_view frame);

 private:
    std::optional<Reply> HearNegotiation(std::string_view bytes) const;
    std::optional<Reply> HearPrompt(std::string_view bytes);

    const LinkAnswers& answers_;
    std::string user_;
    std::string password_;
    bool confirmed_ = false;  ///< by the exchange's single-string confirmation
    bool dialogue_ = false;   ///< a prompt has been answered on this connection
    unsigned echoes_ = 0;     ///< lines that may still be the echo of the name
};

}  // namespace vintrel::host
