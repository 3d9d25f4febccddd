// "checkin": opens a room's telephone for a guest.
#include "host/checks.h"
#include "host/commands/order.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

constexpr Option kOptions[] = {
    kModelOption,
    kRoomOption,
    {"--name", "TEXT", "the guest's name; without it the name on the telephone stays"},
    kLanguageOption,
    kExchangeSettingsOption,
};

ExitCode Run(const Options& options) {
    Bstr name(FromUtf8(CheckedName(options.Get("--name"))));
    short language = Language(options);
    short change_name = options.Has("--name") ? 1 : 0;
    return Order(options).CarryOut(&_ComEventsTX::ComEventCheckInTX, name.InOut(), &language, &change_name);
}

}  // namespace

const Command kCheckInCommand{
    "checkin",
    "opens a room's telephone for a guest",
    "--model CODE --room NUMBER [--name TEXT] [--language WORD] [--settings FOLDER]",
    kOrderHelp,
    kOptions,
    "",
    Run,
};

}  // namespace vintrel::host
