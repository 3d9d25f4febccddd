// ComGdvFilter: where the host finds each field of a Gdv record. "Start" is a field's first column within the body,
// counted from 1; "Stop", despite its name, is the field's length.
#pragma once

#include <cstdint>

#include "cdr/gdv_record.h"
#include "server/type_code.h"

namespace vintrel::cdr {

/// The length that the host applies to raw records of the model before it hands them over for conversion.
std::int16_t GetGdvRealClockLen(server::TypeCode type, server::CriticalMessage& message);

constexpr std::int16_t GetGdvRealStringLen() { return kGdvRecordLength; }
constexpr std::int16_t GetGdvRealStringLenStart() { return kGdvBody.start; }
constexpr std::int16_t GetGdvRealStringLenStop() { return kGdvBody.length; }
constexpr std::int16_t GetGdvLineLenStart() { return kLine.start; }
constexpr std::int16_t GetGdvLineLenStop() { return kLine.length; }
constexpr std::int16_t GetGdvUserLenStart() { return kUser.start; }
constexpr std::int16_t GetGdvUserLenStop() { return kUser.length; }
constexpr std::int16_t GetGdvNumberLenStart() { return kNumber.start; }
constexpr std::int16_t GetGdvNumberLenStop() { return kNumber.length; }
constexpr std::int16_t GetGdvUserCodeLenStart() { return kUserCode.start; }
constexpr std::int16_t GetGdvUserCodeLenStop() { return kUserCode.length; }
constexpr std::int16_t GetGdvUnityLenStart() { return kUnity.start; }
constexpr std::int16_t GetGdvUnityLenStop() { return kUnity.length; }
constexpr std::int16_t GetGdvDateDLenStart() { return kDateD.start; }
constexpr std::int16_t GetGdvDateDLenStop() { return kDateD.length; }
constexpr std::int16_t GetGdvDateMLenStart() { return kDateM.start; }
constexpr std::int16_t GetGdvDateMLenStop() { return kDateM.length; }
constexpr std::int16_t GetGdvDateYLenStart() { return kDateY.start; }
constexpr std::int16_t GetGdvDateYLenStop() { return kDateY.length; }
constexpr std::int16_t GetGdvTimeHLenStart() { return kTimeH.start; }
constexpr std::int16_t GetGdvTimeHLenStop() { return kTimeH.length; }
constexpr std::int16_t GetGdvTimeMLenStart() { return kTimeM.start; }
constexpr std::int16_t GetGdvTimeMLenStop() { return kTimeM.length; }
constexpr std::int16_t GetGdvDurationSLenStart() { return kDurationS.start; }
constexpr std::int16_t GetGdvDurationSLenStop() { return kDurationS.length; }
constexpr std::int16_t GetGdvTypeLenStart() { return kType.start; }
constexpr std::int16_t GetGdvTypeLenStop() { return kType.length; }
constexpr std::int16_t GetGdvInfoLenStart() { return kInfo.start; }
constexpr std::int16_t GetGdvInfoLenStop() { return kInfo.length; }
constexpr std::int16_t GetGdvPTYNumberLenStart() { return kPTYNumber.start; }
constexpr std::int16_t GetGdvPTYNumberLenStop() { return kPTYNumber.length; }
constexpr std::int16_t GetGdvMacAddressLenStart() { return kMacAddress.start; }
constexpr std::int16_t GetGdvMacAddressLenStop() { return kMacAddress.length; }

}  // namespace vintrel::cdr
