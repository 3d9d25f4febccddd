// A password in what people see of a link: the log and the view, which go to support.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vintrel::host {

inline constexpr std::string_view kPasswordShown = "<password>";

class PasswordMask {
 public:
    /// The host answers a password prompt. @return the answer for people
    std::string Sent(std::string_view answer);
    /// What comes, for people: exchanges that do not type stars echo the password, all at once or letter by letter.
    std::string Received(std::string_view bytes);

 private:
    std::string awaited_;      ///< the password, while its echo may come
    std::size_t matched_ = 0;  ///< of it, what has come and is held back
};

}  // namespace vintrel::host
