// Short texts that take nothing from the heap.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <type_traits>

namespace vintrel::text {

/// A short text that lives where it stands.
template <std::size_t Capacity>
class InlineText {
    static_assert(Capacity <= UINT8_MAX);

 public:
    InlineText() {}  // NOLINT(modernize-use-equals-default): = default would clear the characters first
    template <typename... Parts>
    requires(sizeof...(Parts) > 0 &&
             (std::is_convertible_v<Parts, std::u16string_view> && ...)) explicit InlineText(const Parts&... parts) {
        (Append(parts), ...);
    }

    std::u16string_view View() const { return {characters_.data(), size_}; }
    operator std::u16string_view() const { return View(); }  // NOLINT(google-explicit-constructor): it is a text
    std::size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }

    /// Does nothing when the part does not fit.
    void Append(std::u16string_view part) {
        if (part.size() > Capacity - size_) return;
        for (const char16_t character : part) characters_[size_++] = character;
    }

 private:
    std::array<char16_t, Capacity> characters_;  // written before they are read: `size_` of them count
    std::uint8_t size_ = 0;
};

}  // namespace vintrel::text
