#include "server/type_code.h"

#include "server/error_report.h"
#include "server/text.h"

namespace vintrel::server {

void UpperInPlace(TypeCode type) {
    for (char16_t& character : type) {
        // Written only where it changes: a caller's constant stays untouched.
        if (const char16_t upper = Upper(character); upper != character) character = upper;
    }
}

std::optional<Model> UpperAndFind(TypeCode type) {
    UpperInPlace(type);
    return FindModel({type.data(), type.size()});
}

std::optional<Model> UpperAndFind(TypeCode type, std::u16string_view operation, CriticalMessage& message) {
    const std::optional<Model> model = UpperAndFind(type);
    if (!model) ErrorReport(message, 0, operation);
    return model;
}

}  // namespace vintrel::server
