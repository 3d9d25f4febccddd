// The command line: "--name value", "--name=value", "--flag" and the words between them.
#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "host/failure.h"

namespace vintrel::host {

/// An option that a command knows.
struct Option {
    std::string_view name;   ///< with its dashes
    std::string_view value;  ///< what the help calls its value; "" for a flag
    std::string_view help;   ///< may have several lines
};

class Options {
 public:
    /// @throws Failure (Usage) for an option that is not known, comes twice, lacks its value or has one too many.
    /// @param word  what the one word is that the command takes beside its options, "" for none: it must be there,
    ///              and any other word is refused, for it would be dropped
    Options(std::span<const Option> known, std::string_view word, std::span<const std::string> arguments);

    bool Has(std::string_view name) const;
    std::string Get(std::string_view name, std::string_view otherwise = "") const;
    /// @throws Failure (Usage) when it is missing.
    std::string Require(std::string_view name) const;
    /// A whole number. @throws Failure (Usage) outside the range.
    unsigned Number(std::string_view name, unsigned otherwise, unsigned least, unsigned most) const;

    /// The one word of a command that takes one.
    const std::string& Word() const { return word_; }

 private:
    std::map<std::string, std::string, std::less<>> values_;
    std::string word_;
};

/// The options as aligned lines of a help text.
std::string HelpLines(std::span<const Option> options);

}  // namespace vintrel::host
