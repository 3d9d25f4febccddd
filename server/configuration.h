// The two configuration files in the documents folder: the host's "Quindara.cfg", only read here, and the server's own
// "Vintrel.ini".
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "server/catalogue.h"
#include "server/platform.h"
#include "server/settings.h"

namespace vintrel::server {

/// How to reach the exchange, from "Quindara.cfg".
struct PbxAccess {
    std::u16string host;
    std::int32_t port = 0;
    std::u16string user;
    std::u16string password;
};

/// Records 156 to 159 of "Quindara.cfg" (records of 624 bytes, numbered from 1): host, port, user, password. A text is
/// a 16-bit length and that many characters of the system's code page, the port a 32-bit number, both little-endian.
/// Nothing when there is no such file.
/// @throws OperationError  75 the file cannot be read (another program may hold it locked), 62 it ends too early,
///                         59 a text does not fit into its record.
std::optional<PbxAccess> ReadPbxAccess(const Settings& settings, const Files& files, const AnsiText& ansi);

/// Writes "Vintrel.ini" with the model's defaults when the whole file is missing; an existing file is not completed.
void WriteIniDefaults(Model model, const Settings& settings, const Files& files, IniStore& ini);

/// Reads the model's values of "Vintrel.ini" into the settings.
/// @throws OperationError  6 the port of the IP Office exceeds 32 bits.
void ReadIniSettings(Model model, Settings& settings, IniStore& ini);

/// The value without blanks around it and without anything from the first NUL on; "" when it is missing.
std::u16string ReadIniValue(IniStore& ini, std::u16string_view path, std::u16string_view section,
                            std::u16string_view key);
void WriteIniValue(IniStore& ini, std::u16string_view path, std::u16string_view section, std::u16string_view key,
                   std::u16string_view value);

/// The identifier of a user number in the section USERS of "Vintrel.ini"; "" for 0 and for a missing entry.
std::u16string GetIniUser(std::int32_t number, const Settings& settings, IniStore& ini);

}  // namespace vintrel::server
