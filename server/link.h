// How the host runs the link of each model: the 24 answers of ComProgramSet. Several numbers are codes that only the
// host gives a meaning; what is said of them here is which models share one. An unknown code answers 0 or "", after the
// error report.
#pragma once

#include <cstdint>
#include <string_view>

#include "server/type_code.h"

namespace vintrel::server {

/// Serial port readiness: 0 for the Avaya Integral models with STX ETX frames, 1 for all others.
std::int16_t ComPortReadyType(TypeCode type, platform::CriticalMessage& message);
/// Timing of the DTR signal: 0 and 1 for the same models.
std::int16_t ComPortDTRTime(TypeCode type, platform::CriticalMessage& message);

/// The frame characters that the host builds its reading on, whatever the model.
std::u16string_view GetComSTXRx();
std::u16string_view GetComETXRx();
std::u16string_view GetComDLERx();

/// How the end of a frame is recognised: 1 or 2; the end strings themselves are in rx/framing.
std::int16_t GetComEtxEndReadRxType(TypeCode type, platform::CriticalMessage& message);
/// 1 when one read may take several durations.
std::int16_t GetComMultiDurationReadRx(TypeCode type, platform::CriticalMessage& message);
/// 1 when the host reads through a buffer.
std::int16_t UseDataReadBuffer(TypeCode type, platform::CriticalMessage& message);

/// 0 serial line, 1 lines of CSV, 2 network.
std::int16_t GetPABXConnectionType(TypeCode type, platform::CriticalMessage& message);
/// Which of the host's sockets serves the link: 2 for the models whose orders the server carries out itself over HTTP
/// or SOAP, 1 for the hotel links of Mitel TCP/IP and for FIAS, else 0.
std::int16_t GetTCPIPWinsockAB(TypeCode type, platform::CriticalMessage& message);
/// Who opens the connection: 1 for one model only, Panasonic TCP/IP.
std::int16_t GetTCPIPConnectDirection(TypeCode type, platform::CriticalMessage& message);
/// The host's way of connecting: 1 for Mitel TCP/IP, IP Office, Grandstream and FIAS, else 0.
std::int16_t GetPABXTCPIPConnectionType(TypeCode type, platform::CriticalMessage& message);
/// How often to reconnect: 0, 1 or 65500, in the host's unit.
std::int32_t GetPABXTCPIPREConnection(TypeCode type, platform::CriticalMessage& message);

// The login dialogue: the request texts are matched against what the exchange sends, the confirm texts answer them.
// "HTTP" in a request means that the server logs in itself; "" that the model has no such step.
std::u16string_view GetPABXTCPIPIDRequest(TypeCode type, platform::CriticalMessage& message);
std::u16string_view GetPABXTCPIPIDConfirm(TypeCode type, platform::CriticalMessage& message);
std::u16string_view GetPABXTCPIPPWRequest(TypeCode type, platform::CriticalMessage& message);
std::u16string_view GetPABXTCPIPPWConfirm(TypeCode type, platform::CriticalMessage& message);
std::u16string_view GetPABXTCPIPIDRequest2(TypeCode type, platform::CriticalMessage& message);
std::u16string_view GetPABXTCPIPIDConfirm2(TypeCode type, platform::CriticalMessage& message);
std::u16string_view GetPABXTCPIPPWRequest2(TypeCode type, platform::CriticalMessage& message);
std::u16string_view GetPABXTCPIPPWConfirm2(TypeCode type, platform::CriticalMessage& message);
/// A download command; no model has one.
std::u16string_view GetPABXTCPIPDLCommand(TypeCode type, platform::CriticalMessage& message);

/// Kind of check-in: 1 for the models of GetINIEnabled and for FIAS, else 0.
std::int32_t GetCheckInType(TypeCode type, platform::CriticalMessage& message);
/// 1 when the model has sections of its own in "Vintrel.ini".
std::int32_t GetINIEnabled(TypeCode type, platform::CriticalMessage& message);

}  // namespace vintrel::server
