// "checkout": bars a room's telephone.
#include "host/commands/order.h"

namespace vintrel::host {
namespace {

constexpr Option kOptions[] = {
    kModelOption,
    kRoomOption,
    {"--clear-name", "", "takes the name off the telephone too"},
    kExchangeSettingsOption,
};

ExitCode Run(const Options& options) {
    short change_name = options.Has("--clear-name") ? 1 : 0;
    return Order(options).CarryOut(&_ComEventsTX::ComEventCheckOutTX, &change_name);
}

}  // namespace

const Command kCheckOutCommand{
    "checkout",
    "bars a room's telephone",
    "--model CODE --room NUMBER [--clear-name] [--settings FOLDER]",
    kOrderHelp,
    kOptions,
    "",
    Run,
};

}  // namespace vintrel::host
