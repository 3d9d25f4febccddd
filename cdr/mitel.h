// Call records of the Mitel exchanges, in the PC4 format.
#pragma once

#include <string_view>

#include "cdr/gdv_record.h"

namespace vintrel::cdr {

/// One fixed-column line of 142 characters; every line is a call.
Outcome ConvertMitel(std::u16string_view record, GdvRecord& gdv);

}  // namespace vintrel::cdr
