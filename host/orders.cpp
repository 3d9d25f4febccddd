// "wakeup", "checkin", "checkout" and "name": one order for the exchange. What the exchange takes on its link is shown;
// what the server carries out itself is carried out, and answered with its verdict.
#include <windows.h>

#include <array>
#include <string>
#include <string_view>

#include "host/commands.h"
#include "host/console.h"
#include "host/output.h"
#include "host/server.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

constexpr Option kModel{"--model", "CODE", "the exchange, such as TYPE10012"};
constexpr Option kRoom{"--room", "NUMBER", "the extension"};
constexpr Option kSettings{"--settings", "FOLDER",
                           "folder of Quindara.cfg and Vintrel.ini: how to reach the exchange.\n"
                           "Without it the settings are empty, and no exchange is reached"};
constexpr Option kLanguage{"--language", "WORD", "de (default), it, en, fr or es"};

constexpr Option kWakeUpOptions[] = {
    kModel,
    kRoom,
    {"--time", "HHMM", "when, such as 0730"},
    {"--date", "DDMM", "the day, such as 2412; default today; ---- is none, where the exchange can do without"},
    {"--repeat", "", "every day from then on"},
    {"--cancel", "", "takes the call back"},
    kLanguage,
    kSettings,
};
constexpr Option kCheckInOptions[] = {
    kModel,    kRoom,     {"--name", "TEXT", "the guest's name; without it the name on the telephone stays"},
    kLanguage, kSettings,
};
constexpr Option kCheckOutOptions[] = {
    kModel, kRoom, {"--clear-name", "", "takes the name off the telephone too"}, kSettings};
constexpr Option kNameOptions[] = {kModel, kRoom, {"--name", "TEXT", "the new name"}, kSettings};

constexpr std::string_view kHelp =
    "Writes the command for the link, with control characters by name, or the verdict of an exchange that the\n"
    "server drives itself: <OK> when the exchange has confirmed, else <ERROR>. A verdict can take 20 seconds.\n"
    "Ends with 1 for <ERROR>, and for an order that the model does not have.";

short Language(const Options& options) {
    constexpr std::array<std::string_view, 5> kWords{"de", "it", "en", "fr", "es"};
    const std::string word = options.Get("--language", "de");
    for (std::size_t i = 0; i < kWords.size(); ++i)
        if (word == kWords[i]) return static_cast<short>(i);
    throw Failure(ExitCode::Usage, "--language: \"" + word + "\" is none of de, it, en, fr, es");
}

std::string Today() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    const auto two_digits = [](WORD number) { return std::to_string(100 + number).substr(1); };
    return two_digits(now.wDay) + two_digits(now.wMonth);
}

/// What every order works with, and what its answer becomes.
class Order {
 public:
    explicit Order(const Options& options)
        : model_(server_, options.Require("--model")), room_(Room(options)), type_(model_.Code()) {
        Initialize(server_, model_, options.Get("--settings"));
    }
    // A failure here has nobody left to tell; the verdict is out already.
    ~Order() {
        short nothing = 0;
        server_.setup->UnInitializeServer(type_.InOut(), &nothing);
    }
    Order(const Order&) = delete;
    Order& operator=(const Order&) = delete;

    /// Calls the operation with the model, the room and what else it takes.
    template <typename Operation, typename... Arguments>
    ExitCode CarryOut(Operation operation, Arguments... arguments) {
        const std::u16string answer = server_.Text(server_.tx, operation, type_.InOut(), &room_, arguments...);
        if (answer.empty()) throw Failure(ExitCode::Failed, ToUtf8(model_.Name()) + " has no such order");
        // In a command a "<" of the data is shown as <LT>; a verdict stands as it is.
        WriteOut((IsVerdict(answer) ? ToUtf8(answer) : Readable(ToBytes(answer))) + "\n");
        return answer == u"<ERROR>" ? ExitCode::Failed : ExitCode::Ok;
    }

 private:
    static long Room(const Options& options) {
        options.Require("--room");
        constexpr unsigned kLargest = 2147483647;
        return static_cast<long>(options.Number("--room", 0, 0, kLargest));
    }
    static bool IsVerdict(std::u16string_view answer) { return answer == u"<OK>" || answer == u"<ERROR>"; }

    Server server_;
    Model model_;
    long room_;
    Bstr type_;
};

ExitCode RunWakeUp(const Options& options) {
    if (options.Has("--repeat") && options.Has("--cancel"))
        throw Failure(ExitCode::Usage, "--repeat and --cancel exclude each other");
    Bstr time(FromUtf8(options.Require("--time")));
    Bstr date(FromUtf8(options.Get("--date", Today())));
    short language = Language(options);
    short mode = options.Has("--cancel") ? 1 : 0;
    if (options.Has("--repeat")) mode = 2;
    return Order(options).CarryOut(&_ComEventsTX::ComEventClockTX, time.InOut(), date.InOut(), &mode, &language);
}

ExitCode RunCheckIn(const Options& options) {
    Bstr name(FromUtf8(options.Get("--name")));
    short language = Language(options);
    short change_name = options.Has("--name") ? 1 : 0;
    return Order(options).CarryOut(&_ComEventsTX::ComEventCheckInTX, name.InOut(), &language, &change_name);
}

ExitCode RunCheckOut(const Options& options) {
    short change_name = options.Has("--clear-name") ? 1 : 0;
    return Order(options).CarryOut(&_ComEventsTX::ComEventCheckOutTX, &change_name);
}

ExitCode RunName(const Options& options) {
    Bstr name(FromUtf8(options.Require("--name")));
    return Order(options).CarryOut(&_ComEventsTX::ComEventUserNameTX, name.InOut());
}

}  // namespace

const Command kWakeUpCommand{
    "wakeup",
    "sets, repeats or cancels a wake-up call",
    "--model CODE --room NUMBER --time HHMM [--date DDMM] [--repeat | --cancel] [--language WORD] [--settings FOLDER]",
    kHelp,
    kWakeUpOptions,
    RunWakeUp,
};

const Command kCheckInCommand{
    "checkin",
    "opens a room's telephone for a guest",
    "--model CODE --room NUMBER [--name TEXT] [--language WORD] [--settings FOLDER]",
    kHelp,
    kCheckInOptions,
    RunCheckIn,
};

const Command kCheckOutCommand{
    "checkout", "bars a room's telephone", "--model CODE --room NUMBER [--clear-name] [--settings FOLDER]",
    kHelp,      kCheckOutOptions,          RunCheckOut,
};

const Command kNameCommand{
    "name",
    "changes the name on a room's telephone",
    "--model CODE --room NUMBER --name TEXT [--settings FOLDER]",
    kHelp,
    kNameOptions,
    RunName,
};

}  // namespace vintrel::host
