// "models": the catalogue of the server, and the services of each model.
#include <string>
#include <vector>

#include "host/commands.h"
#include "host/console.h"
#include "host/matrix.h"
#include "host/output.h"
#include "host/server.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

constexpr Option kOptions[] = {
    {"--matrix", "", "with the hotel services that each model offers"},
    {"--format", "FORMAT", "table (default), csv or json (one object per line)"},
};

/// The codes that the server knows: its list ends where the numbers have a gap, and the PMS link stands apart.
std::vector<std::string> Codes(const Server& server) {
    const auto known = [&](const std::string& code) {
        Bstr type(FromUtf8(code));
        return server.Value<short>(server.info, &_ServerInfo::GetPabxActiveType, type.InOut()) != 0;
    };
    std::vector<std::string> codes;
    for (int number = 10001; known("TYPE" + std::to_string(number)); ++number)
        codes.push_back("TYPE" + std::to_string(number));
    if (known("TYPE12000")) codes.emplace_back("TYPE12000");
    return codes;
}

ExitCode Run(const Options& options) {
    const Format format = ParseFormat(options.Get("--format", "table"));
    const Server server;
    Output output = StandardOutput();
    if (options.Has("--matrix")) {
        WriteMatrix(server, Codes(server), format, output);
        return ExitCode::Ok;
    }
    std::vector<std::vector<std::string>> records;
    for (const std::string& code : Codes(server)) records.push_back({code, ToUtf8(Model(server, code).Name())});
    WriteRecords(format, {"Code", "Model"}, records, output);
    return ExitCode::Ok;
}

}  // namespace

const Command kModelsCommand{
    "models",
    "lists the exchange models that the server knows",
    "[--matrix] [--format FORMAT]",
    "Lists the code and the name of every exchange model. The code is what --model takes.\n"
    "With --matrix also the hotel services of each model, as the server answers: yes or no, and 0 to 2 for\n"
    "the wake-up date level.",
    kOptions,
    Run,
};

}  // namespace vintrel::host
