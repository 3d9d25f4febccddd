// The exchange models, in list order, and the exchanges of one server. Adding a family begins here, with its line in
// catalogue.cpp; adding a model to a family, with its row in the family's table.
#pragma once

#include <array>
#include <cstddef>
#include <cstring>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "exchanges/exchange.h"

namespace vintrel::exchanges {

/// Every model, in list order: by their codes.
std::span<const Model* const> Models();

/// The model with exactly this code: upper case, nothing around it; null when there is none.
const Model* FindModel(std::u16string_view code);

/// Things of the models, found by their codes. No two codes have the same last two digits, so one comparison decides.
template <typename Thing>
class ByCode {
 public:
    static constexpr std::size_t kCodeLength = 9;
    static constexpr std::size_t kEndings = 100;

    /// Nothing finds what has no code of this form.
    void Add(std::u16string_view code, Thing* thing) {
        if (const unsigned ending = Ending(code); ending < kEndings) places_[ending] = {code.data(), thing};
    }

    /// Null when there is none of exactly this code.
    Thing* Find(std::u16string_view code) const {
        const unsigned ending = Ending(code);
        if (ending >= kEndings) return nullptr;
        const Place& place = places_[ending];
        const bool equal = place.thing && std::memcmp(place.code, code.data(), kCodeLength * sizeof(char16_t)) == 0;
        return equal ? place.thing : nullptr;
    }

 private:
    struct Place {
        const char16_t* code;
        Thing* thing;
    };
    /// The number that the last two characters form: below kEndings, if it is a code.
    static unsigned Ending(std::u16string_view code) {
        if (code.size() != kCodeLength) return kEndings;
        return (code[kCodeLength - 2] - unsigned{u'0'}) * 10 + (code[kCodeLength - 1] - unsigned{u'0'});
    }

    std::array<Place, kEndings> places_{};
};

/// One exchange of every model, made when the server starts.
class Exchanges {
 public:
    /// The surroundings must outlive the exchanges.
    explicit Exchanges(const Surroundings& surroundings);

    /// The exchange of the model with exactly this code; null when there is none.
    Exchange* Find(std::u16string_view code) const { return by_code_.Find(code); }
    /// Whether the system may still call into one of them.
    bool InUse() const;

 private:
    std::vector<std::unique_ptr<Exchange>> exchanges_;
    ByCode<Exchange> by_code_;
};

}  // namespace vintrel::exchanges
