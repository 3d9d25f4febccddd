// Call records of the innovaphone gateway.
#pragma once

#include <string_view>

#include "cdr/gdv_record.h"
#include "cdr/reference_table.h"
#include "server/platform.h"
#include "server/settings.h"

namespace vintrel::cdr {

/// One event record. A call is charged by its legs: "A:X" and "B:X" end a leg by transfer, "A:Rel" ends the last one;
/// every other event is rejected.
/// @param references  calls of which a transferred leg has been converted: their later legs are continued calls.
/// @param settings    the interfaces of incoming and outgoing calls; without them the interface's kind decides.
/// @param clock       the exchange reports UTC.
Outcome ConvertInnovaphone(std::u16string_view record, ReferenceTable& references, const server::Settings& settings,
                           const server::Clock& clock, GdvRecord& gdv);

}  // namespace vintrel::cdr
