// Text files with an order or a step per line, and the words of a line.
#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>

namespace vintrel::host {

/// Takes words from the front of a line; blanks and tabs stand between them.
class Words {
 public:
    explicit Words(std::string_view line);
    bool Empty() const { return rest_.empty(); }
    /// "" at the end.
    std::string_view Next();
    /// A whole number. @throws Failure (Usage)
    unsigned Number();
    /// One of the words. @throws Failure (Usage)
    std::string OneOf(std::initializer_list<std::string_view> words);
    /// All that is left, with its blanks.
    std::string Rest();

 private:
    std::string_view rest_;
};

enum class Comments { WholeLines, BehindWordsToo };

/// Hands on every line that holds more than a comment, which begins with "#".
/// @throws Failure (Usage) as `take` does, with file and line before its message, and for words that it leaves.
void ForEachLine(std::string_view text, const std::string& file, Comments comments,
                 const std::function<void(Words&)>& take);

}  // namespace vintrel::host
