// vintrel-host: tries, diagnoses and demonstrates the server the way a hotel's host application uses it.
#include <windows.h>

#include <algorithm>
#include <exception>
#include <string>
#include <vector>

#include "host/commands/commands.h"
#include "host/console.h"
#include "host/failure.h"
#include "host/options.h"
#include "host/server.h"
#include "host/text.h"
#include "version.h"

namespace vintrel::host {
namespace {

/// Adding a command is a line here and one in commands.h.
// clang-format off
constexpr const Command* kCommands[] = {
    &kModelsCommand,
    &kLinkCommand,
    &kConvertCommand,
    &kListenCommand,
    &kClassifyCommand,
    &kDetectCommand,
    &kSimulateCommand,
    &kWakeUpCommand,
    &kCheckInCommand,
    &kCheckOutCommand,
    &kNameCommand,
};
// clang-format on

constexpr std::string_view kHead =
    "vintrel-host - a hotel host for the Vintrel server, on the command line\n"
    "\n"
    "usage: vintrel-host COMMAND [OPTIONS]\n"
    "       vintrel-host COMMAND --help\n"
    "       vintrel-host --version\n"
    "\n";
constexpr std::string_view kTail =
    "\n"
    "Control characters are written by their names, such as <STX>, on the way in and on the way out.\n"
    "Exit codes: 0 done; 1 the data, the link or the exchange failed, or an order was answered <ERROR>;\n"
    "            2 the command line is wrong; 3 the server is not registered.\n";

std::string GeneralHelp() {
    std::string text(kHead);
    std::vector<Option> lines;
    for (const Command* command : kCommands) lines.push_back({command->name, "", command->summary});
    return ((text += "commands:\n") += HelpLines(lines)) += kTail;
}

std::string HelpOf(const Command& command) {
    std::string text = "usage: vintrel-host " + std::string(command.name) + " " + std::string(command.usage) + "\n\n";
    (text += command.help) += "\n";
    if (!command.options.empty()) (text += "\noptions:\n") += HelpLines(command.options);
    return text += kTail;
}

const Command& Find(const std::string& name) {
    for (const Command* command : kCommands)
        if (command->name == name) return *command;
    throw Failure(ExitCode::Usage, "there is no command \"" + name + "\"");
}

bool AsksForHelp(const std::vector<std::string>& arguments) {
    return std::ranges::any_of(arguments, [](const std::string& word) { return word == "--help" || word == "-h"; });
}

/// The program's own version, and that of the server it finds.
std::string Versions() {
    std::string text = "vintrel-host " VINTREL_VERSION "\n";
    try {
        const Server server;
        return text + "server       " + ToUtf8(server.Text(server.info, &_ServerInfo::GetServerVersion)) + "\n";
    } catch (const Failure& failure) {
        return text + failure.what() + "\n";
    }
}

ExitCode Run(std::vector<std::string> arguments) {
    if (!arguments.empty() && arguments[0] == "--version") {
        WriteOut(Versions());
        return ExitCode::Ok;
    }
    if (arguments.empty() || arguments[0] == "--help" || arguments[0] == "-h" || arguments[0] == "help") {
        WriteOut(GeneralHelp());
        return arguments.empty() ? ExitCode::Usage : ExitCode::Ok;
    }
    const Command& command = Find(arguments[0]);
    arguments.erase(arguments.begin());
    if (AsksForHelp(arguments)) {
        WriteOut(HelpOf(command));
        return ExitCode::Ok;
    }
    return command.run(Options(command.options, command.word, arguments));
}

/// The one place where a failure becomes a message and an exit code.
ExitCode Guarded(const std::vector<std::string>& arguments) {
    try {
        return Run(arguments);
    } catch (const Failure& failure) {
        WriteError("vintrel-host: " + std::string(failure.what()));
        if (failure.Code() == ExitCode::Usage) WriteError("Try: vintrel-host --help");
        return failure.Code();
    } catch (const std::exception& failure) {
        WriteError("vintrel-host: " + std::string(failure.what()));
        return ExitCode::Failed;
    }
}

}  // namespace
}  // namespace vintrel::host

int wmain(int count, wchar_t** words) {
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i) arguments.push_back(vintrel::host::FromWide(words[i]));
    const vintrel::host::Utf8Console console;
    return static_cast<int>(vintrel::host::Guarded(arguments));
}
