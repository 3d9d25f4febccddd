// Text on its way out.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace vintrel::host {

/// Collects what is written and hands it on in large pieces.
class Output {
 public:
    using Write = std::function<void(std::string_view)>;
    explicit Output(Write write) : write_(std::move(write)) { text_.reserve(kPiece + kPiece / 4); }
    ~Output() = default;
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    std::string& Text() { return text_; }  ///< to append to
    void FlushWhenLarge() {
        if (text_.size() >= kPiece) Flush();
    }
    void Flush() {
        if (!text_.empty()) write_(text_);
        text_.clear();
    }

 private:
    static constexpr std::size_t kPiece = std::size_t{1024} * 1024;
    Write write_;
    std::string text_;
};

}  // namespace vintrel::host
