// Call records of the Avaya IP Office: one comma-separated line per leg of a call.
#pragma once

#include <string_view>

#include "cdr/continuation_table.h"
#include "cdr/gdv_record.h"

namespace vintrel::cdr {

/// Every leg carries the start of its call; a later leg is moved forward by the connected time of the legs before it.
/// Internal calls, and incoming lines that carry no call of their own, are rejected.
Outcome ConvertIpOffice(std::u16string_view record, ContinuationTable& continuation, GdvRecord& gdv);

}  // namespace vintrel::cdr
