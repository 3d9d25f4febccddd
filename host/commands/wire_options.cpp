#include "host/commands/wire_options.h"

#include <algorithm>
#include <string>

#include "host/failure.h"

namespace vintrel::host {

void RequireOneOf(const Options& options, std::initializer_list<std::string_view> ways) {
    const auto given = std::count_if(ways.begin(), ways.end(), [&](std::string_view way) { return options.Has(way); });
    if (given == 1) return;
    std::string list;
    for (const std::string_view way : ways)
        list.append(list.empty() ? "" : way == *(ways.end() - 1) ? " and " : ", ").append(way);
    throw Failure(ExitCode::Usage, "give one of " + list);
}

std::unique_ptr<Wire> OpenWire(const Options& options, bool raise_dtr_rts, std::uint64_t pause) {
    constexpr unsigned kHighestPort = 65'535;
    if (options.Has("--connect")) return ConnectTcp(options.Get("--connect"), pause);
    if (options.Has("--listen")) return ListenTcp(options.Number("--listen", 0, 1, kHighestPort), options.Has("--any"));
    return OpenSerial({options.Get("--serial"), options.Get("--line"), raise_dtr_rts}, pause);
}

}  // namespace vintrel::host
