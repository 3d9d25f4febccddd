// Call records of the Trucco Algoral 658.
#pragma once

#include "cdr/gdv_record.h"
#include "server/text.h"

namespace vintrel::cdr {

/// The text from the first ":" to position 301, behind the tag "*Term.", becomes the caller's text and is converted;
/// every record is a call. Without ":" the record is rejected and stays.
Outcome ConvertAlgoral(server::InOutText& record, GdvRecord& gdv);

}  // namespace vintrel::cdr
