#include "host/words.h"

#include <optional>
#include <utility>

#include "host/failure.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

constexpr std::string_view kBlanks = " \t";

std::string_view WithoutBlanksAround(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace

Words::Words(std::string_view line) : rest_(WithoutBlanksAround(line)) {}

std::string_view Words::Next() {
    const std::string_view word = rest_.substr(0, rest_.find_first_of(kBlanks));
    rest_ = WithoutBlanksAround(rest_.substr(word.size()));
    return word;
}

unsigned Words::Number() {
    const std::string_view word = Next();
    const std::optional<unsigned> number = ParseNumber(word);
    if (!number) throw Failure(ExitCode::Usage, "a number is expected, not \"" + std::string(word) + "\"");
    return *number;
}

std::string Words::OneOf(std::initializer_list<std::string_view> words) {
    const std::string_view word = Next();
    std::string list;
    for (const std::string_view known : words) {
        if (word == known) return std::string(word);
        list.append(list.empty() ? "" : ", ").append(known);
    }
    throw Failure(ExitCode::Usage, "\"" + std::string(word) + "\" is none of " + list);
}

std::string Words::Rest() { return std::string(std::exchange(rest_, {})); }

void ForEachLine(std::string_view text, const std::string& file, Comments comments,
                 const std::function<void(Words&)>& take) {
    std::size_t number = 0;
    for (std::string_view line : Lines(text)) {
        ++number;
        for (std::size_t mark = line.find('#'); mark != std::string_view::npos; mark = line.find('#', mark + 1)) {
            const std::string_view before = WithoutBlanksAround(line.substr(0, mark));
            const bool apart = mark == 0 || kBlanks.find(line[mark - 1]) != std::string_view::npos;
            if (before.empty() || (apart && comments == Comments::BehindWordsToo)) line = before;
        }
        Words words(line);
        if (words.Empty()) continue;
        try {
            take(words);
            if (!words.Empty()) throw Failure(ExitCode::Usage, "too much: \"" + words.Rest() + "\"");
        } catch (const Failure& failure) {
            throw Failure(failure.Code(), file + ":" + std::to_string(number) + ": " + failure.what());
        }
    }
}

}  // namespace vintrel::host
