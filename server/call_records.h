// The way of a call record from the exchange's form to the Gdv record.
#pragma once

#include <string_view>

#include "exchanges/catalogue.h"
#include "platform/desktop.h"
#include "records/gdv_record.h"
#include "text/text.h"

namespace vintrel::server {

/// Converts one raw record.
/// @param type    compared as it stands: a lower-case code is unknown.
/// @param record  replaced by the text that was cut out of it for TYPE10003 and TYPE10010, else unchanged.
/// @return the Gdv record; the single character DLE when the record is not a call to be charged; empty, after the error
///         report, for an unknown code. A record with a value that does not fit comes out shorter than 87 characters.
records::GdvRecord GetComConvertStringRX(std::u16string_view type, text::InOutText& record,
                                         const exchanges::Exchanges& exchanges, platform::CriticalMessage& message);

}  // namespace vintrel::server
