// Which hotel services each model offers, as the server answers.
#pragma once

#include <string>
#include <vector>

#include "host/record_writer.h"
#include "host/server.h"

namespace vintrel::host {

/// A row per code: "yes" or "no" per service, and the wake-up date level.
/// @return the columns that are left out
std::string WriteMatrix(const Server& server, const std::vector<std::string>& codes, const Presentation& presentation,
                        Output& output);

}  // namespace vintrel::host
