// What the server answers about the link to one model: everything that a host must know to run it. Bytes, as they stand
// on the line.
#pragma once

#include <cstdint>
#include <string>

#include "host/link/frames.h"

namespace vintrel::host {

struct LinkAnswers {
    Framing framing;
    bool fias = false;  ///< the link to a property-management system

    std::string acknowledge;     ///< sent back after a frame; "" where the model expects nothing
    std::string reject;          ///< sent back after a record that came damaged; "" likewise
    unsigned repeat_errors = 1;  ///< how often a damaged record is asked for again

    // Login by single strings.
    std::string login_request;     ///< the host asks for the login
    std::string login_confirmed;   ///< by which the exchange confirms it; also its confirmation of an order
    std::string exchange_request;  ///< the exchange asks for the login
    std::string confirm_exchange;  ///< the answer to that
    // Login by prompts.
    std::string user_prompt;
    std::string user_answer;
    std::string password_prompt;
    std::string password_answer;

    // Orders.
    std::string before_order;
    std::string after_order;
    bool wait_for_confirmation = false;
    std::uint64_t pause = 0;              ///< milliseconds between two transmissions
    std::uint64_t confirmation_time = 0;  ///< milliseconds that a confirmation may take

    bool raise_dtr_rts = false;
    std::uint64_t reconnect_pause = 0;  ///< milliseconds between two attempts
};

}  // namespace vintrel::host
