// The way of a link's events to where the user wants them. A disk that is full for an hour loses none of them, and an
// output that nobody reads any more does not end the link.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace vintrel::host {

class PatientOutput {
 public:
    enum class Fault : std::uint8_t { None, Full, Closed };
    struct Written {
        std::size_t length;  ///< of the bytes, how many have been taken
        Fault fault;
    };
    using Write = std::function<Written(std::string_view bytes)>;
    explicit PatientOutput(Write write, std::size_t most_waiting = kMostWaiting)
        : write_(std::move(write)), most_waiting_(most_waiting) {}

    /// Whole lines, which wait when they cannot be written now.
    void Add(std::string_view lines);
    /// Tries to write what waits. @return whether everything that was added is written
    bool Flush();

    Fault State() const { return fault_; }
    /// Lines that will never be written: more than can wait, or added when the output was closed.
    std::uint64_t Lost() const { return lost_; }
    bool Empty() const { return waiting_.empty(); }

 private:
    static constexpr std::size_t kMostWaiting = 16 * 1024 * 1024;

    void Lose(std::string_view lines);

    Write write_;
    std::size_t most_waiting_;
    std::string waiting_;
    Fault fault_ = Fault::None;
    std::uint64_t lost_ = 0;
};

}  // namespace vintrel::host
