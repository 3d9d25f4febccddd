// The commands of the program. A command is one object in one file, and one line in the table of main.cpp.
#pragma once

#include <span>
#include <string_view>

#include "host/failure.h"
#include "host/options.h"

namespace vintrel::host {

struct Command {
    std::string_view name;
    std::string_view summary;  ///< one line in the list of commands
    std::string_view usage;    ///< behind "vintrel-host NAME"
    std::string_view help;     ///< what it does, what it writes and how it ends; lines of at most 100 characters
    std::span<const Option> options;
    std::string_view word;  ///< what the one word is that it takes beside its options; "" for none
    ExitCode (*run)(const Options& options);
};

extern const Command kModelsCommand;
extern const Command kLinkCommand;
extern const Command kConvertCommand;
extern const Command kListenCommand;
extern const Command kClassifyCommand;
extern const Command kDetectCommand;
extern const Command kSimulateCommand;
extern const Command kWakeUpCommand;
extern const Command kCheckInCommand;
extern const Command kCheckOutCommand;
extern const Command kNameCommand;

}  // namespace vintrel::host
