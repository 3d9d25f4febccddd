// Call records of the Panasonic KX-TDE and KX-NS exchanges, in the 120-column layout.
#pragma once

#include <string_view>

#include "cdr/gdv_record.h"

namespace vintrel::cdr {

/// One line; headers, rulers and hotel events stand between the calls.
Outcome ConvertPanasonic(std::u16string_view line, GdvRecord& gdv);

}  // namespace vintrel::cdr
