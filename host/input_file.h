// The files that the program reads.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "host/console.h"

namespace vintrel::host {

/// A file, or the standard input where the name is "-", from its beginning to its end.
class InputFile {
 public:
    enum class Form : std::uint8_t {
        Bytes,
        Readable,  ///< a text that shows bytes: control characters by name, and the ends of its lines are no data
    };
    /// @throws Failure when it cannot be opened, and when a readable one is longer than anybody writes.
    explicit InputFile(const std::string& name, Form form = Form::Bytes);
    /// At most `count` bytes, fewer where a pipe gives no more now; 0 at the end.
    std::size_t ReadTo(char* buffer, std::size_t count);
    /// The next piece; empty at the end.
    std::string_view Read();
    static constexpr std::size_t kPiece = 1024 * 1024;
    /// Of a file; 0 of a pipe.
    std::uint64_t Size() const { return size_; }

 private:
    void Open();
    void ReadShown();

    std::string name_;
    Handle file_;
    bool standard_input_ = false;
    std::uint64_t size_ = 0;
    std::string buffer_;
    std::optional<std::string> shown_;  ///< the bytes of a readable one
    std::size_t taken_ = 0;             ///< how many of them have been read
};

/// All of a file. @throws Failure when it cannot be read.
std::string ReadWholeFile(const std::string& name);

}  // namespace vintrel::host
