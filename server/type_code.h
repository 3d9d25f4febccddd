// The PABX type code that the host passes to almost every operation.
#pragma once

#include <span>
#include <string_view>

#include "exchanges/catalogue.h"
#include "platform/desktop.h"

namespace vintrel::server {

/// The caller's type code, which operations upper-case in place: the caller sees the change.
using TypeCode = std::span<char16_t>;

/// Upper-cases the caller's code and looks its model up, without a report; null when it is unknown.
const exchanges::Model* UpperAndFind(TypeCode type);
/// The same; an unknown code is reported under the operation's name.
const exchanges::Model* UpperAndFind(TypeCode type, std::u16string_view operation, platform::CriticalMessage& message);

/// The same for the server's own exchange of the model.
exchanges::Exchange* UpperAndFind(TypeCode type, const exchanges::Exchanges& exchanges);
exchanges::Exchange* UpperAndFind(TypeCode type, const exchanges::Exchanges& exchanges, std::u16string_view operation,
                                  platform::CriticalMessage& message);

/// A fact of the model, such as `&Model::link, &Link::direction`, or `unknown` after the report.
template <typename Group, typename Answer>
Answer AnswerFrom(Group exchanges::Model::*group, Answer Group::*fact, TypeCode type, std::u16string_view operation,
                  platform::CriticalMessage& message, Answer unknown = {}) {
    const exchanges::Model* const model = UpperAndFind(type, operation, message);
    return model ? model->*group.*fact : unknown;
}

}  // namespace vintrel::server
