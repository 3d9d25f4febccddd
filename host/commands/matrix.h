// Which hotel services each model offers, as the server answers.
#pragma once

#include <string>
#include <vector>

#include "host/output.h"
#include "host/server.h"

namespace vintrel::host {

/// A row per code: "yes" or "no" per service, and the wake-up date level.
void WriteMatrix(const Server& server, const std::vector<std::string>& codes, Format format, Output& output);

}  // namespace vintrel::host
