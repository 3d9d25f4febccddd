// "wakeup": sets, repeats or cancels a wake-up call.
#include "host/checks.h"
#include "host/clock.h"
#include "host/commands/order.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

constexpr Option kOptions[] = {
    kModelOption,
    kRoomOption,
    {"--time", "HHMM", "when, such as 0730"},
    {"--date", "DDMM",
     "the day, such as 2412; without it the next day on which the clock shows\n"
     "the time; ---- is none, where the exchange can do without"},
    {"--repeat", "", "every day from then on"},
    {"--cancel", "", "takes the call back"},
    kLanguageOption,
    kExchangeSettingsOption,
};

ExitCode Run(const Options& options) {
    if (options.Has("--repeat") && options.Has("--cancel"))
        throw Failure(ExitCode::Usage, "--repeat and --cancel exclude each other");
    const CivilTime now = LocalTime();
    const std::string hhmm = CheckedTime(options.Require("--time"));
    Bstr time(FromUtf8(hhmm));
    Bstr date(FromUtf8(options.Has("--date") ? CheckedDate(options.Get("--date"), now) : NextDayAt(hhmm, now)));
    short language = Language(options);
    short mode = options.Has("--cancel") ? 1 : 0;
    if (options.Has("--repeat")) mode = 2;
    return Order(options).CarryOut(&_ComEventsTX::ComEventClockTX, time.InOut(), date.InOut(), &mode, &language);
}

}  // namespace

const Command kWakeUpCommand{
    "wakeup",
    "sets, repeats or cancels a wake-up call",
    "--model CODE --room NUMBER --time HHMM [--date DDMM] [--repeat | --cancel] [--language WORD] [--settings FOLDER]",
    kOrderHelp,
    kOptions,
    "",
    Run,
};

}  // namespace vintrel::host
