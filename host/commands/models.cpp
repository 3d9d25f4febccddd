// "models": the catalogue of the server, and the services of each model.
#include <string>
#include <vector>

#include "host/commands/commands.h"
#include "host/commands/common_options.h"
#include "host/commands/matrix.h"
#include "host/console.h"
#include "host/record_writer.h"
#include "host/server.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

constexpr Option kOptions[] = {
    {"--matrix", "", "with the hotel services that each model offers"},
    kFormatOption,
    kSeparatorOption,
    kWidthOption,
};

ExitCode Run(const Options& options) {
    const Presentation presentation = PresentationOf(options);
    const Server server;
    Output output = StandardOutput();
    if (options.Has("--matrix")) {
        TellLeftOut(WriteMatrix(server, AllCodes(server), presentation, output));
        return ExitCode::Ok;
    }
    std::vector<std::vector<std::string>> records;
    for (const std::string& code : AllCodes(server)) records.push_back({code, ToUtf8(Model(server, code).Name())});
    TellLeftOut(
        WriteRecords(presentation, {{.title = "Code", .width = 9}, {.title = "Model", .width = 5}}, records, output));
    return ExitCode::Ok;
}

}  // namespace

const Command kModelsCommand{
    "models",
    "lists the exchange models that the server knows",
    "[--matrix] [OPTIONS]",
    "Lists the code and the name of every exchange model. The code is what --model takes.\n"
    "With --matrix also the hotel services of each model, as the server answers: yes or no, and 0 to 2 for\n"
    "the wake-up date level.",
    kOptions,
    "",
    Run,
};

}  // namespace vintrel::host
