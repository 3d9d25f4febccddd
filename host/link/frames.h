// Cuts the bytes of a link, or of a capture of one, into frames.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vintrel::host {

/// How the frames of a link are told apart, as the server answers it.
struct Framing {
    std::string start =
        {};  ///< the character that opens a frame; "" where a frame begins when the one before has ended
    std::string end = {};
    std::string end2 = {};  ///< a second way to end a frame; "" for none
    /// A frame that grows beyond this without its end is given up: nothing that a peer sends fills the memory.
    std::size_t limit = std::size_t{1024} * 1024;
};

/// Frames are of any length. The server's usual record length is no part of the cut: on one link records of 142
/// characters and hotel frames of 30 follow each other, and only the end string tells them apart.
class FrameCutter {
 public:
    enum class Kind {
        Frame,     ///< complete, with its framing characters
        Loose,     ///< bytes between frames: acknowledgements, login characters, check characters, noise
        Broken,    ///< the beginning of a frame that the peer never ended
        Overlong,  ///< given up at the limit; what follows of it is dropped
    };
    struct Piece {
        Kind kind;
        std::string_view bytes;  ///< valid until the next Push
    };

    explicit FrameCutter(Framing framing);

    void Push(std::string_view bytes);
    /// The same without a copy: room for at most `count` bytes, of which Filled says how many have come.
    char* Room(std::size_t count);
    void Filled(std::size_t count) { end_ += count; }

    /// The next piece, in the order of the bytes; nothing when what is left may still become a frame.
    std::optional<Piece> Next();

    /// What has come of a frame that has not ended yet.
    std::string_view Rest() const { return Text().substr(begin_); }
    /// Takes bytes from the front of the rest, such as a login prompt, which ends with no end string.
    void Take(std::size_t count);

 private:
    std::optional<Piece> NextBetweenMarks();
    std::size_t FindEnd(std::size_t from) const;
    Piece Cut(Kind kind, std::size_t end);

    std::string_view Text() const { return std::string_view(buffer_).substr(0, end_); }

    Framing framing_;
    std::string buffer_;
    std::size_t begin_ = 0;    ///< of what has not been given out
    std::size_t end_ = 0;      ///< of the bytes in the buffer
    std::size_t scanned_ = 0;  ///< up to here there is no end string
    bool skipping_ = false;    ///< behind an overlong frame
};

}  // namespace vintrel::host
