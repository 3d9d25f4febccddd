#include "host/commands/wire_options.h"

#include <algorithm>

#include "host/failure.h"

namespace vintrel::host {
namespace {

/// Options that mean nothing without another one.
struct Companion {
    std::string_view option;
    std::string_view way;
};
constexpr Companion kCompanions[] = {
    {"--any", "--listen"},
    {"--from", "--listen"},
    {"--line", "--serial"},
    {"--handshake", "--serial"},
};

}  // namespace

void RequireOneWay(const Options& options, std::initializer_list<std::string_view> ways) {
    const auto given = std::count_if(ways.begin(), ways.end(), [&](std::string_view way) { return options.Has(way); });
    if (given != 1) {
        std::string list;
        for (const std::string_view way : ways)
            list.append(list.empty() ? "" : way == *(ways.end() - 1) ? " and " : ", ").append(way);
        throw Failure(ExitCode::Usage, "give one of " + list);
    }
    for (const Companion& companion : kCompanions)
        if (options.Has(companion.option) && !options.Has(companion.way))
            throw Failure(ExitCode::Usage, std::string(companion.option) + " belongs to " + std::string(companion.way));
}

std::string LinkName(const Options& options) {
    if (options.Has("--connect")) return options.Get("--connect");
    if (options.Has("--listen")) return "port-" + options.Get("--listen");
    return options.Get("--serial");
}

std::unique_ptr<Wire> OpenWire(const Options& options, bool raise_dtr_rts, std::uint64_t pause) {
    constexpr unsigned kHighestPort = 65'535;
    if (options.Has("--connect")) return ConnectTcp(ParseAddress(options.Get("--connect")), pause);
    if (options.Has("--listen"))
        return ListenTcp({.port = options.Number("--listen", 0, 1, kHighestPort),
                          .any = options.Has("--any"),
                          .from = options.Get("--from")});
    return OpenSerial({.port = options.Get("--serial"),
                       .line = ParseLine(options.Get("--line", "9600,8,N,1")),
                       .handshake = ParseHandshake(options.Get("--handshake", "none")),
                       .raise_dtr_rts = raise_dtr_rts},
                      pause);
}

}  // namespace vintrel::host
