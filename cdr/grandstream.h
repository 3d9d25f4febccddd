// Call records of the Grandstream UCM6300 series.
#pragma once

#include <string_view>

#include "cdr/gdv_record.h"

namespace vintrel::cdr {

/// One record of the exchange's real-time output: columns in single quotes, separated by commas. Internal calls, helper
/// rows of ring groups, feature codes and wake-up calls are rejected.
Outcome ConvertGrandstream(std::u16string_view record, GdvRecord& gdv);

}  // namespace vintrel::cdr
