// The host's configuration file "Quindara.cfg" in the documents folder, which is only read here.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/ansi_text.h"
#include "platform/files.h"
#include "platform/settings.h"

namespace vintrel::platform {

/// How to reach the exchange.
struct PbxAccess {
    std::u16string host;
    std::int32_t port = 0;
    std::u16string user;
    std::u16string password;

    void TakeOver(Settings& settings) &&;
};

/// Records 156 to 159 of "Quindara.cfg" (records of 624 bytes, numbered from 1): host, port, user, password. A text is
/// a 16-bit length and that many characters of the system's code page, the port a 32-bit number, both little-endian.
/// Nothing when there is no such file.
/// @throws OperationError  75 the file cannot be read (another program may hold it locked), 62 it ends too early,
///                         59 a text does not fit into its record.
std::optional<PbxAccess> ReadPbxAccess(const Settings& settings, const Files& files, const AnsiText& ansi);

}  // namespace vintrel::platform
