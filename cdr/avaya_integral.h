// Call records of the Avaya Integral exchanges.
#pragma once

#include <string_view>

#include "cdr/gdv_record.h"
#include "server/text.h"

namespace vintrel::cdr {

/// Integral 1/3/5: the columns of the Gdv record with a shorter duration; every record is a call.
Outcome ConvertIntegral(std::u16string_view record, GdvRecord& gdv);

/// Integral 2: the line of 82 characters that ends with the first line feed at or after position 91 becomes the
/// caller's text. Without that line feed the record is rejected and stays.
Outcome ConvertIntegral2(server::InOutText& record, GdvRecord& gdv);

}  // namespace vintrel::cdr
