// The operations of SetServerOptions: texts, folders, and making the server ready for one exchange model.
#pragma once

#include <cstdint>
#include <string_view>

#include "server/platform.h"
#include "server/settings.h"
#include "server/type_code.h"

namespace vintrel::server {

/// What initialisation uses of the platform.
struct InitialisationPlatform {
    CriticalMessage& message;
    const Files& files;
    IniStore& ini;
    const AnsiText& ansi;
    Md5& md5;
    RequestEngine& request_engine;
    TelephonyService& telephony;
    MessageLoop& loop;
};

/// The texts of the list window: "GER" or "ITA" in any case; another value changes nothing. The hint about the help
/// page appears only when a help file was set before.
void SetServerLanguage(std::u16string_view language, Settings& settings);

/// The compiled help file, and the page in it (without ".htm") with the connection diagrams.
void SetHelpFilePage(std::u16string_view page, std::u16string_view index, Settings& settings);

/// The folder of both configuration files, as given: without a trailing separator.
void SetAllUserCommonDocumentsDirA(std::u16string_view folder, Settings& settings);

/// Reads the configuration of a model and prepares what the server itself drives for it. Always 0. A failed call
/// leaves every setting as it was.
/// @throws OperationError  a configuration file cannot be read or is malformed, a port is out of range, the token
///                         cannot be formed, or the system has no request engine.
std::int16_t InitializeServer(TypeCode type, Settings& settings, const InitialisationPlatform& platform);

/// The second stage: starts telephony for the Panasonic TCP/IP model when its hotel functions are on; for the other
/// models initialises once more. Unknown codes are ignored. Always 0.
std::int16_t InitializeServerSec(TypeCode type, Settings& settings, const InitialisationPlatform& platform);

/// Ends telephony. Always 0.
std::int16_t UnInitializeServer(TypeCode type, Settings& settings, TelephonyService& telephony);

}  // namespace vintrel::server
