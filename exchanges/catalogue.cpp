#include "exchanges/catalogue.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

// The families, one line each: the room that ends in `Models`, its table.
#define VINTREL_FAMILIES(FAMILY) \
    FAMILY(avaya_integral)       \
    FAMILY(avaya_integral2)      \
    FAMILY(mitel)                \
    FAMILY(alcatel)              \
    FAMILY(algoral)              \
    FAMILY(innovaphone)          \
    FAMILY(wildix)               \
    FAMILY(ip_office)            \
    FAMILY(panasonic)            \
    FAMILY(grandstream)          \
    FAMILY(fias)

namespace vintrel::exchanges {

#define VINTREL_DECLARE(family)      \
    namespace family {               \
    std::span<const Model> Models(); \
    }
VINTREL_FAMILIES(VINTREL_DECLARE)
#undef VINTREL_DECLARE

namespace {

constexpr std::size_t kCodeLength = 9;
constexpr std::size_t kEndings = 100;
constexpr std::uint8_t kNone = 0xFF;

/// The number that the last two characters of a code form; of characters that are no digits, any number.
constexpr unsigned Ending(std::u16string_view code) {
    return (code[kCodeLength - 2] - unsigned{u'0'}) * 10 + (code[kCodeLength - 1] - unsigned{u'0'});
}

class Catalogue {
 public:
    Catalogue() {
#define VINTREL_ADD(family) Add(family::Models());
        VINTREL_FAMILIES(VINTREL_ADD)
#undef VINTREL_ADD
        by_ending_.fill(kNone);
        for (std::size_t place = 0; place < count_; ++place)
            by_ending_.at(Ending(models_[place]->code)) = static_cast<std::uint8_t>(place);
    }

    std::span<const Model* const> Models() const { return {models_.data(), count_}; }

    /// No two codes have the same ending, so one comparison decides.
    std::optional<std::size_t> FindPlace(std::u16string_view code) const {
        if (code.size() != kCodeLength) return std::nullopt;
        const unsigned ending = Ending(code);
        if (ending >= kEndings || by_ending_[ending] == kNone) return std::nullopt;
        const std::size_t place = by_ending_[ending];
        const bool equal = std::memcmp(models_[place]->code.data(), code.data(), kCodeLength * sizeof(char16_t)) == 0;
        return equal ? std::optional(place) : std::nullopt;
    }

 private:
    /// Keeps the list in order.
    void Add(std::span<const Model> family) {
        for (const Model& model : family) {
            std::size_t place = count_++;
            for (; place > 0 && models_[place - 1]->code > model.code; --place) models_[place] = models_[place - 1];
            models_.at(place) = &model;
        }
    }

    std::array<const Model*, kEndings> models_{};  // as many as there are endings
    std::size_t count_ = 0;
    std::array<std::uint8_t, kEndings> by_ending_{};
};

const Catalogue& TheCatalogue() {
    static const Catalogue catalogue;
    return catalogue;
}

}  // namespace

std::span<const Model* const> Models() { return TheCatalogue().Models(); }

std::optional<std::size_t> FindPlace(std::u16string_view code) { return TheCatalogue().FindPlace(code); }

const Model* FindModel(std::u16string_view code) {
    const std::optional<std::size_t> place = FindPlace(code);
    return place ? Models()[*place] : nullptr;
}

Exchanges::Exchanges(const Surroundings& surroundings) {
    exchanges_.reserve(Models().size());
    for (const Model* model : Models()) exchanges_.push_back(model->make(*model, surroundings));
}

Exchange* Exchanges::Find(std::u16string_view code) const {
    const std::optional<std::size_t> place = FindPlace(code);
    return place ? exchanges_[*place].get() : nullptr;
}

bool Exchanges::InUse() const {
    return std::any_of(exchanges_.begin(), exchanges_.end(), [](const auto& exchange) { return exchange->InUse(); });
}

}  // namespace vintrel::exchanges
