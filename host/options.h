// The command line: "--name value", "--name=value", "--flag" and the words between them.
#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

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
    Options(std::span<const Option> known, std::span<const std::string> arguments);

    bool Has(std::string_view name) const;
    std::string Get(std::string_view name, std::string_view otherwise = "") const;
    /// @throws Failure (Usage) when it is missing.
    std::string Require(std::string_view name) const;
    /// A whole number. @throws Failure (Usage) outside the range.
    unsigned Number(std::string_view name, unsigned otherwise, unsigned least, unsigned most) const;

    const std::vector<std::string>& Words() const { return words_; }
    /// The one word of a command that takes one. @throws Failure (Usage) for none or more.
    const std::string& OnlyWord(std::string_view what) const;

 private:
    std::map<std::string, std::string, std::less<>> values_;
    std::vector<std::string> words_;
};

/// The options as aligned lines of a help text.
std::string HelpLines(std::span<const Option> options);

}  // namespace vintrel::host
