// A capture of a link as people bring it: the bytes as they came, or the same saved by an editor, shown with control
// characters by name, or in the log that this program keeps. Read piece by piece, whatever its size.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "host/capture/encoding.h"
#include "host/link/frames.h"
#include "host/link/log_line.h"

namespace vintrel::host {

class Capture {
 public:
    enum class Form : std::uint8_t {
        Bytes,     ///< as they came
        Readable,  ///< <STX>...<ETX>
        Log,       ///< what "listen --log" writes
    };
    /// Fills at most `count` bytes of the buffer. @return how many; 0 at the end
    using Source = std::function<std::size_t(char* buffer, std::size_t count)>;

    /// @param framing  of the model that is to read it
    /// @param form  when it is known; else the beginning of the file tells
    Capture(Source source, const Framing& framing, std::optional<Form> form = std::nullopt);

    /// What comes next, in the order of the link: for a log line by line, else bytes without a time.
    /// @return false at the end
    bool Next(LogLine& line);

    Form ReadForm() const { return form_; }
    std::optional<Form> GivenForm() const { return given_; }
    /// For people: as what it was read, such as "UTF-16 text, lines that end with <LF>".
    std::string ReadAs() const;
    /// The model that a log names; "" for none.
    const std::string& LogCode() const { return log_code_; }
    /// The beginning of the file, as it is.
    const std::string& Head() const { return head_; }
    static constexpr std::size_t kHead = 256 * 1024;

 private:
    /// Where the lines of the capture end otherwise than the model's.
    enum class Ends : std::uint8_t { Own, LineFeed, Return, NoFraming };

    void ReadHead();
    Form FormOf(std::string_view text) const;
    Ends EndsOf(std::string_view bytes) const;
    bool Fill();
    std::optional<std::string_view> NextTextLine();
    bool NextLine(LogLine& line);
    void AppendLinkBytes(std::string text, std::string& out);
    void AppendWithOwnEnds(std::string_view bytes, std::string& out);

    Source source_;
    Framing framing_;
    std::string head_;
    bool head_taken_ = false;
    bool ended_ = false;
    Encoding encoding_ = Encoding::Bytes;
    Decoder decoder_{Encoding::Bytes};
    std::optional<Form> given_;
    Form form_ = Form::Bytes;
    Ends ends_ = Ends::Own;
    bool line_ends_are_data_ = true;  ///< of a readable one: it does not show them by name
    std::string piece_;
    std::string text_;    ///< decoded
    std::size_t at_ = 0;  ///< where what has not been given out yet begins in it
    std::string log_code_;
    bool in_line_ = false;  ///< of NoFraming: the start character has been put before the line
    char last_ = '\0';      ///< of the bytes whose ends are made the model's
};

}  // namespace vintrel::host
