// The records of a FIAS link: link start, alive and end, database end, single fields, the answer to a posting.
#pragma once

#include <string>
#include <string_view>

#include "platform/clock.h"
#include "text/text.h"

namespace vintrel::exchanges::fias {

/// STX "LS|DAyymmdd|TIhhmmss|" ETX with the local date and time; the others likewise with "LA", "LE", "DE".
std::u16string GetPMS_LS_String(const platform::Clock& clock);
std::u16string GetPMS_LA_String(const platform::Clock& clock);
std::u16string GetPMS_LE_String(const platform::Clock& clock);
std::u16string GetPMS_DE_String(const platform::Clock& clock);

/// The value behind `column` (such as "|RN") up to the next "|"; "" when the column is missing. The caller's record is
/// trimmed.
/// @throws OperationError (invalid argument) when no "|" follows the column.
std::u16string GetPMS_ColumnData(text::InOutText& record, std::u16string_view column);

/// The answer to a posting ("PS"): STX "PA|RNroom|ASOK|DAdate|TItime|P#number|" ETX with the posting's values, which
/// are found by their bare keys wherever these stand first. The caller's record is trimmed.
/// @throws OperationError (invalid argument) when no "|" follows one of the keys.
std::u16string GetPMS_PSConfirm(text::InOutText& record);

}  // namespace vintrel::exchanges::fias
