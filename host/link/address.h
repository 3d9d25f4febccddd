// The other side of a network link, as people give it.
#pragma once

#include <string>
#include <string_view>

namespace vintrel::host {

struct NetworkAddress {
    std::string host;  ///< a name, or an address without its brackets
    unsigned port = 0;
};

/// "HOST:PORT", "192.0.2.7:5010" or "[::1]:5010". @throws Failure (Usage) with what is wrong with it
NetworkAddress ParseAddress(std::string_view text);

}  // namespace vintrel::host
