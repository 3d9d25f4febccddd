// The references of calls in progress, shared by all conversions of the server.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vintrel::exchanges::innovaphone {

/// At most 512 references, in memory only while they are held.
class ReferenceTable {
 public:
    static constexpr std::size_t kSlots = 512;

    /// False when the reference is blank or no slot is free.
    bool Add(std::u16string_view reference);
    /// Frees one slot that holds the reference; false when none does.
    bool Remove(std::u16string_view reference);
    bool Find(std::u16string_view reference) const { return Position(reference) < held_.size(); }

 private:
    struct Held {
        std::size_t hash;  // spares comparing long texts that differ only at their ends
        std::u16string reference;
    };
    std::size_t Position(std::u16string_view reference) const;

    std::vector<Held> held_;
};

}  // namespace vintrel::exchanges::innovaphone
