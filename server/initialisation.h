// The operations of SetServerOptions: texts, folders, and making the server ready for one exchange model.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/settings.h"
#include "server/type_code.h"

namespace vintrel::server {

/// The texts of the list window: "GER" or "ITA" in any case; another value changes nothing. The hint about the help
/// page appears only when a help file was set before.
void SetServerLanguage(std::u16string_view language, platform::Settings& settings);

/// The compiled help file, and the page in it (without ".htm") with the connection diagrams.
void SetHelpFilePage(std::u16string_view page, std::u16string_view index, platform::Settings& settings);

/// The folder of both configuration files, as given: without a trailing separator.
void SetAllUserCommonDocumentsDirA(std::u16string_view folder, platform::Settings& settings);

/// Reads the configuration of a model and prepares what the server itself drives for it. Always 0. A failed call
/// leaves every setting as it was.
/// @throws OperationError  a configuration file cannot be read or is malformed, a port is out of range, the token
///                         cannot be formed, or the system has no request engine.
std::int16_t InitializeServer(TypeCode type, const exchanges::Exchanges& exchanges, platform::CriticalMessage& message);

/// The second stage: starts telephony for the Panasonic TCP/IP model when its hotel functions are on; other models are
/// initialised once more. Unknown codes are ignored. Always 0.
/// @throws OperationError  as InitializeServer.
std::int16_t InitializeServerSec(TypeCode type, const exchanges::Exchanges& exchanges);

/// Ends telephony. Always 0.
std::int16_t UnInitializeServer(TypeCode type, const exchanges::Exchanges& exchanges);

}  // namespace vintrel::server
