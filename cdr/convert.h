// GetComConvertStringRX: the way of a call record from the exchange's form to the Gdv record.
#pragma once

#include <string_view>

#include "cdr/continuation_table.h"
#include "cdr/gdv_record.h"
#include "cdr/reference_table.h"
#include "server/platform.h"
#include "server/settings.h"
#include "server/text.h"

namespace vintrel::cdr {

/// What conversions remember from one record to the next, as long as the server lives.
struct CallRecordState {
    ContinuationTable continuation;  ///< IP Office
    ReferenceTable references;       ///< innovaphone
};

/// Converts one raw record.
/// @param type    compared as it stands: a lower-case code is unknown.
/// @param record  replaced by the text that was cut out of it for TYPE10003 and TYPE10010, else unchanged.
/// @return the Gdv record; the single character DLE when the record is not a call to be charged; empty, after the error
///         report, for an unknown code. A record with a value that does not fit comes out shorter than 87 characters.
GdvRecord GetComConvertStringRX(std::u16string_view type, server::InOutText& record, CallRecordState& state,
                                const server::Settings& settings, const server::Clock& clock,
                                server::CriticalMessage& message);

}  // namespace vintrel::cdr
