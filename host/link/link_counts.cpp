#include "host/link/link_counts.h"

#include <algorithm>

namespace vintrel::host {

std::uint64_t LooseBytes(std::string_view bytes) {
    return static_cast<std::uint64_t>(
        std::count_if(bytes.begin(), bytes.end(), [](char c) { return c != '\r' && c != '\n'; }));
}

std::string LooseText(std::uint64_t bytes) {
    if (bytes == 0) return {};
    return std::to_string(bytes) + (bytes == 1 ? " byte" : " bytes") + " outside frames";
}

std::string LinkCounts::Text() const {
    std::string text;
    const auto say = [&](std::string_view separator, std::uint64_t number, std::string_view what) {
        text.append(separator).append(std::to_string(number)).append(" ").append(what);
    };
    say("", bytes_in, "bytes in");
    say(", ", bytes_out, "out");
    say("; ", frames, "frames");
    say(": ", calls, "calls");
    say(", ", events, "events");
    say(", ", rejected, "rejected");
    say(", ", malformed, "malformed");
    say(", ", other, "unknown");
    say("; ", incomplete, "incomplete");
    if (loose > 0) text += ", " + LooseText(loose);
    return text;
}

}  // namespace vintrel::host
