// A wake-up call that a guest has set or cleared on the telephone, in the host's form.
#pragma once

#include <string>
#include <string_view>

#include "server/platform.h"
#include "server/type_code.h"

namespace vintrel::rx {

/// A set-clock frame as one string, read by position, 32 characters when every field has its full width:
/// STX | command "08" 2-3 | extension 4-8 | mode 9 ("1" set, "2" cleared) | time 10-13 ("hhmm", "XXXX" unknown) |
/// date 14-17 ("ddmm", "----" none) | 14 blanks | ETX. A field that comes out shorter moves the later ones left.
/// "" for models that report no settings. An unknown code is reported and gives "".
std::u16string GetComConvertSetClockRX(server::TypeCode type, std::u16string_view frame, const server::Clock& clock,
                                       server::CriticalMessage& message);

}  // namespace vintrel::rx
