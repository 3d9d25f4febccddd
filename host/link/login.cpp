#include "host/link/login.h"

#include <utility>

#include "host/link/password_mask.h"

namespace vintrel::host {
namespace {

constexpr char kTelnetCommand = '\xFF';
constexpr std::size_t kTelnetLength = 3;

/// A prompt ends what has come so far; one of a single character must be all of it.
bool Asks(std::string_view bytes, std::string_view prompt) {
    if (prompt.empty()) return false;
    return prompt.size() == 1 ? bytes == prompt : bytes.ends_with(prompt);
}

}  // namespace

Login::Login(const LinkAnswers& answers, std::string user, std::string password)
    : answers_(answers), user_(std::move(user)), password_(std::move(password)) {}

std::string Login::Begin() {
    confirmed_ = false;
    dialogue_ = false;
    echoes_ = 0;
    return answers_.login_request;
}

std::optional<Login::Reply> Login::HearNegotiation(std::string_view bytes) const {
    const std::string& request = answers_.exchange_request;
    if (!request.empty() && bytes.starts_with(request))
        return Reply{.taken = request.size(), .answer = answers_.confirm_exchange};
    // Other options of the same negotiation are left unanswered, which refuses them.
    if (!request.empty() && request[0] == kTelnetCommand && bytes.starts_with(kTelnetCommand) &&
        bytes.size() >= kTelnetLength)
        return Reply{.taken = kTelnetLength};
    return std::nullopt;
}

std::optional<Login::Reply> Login::Hear(std::string_view bytes) {
    if (const std::optional<Reply> reply = HearNegotiation(bytes)) return reply;
    if (!confirmed_ && !answers_.login_confirmed.empty() && bytes.starts_with(answers_.login_confirmed)) {
        confirmed_ = true;
        return Reply{.taken = answers_.login_confirmed.size(), .finished = true};
    }
    return HearPrompt(bytes);
}

std::optional<Login::Reply> Login::HearPrompt(std::string_view bytes) {
    const auto typed = [](const std::string& own, const std::string& server) {
        return own.empty() ? server : own + "\r";
    };
    if (Asks(bytes, answers_.password_prompt)) {
        dialogue_ = true;
        echoes_ = 0;
        return Reply{.taken = bytes.size(),
                     .answer = typed(password_, answers_.password_answer),
                     .finished = true,
                     .secret = true};
    }
    if (Asks(bytes, answers_.user_prompt)) {
        dialogue_ = true;
        echoes_ = 1;
        return Reply{.taken = bytes.size(), .answer = typed(user_, answers_.user_answer)};
    }
    return std::nullopt;
}

std::optional<Login::Reply> Login::HearInLine(std::string_view line) {
    if (const std::optional<Reply> reply = HearNegotiation(line)) return reply;
    for (const std::string* prompt : {&answers_.user_prompt, &answers_.password_prompt}) {
        if (prompt->size() < 2 || !line.starts_with(*prompt)) continue;
        std::optional<Reply> reply = HearPrompt(*prompt);
        reply->taken = line.size();
        return reply;
    }
    return std::nullopt;
}

bool Login::IsEcho(std::string_view frame) {
    if (!dialogue_) return false;
    while (!frame.empty() && (frame.back() == '\r' || frame.back() == '\n')) frame.remove_suffix(1);
    if (frame.find_first_not_of('*') == std::string_view::npos || frame == kPasswordShown) return true;
    if (!password_.empty() && frame == password_) return true;
    return std::exchange(echoes_, 0) > 0;
}

}  // namespace vintrel::host
