// The files that the program reads.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "host/console.h"

namespace vintrel::host {

/// A file, or the standard input where the name is "-", from its beginning to its end.
class InputFile {
 public:
    /// @throws Failure when it cannot be opened.
    explicit InputFile(const std::string& name);
    /// At most `count` bytes, fewer where a pipe gives no more now; 0 at the end.
    std::size_t ReadTo(char* buffer, std::size_t count);
    /// Of a file; 0 of a pipe.
    std::uint64_t Size() const { return size_; }

 private:
    std::string name_;
    Handle file_;
    bool standard_input_ = false;
    std::uint64_t size_ = 0;
};

/// All of a text file in UTF-8, whatever its encoding. @throws Failure when it cannot be read.
std::string ReadTextFile(const std::string& name);

}  // namespace vintrel::host
