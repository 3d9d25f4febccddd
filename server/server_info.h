// The operations of ServerInfo: the server's version, the catalogue, and the window that lists it.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/desktop.h"
#include "platform/settings.h"
#include "server/type_code.h"

namespace vintrel::server {

std::u16string_view GetServerVersion();

/// The version as a currency value: ten-thousandths, 28410 is 2.8410.
std::int64_t GetServerVersionCur();

/// 1 for a code of the catalogue, else 0. Which model is in use does not matter.
std::int16_t GetPabxActiveType(TypeCode type);

/// The model's name, or "type not found".
std::u16string_view GetPabxTypeName(TypeCode type);

/// Shows the list window, modeless. A double click on it opens the help page that is set at that moment.
/// `settings` and `help_viewer` must outlive the window.
void GetPabxTypeList(const platform::Settings& settings, platform::SupportListWindow& window,
                     platform::HelpViewer& help_viewer);

}  // namespace vintrel::server
