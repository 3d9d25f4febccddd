// The PABX type code that the host passes to almost every operation.
#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "server/catalogue.h"
#include "server/platform.h"

namespace vintrel::server {

/// The caller's type code, which operations upper-case in place: the caller sees the change.
using TypeCode = std::span<char16_t>;

void UpperInPlace(TypeCode type);

/// Upper-cases the caller's code and looks it up, without a report.
std::optional<Model> UpperAndFind(TypeCode type);

/// The same; an unknown code is reported under the operation's name.
std::optional<Model> UpperAndFind(TypeCode type, std::u16string_view operation, CriticalMessage& message);

/// The answer of a per-model table, or `unknown` after the report. `member` is a column of the table's rows.
template <typename Row, typename Answer>
Answer AnswerFrom(const PerModel<Row>& table, Answer Row::*member, TypeCode type, std::u16string_view operation,
                  CriticalMessage& message, Answer unknown = {}) {
    const std::optional<Model> model = UpperAndFind(type, operation, message);
    return model ? table[*model].*member : unknown;
}

}  // namespace vintrel::server
