#include "host/link/password_mask.h"

#include "host/text.h"

namespace vintrel::host {

std::string PasswordMask::Sent(std::string_view answer) {
    const std::size_t end = answer.find_last_not_of("\r\n");
    const std::size_t length = end == std::string_view::npos ? 0 : end + 1;
    awaited_ = answer.substr(0, length);
    matched_ = 0;
    return std::string(kPasswordShown) + Readable(answer.substr(length));
}

std::string PasswordMask::Received(std::string_view bytes) {
    std::string shown;
    while (!awaited_.empty() && !bytes.empty()) {
        if (bytes.front() == awaited_[matched_]) {
            bytes.remove_prefix(1);
            if (++matched_ < awaited_.size()) continue;
            shown += kPasswordShown;
        } else {
            shown += Readable(awaited_.substr(0, matched_));  // it was something else
        }
        awaited_.clear();
    }
    return shown + Readable(bytes);
}

}  // namespace vintrel::host
