#include "host/commands/common_options.h"

#include "host/console.h"
#include "host/failure.h"

namespace vintrel::host {
namespace {

Format FormatOf(const std::string& word) {
    if (word == "table") return Format::Table;
    if (word == "csv") return Format::Csv;
    if (word == "json") return Format::Json;
    throw Failure(ExitCode::Usage, "--format is table, csv or json, not \"" + word + "\"");
}

/// A character that no value is written with.
char SeparatorOf(const std::string& word) {
    if (word == "tab" || word == "\t") return '\t';
    constexpr std::string_view kMarks = ",;|:!#$%&~^";
    if (word.size() == 1 && kMarks.find(word[0]) != std::string_view::npos) return word[0];
    throw Failure(ExitCode::Usage, "--separator is tab or one of " + std::string(kMarks) + " and not \"" + word + "\"");
}

}  // namespace

Presentation PresentationOf(const Options& options) {
    constexpr unsigned kWidest = 10'000;
    Presentation presentation{.format = FormatOf(options.Get("--format", "table"))};
    if (options.Has("--separator") && presentation.format != Format::Csv)
        throw Failure(ExitCode::Usage, "--separator belongs to --format csv");
    if (options.Has("--width") && presentation.format != Format::Table)
        throw Failure(ExitCode::Usage, "--width belongs to tables");
    presentation.separator = SeparatorOf(options.Get("--separator", ","));
    presentation.width =
        options.Has("--width") ? options.Number("--width", 0, 0, kWidest) : ConsoleWidth(Stream::Output);
    return presentation;
}

void TellLeftOut(const std::string& columns) {
    if (!columns.empty()) WriteError("The table leaves out " + columns + "; --width 0 and --format csv show them.");
}

Values ValuesOf(const Options& options) {
    const std::string word = options.Get("--values", "exchange");
    if (word == "exchange") return Values::Exchange;
    if (word == "plain") return Values::Plain;
    throw Failure(ExitCode::Usage, "--values is exchange or plain, not \"" + word + "\"");
}

}  // namespace vintrel::host
