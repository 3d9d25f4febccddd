#include "host/link/line_settings.h"

#include <optional>
#include <vector>

#include "host/failure.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

std::vector<std::string_view> Parts(std::string_view text) {
    std::vector<std::string_view> parts;
    for (std::size_t comma = text.find(','); comma != std::string_view::npos; comma = text.find(',')) {
        parts.push_back(text.substr(0, comma));
        text.remove_prefix(comma + 1);
    }
    parts.push_back(text);
    return parts;
}

}  // namespace

Handshake ParseHandshake(std::string_view word) {
    if (word == "none") return Handshake::None;
    if (word == "hardware") return Handshake::Hardware;
    if (word == "software") return Handshake::Software;
    throw Failure(ExitCode::Usage, "--handshake is none, hardware or software, not \"" + std::string(word) + "\"");
}

LineSettings ParseLine(std::string_view text) {
    LineSettings line;
    const std::vector<std::string_view> parts = Parts(text);
    const auto refuse = [&](std::string_view what) {
        throw Failure(ExitCode::Usage, "--line takes BAUD,BITS,PARITY,STOP such as 9600,8,N,1, not \"" +
                                           std::string(text) + "\": " + std::string(what));
    };
    const auto one_of = [](std::string_view part, std::initializer_list<std::string_view> known) {
        for (const std::string_view word : known)
            if (part == word) return true;
        return false;
    };
    if (parts.size() > 4) refuse("there is more");
    const std::optional<unsigned> baud = ParseNumber(parts[0]);
    if (!baud || *baud < 50 || *baud > 4'000'000) refuse("the speed is a number from 50");
    line.baud = *baud;
    if (parts.size() > 1) {
        if (!one_of(parts[1], {"5", "6", "7", "8"})) refuse("data bits are 5 to 8");
        line.bits = *ParseNumber(parts[1]);
    }
    if (parts.size() > 2) {
        const std::string parity = Upper(parts[2]);
        if (!one_of(parity, {"N", "E", "O", "M", "S"})) refuse("parity is N, E, O, M or S");
        line.parity = parity[0];
    }
    if (parts.size() > 3) {
        if (!one_of(parts[3], {"1", "1.5", "2"})) refuse("stop bits are 1, 1.5 or 2");
        line.stop = parts[3];
    }
    return line;
}

}  // namespace vintrel::host
