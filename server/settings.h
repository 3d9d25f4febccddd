// The settings that initialisation fills and every other room reads: one set per server process.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace vintrel::server {

struct Settings {
    std::u16string DocumentsDir;  ///< folder of "Quindara.cfg" and "Vintrel.ini", without a trailing separator
    std::u16string HelpFile;
    std::u16string HelpIndex;                     ///< help page name without ".htm"
    std::array<std::u16string, 11> FormCaptions;  ///< 0: hint of the list window, 1: its heading, the rest unused

    // The exchange, from "Quindara.cfg".
    std::u16string PbxHost;
    std::int32_t PbxPort = 0;
    std::u16string PbxUser;
    std::u16string PbxPassword;

    // Hotel functions switched on (IP Office, Panasonic TCP/IP), from "Vintrel.ini".
    bool HotelEnabled = false;

    // innovaphone, from "Vintrel.ini": upper case, but for the two wake-up endpoints.
    std::u16string CallIncomingSrcIf;
    std::u16string CallIncomingDstIf;
    std::u16string CallOutgoingSrcIf;
    std::u16string CallOutgoingDstIf;
    std::u16string RoomStatusCleanCdpn;
    std::u16string RoomStatusNotCleanCdpn;
    std::u16string RoomStatusAlarmCdpn;
    std::u16string RoomStatusCleanOccupiedCdpn;
    std::u16string RoomStatusNotCleanOccupiedCdpn;
    std::u16string RoomStatusInspectedOccupiedCdpn;
    std::u16string WakeupResponseH323;
    std::u16string WakeupResponseFallback;

    // IP Office, from "Vintrel.ini".
    std::u16string IpOfficeHost;  ///< lower case
    std::int32_t IpOfficePort = 0;

    // Grandstream.
    std::u16string GsToken;
    std::u16string GsBaseUrl;
    bool GsStateFlag = false;
    std::array<std::u16string, 9> GsSession;

    // Telephony (Panasonic TCP/IP).
    std::uint32_t TapiLineApp = 0;  ///< 0 when not started
    std::uint32_t TapiLineCount = 0;
    bool TapiReady = false;
    std::uint32_t TapiLastReplyId = 0;
};

}  // namespace vintrel::server
