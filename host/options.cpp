#include "host/options.h"

#include <algorithm>

#include "host/text.h"

namespace vintrel::host {
namespace {

[[noreturn]] void Refuse(const std::string& message) { throw Failure(ExitCode::Usage, message); }

}  // namespace

Options::Options(std::span<const Option> known, std::string_view word, std::span<const std::string> arguments) {
    bool only_words = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (only_words || argument == "-" || !argument.starts_with('-')) {
            if (word.empty() || !word_.empty())
                Refuse("\"" + argument + "\" belongs to no option (a value with blanks stands in quotes)");
            word_ = argument;
            continue;
        }
        if (argument == "--") {
            only_words = true;
            continue;
        }
        const std::size_t equals = argument.find('=');
        const std::string name = argument.substr(0, equals);
        const auto option = std::find_if(known.begin(), known.end(), [&](const Option& o) { return o.name == name; });
        if (option == known.end()) Refuse("there is no option " + name);
        std::string value;
        if (option->value.empty()) {
            if (equals != std::string::npos) Refuse(name + " takes no value");
        } else if (equals != std::string::npos) {
            value = argument.substr(equals + 1);
        } else {
            if (++i == arguments.size()) Refuse(name + " needs a value: " + std::string(option->value));
            value = arguments[i];
        }
        if (!values_.emplace(name, value).second) Refuse(name + " is given twice");
    }
    if (!word.empty() && word_.empty()) Refuse(std::string(word) + " is missing");
}

bool Options::Has(std::string_view name) const { return values_.find(name) != values_.end(); }

std::string Options::Get(std::string_view name, std::string_view otherwise) const {
    const auto found = values_.find(name);
    return found == values_.end() ? std::string(otherwise) : found->second;
}

std::string Options::Require(std::string_view name) const {
    const auto found = values_.find(name);
    if (found == values_.end()) Refuse(std::string(name) + " is missing");
    return found->second;
}

unsigned Options::Number(std::string_view name, unsigned otherwise, unsigned least, unsigned most) const {
    const auto found = values_.find(name);
    if (found == values_.end()) return otherwise;
    const std::optional<unsigned> number = ParseNumber(found->second);
    if (!number || *number < least || *number > most)
        Refuse(std::string(name) + " must be a number from " + std::to_string(least) + " to " + std::to_string(most));
    return *number;
}

std::string HelpLines(std::span<const Option> options) {
    const auto head = [](const Option& option) {
        return "  " + std::string(option.name) + (option.value.empty() ? "" : " ") + std::string(option.value);
    };
    std::size_t width = 0;
    for (const Option& option : options) width = std::max(width, head(option).size() + 2);
    std::string lines;
    for (const Option& option : options) {
        std::string text = head(option);
        text.resize(width, ' ');
        for (const char character : option.help) {
            text += character;
            if (character == '\n') text.append(width, ' ');
        }
        lines += text + "\n";
    }
    return lines;
}

}  // namespace vintrel::host
