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
        std::size_t taken;   ///< bytes of the exchange that belong to the dialogue
        std::string answer;  ///< "" for none
        bool finished;       ///< with this the link is logged in
    };
    /// Bytes between frames, or of a frame that has not ended. Nothing when they are no part of the dialogue.
    std::optional<Reply> Hear(std::string_view bytes);

    /// Whether a line is the echo of the dialogue: what was typed as the name, or the stars of the password.
    bool IsEcho(std::string_view frame);

 private:
    std::optional<Reply> HearPrompt(std::string_view bytes);

    const LinkAnswers& answers_;
    std::string user_;
    std::string password_;
    bool confirmed_ = false;  ///< by the exchange's single-string confirmation
    bool dialogue_ = false;   ///< a prompt has been answered on this connection
    unsigned echoes_ = 0;     ///< lines that may still be the echo of the name
};

}  // namespace vintrel::host
