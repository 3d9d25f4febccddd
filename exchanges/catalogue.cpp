#include "exchanges/catalogue.h"

#include <algorithm>
#include <array>

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

class Catalogue {
 public:
    Catalogue() {
#define VINTREL_ADD(family) Add(family::Models());
        VINTREL_FAMILIES(VINTREL_ADD)
#undef VINTREL_ADD
    }

    std::span<const Model* const> InOrder() const { return {models_.data(), count_}; }
    const ByCode<const Model>& Codes() const { return by_code_; }

 private:
    void Add(std::span<const Model> family) {
        for (const Model& model : family) {
            by_code_.Add(model.code, &model);
            std::size_t place = count_++;
            for (; place > 0 && models_[place - 1]->code > model.code; --place) models_[place] = models_[place - 1];
            models_.at(place) = &model;
        }
    }

    ByCode<const Model> by_code_;
    std::array<const Model*, ByCode<const Model>::kEndings> models_{};  // by their codes
    std::size_t count_ = 0;
};

const Catalogue& TheCatalogue() {
    static const Catalogue catalogue;
    return catalogue;
}

}  // namespace

std::span<const Model* const> Models() { return TheCatalogue().InOrder(); }

const Model* FindModel(std::u16string_view code) { return TheCatalogue().Codes().Find(code); }

Exchanges::Exchanges(const Surroundings& surroundings) {
    for (const Model* model : Models()) {
        exchanges_.push_back(model->make(*model, surroundings));
        by_code_.Add(model->code, exchanges_.back().get());
    }
}

bool Exchanges::InUse() const {
    return std::any_of(exchanges_.begin(), exchanges_.end(), [](const auto& exchange) { return exchange->InUse(); });
}

}  // namespace vintrel::exchanges
