// "name": changes the name on a room's telephone.
#include "host/checks.h"
#include "host/commands/order.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

constexpr Option kOptions[] = {
    kModelOption,
    kRoomOption,
    {"--name", "TEXT", "the new name"},
    kExchangeSettingsOption,
};

ExitCode Run(const Options& options) {
    Bstr name(FromUtf8(CheckedName(options.Require("--name"))));
    return Order(options).CarryOut(&_ComEventsTX::ComEventUserNameTX, name.InOut());
}

}  // namespace

const Command kNameCommand{
    "name",
    "changes the name on a room's telephone",
    "--model CODE --room NUMBER --name TEXT [--settings FOLDER]",
    kOrderHelp,
    kOptions,
    "",
    Run,
};

}  // namespace vintrel::host
