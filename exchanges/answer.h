// The answer of a peer as it comes in.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/network.h"

namespace vintrel::exchanges {

/// It never grows beyond its limit.
class Answer {
 public:
    static constexpr std::size_t kLimit = std::size_t{1} << 20;

    /// Takes what has arrived. False when no more will come: the peer has ended, or the limit is exceeded.
    bool Collect(platform::Transfer& transfer);
    /// Whether the text stands in what the last Collect has taken; it may have begun before.
    bool Brought(std::string_view text) const;
    /// Whether the peer has ended its answer in order, within the limit.
    bool Whole() const { return whole_; }
    const std::string& Text() const { return text_; }

 private:
    std::string text_;
    std::size_t known_ = 0;
    bool whole_ = false;
};

}  // namespace vintrel::exchanges
