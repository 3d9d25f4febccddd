// "models": the catalogue of the server.
#include <string>
#include <vector>

#include "host/commands.h"
#include "host/console.h"
#include "host/output.h"
#include "host/server.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

constexpr Option kOptions[] = {
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
    std::vector<std::vector<std::string>> records;
    for (const std::string& code : Codes(server)) records.push_back({code, ToUtf8(Model(server, code).Name())});
    Output output = StandardOutput();
    WriteRecords(format, {"Code", "Model"}, records, output);
    return ExitCode::Ok;
}

}  // namespace

const Command kModelsCommand{
    "models",
    "lists the exchange models that the server knows",
    "[--format FORMAT]",
    "Lists the code and the name of every exchange model. The code is what --model takes.",
    kOptions,
    Run,
};

}  // namespace vintrel::host
