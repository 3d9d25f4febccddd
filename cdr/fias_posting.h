// Call records that arrive over a FIAS link, as postings.
#pragma once

#include <string_view>

#include "cdr/gdv_record.h"

namespace vintrel::cdr {

/// A record of fields "|RN102|DD...|"; link descriptions and link records are no calls.
Outcome ConvertFiasPosting(std::u16string_view record, GdvRecord& gdv);

}  // namespace vintrel::cdr
