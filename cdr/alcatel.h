// Call records of the Alcatel OmniPCX Office.
#pragma once

#include <string_view>

#include "cdr/gdv_record.h"

namespace vintrel::cdr {

/// One fixed-column line; every line is a call.
Outcome ConvertAlcatel(std::u16string_view record, GdvRecord& gdv);

}  // namespace vintrel::cdr
