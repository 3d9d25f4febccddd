// The exchange models, in list order, and the exchanges of one server. Adding a family begins here, with its line in
// catalogue.cpp; adding a model to a family, with its row in the family's table.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "exchanges/exchange.h"

namespace vintrel::exchanges {

/// Every model, in list order: by their codes.
std::span<const Model* const> Models();

/// The place in the list of the model with exactly this code: upper case, nothing around it.
std::optional<std::size_t> FindPlace(std::u16string_view code);

/// The model with exactly this code; null when there is none.
const Model* FindModel(std::u16string_view code);

/// One exchange of every model, made when the server starts.
class Exchanges {
 public:
    /// The surroundings must outlive the exchanges.
    explicit Exchanges(const Surroundings& surroundings);

    /// The exchange of the model with exactly this code; null when there is none.
    Exchange* Find(std::u16string_view code) const;
    /// Whether the system may still call into one of them.
    bool InUse() const;

 private:
    std::vector<std::unique_ptr<Exchange>> exchanges_;
};

}  // namespace vintrel::exchanges
