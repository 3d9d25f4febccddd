#include "host/link/address.h"

#include <optional>

#include "host/failure.h"
#include "host/text.h"

namespace vintrel::host {

NetworkAddress ParseAddress(std::string_view text) {
    constexpr unsigned kHighestPort = 65'535;
    const auto refuse = [&](std::string_view why) {
        throw Failure(ExitCode::Usage, "\"" + std::string(text) + "\" is no HOST:PORT: " + std::string(why));
    };
    const std::size_t colon = text.rfind(':');
    const bool has_port = colon != std::string_view::npos && text.find(']', colon) == std::string_view::npos;
    if (!has_port) refuse("the port is missing");
    std::string_view host = text.substr(0, colon);
    if (host.starts_with('[') && host.ends_with(']'))
        host = host.substr(1, host.size() - 2);
    else if (host.find(':') != std::string_view::npos)
        refuse("an address with colons stands in brackets, such as [::1]:5010");
    if (host.empty()) refuse("the host is missing");
    const std::optional<unsigned> port = ParseNumber(text.substr(colon + 1));
    if (!port || *port == 0 || *port > kHighestPort) refuse("a port is a number from 1 to 65535");
    return {std::string(host), *port};
}

}  // namespace vintrel::host
