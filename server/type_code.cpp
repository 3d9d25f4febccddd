#include "server/type_code.h"

#include "server/error_report.h"
#include "text/text.h"

namespace vintrel::server {
namespace {

std::u16string_view UpperInPlace(TypeCode type) {
    for (char16_t& character : type) {
        // Written only where it changes: a caller's constant stays untouched.
        if (const char16_t upper = text::Upper(character); upper != character) character = upper;
    }
    return {type.data(), type.size()};
}

template <typename Found>
Found* OrReport(Found* found, std::u16string_view operation, platform::CriticalMessage& message) {
    if (!found) ErrorReport(message, 0, operation);
    return found;
}

}  // namespace

const exchanges::Model* UpperAndFind(TypeCode type) { return exchanges::FindModel(UpperInPlace(type)); }

const exchanges::Model* UpperAndFind(TypeCode type, std::u16string_view operation, platform::CriticalMessage& message) {
    return OrReport(UpperAndFind(type), operation, message);
}

exchanges::Exchange* UpperAndFind(TypeCode type, const exchanges::Exchanges& exchanges) {
    return exchanges.Find(UpperInPlace(type));
}

exchanges::Exchange* UpperAndFind(TypeCode type, const exchanges::Exchanges& exchanges, std::u16string_view operation,
                                  platform::CriticalMessage& message) {
    return OrReport(UpperAndFind(type, exchanges), operation, message);
}

}  // namespace vintrel::server
