// What the server answers about two links: a serial one with framing characters, and one of lines with prompts.
#pragma once

#include "host/link/link_answers.h"

namespace vintrel::host {

inline LinkAnswers Integral() {
    LinkAnswers answers;
    answers.framing = {.start = "\2", .end = "\3", .end2 = "", .limit = 1024};
    answers.acknowledge = "\6";
    answers.reject = "\x15";
    answers.repeat_errors = 2;
    answers.login_request = "\2\3";
    answers.login_confirmed = "\6";
    answers.exchange_request = "\5";
    answers.confirm_exchange = "\x15";
    answers.wait_for_confirmation = true;
    answers.pause = 50;
    answers.confirmation_time = 1000;
    return answers;
}

inline LinkAnswers MitelHotel() {
    LinkAnswers answers;
    answers.framing = {.start = "", .end = "\r\n", .end2 = "", .limit = 1024};
    answers.acknowledge = "\r\n";
    answers.exchange_request = "\xFF\xFB\x03";
    answers.confirm_exchange = "\xFF\xFD\x01";
    answers.user_prompt = "Username: ";
    answers.password_prompt = "Password: ";
    answers.password_answer = "I";
    return answers;
}

}  // namespace vintrel::host
