// One order for the exchange. What the exchange takes on its link is shown; what the server carries out itself is
// carried out, and answered with its verdict.
#pragma once

#include <string>
#include <string_view>

#include "host/commands/commands.h"
#include "host/commands/common_options.h"
#include "host/server.h"

namespace vintrel::host {

inline constexpr Option kRoomOption{"--room", "NUMBER", "the extension"};
inline constexpr Option kLanguageOption{"--language", "WORD", "de (default), it, en, fr or es"};
inline constexpr Option kExchangeSettingsOption{"--settings", "FOLDER",
                                                "folder of Quindara.cfg and Vintrel.ini: how to reach the exchange.\n"
                                                "Without it the settings are empty, and no exchange is reached"};

inline constexpr std::string_view kOrderHelp =
    "Writes the command for the link, with control characters by name, or the verdict of an exchange that the\n"
    "server drives itself: <OK> when the exchange has confirmed, else <ERROR>. A verdict can take 20 seconds.\n"
    "Ends with 1 for <ERROR>, and for an order that the model does not have.";

/// The server's number of the language. @throws Failure (Usage)
short Language(const Options& options);

/// What every order works with, and what its answer becomes.
class Order {
 public:
    explicit Order(const Options& options);
    ~Order();
    Order(const Order&) = delete;
    Order& operator=(const Order&) = delete;

    /// Calls the operation with the model, the room and what else it takes.
    template <typename Operation, typename... Arguments>
    ExitCode CarryOut(Operation operation, Arguments... arguments) {
        return Tell(server_.Text(server_.tx, operation, type_.InOut(), &room_, arguments...));
    }

 private:
    ExitCode Tell(const std::u16string& answer) const;

    Server server_;
    Model model_;
    long room_;
    Bstr type_;
};

}  // namespace vintrel::host
