// "detect": which model a capture comes from.
#include "host/capture/detection.h"
#include "host/commands/capture_command.h"
#include "host/commands/commands.h"
#include "host/commands/common_options.h"
#include "host/console.h"
#include "host/server.h"

namespace vintrel::host {
namespace {

constexpr Option kOptions[] = {kFormatOption, kSeparatorOption, kWidthOption, kReadableOption};

ExitCode Run(const Options& options) {
    const Presentation presentation = PresentationOf(options);
    CaptureFile file(options.Word(), {}, options);
    const Server server;
    const std::string& head = file.Lines().Head();
    if (head.empty()) throw Failure(ExitCode::Failed, "the capture is empty");
    const std::vector<Evidence> models = Detect(server, head, file.Lines().GivenForm());

    // Where no model makes anything of it, all say why.
    const bool hopeless = models.empty() || models.front().Good() == 0;
    std::vector<std::vector<std::string>> records;
    for (const Evidence& model : models)
        if (model.Good() > 0 || (hopeless && !Reasons(model).empty()))
            records.push_back({std::to_string(Fit(model)), model.code, model.name, std::to_string(model.calls),
                               std::to_string(model.events), std::to_string(model.malformed + model.other),
                               Reasons(model)});
    Output output = StandardOutput();
    TellLeftOut(WriteRecords(presentation,
                             {{.title = "Fit", .width = 3, .number = true},
                              {.title = "Code", .width = 9},
                              {.title = "Model", .width = 20, .rank = 1},
                              {.title = "Calls", .width = 5, .rank = 2, .number = true},
                              {.title = "Events", .width = 6, .rank = 2, .number = true},
                              {.title = "Failed", .width = 6, .rank = 2, .number = true},
                              {.title = "Reasons", .width = 7}},
                             records, output));
    if (head.size() == Capture::kHead) WriteError("Judged by the first 256 KB.");
    const std::string guess = BestGuess(models);
    WriteError(guess.empty() ? "No model reads it." : guess);
    return guess.empty() ? ExitCode::Failed : ExitCode::Ok;
}

}  // namespace

const Command kDetectCommand{
    "detect",
    "finds out which model a capture comes from",
    "[OPTIONS] FILE|-",
    "Lets every model of the server read the first 256 KB of the capture, and ranks the models: by the share of\n"
    "its bytes that are calls or hotel events, less what was malformed or unknown, and by dates of the last ten\n"
    "years. Models that make nothing of it are left out. Models of one family read calls alike: hotel events\n"
    "tell them apart, or the exchange's name plate.\n"
    "Exit code 1 when no model reads it.",
    kOptions,
    kCaptureWord,
    Run,
};

}  // namespace vintrel::host
