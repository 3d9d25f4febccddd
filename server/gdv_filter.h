// ComGdvFilter: where the host finds each field of a Gdv record. "Start" is a field's first column within the body,
// counted from 1; "Stop", despite its name, is the field's length.
#pragma once

#include <cstdint>

#include "records/layout.h"
#include "server/type_code.h"

namespace vintrel::server {

/// The length that the host applies to raw records of the model before it hands them over for conversion.
std::int16_t GetGdvRealClockLen(TypeCode type, platform::CriticalMessage& message);

constexpr std::int16_t GetGdvRealStringLen() { return records::kGdvRecordLength; }
constexpr std::int16_t GetGdvRealStringLenStart() { return records::kGdvBody.start; }
constexpr std::int16_t GetGdvRealStringLenStop() { return records::kGdvBody.length; }
constexpr std::int16_t GetGdvLineLenStart() { return records::kLine.start; }
constexpr std::int16_t GetGdvLineLenStop() { return records::kLine.length; }
constexpr std::int16_t GetGdvUserLenStart() { return records::kUser.start; }
constexpr std::int16_t GetGdvUserLenStop() { return records::kUser.length; }
constexpr std::int16_t GetGdvNumberLenStart() { return records::kNumber.start; }
constexpr std::int16_t GetGdvNumberLenStop() { return records::kNumber.length; }
constexpr std::int16_t GetGdvUserCodeLenStart() { return records::kUserCode.start; }
constexpr std::int16_t GetGdvUserCodeLenStop() { return records::kUserCode.length; }
constexpr std::int16_t GetGdvUnityLenStart() { return records::kUnity.start; }
constexpr std::int16_t GetGdvUnityLenStop() { return records::kUnity.length; }
constexpr std::int16_t GetGdvDateDLenStart() { return records::kDateD.start; }
constexpr std::int16_t GetGdvDateDLenStop() { return records::kDateD.length; }
constexpr std::int16_t GetGdvDateMLenStart() { return records::kDateM.start; }
constexpr std::int16_t GetGdvDateMLenStop() { return records::kDateM.length; }
constexpr std::int16_t GetGdvDateYLenStart() { return records::kDateY.start; }
constexpr std::int16_t GetGdvDateYLenStop() { return records::kDateY.length; }
constexpr std::int16_t GetGdvTimeHLenStart() { return records::kTimeH.start; }
constexpr std::int16_t GetGdvTimeHLenStop() { return records::kTimeH.length; }
constexpr std::int16_t GetGdvTimeMLenStart() { return records::kTimeM.start; }
constexpr std::int16_t GetGdvTimeMLenStop() { return records::kTimeM.length; }
constexpr std::int16_t GetGdvDurationSLenStart() { return records::kDurationS.start; }
constexpr std::int16_t GetGdvDurationSLenStop() { return records::kDurationS.length; }
constexpr std::int16_t GetGdvTypeLenStart() { return records::kType.start; }
constexpr std::int16_t GetGdvTypeLenStop() { return records::kType.length; }
constexpr std::int16_t GetGdvInfoLenStart() { return records::kInfo.start; }
constexpr std::int16_t GetGdvInfoLenStop() { return records::kInfo.length; }
constexpr std::int16_t GetGdvPTYNumberLenStart() { return records::kPTYNumber.start; }
constexpr std::int16_t GetGdvPTYNumberLenStop() { return records::kPTYNumber.length; }
constexpr std::int16_t GetGdvMacAddressLenStart() { return records::kMacAddress.start; }
constexpr std::int16_t GetGdvMacAddressLenStop() { return records::kMacAddress.length; }

}  // namespace vintrel::server
