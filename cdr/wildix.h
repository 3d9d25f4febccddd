// Call records of the Wildix WG90R.
#pragma once

#include <string_view>

#include "cdr/gdv_record.h"

namespace vintrel::cdr {

/// One line of the CSV file: texts in double quotes, separated by commas. Internal calls and service legs (fax, voice
/// mail, announcements) are rejected.
Outcome ConvertWildix(std::u16string_view record, GdvRecord& gdv);

}  // namespace vintrel::cdr
