// The settings that all exchanges share: one set per server process.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace vintrel::platform {

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
};

}  // namespace vintrel::platform
